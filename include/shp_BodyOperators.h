#ifndef shp_BodyOperators_h
#define shp_BodyOperators_h

#include "QVRShpCore_Export.h"

class uti_CoordCont3D;

/// A body operator. `weights[i]` becomes the share of corner node i in the element,
///
///     (integral of N_i dV) / (integral of dV),
///
/// with N_i the first-order shape function of node i. dV is the volume; in plane the area; in an axisymmetric section
/// the area times the radius. The weights sum to 1: applied to nodal values they give the element's average, applied to
/// the nodes' coordinates its true centroid.
///
/// `coords` holds the nodes' positions in node order; the planar operators read x and y, the axisymmetric ones take x
/// for the radius. `weights` has room for one float per node.
///
/// Nothing is checked: an element without volume gives infinities or not-a-numbers in every weight, an inverted one
/// weights that still sum to 1.
using shp_BodyOperator = void (*)(uti_CoordCont3D const & coords, float * weights);

QVRSHPCORE_API void HexBodyOp(uti_CoordCont3D const & coords, float * weights);     ///< 8 nodes
QVRSHPCORE_API void QuadBodyOp(uti_CoordCont3D const & coords, float * weights);    ///< 4 nodes
QVRSHPCORE_API void QuadAxiBodyOp(uti_CoordCont3D const & coords, float * weights); ///< 4 nodes
QVRSHPCORE_API void TriBodyOp(uti_CoordCont3D const & coords, float * weights);     ///< 3 nodes, 1/3 each
QVRSHPCORE_API void TriAxiBodyOp(uti_CoordCont3D const & coords, float * weights);  ///< 3 nodes

/// 4 nodes. This one and the next evaluate the hexahedron whose eight corners are the entries 0 to 7 of `coords`
/// itself, not a hexahedron collapsed onto the element's nodes, and then add the corners' weights up as for the
/// collapsed one. Entries that `coords` does not have read as (0, 0, 0). Weights on file were made so, and they stay. A
/// caller that wants the element's own shares fills `coords` with the collapsed corners:
///
///     TetraBodyOp  nodes 2, 3, 1, 2, 2, 4, 1, 2
///     PrismBodyOp  nodes 1, 2, 3, 1, 4, 5, 6, 4
///
/// Both raise mem_OutOfMemoryException when memory runs out.
QVRSHPCORE_API void TetraBodyOp(uti_CoordCont3D const & coords, float * weights);
/// 6 nodes; otherwise as TetraBodyOp. Each call leaves 32 bytes behind.
QVRSHPCORE_API void PrismBodyOp(uti_CoordCont3D const & coords, float * weights);

#endif
