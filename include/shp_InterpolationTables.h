#ifndef shp_InterpolationTables_h
#define shp_InterpolationTables_h

#include "QVRShpCore_Export.h"
#include "shp_BodyOperators.h"
#include "shp_Options.h"
#include "shp_ShapeFunction.h"

/// The constant tables of every element type: where nodes and integration points lie in isoparametric space, the shape
/// functions, and the weights that carry values from integration points to nodes and faces. Operations only, no
/// objects.
///
/// Isoparametric coordinates stand in the order g, h, r; those that a shape does not have are 0:
///   line           g in [-1, 1]
///   triangle       g, h >= 0, g + h <= 1; node 1 at the origin
///   quadrilateral  g, h in [-1, 1]; an infinite one has its nodes at h = -1 and h = 0, and the pole at h = 1
///   tetrahedron    g, h, r >= 0, g + h + r <= 1; node 1 at the origin
///   hexahedron     g, h, r in [-1, 1]; an infinite one has its nodes at r = -1 and r = 0, and the pole at r = 1
///   prism          g, h as in the triangle, r in [-1, 1] from one triangle to the other
///   pyramid        g, h, r in [-1, 1]; base at r = -1, apex (0, 0, 1)
///
/// All tables are row-major, hold 32-bit floats, live as long as the library and are never freed. A table may have more
/// rows than the element type needs; it then uses the leading ones. A null pointer says that there is no table for
/// these options, an unknown shape among them; nothing is reported.
class QVRSHPCORE_API shp_InterpolationTables {
public:
    /// Isoparametric node locations (g, h, r), `[nodes][3]` in node order.
    static float const * getNdLocTblPtr(shp_Options const & options);

    /// Integration point locations (g, h, r), `[integration points][3]`: the element centre for one point, the nodes
    /// where the points stand at the nodes, and for a layered solid the points of one layer on its reference surface.
    /// Their order differs within a family (8 points of a hexahedron run g fastest, the first 8 of 14 run like the
    /// corner nodes).
    static float const * getIntPntLocTblPtr(shp_Options const & options);

    /// The element centre (g, h, r). That of the pyramid is (0, 0, -1/2), not the mean of its nodes.
    static float const * getCenterLocTblPtr(shp_Options const & options);

    /// The face centres (g, h, r), `[faces][3]` in face order; for a planar element of a two-dimensional model its
    /// edges are the faces, elsewhere it is one face.
    static float const * getFcCenterLocTblPtr(shp_Options const & options);

    /// The shape functions, `[nodes]` in node order; null for an unknown combination.
    static shp_ShapeFunction const * getNdFuncPtrTblPtr(shp_Options const & options);

    /// Their derivatives by g (`direction` 0), h (1) or r (2), `[nodes]`; null for a set without derivatives.
    /// `direction` must be below the number of coordinates of the shape (it is not checked); a line ignores it.
    static shp_ShapeFunction const * getdUdGHRFuncPtrTblPtr(shp_Options const & options, int direction);

    /// The body operator of a first-order element, else null.
    static shp_BodyOperator getBodyOpPtr(shp_Options const & options);

    /// Weights that carry values at the integration points to the nodes, `[nodes][integration points]`: the value at
    /// node n is the sum over i of W[n][i] v[i].
    static float const * getNdWghtTblPtr(shp_Options const & options);

    /// Weights that carry values at the integration points to the face centres, `[faces][integration points]`. A line,
    /// a triangle or a quadrilateral has one row, whichever faces it has.
    static float const * getFcWghtTblPtr(shp_Options const & options);

    /// Weights that carry values at the integration points of one face (counted from 0) to the nodes of that face,
    /// `[nodes of the face][integration points of the face]`; null for a pyramid. Some tables have rows of another
    /// width and are read straight through all the same, with zeros behind those that are too short.
    static float const * getFacialNdWghtTblPtr(shp_Options const & options, int face);

    /// Weights of the nodal values at the centroid of a cylindrical solid: 12 entries for the hexahedron of 12 nodes, 6
    /// for the prism of 9 nodes (the other three nodes have none). Null for every other element.
    static float const * getCylCentroidWghtTblPtr(shp_Options const & options);

    /// Eight entries of 1.0: the weights of every element with one integration point, one entry for each node or face.
    static float const * getOnePtTablePtr();
};

#endif
