#ifndef shp_PrismInterpTables_h
#define shp_PrismInterpTables_h

#include "QVRShpCore_Export.h"
#include "shp_BodyOperators.h"
#include "shp_Options.h"
#include "shp_ShapeFunction.h"

/// Locations, shape functions and weights of triangular prisms. Operations only, no objects; shp_InterpolationTables
/// says what holds for all of them, and chooses the family.
class QVRSHPCORE_API shp_PrismInterpTables {
public:
    /// Isoparametric node locations (g, h, r), `[nodes][3]` in node order.
    static float const * getNdLocTblPtr(shp_Options const & options);

    /// Integration point locations (g, h, r), `[integration points][3]`; null for a number of them without a table. For
    /// a layered solid those of its reference surface, a triangle.
    static float const * getIntPntLocTblPtr(shp_Options const & options);

    /// The shape functions, `[nodes]` in node order; null for a number of nodes without a set.
    static shp_ShapeFunction const * getNdFuncPtrTblPtr(shp_Options const & options);

    /// Their derivatives by g (`direction` 0), h (1) or r (2), `[nodes]`; null for a set without derivatives.
    /// `direction` must be below the number of coordinates of the shape; it is not checked.
    static shp_ShapeFunction const * getdUdGHRFuncPtrTblPtr(shp_Options const & options, int direction);

    /// The body operator of a first-order element, else null.
    static shp_BodyOperator getBodyOpPtr(shp_Options const & options);

    /// Weights that carry values at the integration points to the nodes, `[nodes][integration points]`. For a layered
    /// solid those of a triangle.
    static float const * getNdWghtTblPtr(shp_Options const & options);

    /// Weights that carry values at the integration points to the face centres, `[faces][integration points]`. For a
    /// layered solid one row.
    static float const * getFcWghtTblPtr(shp_Options const & options);

    /// Weights that carry values at the integration points of one face (counted from 0) to the nodes of that face,
    /// `[nodes of the face][integration points of the face]`.
    static float const * getFacialNdWghtTblPtr(shp_Options const & options, int face);

    /// Weights of the nodal values at the centroid of a cylindrical prism of 9 nodes: 6 entries, the last three nodes
    /// have none. Null for every other element.
    static float const * getCylCentroidWghtTblPtr(shp_Options const & options);
};

#endif
