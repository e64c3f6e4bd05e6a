#include "g3d_GeomUtils.h"

#include "g3d_PreparedLine.h"
#include "g3d_VectorAlgebra.h"

#include <algorithm>

namespace {

/// Sine of the angle up to which two lines may be one; the tolerance decides whether they are.
constexpr double alongSine = 1e-6;

/// Up to this sine lines that are not one never meet.
constexpr double parallelSine = 1e-12;

/// A line by its first point, its direction and its length.
struct Line {
    Line(g3d_Storage const & from, g3d_Storage const & to) : start(from), length(0) {
        g3d_Storage const difference = g3d_difference(to, from);
        double const distance = g3d_Magnitude(difference);
        if (!(distance > 0) || !std::isfinite(distance))
            return;
        length = distance;
        unit.Set(difference.X() / distance, difference.Y() / distance, difference.Z() / distance);
    }

    bool isNone() const { return length == 0; }
    double parameter(g3d_Storage const & point) const { return g3d_dot(g3d_difference(point, start), unit) / length; }
    double distanceOf(g3d_Storage const & point) const {
        g3d_Storage const offset = g3d_difference(point, start);
        return g3d_Magnitude(g3d_moved(offset, -g3d_dot(offset, unit), unit));
    }
    bool passes(g3d_Storage const & point) const { return distanceOf(point) <= g3d_GeomUtils::getTolerance(); }
    double reach() const { return g3d_GeomUtils::getTolerance() / length; }
    bool hasOnSegment(double parameter) const { return parameter >= -reach() && parameter <= 1 + reach(); }

    g3d_Storage start, unit;
    double length; ///< 0 when the points define no line
};

/// The lines cross at some angle; `normal` is the cross product of their directions, `sine` its length.
int meetAcross(Line const & p, Line const & q, g3d_Storage const & normal, double sine, double * t, double * s,
               bool flag, bool flag2) {
    g3d_Storage const offset = g3d_difference(q.start, p.start);
    if (!(std::fabs(g3d_dot(offset, normal)) / sine <= g3d_GeomUtils::getTolerance()))
        return 0;
    double const onP = g3d_dot(g3d_cross(offset, q.unit), normal) / sine / sine / p.length;
    double const onQ = g3d_dot(g3d_cross(offset, p.unit), normal) / sine / sine / q.length;
    if ((flag && !p.hasOnSegment(onP)) || (flag2 && !q.hasOnSegment(onQ)))
        return 0;
    t[0] = onP;
    s[0] = onQ;
    return 1;
}

/// The second line runs along the first, with its two points at the parameters `from` and `to`, which are equal where
/// it is too short to tell from so far away.
int meetAlong(Line const & p, double from, double to, double * t, double * s, bool flag, bool flag2) {
    t[0] = from;
    t[1] = to;
    if (flag && flag2) {
        if (std::min(from, to) > 1 + p.reach() || std::max(from, to) < -p.reach())
            return 0;
        t[0] = std::clamp(from, 0.0, 1.0);
        t[1] = std::clamp(to, 0.0, 1.0);
    } else if (flag) {
        t[0] = from < to ? 0 : 1;
        t[1] = 1 - t[0];
    }
    for (int i = 0; i < 2; ++i)
        s[i] = from == to ? 0 : (t[i] - from) / (to - from);
    return t[0] == t[1] ? 1 : 2;
}

} // namespace

bool g3d_GeomUtils::LinePointIntersection(g3d_Storage const & p0, g3d_Storage const & p1, g3d_Storage const & point,
                                          double & t, bool flag) {
    Line const line(p0, p1);
    if (line.isNone() || !line.passes(point))
        return false;
    double const parameter = line.parameter(point);
    if (flag && !line.hasOnSegment(parameter))
        return false;
    t = parameter;
    return true;
}

bool g3d_GeomUtils::LineLineIntersection(g3d_Storage const & p0, g3d_Storage const & p1, g3d_Storage const & q0,
                                         g3d_Storage const & q1, double * t, double * s, int & count, bool flag,
                                         bool flag2) {
    count = 0;
    Line const p(p0, p1), q(q0, q1);
    if (p.isNone() || q.isNone())
        return false;
    g3d_Storage const normal = g3d_cross(p.unit, q.unit);
    double const sine = g3d_Magnitude(normal);
    if (sine <= alongSine && p.passes(q0) && p.passes(q1))
        count = meetAlong(p, p.parameter(q0), p.parameter(q1), t, s, flag, flag2);
    else if (sine > parallelSine)
        count = meetAcross(p, q, normal, sine, t, s, flag, flag2);
    return count > 0;
}

bool g3d_GeomUtils::LineTriIntersection(g3d_Storage const & p0, g3d_Storage const & p1, g3d_Storage const & a,
                                        g3d_Storage const & b, g3d_Storage const & c, double * t, double * u,
                                        double * v, int & count, bool flag) {
    g3d_PreparedLine const line(p0, p1, flag);
    count = line.Meet(line.Place(a), line.Place(b), line.Place(c), t, u, v);
    return count > 0;
}
