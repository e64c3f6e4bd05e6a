#ifndef g3d_PreparedLine_h
#define g3d_PreparedLine_h

#include "g3d_Storage.h"

/// A line from one point (parameter 0) to another (parameter 1), endless or bounded to the segment between them, made
/// ready to meet many triangles. Whoever walks a surface places each of its points once.
///
/// A triangle across the line is met as the line sees it: its corners are sheared along the line onto the plane of the
/// two lesser axes, where the line is the origin (Woop, Benthin and Wald 2013). Two triangles with a common edge see
/// the same two points, so that no line slips between them.
class g3d_PreparedLine {
public:
    g3d_PreparedLine(g3d_Storage const & start, g3d_Storage const & end, bool isSegment);

    /// Two different points, at a finite distance, define a line. Any other meets nothing.
    bool HasLength() const { return hasLength; }

    /// A point as the line sees it. Keeps the point's address.
    struct Corner {
        g3d_Storage const * position;
        double x, y, z;
    };
    Corner Place(g3d_Storage const & point) const;

    /// Up to two hits with a triangle, in ascending order: `t[2]` along the line, `u[2]` the weight of b, `v[2]` the
    /// weight of c. Returns their count. See g3d_GeomUtils::LineTriIntersection.
    int Meet(Corner const & a, Corner const & b, Corner const & c, double * t, double * u, double * v) const;

private:
    struct Weights;
    struct Plane;
    static Weights weightsOf(Corner const & a, Corner const & b, Corner const & c);
    int meetAcross(Weights const & weights, Corner const & a, Corner const & b, Corner const & c, double * t,
                   double * u, double * v) const;
    int meetGrazing(Weights const & weights, Corner const & a, Corner const & b, Corner const & c, double * t,
                    double * u, double * v) const;
    bool liesIn(Plane const & plane, double const (&along)[3]) const;
    int meetInPlane(Plane const & plane, double const (&along)[3], double * t, double * u, double * v) const;
    double along(g3d_Storage const & point) const;

    g3d_Storage origin;
    g3d_Storage direction;
    double length;
    double reach = 0; ///< the tolerance as a parameter of the line
    bool isBounded;
    bool hasLength;
    int axes[3] = {0, 1, 2};     ///< two lesser axes, and the one along which the line runs most
    double shear[3] = {0, 0, 0}; ///< of x and of y along z; z to parameter
};

#endif
