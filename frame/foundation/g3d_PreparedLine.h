#ifndef g3d_PreparedLine_h
#define g3d_PreparedLine_h

#include "g3d_GeomUtils.h"
#include "g3d_Storage.h"
#include "g3d_VectorAlgebra.h"

#include <cmath>

/// A line from one point (parameter 0) to another (parameter 1), endless or bounded to the segment between them, made
/// ready to meet many triangles. Whoever walks a surface places each of its points once.
///
/// A triangle across the line is met as the line sees it: its corners are sheared along the line onto the plane of the
/// two lesser axes, where the line is the origin (Woop, Benthin and Wald 2013). Two triangles with a common edge see
/// the same two points, so that no line slips between them.
///
/// What stands here is inlined always: it is also compiled for machines with wider vectors, and may not be shared.
class g3d_PreparedLine {
public:
    [[gnu::always_inline]] g3d_PreparedLine(g3d_Storage const & start, g3d_Storage const & end, bool isSegment)
        : origin(start), direction(g3d_difference(end, start)), length(g3d_Magnitude(direction)), isBounded(isSegment),
          hasLength(length > 0 && std::isfinite(length)) {
        if (!hasLength)
            return;
        double const run[3] = {direction.X(), direction.Y(), direction.Z()};
        mainAxis = longestAxis(direction);
        shear[0] = run[nextAxis(mainAxis)] / run[mainAxis];
        shear[1] = run[nextAxis(nextAxis(mainAxis))] / run[mainAxis];
        shear[2] = 1 / run[mainAxis];
    }

    /// Two different points, at a finite distance, define a line. Any other meets nothing.
    [[gnu::always_inline]] bool HasLength() const { return hasLength; }
    [[gnu::always_inline]] double Length() const { return length; }

    /// A point as the line sees it. Keeps the point's address.
    struct Corner {
        g3d_Storage const * position;
        double x, y, z;
    };
    [[gnu::always_inline]] Corner Place(g3d_Storage const & point) const {
        double const offset[3] = {point.X() - origin.X(), point.Y() - origin.Y(), point.Z() - origin.Z()};
        double const z = offset[mainAxis];
        return {&point, offset[nextAxis(mainAxis)] - shear[0] * z, offset[nextAxis(nextAxis(mainAxis))] - shear[1] * z,
                z};
    }

    /// Up to two hits with a triangle, in ascending order: `t[2]` along the line, `u[2]` the weight of b, `v[2]` the
    /// weight of c. Returns their count. See g3d_GeomUtils::LineTriIntersection.
    [[gnu::always_inline]] int Meet(Corner const & a, Corner const & b, Corner const & c, double * t, double * u,
                                    double * v) const {
        if (!hasLength)
            return 0;
        Weights const weights = weightsOf(a, b, c);
        bool const isGrazing = weights.sum * weights.sum <= shearedGrazing * tiltOf(a, b, c);
        return isGrazing ? meetGrazing(weights, a, b, c, t, u, v) : meetAcross(weights, a, b, c, t, u, v);
    }

    /// Twice the areas that the line's point makes with the edges of a sheared triangle, opposite to a, b and c, and
    /// their sum.
    struct Weights {
        double a, b, c, sum;
    };

    /// The same with a triangle that the line does not graze, and inside of which it passes: at most one hit.
    [[gnu::always_inline]] int MeetInside(Weights const & weights, Corner const & a, Corner const & b, Corner const & c,
                                          double * t, double * u, double * v) const {
        if (!Plane(*a.position, *b.position, *c.position).hasArea())
            return 0;
        double const parameter = (weights.a * a.z + weights.b * b.z + weights.c * c.z) / weights.sum * shear[2];
        if (isBounded && !(parameter >= -reach() && parameter <= 1 + reach()))
            return 0;
        t[0] = parameter;
        u[0] = weights.b / weights.sum;
        v[0] = weights.c / weights.sum;
        return isHit(t[0], u[0], v[0]) ? 1 : 0;
    }

    // For whoever sorts out triangles before they are met, as Meet does.

    /// What a barycentric coordinate may miss a closed triangle by.
    static constexpr double weightSlack = 1e-9;

    /// Sine of the angle to the plane up to which a line may lie in the plane; the tolerance decides whether it does.
    static constexpr double grazingSine = 1e-6;

    /// A square of grazingSine that a sheared triangle cannot undercut: the shear changes angles less than tenfold.
    static constexpr double shearedGrazing = 100 * grazingSine * grazingSine;

    [[gnu::always_inline]] g3d_Storage const & Origin() const { return origin; }
    /// The axis along which the line runs most; `Shear()[0]` and `[1]` belong to the two that follow it.
    [[gnu::always_inline]] int MainAxis() const { return mainAxis; }
    [[gnu::always_inline]] double const (&Shear() const)[3] { return shear; }

    /// 0, 1, 2, 0
    static constexpr int nextAxis(int axis) { return axis < 2 ? axis + 1 : 0; }

private:
    /// The plane of a triangle: two edges from corner a, and their cross product.
    struct Plane {
        g3d_Storage corner, edgeB, edgeC, normal;

        [[gnu::always_inline]] Plane(g3d_Storage const & a, g3d_Storage const & b, g3d_Storage const & c)
            : corner(a), edgeB(g3d_difference(b, a)), edgeC(g3d_difference(c, a)), normal(g3d_cross(edgeB, edgeC)) {}

        /// Sine of the angle between two edges up to which a triangle has no area.
        static constexpr double flatSine = 1e-12;

        [[gnu::always_inline]] bool hasArea() const {
            // Squares tell it without roots, but for the narrowest, the smallest and the largest triangles.
            double const square = g3d_dot(normal, normal);
            bool const isWide = square > 4 * flatSine * flatSine * (g3d_dot(edgeB, edgeB) * g3d_dot(edgeC, edgeC));
            if (isWide && square > 1e-280 && square < 1e280)
                return true;
            return g3d_Magnitude(normal) > flatSine * g3d_Magnitude(edgeB) * g3d_Magnitude(edgeC);
        }
    };
    struct MeasuredPlane;

    [[gnu::always_inline]] static int longestAxis(g3d_Storage const & v) {
        double const x = std::fabs(v.X()), y = std::fabs(v.Y()), z = std::fabs(v.Z());
        if (x >= y && x >= z)
            return 0;
        return y >= z ? 1 : 2;
    }

    /// The square of the part of a triangle's doubled area that stands along the line.
    [[gnu::always_inline]] static double tiltOf(Corner const & a, Corner const & b, Corner const & c) {
        double const x = (b.y - a.y) * (c.z - a.z) - (b.z - a.z) * (c.y - a.y);
        double const y = (b.z - a.z) * (c.x - a.x) - (b.x - a.x) * (c.z - a.z);
        return x * x + y * y;
    }

    [[gnu::always_inline]] static Weights weightsOf(Corner const & p, Corner const & q, Corner const & r) {
        double const a = q.x * r.y - q.y * r.x, b = r.x * p.y - r.y * p.x, c = p.x * q.y - p.y * q.x;
        return {a, b, c, a + b + c};
    }

    [[gnu::always_inline]] int meetAcross(Weights const & weights, Corner const & a, Corner const & b, Corner const & c,
                                          double * t, double * u, double * v) const {
        double const least = -weightSlack * weights.sum * weights.sum;
        bool const isInside = weights.sum != 0 && weights.a * weights.sum >= least &&
                              weights.b * weights.sum >= least && weights.c * weights.sum >= least;
        return isInside ? MeetInside(weights, a, b, c, t, u, v) : 0;
    }

    /// Where products of positions overflow or vanish, hits come out that are none.
    [[gnu::always_inline]] static bool isHit(double t, double u, double v) {
        return std::isfinite(t) && u >= -2 * weightSlack && v >= -2 * weightSlack && u + v <= 1 + 2 * weightSlack;
    }

    int meetGrazing(Weights const & weights, Corner const & a, Corner const & b, Corner const & c, double * t,
                    double * u, double * v) const;
    bool liesIn(MeasuredPlane const & plane, double const (&along)[3]) const;
    int meetInPlane(MeasuredPlane const & plane, double const (&along)[3], double * t, double * u, double * v) const;
    double along(g3d_Storage const & point) const;
    /// The tolerance as a parameter of the line.
    [[gnu::always_inline]] double reach() const { return g3d_GeomUtils::getTolerance() / length; }

    g3d_Storage origin;
    g3d_Storage direction;
    double length;
    bool isBounded;
    bool hasLength;
    int mainAxis = 0;
    double shear[3] = {0, 0, 0}; ///< of the next two axes along the main axis; z to parameter
};

#endif
