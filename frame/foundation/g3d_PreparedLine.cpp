#include "g3d_PreparedLine.h"

#include "g3d_GeomUtils.h"
#include "g3d_VectorAlgebra.h"

#include <algorithm>
#include <cmath>

namespace {

/// What a barycentric coordinate may miss a closed triangle by.
constexpr double weightSlack = 1e-9;

/// What a line touches of a triangle is a point up to this part of the triangle's extent along the line.
constexpr double touch = 1e-6;

/// Sine of the angle to the plane up to which a line may lie in the plane; the tolerance decides whether it does.
constexpr double grazingSine = 1e-6;

/// Up to this sine a line off the plane never meets it.
constexpr double parallelSine = 1e-12;

/// A square of grazingSine that a sheared triangle cannot undercut: the shear changes angles less than tenfold.
constexpr double shearedGrazing = 100 * grazingSine * grazingSine;

/// Sine of the angle between two edges up to which a triangle has no area.
constexpr double flatSine = 1e-12;

double component(g3d_Storage const & v, int axis) {
    return axis == 0 ? v.X() : axis == 1 ? v.Y() : v.Z();
}

int longestAxis(g3d_Storage const & v) {
    double const x = std::fabs(v.X()), y = std::fabs(v.Y()), z = std::fabs(v.Z());
    if (x >= y && x >= z)
        return 0;
    return y >= z ? 1 : 2;
}

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

/// Twice the areas that the line's point makes with the edges of a sheared triangle, opposite to a, b and c, and their
/// sum; `tilt` is the square of the part of the triangle's area that stands along the line.
struct g3d_PreparedLine::Weights {
    double a, b, c, sum, tilt;
};

/// The plane of a triangle: two edges from corner a, and their cross product.
struct g3d_PreparedLine::Plane {
    g3d_Storage corner, edgeB, edgeC, normal;
    double area; ///< length of the normal

    Plane(g3d_Storage const & a, g3d_Storage const & b, g3d_Storage const & c)
        : corner(a), edgeB(g3d_difference(b, a)), edgeC(g3d_difference(c, a)), normal(g3d_cross(edgeB, edgeC)),
          area(g3d_Magnitude(normal)) {}

    bool hasArea() const { return area > flatSine * g3d_Magnitude(edgeB) * g3d_Magnitude(edgeC); }

    /// Height over the plane.
    double height(g3d_Storage const & point) const { return g3d_dot(normal, g3d_difference(point, corner)) / area; }

    double weightB(g3d_Storage const & offset) const { return part(g3d_cross(offset, edgeC)); }
    double weightC(g3d_Storage const & offset) const { return part(g3d_cross(edgeB, offset)); }

private:
    double part(g3d_Storage const & v) const { return g3d_dot(v, normal) / area / area; }
};

g3d_PreparedLine::g3d_PreparedLine(g3d_Storage const & start, g3d_Storage const & end, bool isSegment)
    : origin(start), direction(g3d_difference(end, start)), length(g3d_Magnitude(direction)), isBounded(isSegment),
      hasLength(length > 0 && std::isfinite(length)) {
    if (!hasLength)
        return;
    reach = g3d_GeomUtils::getTolerance() / length;
    int const main = longestAxis(direction);
    axes[0] = (main + 1) % 3;
    axes[1] = (main + 2) % 3;
    axes[2] = main;
    double const run = component(direction, main);
    shear[0] = component(direction, axes[0]) / run;
    shear[1] = component(direction, axes[1]) / run;
    shear[2] = 1 / run;
}

g3d_PreparedLine::Corner g3d_PreparedLine::Place(g3d_Storage const & point) const {
    g3d_Storage const offset = g3d_difference(point, origin);
    double const z = component(offset, axes[2]);
    return {&point, component(offset, axes[0]) - shear[0] * z, component(offset, axes[1]) - shear[1] * z, z};
}

g3d_PreparedLine::Weights g3d_PreparedLine::weightsOf(Corner const & a, Corner const & b, Corner const & c) {
    Weights weights;
    weights.a = b.x * c.y - b.y * c.x;
    weights.b = c.x * a.y - c.y * a.x;
    weights.c = a.x * b.y - a.y * b.x;
    weights.sum = weights.a + weights.b + weights.c;
    double const tiltX = (b.y - a.y) * (c.z - a.z) - (b.z - a.z) * (c.y - a.y);
    double const tiltY = (b.z - a.z) * (c.x - a.x) - (b.x - a.x) * (c.z - a.z);
    weights.tilt = tiltX * tiltX + tiltY * tiltY;
    return weights;
}

int g3d_PreparedLine::Meet(Corner const & a, Corner const & b, Corner const & c, double * t, double * u,
                           double * v) const {
    if (!hasLength)
        return 0;
    Weights const weights = weightsOf(a, b, c);
    bool const isGrazing = weights.sum * weights.sum <= shearedGrazing * weights.tilt;
    int const count = isGrazing ? meetGrazing(weights, a, b, c, t, u, v) : meetAcross(weights, a, b, c, t, u, v);
    // Where products of positions overflow or vanish, hits come out that are none.
    for (int i = 0; i < count; ++i)
        if (!(std::isfinite(t[i]) && u[i] >= -2 * weightSlack && v[i] >= -2 * weightSlack &&
              u[i] + v[i] <= 1 + 2 * weightSlack))
            return 0;
    return count;
}

int g3d_PreparedLine::meetAcross(Weights const & weights, Corner const & a, Corner const & b, Corner const & c,
                                 double * t, double * u, double * v) const {
    double const least = -weightSlack * weights.sum * weights.sum;
    if (weights.sum == 0 ||
        !(weights.a * weights.sum >= least && weights.b * weights.sum >= least && weights.c * weights.sum >= least))
        return 0;
    if (!Plane(*a.position, *b.position, *c.position).hasArea())
        return 0;
    double const parameter = (weights.a * a.z + weights.b * b.z + weights.c * c.z) / weights.sum * shear[2];
    if (isBounded && !(parameter >= -reach && parameter <= 1 + reach))
        return 0;
    t[0] = parameter;
    u[0] = weights.b / weights.sum;
    v[0] = weights.c / weights.sum;
    return 1;
}

/// The line runs almost along the plane: it lies in it when it keeps within the tolerance all along the triangle.
int g3d_PreparedLine::meetGrazing(Weights const & weights, Corner const & a, Corner const & b, Corner const & c,
                                  double * t, double * u, double * v) const {
    Plane const plane(*a.position, *b.position, *c.position);
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

bool g3d_PreparedLine::liesIn(Plane const & plane, double const (&corners)[3]) const {
    return std::all_of(corners, corners + 3, [&](double parameter) {
        return std::fabs(plane.height(g3d_moved(origin, parameter, direction))) <= g3d_GeomUtils::getTolerance();
    });
}

/// Where a line of the triangle's plane enters and leaves it. Parameters are taken from the middle of the triangle, so
/// that a start far away costs no digits.
int g3d_PreparedLine::meetInPlane(Plane const & plane, double const (&corners)[3], double * t, double * u,
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
        inside.raise(0, -reach);
        inside.lower(1, 1 + reach);
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
    return count;
}
