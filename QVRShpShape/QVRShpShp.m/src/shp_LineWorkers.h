#ifndef shp_LineWorkers_h
#define shp_LineWorkers_h

#include "shp_Topology.h"

// How a line meets an element, by what the element offers to it: a triangulated surface, segments from node to node,
// or a point. The arguments are those of shp_Topology::LineShapeIntersection.

bool surfaceLineWorker(shp_Topology const & topology, g3d_Storage const & lineStart, g3d_Storage const & lineEnd,
                       g3d_Storage * coords, double * params, float (*const iso)[3], int & numHits, bool flag,
                       g3d_Storage * hitPoints);

bool segmentLineWorker(shp_Topology const & topology, g3d_Storage const & lineStart, g3d_Storage const & lineEnd,
                       g3d_Storage * coords, double * params, float (*const iso)[3], int & numHits, bool flag,
                       g3d_Storage * hitPoints);

bool pointLineWorker(shp_Topology const & topology, g3d_Storage const & lineStart, g3d_Storage const & lineEnd,
                     g3d_Storage * coords, double * params, float (*const iso)[3], int & numHits, bool flag,
                     g3d_Storage * hitPoints);

/// The number of nodes of a quadrilateral whose triangles meet in a ninth point, which `coords` has room for.
inline constexpr int shp_nodesWithoutCentre = 8;

/// Writes the centre of an 8-node quadrilateral behind its nodes: `coords[8]`, half the sum of the midsides less a
/// quarter of the sum of the corners.
void completeQuadCenterNode(g3d_Storage *& coords, g3d_Storage const & lineStart, g3d_Storage const & lineEnd);

#endif
