#include "g3d_PreparedLine.h"

#include <algorithm>

namespace {

constexpr double weightSlack = g3d_PreparedLine::weightSlack;

/// What a line touches of a triangle is a point up to this part of the triangle's extent along the line.
constexpr double touch = 1e-6;

/// Up to this sine a line off the plane never meets it.
constexpr double parallelSine = 1e-12;

/// What is left of a line between limits. The loose limits have their slack; they decide whether anything is left.
struct Interval {
    double low, high, looseLow, looseHigh;

    void raise(double limit, double looseLimit) {
        low = std::max(low, limit);
        looseLow = std::max(looseLow, looseLimit);
    }
    void lower(double limit, double looseLimit) {
        high = std::min(high, limit);
        looseHigh = std::min(looseHigh, looseLimit);
    }
    bool isEmpty() const { return !(looseLow <= looseHigh); }
    bool isPoint() const { return !(low < high); }

    /// What only the slack has left: most often a point, but long where the line runs along an edge.
    void takeLoose(bool isBounded, double longestPoint) {
        low = isBounded ? std::clamp(looseLow, 0.0, 1.0) : looseLow;
        high = isBounded ? std::clamp(looseHigh, 0.0, 1.0) : looseHigh;
        if (high - low <= longestPoint)
            low = high = 0.5 * (low + high);
    }
};

/// A barycentric coordinate along a line: its value at one point, and its slope.
struct LinearWeight {
    double start, slope;

    double at(double distance) const { return start + slope * distance; }

    /// Leaves what of the interval the weight is not negative on. A line along the edge where it is 0 has no end there.
    void cut(Interval & interval, double extent) const {
        if (std::fabs(slope) * extent <= weightSlack) {
            if (!(start >= -weightSlack))
                interval.looseHigh = interval.looseLow - 1;
        } else if (slope > 0) {
            interval.raise(-start / slope, -(start + weightSlack) / slope);
        } else {
            interval.lower(-start / slope, -(start + weightSlack) / slope);
        }
    }
};

} // namespace

/// A plane that heights and weights are measured in.
struct g3d_PreparedLine::MeasuredPlane : Plane {
    double area; ///< length of the normal

    explicit MeasuredPlane(Plane const & plane) : Plane(plane), area(g3d_Magnitude(normal)) {}

    /// Height over the plane.
    double height(g3d_Storage const & point) const { return g3d_dot(normal, g3d_difference(point, corner)) / area; }

    double weightB(g3d_Storage const & offset) const { return part(g3d_cross(offset, edgeC)); }
    double weightC(g3d_Storage const & offset) const { return part(g3d_cross(edgeB, offset)); }

private:
    double part(g3d_Storage const & v) const { return g3d_dot(v, normal) / area / area; }
};

/// The line runs almost along the plane: it lies in it when it keeps within the tolerance all along the triangle.
int g3d_PreparedLine::meetGrazing(Weights const & weights, Corner const & a, Corner const & b, Corner const & c,
                                  double * t, double * u, double * v) const {
    MeasuredPlane const plane(Plane(*a.position, *b.position, *c.position));
    if (!plane.hasArea())
        return 0;
    double const corners[3] = {along(*a.position), along(*b.position), along(*c.position)};
    double const sine = std::fabs(g3d_dot(plane.normal, direction)) / plane.area / length;
    if (sine <= grazingSine && liesIn(plane, corners))
        return meetInPlane(plane, corners, t, u, v);
    return sine > parallelSine ? meetAcross(weights, a, b, c, t, u, v) : 0;
}

/// The parameter of the line's point nearest to `point`.
double g3d_PreparedLine::along(g3d_Storage const & point) const {
    return g3d_dot(g3d_difference(point, origin), direction) / length / length;
}

bool g3d_PreparedLine::liesIn(MeasuredPlane const & plane, double const (&corners)[3]) const {
    return std::all_of(corners, corners + 3, [&](double parameter) {
        return std::fabs(plane.height(g3d_moved(origin, parameter, direction))) <= g3d_GeomUtils::getTolerance();
    });
}

/// Where a line of the triangle's plane enters and leaves it. Parameters are taken from the middle of the triangle, so
/// that a start far away costs no digits.
int g3d_PreparedLine::meetInPlane(MeasuredPlane const & plane, double const (&corners)[3], double * t, double * u,
                                  double * v) const {
    auto const [first, last] = std::minmax({corners[0], corners[1], corners[2]});
    double const middle = 0.5 * (first + last);
    double const extent = last - first;
    g3d_Storage const offset = g3d_difference(g3d_moved(origin, middle, direction), plane.corner);
    LinearWeight const b = {plane.weightB(offset), plane.weightB(direction)};
    LinearWeight const c = {plane.weightC(offset), plane.weightC(direction)};
    LinearWeight const a = {1 - b.start - c.start, -b.slope - c.slope};

    double const half = 0.5 * extent, looseHalf = half + weightSlack * extent;
    Interval inside = {-half, half, -looseHalf, looseHalf};
    for (LinearWeight const & weight : {a, b, c})
        weight.cut(inside, extent);
    inside = {middle + inside.low, middle + inside.high, middle + inside.looseLow, middle + inside.looseHigh};
    if (isBounded) {
        inside.raise(0, -reach());
        inside.lower(1, 1 + reach());
    }
    if (inside.isEmpty())
        return 0;

    if (inside.isPoint())
        inside.takeLoose(isBounded, touch * extent);
    int const count = inside.isPoint() ? 1 : 2;
    for (int i = 0; i < count; ++i) {
        t[i] = i == 0 ? inside.low : inside.high;
        // The slack is a length along the line: much, across a sliver.
        u[i] = std::clamp(b.at(t[i] - middle), 0.0, 1.0);
        v[i] = std::clamp(c.at(t[i] - middle), 0.0, 1.0 - u[i]);
    }
    for (int i = 0; i < count; ++i)
        if (!isHit(t[i], u[i], v[i]))
            return 0;
    return count;
}
