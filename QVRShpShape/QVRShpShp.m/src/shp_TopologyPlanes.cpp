// Tables that a topology rewrites for itself: elements in several planes around their axis, and layered solids.

#include "shp_DecisionList.h"
#include "shp_KeyBit.h"
#include "shp_TableMemory.h"
#include "shp_Topology.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

/// No node in this slot.
constexpr int noNode = -1;

/// The nodes of a layered solid, plane after plane along its stacking direction; slot = node of the cross-section.
struct NodeMap {
    int direction; ///< 0, 1, 2 = g, h, r
    int numPlanes; ///< 0: no such solid
    int numSlots;  ///< of each plane
    int nodes[3][9];
};

/// Hexahedra stack along the direction of their mode, prisms along r.
// clang-format off
constexpr shp_Choice<NodeMap> nodeMaps[] = {
    {.shape = shp_keyPrism, .nodes = 6,                         .result = {2, 2, 3, {{0, 1, 2}, {3, 4, 5}}}},
    {.shape = shp_keyHex,   .nodes = 8,  .with = shp_keyMode1,  .result = {0, 2, 4, {{1, 2, 6, 5}, {0, 3, 7, 4}}}},
    {.shape = shp_keyHex,   .nodes = 8,  .with = shp_keyMode2,  .result = {1, 2, 4, {{0, 1, 5, 4}, {3, 2, 6, 7}}}},
    {.shape = shp_keyHex,   .nodes = 8,  .with = shp_keyMode3,  .result = {2, 2, 4, {{0, 1, 2, 3}, {4, 5, 6, 7}}}},
    {.shape = shp_keyPrism, .nodes = 15,                        .result = {2, 3, 6, {{0, 1, 2, 6, 7, 8}, {12, 13, 14, -1, -1, -1}, {3, 4, 5, 9, 10, 11}}}},
    {.shape = shp_keyPrism, .nodes = 18,                        .result = {2, 3, 6, {{0, 1, 2, 6, 7, 8}, {12, 13, 14, 15, 16, 17}, {3, 4, 5, 9, 10, 11}}}},
    {.shape = shp_keyHex,   .nodes = 20, .with = shp_keyMode1,  .result = {0, 3, 8, {{1, 2, 6, 5, 9, 18, 13, 17}, {8, 10, 14, 12, -1, -1, -1, -1}, {0, 3, 7, 4, 11, 19, 15, 16}}}},
    {.shape = shp_keyHex,   .nodes = 20, .with = shp_keyMode2,  .result = {1, 3, 8, {{0, 1, 5, 4, 8, 17, 12, 16}, {11, 9, 13, 15, -1, -1, -1, -1}, {3, 2, 6, 7, 10, 18, 14, 19}}}},
    {.shape = shp_keyHex,   .nodes = 20, .with = shp_keyMode3,  .result = {2, 3, 8, {{0, 1, 2, 3, 8, 9, 10, 11}, {16, 17, 18, 19, -1, -1, -1, -1}, {4, 5, 6, 7, 12, 13, 14, 15}}}},
    {.shape = shp_keyHex,   .nodes = 27, .with = shp_keyMode1,  .result = {0, 3, 9, {{1, 2, 6, 5, 9, 18, 13, 17, 24}, {8, 10, 14, 12, 21, 25, 22, 23, 20}, {0, 3, 7, 4, 11, 19, 15, 16, 26}}}},
    {.shape = shp_keyHex,   .nodes = 27, .with = shp_keyMode2,  .result = {1, 3, 9, {{0, 1, 5, 4, 8, 17, 12, 16, 23}, {11, 9, 13, 15, 21, 24, 22, 26, 20}, {3, 2, 6, 7, 10, 18, 14, 19, 25}}}},
    {.shape = shp_keyHex,   .nodes = 27, .with = shp_keyMode3,  .result = {2, 3, 9, {{0, 1, 2, 3, 8, 9, 10, 11, 21}, {16, 17, 18, 19, 23, 24, 25, 26, 20}, {4, 5, 6, 7, 12, 13, 14, 15, 22}}}},
};
// clang-format on

NodeMap stackedNodes(shp_Options const & options) {
    return shp_firstFit(nodeMaps, options);
}

/// Faces across the stacking direction, then around it; row = direction.
struct FaceMap {
    int caps[2];
    int sides[4];
};
constexpr FaceMap faceMaps[] = {
    {{3, 5}, {0, 4, 1, 2}},
    {{2, 4}, {0, 3, 1, 5}},
    {{0, 1}, {2, 3, 4, 5}},
};

/// Where the cross-section's g, h, r go in the solid; row = direction.
constexpr int axisMaps[][3] = {
    {1, 2, 0},
    {0, 2, 1},
    {0, 1, 2},
};

/// Each plane repeats the cross-section's rows.
void stackNodeWeights(shp_Topology & solid, float const * section, NodeMap const & map) {
    int const points = solid.numIntPtsPerElem;
    for (int plane = 0; plane < map.numPlanes; ++plane)
        for (int slot = 0; slot < map.numSlots; ++slot) {
            int const node = map.nodes[plane][slot];
            if (node != noNode)
                std::copy_n(section + slot * points, points, solid.layeredNodeWeights + node * points);
        }
}

/// The caps take the cross-section's one row. The sides are made from node rows of the solid: for first order the mean
/// of rows s and s + 1, whether or not these two are neighbours on that side; otherwise row `sides` + s, corner or
/// midside. Face results on file were made so.
void stackFaceWeights(shp_Topology & solid, float const * section, int direction) {
    int const points = solid.numIntPtsPerElem;
    int const sides = solid.options.Shape() == shp_keyPrism ? 3 : 4;
    bool const hasMeanSides = solid.baseNodesPerElem == 6 || solid.baseNodesPerElem == 8;
    auto const faceRow = [&](int face) { return solid.layeredFaceWeights + face * points; };
    auto const nodeRow = [&](int node) { return solid.layeredNodeWeights + node * points; };

    for (int cap : faceMaps[direction].caps)
        std::copy_n(section, points, faceRow(cap));
    for (int side = 0; side < sides; ++side) {
        float * const out = faceRow(faceMaps[direction].sides[side]);
        if (hasMeanSides)
            std::transform(nodeRow(side), nodeRow(side) + points, nodeRow((side + 1) % sides), out,
                           [](float a, float b) { return 0.5f * (a + b); });
        else
            std::copy_n(nodeRow(sides + side), points, out);
    }
}

/// Turns the cross-section's g, h, r towards the stacking direction.
void turnIntPtLocations(shp_Topology & solid, float const * section, int direction) {
    for (int point = 0; point < solid.numIntPtsPerElem; ++point)
        for (int axis = 0; axis < 3; ++axis)
            solid.layeredIntPtLocations[3 * point + axisMaps[direction][axis]] = section[3 * point + axis];
}

} // namespace

/// Copies the tables of one plane for each of the mode's planes plus one: nodes plane after plane, each edge once
/// through all planes, one face that has every node. Until a new table exists its field is null, so that the four
/// fields hold nothing but own tables whenever an allocation fails.
void shp_Topology::expandForPlanes() {
    int const planes = options.Mode() + 1;
    numNodesPerElem = baseNodesPerElem * planes;
    numIntPtsPerElem = baseIntPtsPerElem * planes * 2;

    int const * const planeEdges = std::exchange(edgeConnTbl, nullptr);
    int const * const planeNodesPerEdge = std::exchange(nodesPerEdgeTbl, nullptr);
    nodesPerFaceTbl = faceConnTbl = nullptr;

    int const planeNodes = maxNodesPerEdge;
    maxNodesPerEdge *= planes;
    if (planeEdges) {
        int * out = shp_newTable<int>(maxEdgesPerFace, maxNodesPerEdge);
        edgeConnTbl = out;
        for (int edge = 0; edge < maxEdgesPerFace; ++edge)
            for (int plane = 0; plane < planes; ++plane)
                for (int i = 0; i < planeNodes; ++i)
                    *out++ = planeEdges[edge * planeNodes + i] + plane * baseNodesPerElem;
    }
    if (planeNodesPerEdge) {
        int * const out = shp_newTable<int>(1, maxEdgesPerFace);
        nodesPerEdgeTbl = out;
        for (int edge = 0; edge < maxEdgesPerFace; ++edge)
            out[edge] = planeNodesPerEdge[edge] * planes;
    }

    maxNodesPerFace = numNodesPerElem;
    int * const nodesPerFace = shp_newTable<int>(1, 1);
    nodesPerFaceTbl = nodesPerFace;
    *nodesPerFace = numNodesPerElem;
    int * const faceNodes = shp_newTable<int>(1, numNodesPerElem);
    faceConnTbl = faceNodes;
    std::iota(faceNodes, faceNodes + numNodesPerElem, 0);
}

/// The tables of a layered solid came as those of its cross-section; here they become tables of the solid.
void shp_Topology::stackLayers() {
    layeredNodeWeights = shp_newTable<float>(numIntPtsPerElem, baseNodesPerElem);
    layeredFaceWeights = shp_newTable<float>(numFacesPerElem, numIntPtsPerElem);
    layeredIntPtLocations = shp_newTable<float>(numIntPtsPerElem, 3);

    float const * const sectionNodeWeights = std::exchange(nodeWeights, layeredNodeWeights);
    float const * const sectionFaceWeights = std::exchange(faceWeights, layeredFaceWeights);
    float const * const sectionLocations = std::exchange(intPtLocationTable, layeredIntPtLocations);

    // No map, or nodes and points that are not those of one plane: only a hand-made key gets here, and keeps zeros.
    NodeMap const map = stackedNodes(options);
    bool const isOnePlane = baseNodesPerElem == options.NumNodes() && baseIntPtsPerElem == numIntPtsPerElem;
    if (map.numPlanes == 0 || !isOnePlane)
        return;
    if (sectionNodeWeights)
        stackNodeWeights(*this, sectionNodeWeights, map);
    if (sectionFaceWeights)
        stackFaceWeights(*this, sectionFaceWeights, map.direction);
    if (sectionLocations)
        turnIntPtLocations(*this, sectionLocations, map.direction);
}
