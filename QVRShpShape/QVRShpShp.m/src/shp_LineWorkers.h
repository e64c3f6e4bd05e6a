#ifndef shp_LineWorkers_h
#define shp_LineWorkers_h

#include "g3d_GeomUtils.h"
#include "shp_Topology.h"

// How a line meets an element, by what the element offers to it: segments from node to node, or a point (for a
// triangulated surface see shp_SurfaceLineKernel.h). The arguments are those of shp_Topology::LineShapeIntersection.

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

/// Points that the triangles may name: the nodes, and the ninth point where it was completed.
[[gnu::always_inline]] inline int numUsablePoints(shp_Topology const & topology) {
    int const nodes = topology.BaseNodesPerElem();
    return topology.prepareCoords && nodes == shp_nodesWithoutCentre ? nodes + 1 : nodes;
}

/// Two hits closer than this are one, and a hit this close to an end of the line keeps its parameter.
inline constexpr double hitTolerance = 1e-5;

/// Parameters before a hit is found: each beyond what the other's limit lets pass.
inline constexpr double noSmallest = 2.0, noLargest = -2.0;

/// True once both have been set by a hit that reaches far enough back and forth: a single hit at 1.7 or -1.7 does not.
[[gnu::always_inline]] inline bool areHits(double const * params) {
    return params[1] > -1.5 && params[0] < 1.5;
}

[[gnu::always_inline]] inline int countOfHits(double const * params) {
    return g3d_GeomUtils::EqualValue(params[0], params[1], hitTolerance) ? 1 : 2;
}

#endif
