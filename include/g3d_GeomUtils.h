#ifndef g3d_GeomUtils_h
#define g3d_GeomUtils_h

#include "QVRShpCore_Export.h"
#include "g3d_Storage.h"

#include <cmath>

/// Small geometric tests.
///
/// A line is given by two points, with parameter 0 at the first and 1 at the second. A flag of true bounds it to the
/// segment between them: parameters from 0 to 1, widened by the tolerance over the segment's length. A flag of false
/// leaves it endless. Two equal points, or points that are not finite, are no line, and nothing meets it.
class QVRSHPCORE_API g3d_GeomUtils {
public:
    /// The geometric tolerance of the suite, in the caller's unit of length.
    static constexpr double getTolerance() { return 1e-6; }

    /// True when `a` and `b` differ by at most `tolerance`; false when one of them is not a number.
    static bool EqualValue(double a, double b, double tolerance) { return std::fabs(a - b) <= tolerance; }

    /// True when `point` is at most the tolerance away from the line p0-p1; `t` is then the parameter of the line's
    /// nearest point.
    static bool LinePointIntersection(g3d_Storage const & p0, g3d_Storage const & p1, g3d_Storage const & point,
                                      double & t, bool flag);

    /// Meets the lines p0-p1 (bounded by `flag`) and q0-q1 (bounded by `flag2`): `count` hits with the parameters
    /// `t[2]` along the first and `s[2]` along the second; true when there is one.
    /// - Lines that cross have one hit, when their nearest points are at most the tolerance apart.
    /// - Parallel lines have none, but when q0 and q1 are both at most the tolerance away from the first line: then
    ///   two, at q0 and q1, or with `flag` at the ends of the overlap, in the direction from q0 to q1; one where the
    ///   segments only touch.
    static bool LineLineIntersection(g3d_Storage const & p0, g3d_Storage const & p1, g3d_Storage const & q0,
                                     g3d_Storage const & q1, double * t, double * s, int & count, bool flag,
                                     bool flag2);

    /// Meets the line p0-p1 with the triangle a, b, c: `count` hits with the parameters `t[2]` along the line, and the
    /// weights `u[2]` of b and `v[2]` of c (that of a is 1 - u - v); true when there is one.
    /// - The triangle is closed: weights down to -1e-9 are in it, and no line passes between two triangles with a
    ///   common edge.
    /// - A line in the triangle's plane (at most the tolerance off it all along the triangle) has a hit where it enters
    ///   and one where it leaves, in ascending order, or with `flag` at the ends of the overlap; one where it only
    ///   touches.
    /// - A triangle without area has no hit.
    static bool LineTriIntersection(g3d_Storage const & p0, g3d_Storage const & p1, g3d_Storage const & a,
                                    g3d_Storage const & b, g3d_Storage const & c, double * t, double * u, double * v,
                                    int & count, bool flag);
};

#endif
