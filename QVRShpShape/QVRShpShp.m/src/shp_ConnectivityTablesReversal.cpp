#include "shp_ConnectivityTables.h"

#include "shp_DecisionList.h"

// How an element is turned inside out, and each of its edges once. Numbers count from 0; the drawings of the elements
// stand with the face tables.

namespace {

// clang-format off

// Reversal: new entry i is old entry table[i]. One table serves several node counts of a shape, and an element uses as
// many entries as it has nodes. Nodes that a shape numbers otherwise than its longest element does (gaskets, nodes
// between curved faces) are exchanged by the same numbers: stored elements were reversed so.

constexpr int reversalOf1[] = {0};
constexpr int reversalOf2[] = {1, 0};
constexpr int reversalOf3[] = {2, 1, 0};
constexpr int reversalTri[] = {0, 2, 1, 5, 4, 3};
constexpr int reversalQuad6[] = {1, 0, 3, 2, 4, 5};
constexpr int reversalQuad[] = {3, 2, 1, 0, 6, 5, 4, 7, 8};
constexpr int reversalTetra[] = {2, 1, 0, 3, 5, 4, 6, 9, 8, 7};
constexpr int reversalHex8[] = {0, 3, 2, 1, 4, 7, 6, 5};
constexpr int reversalHex[] = {
    2, 1, 0, 3, 6, 5, 4, 7, 9, 8, 11, 10, 13, 12, 15, 14, 18, 17, 16, 19,
    20, 21, 22, 24, 23, 26, 25,
};
// Defined for 15 nodes; the three entries behind them keep the nodes of a longer prism where they are.
constexpr int reversalPrism[] = {0, 2, 1, 3, 5, 4, 8, 7, 6, 11, 10, 9, 12, 14, 13, 15, 16, 17};
constexpr int reversalPyramid[] = {0, 3, 2, 1, 4};

// Edge map: the (face, edge slot) pairs of the edge tables that name each edge once.

constexpr int edgeMapTetra[] = {0, 2,  0, 1,  0, 0,  1, 2,  1, 1,  2, 1};
// Made for the 8- and 20-node hexahedra.
constexpr int edgeMapHex[] = {0, 3,  0, 2,  0, 1,  0, 0,  1, 0,  1, 1,  1, 2,  1, 3,  2, 3,  2, 1,  3, 1,  4, 0};
constexpr int edgeMapHexCyl[] = {0, 3,  0, 2,  0, 1,  0, 0,  1, 0,  1, 1,  1, 2,  1, 3,  2, 2,  2, 0,  3, 0,  4, 0};
constexpr int edgeMapPrism[] = {0, 2,  0, 1,  0, 0,  1, 0,  1, 1,  1, 2,  2, 3,  2, 1,  3, 1};
constexpr int edgeMapPrismCyl[] = {0, 2,  0, 1,  0, 0,  1, 0,  1, 1,  1, 2,  2, 2,  2, 0,  3, 0};
constexpr int edgeMapPyramid[] = {0, 3,  0, 2,  0, 1,  0, 0,  1, 2,  2, 2,  3, 2,  4, 2};
constexpr int edgeMapPlanar[] = {0, 0,  0, 1,  0, 2,  0, 3};

// clang-format on

// Up to three nodes the count decides, whatever the shape: a triangle is reversed as a line is.
constexpr shp_Choice<int const *> reverseConnectivity[] = {
    {.nodes = 1, .result = reversalOf1},
    {.nodes = 2, .result = reversalOf2},
    {.nodes = 3, .result = reversalOf3},
    {.shape = shp_keyTri, .result = reversalTri},
    {.shape = shp_keyQuad, .nodes = 6, .result = reversalQuad6},
    {.shape = shp_keyQuad, .result = reversalQuad},
    {.shape = shp_keyTetra, .result = reversalTetra},
    {.shape = shp_keyHex, .nodes = 8, .result = reversalHex8},
    {.shape = shp_keyHex, .result = reversalHex},
    {.shape = shp_keyPrism, .result = reversalPrism},
    {.shape = shp_keyPyramid, .result = reversalPyramid},
};

constexpr shp_Choice<int const *> edgeMap[] = {
    {.shape = shp_keyTetra, .result = edgeMapTetra},
    {.shape = shp_keyHex, .without = shp_keyCylindrical, .result = edgeMapHex},
    {.shape = shp_keyHex, .with = shp_keyCylindrical, .result = edgeMapHexCyl},
    {.shape = shp_keyPrism, .without = shp_keyCylindrical, .result = edgeMapPrism},
    {.shape = shp_keyPrism, .with = shp_keyCylindrical, .result = edgeMapPrismCyl},
    {.shape = shp_keyPyramid, .result = edgeMapPyramid},
    {.result = edgeMapPlanar},
};

} // namespace

int const * shp_ConnectivityTables::getRevConnTblPtr(shp_Options const & options) {
    return shp_firstFit(reverseConnectivity, options);
}

int const * shp_ConnectivityTables::getEdgeMapTblPtr(shp_Options const & options) {
    return shp_firstFit(edgeMap, options);
}
