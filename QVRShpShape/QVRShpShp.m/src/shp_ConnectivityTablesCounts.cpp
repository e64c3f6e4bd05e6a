#include "shp_ConnectivityTables.h"

#include "shp_DecisionList.h"

// How many edges, nodes and integration points each face has, and how many nodes each edge. The node numbers
// themselves stand in the tables of faces and edges.

namespace {

// clang-format off

// Nodes per edge: an entry for each edge slot, the slots of one face side by side, the faces apart. 0 is a slot
// without an edge; the counts of edges per face stop a walk before it. Infinite hexahedra have no edges on their last
// face and three on each side, and yet their empty slots hold counts here: readers of whole rows know them so.

constexpr int edgeNodesPoint[] = {1};
constexpr int edgeNodesLine2[] = {2};
constexpr int edgeNodesLine3[] = {3};
constexpr int edgeNodesTri3[] = {2, 2, 2};
constexpr int edgeNodesTri6[] = {3, 3, 3};
constexpr int edgeNodesQuad4[] = {2, 2, 2, 2};
constexpr int edgeNodesQuad5[] = {3, 2, 2, 0};
constexpr int edgeNodesQuad6Cylindrical[] = {2, 3, 2, 3};
constexpr int edgeNodesQuad6PipeSoil[] = {3, 2, 3, 2};
constexpr int edgeNodesQuad6Cohesive[] = {2, 3, 2, 3};
constexpr int edgeNodesQuad6[] = {3, 2, 3, 2};
constexpr int edgeNodesQuad8[] = {3, 3, 3, 3};

constexpr int edgeNodesTet4[] = {2, 2, 2,  2, 2, 2,  2, 2, 2,  2, 2, 2};
constexpr int edgeNodesTet10[] = {3, 3, 3,  3, 3, 3,  3, 3, 3,  3, 3, 3};

constexpr int edgeNodesHex8[] = {2, 2, 2, 2,  2, 2, 2, 2,  2, 2, 2, 2,  2, 2, 2, 2,  2, 2, 2, 2,  2, 2, 2, 2};
constexpr int edgeNodesHex12Cyl[] = {2, 2, 2, 2,  2, 2, 2, 2,  3, 2, 3, 2,  3, 2, 3, 2,  3, 2, 3, 2,  3, 2, 3, 2};
constexpr int edgeNodesHex12[] = {3, 3, 3, 3,  3, 2, 2, 0,  3, 2, 2, 0,  3, 2, 2, 0,  3, 2, 2, 0,  2, 2, 2, 2};
constexpr int edgeNodesHex18Gasket[] = {3, 3, 3, 3,  3, 3, 3, 3,  3, 2, 3, 2,  3, 2, 3, 2,  2, 3, 2, 3,  3, 2, 3, 2};
constexpr int edgeNodesHex18[] = {3, 3, 3, 3,  3, 2, 2, 0,  3, 2, 2, 0,  3, 2, 2, 0,  3, 2, 2, 0,  2, 2, 2, 2};
constexpr int edgeNodesHex20[] = {3, 3, 3, 3,  3, 3, 3, 3,  3, 3, 3, 3,  3, 3, 3, 3,  3, 3, 3, 3,  3, 3, 3, 3};

constexpr int edgeNodesPrism6[] = {2, 2, 2, 0,  2, 2, 2, 0,  2, 2, 2, 2,  2, 2, 2, 2,  2, 2, 2, 2};
constexpr int edgeNodesPrism9[] = {2, 2, 2, 0,  2, 2, 2, 0,  3, 2, 3, 2,  3, 2, 3, 2,  3, 2, 3, 2};
constexpr int edgeNodesPrism12[] = {3, 3, 3, 0,  3, 3, 3, 0,  3, 2, 3, 2,  3, 2, 3, 2,  2, 3, 2, 3};
constexpr int edgeNodesPrism15[] = {3, 3, 3, 0,  3, 3, 3, 0,  3, 3, 3, 3,  3, 3, 3, 3,  3, 3, 3, 3};

constexpr int edgeNodesPyramid[] = {2, 2, 2, 2,  2, 2, 2, 0,  2, 2, 2, 0,  2, 2, 2, 0,  2, 2, 2, 0};

// Edges per face.

constexpr int faceEdgesPoint[] = {1};
constexpr int faceEdgesTri[] = {3};
constexpr int faceEdgesQuadInfinite[] = {3};
constexpr int faceEdgesQuad[] = {4};
constexpr int faceEdgesTetra[] = {3, 3, 3, 3};
constexpr int faceEdgesHexInfinite[] = {4, 3, 3, 3, 3, 0};
constexpr int faceEdgesHex[] = {4, 4, 4, 4, 4, 4};
constexpr int faceEdgesPrism[] = {3, 3, 4, 4, 4};
constexpr int faceEdgesPyramid[] = {4, 3, 3, 3, 3};

// Nodes per face. Results on "faces" of a two-dimensional model go by edge, hence the zeros behind the one face of a
// planar element: whoever asks for the nodes of a further face finds none.

constexpr int faceNodesPoint[] = {1};
constexpr int faceNodesLine2[] = {2};
constexpr int faceNodesLine3[] = {3};
constexpr int faceNodesTri3[] = {3, 0, 0};
constexpr int faceNodesTri6[] = {6, 0, 0};
constexpr int faceNodesQuad4[] = {4, 0, 0, 0};
constexpr int faceNodesQuad5[] = {5, 0, 0, 0};
constexpr int faceNodesQuad6[] = {6, 0, 0, 0};
constexpr int faceNodesQuad8[] = {8, 0, 0, 0};
constexpr int faceNodesQuad9[] = {9, 0, 0, 0};
constexpr int faceNodesTet4[] = {3, 3, 3, 3};
constexpr int faceNodesTet10[] = {6, 6, 6, 6};
constexpr int faceNodesHex8[] = {4, 4, 4, 4, 4, 4};
constexpr int faceNodesHex12Cyl[] = {4, 4, 6, 6, 6, 6};
constexpr int faceNodesHex12[] = {8, 5, 5, 5, 5, 4};
constexpr int faceNodesHex18Gasket[] = {9, 9, 6, 6, 6, 6};
constexpr int faceNodesHex18[] = {9, 6, 6, 6, 6, 9};
constexpr int faceNodesHex20[] = {8, 8, 8, 8, 8, 8};
constexpr int faceNodesHex24[] = {8, 8, 9, 9, 9, 9};
constexpr int faceNodesHex27[] = {9, 9, 9, 9, 9, 9};
constexpr int faceNodesPrism6[] = {3, 3, 4, 4, 4};
constexpr int faceNodesPrism9[] = {3, 3, 6, 6, 6};
constexpr int faceNodesPrism12[] = {6, 6, 6, 6, 6};
constexpr int faceNodesPrism15[] = {6, 6, 8, 8, 8};
constexpr int faceNodesPrism18[] = {6, 6, 9, 9, 9};
constexpr int faceNodesPyramid[] = {4, 3, 3, 3, 3};

// Integration points per face. A planar element of a two-dimensional model has an entry for each edge.

constexpr int facePointsPoint[] = {1};
constexpr int facePointsLine[] = {2, 2};
constexpr int facePointsTri3Shell[] = {1, 1};
constexpr int facePointsTri6Shell[] = {3, 3};
constexpr int facePointsTri[] = {2, 2, 2};
constexpr int facePointsQuadShell[] = {4, 4};
constexpr int facePointsQuad[] = {2, 2, 2, 2};
// The infinite 5-node element keeps the whole element's count in its first entry: its other edges have no points.
constexpr int facePointsQuad5[] = {4, 0, 0, 0};
constexpr int facePointsQuad6Shell[] = {4};
constexpr int facePointsTet4[] = {1, 1, 1, 1};
constexpr int facePointsTet10[] = {3, 3, 3, 3};
constexpr int facePointsHex8[] = {4, 4, 4, 4, 4, 4};
constexpr int facePointsHex18Gasket[] = {4, 4, 1, 1, 1, 1};
constexpr int facePointsHex20[] = {9, 9, 9, 9, 9, 9};
constexpr int facePointsPrism6[] = {1, 1, 4, 4, 4};
constexpr int facePointsPrism12[] = {3, 3, 1, 1, 1};
constexpr int facePointsPrism15[] = {3, 3, 9, 9, 9};
constexpr int facePointsPyramid[] = {1, 1, 1, 1, 1};

// clang-format on

constexpr shp_Choice<int const *> nodesPerEdge[] = {
    {.shape = {shp_keyPoint, shp_keyARS}, .result = edgeNodesPoint},
    {.shape = shp_keyLine, .nodes = 2, .result = edgeNodesLine2},
    {.shape = shp_keyLine, .result = edgeNodesLine3},
    {.shape = shp_keyTri, .nodes = 3, .result = edgeNodesTri3},
    {.shape = shp_keyTri, .result = edgeNodesTri6},
    {.shape = shp_keyQuad, .nodes = 4, .result = edgeNodesQuad4},
    {.shape = shp_keyQuad, .nodes = 5, .result = edgeNodesQuad5},
    {.shape = shp_keyQuad, .nodes = 6, .with = shp_keyCylindrical, .result = edgeNodesQuad6Cylindrical},
    {.shape = shp_keyQuad, .nodes = 6, .with = shp_keyPipeSoil, .result = edgeNodesQuad6PipeSoil},
    {.shape = shp_keyQuad, .nodes = 6, .with = shp_keyCohesive, .result = edgeNodesQuad6Cohesive},
    {.shape = shp_keyQuad, .nodes = 6, .result = edgeNodesQuad6},
    {.shape = shp_keyQuad, .nodes = {8, 9}, .result = edgeNodesQuad8},
    {.shape = shp_keyTetra, .nodes = 4, .result = edgeNodesTet4},
    {.shape = shp_keyTetra, .result = edgeNodesTet10},
    {.shape = shp_keyHex, .nodes = 8, .result = edgeNodesHex8},
    {.shape = shp_keyHex, .nodes = 12, .with = {shp_keyCylindrical, shp_keyCohesive}, .result = edgeNodesHex12Cyl},
    {.shape = shp_keyHex, .nodes = 12, .result = edgeNodesHex12},
    {.shape = shp_keyHex, .nodes = 18, .with = shp_keyGasket, .result = edgeNodesHex18Gasket},
    {.shape = shp_keyHex, .nodes = 18, .result = edgeNodesHex18},
    {.shape = shp_keyHex, .nodes = {20, 24, 27}, .result = edgeNodesHex20},
    {.shape = shp_keyPrism, .nodes = 6, .result = edgeNodesPrism6},
    {.shape = shp_keyPrism, .nodes = 9, .result = edgeNodesPrism9},
    {.shape = shp_keyPrism, .nodes = 12, .result = edgeNodesPrism12},
    {.shape = shp_keyPrism, .nodes = {15, 18}, .result = edgeNodesPrism15},
    {.shape = shp_keyPyramid, .result = edgeNodesPyramid},
};

constexpr shp_Choice<int const *> edgesPerFace[] = {
    {.shape = {shp_keyPoint, shp_keyLine, shp_keyARS}, .result = faceEdgesPoint},
    {.shape = shp_keyTri, .result = faceEdgesTri},
    {.shape = shp_keyQuad, .with = shp_keyInfinite, .result = faceEdgesQuadInfinite},
    {.shape = shp_keyQuad, .result = faceEdgesQuad},
    {.shape = shp_keyTetra, .result = faceEdgesTetra},
    {.shape = shp_keyHex, .with = shp_keyInfinite, .result = faceEdgesHexInfinite},
    {.shape = shp_keyHex, .result = faceEdgesHex},
    {.shape = shp_keyPrism, .result = faceEdgesPrism},
    {.shape = shp_keyPyramid, .result = faceEdgesPyramid},
};

constexpr shp_Choice<int const *> nodesPerFace[] = {
    {.shape = {shp_keyPoint, shp_keyARS}, .result = faceNodesPoint},
    {.shape = shp_keyLine, .nodes = 2, .result = faceNodesLine2},
    {.shape = shp_keyLine, .result = faceNodesLine3},
    {.shape = shp_keyTri, .nodes = 3, .result = faceNodesTri3},
    {.shape = shp_keyTri, .result = faceNodesTri6},
    {.shape = shp_keyQuad, .nodes = 4, .result = faceNodesQuad4},
    {.shape = shp_keyQuad, .nodes = 5, .result = faceNodesQuad5},
    {.shape = shp_keyQuad, .nodes = 6, .result = faceNodesQuad6},
    {.shape = shp_keyQuad, .nodes = 8, .result = faceNodesQuad8},
    {.shape = shp_keyQuad, .nodes = 9, .result = faceNodesQuad9},
    {.shape = shp_keyTetra, .nodes = 4, .result = faceNodesTet4},
    {.shape = shp_keyTetra, .result = faceNodesTet10},
    {.shape = shp_keyHex, .nodes = 8, .result = faceNodesHex8},
    {.shape = shp_keyHex, .nodes = 12, .with = {shp_keyCylindrical, shp_keyCohesive}, .result = faceNodesHex12Cyl},
    {.shape = shp_keyHex, .nodes = 12, .result = faceNodesHex12},
    {.shape = shp_keyHex, .nodes = 18, .with = shp_keyGasket, .result = faceNodesHex18Gasket},
    {.shape = shp_keyHex, .nodes = 18, .result = faceNodesHex18},
    {.shape = shp_keyHex, .nodes = 20, .result = faceNodesHex20},
    {.shape = shp_keyHex, .nodes = 24, .result = faceNodesHex24},
    {.shape = shp_keyHex, .nodes = 27, .result = faceNodesHex27},
    {.shape = shp_keyPrism, .nodes = 6, .result = faceNodesPrism6},
    {.shape = shp_keyPrism, .nodes = 9, .result = faceNodesPrism9},
    {.shape = shp_keyPrism, .nodes = 12, .result = faceNodesPrism12},
    {.shape = shp_keyPrism, .nodes = 15, .result = faceNodesPrism15},
    {.shape = shp_keyPrism, .nodes = 18, .result = faceNodesPrism18},
    {.shape = shp_keyPyramid, .result = faceNodesPyramid},
};

// Planar elements ask for the three-dimensional setting itself, not for the absence of the two-dimensional one.
constexpr shp_Choice<int const *> pointsPerFace[] = {
    {.shape = {shp_keyPoint, shp_keyARS}, .result = facePointsPoint},
    {.shape = shp_keyLine, .result = facePointsLine},
    {.shape = shp_keyTri, .nodes = 3, .with = shp_key3D, .result = facePointsTri3Shell},
    {.shape = shp_keyTri, .nodes = 3, .result = facePointsTri},
    {.shape = shp_keyTri, .with = shp_key3D, .result = facePointsTri6Shell},
    {.shape = shp_keyTri, .result = facePointsTri},
    {.shape = shp_keyQuad, .nodes = {4, 8, 9}, .with = shp_key3D, .result = facePointsQuadShell},
    {.shape = shp_keyQuad, .nodes = {4, 8, 9}, .result = facePointsQuad},
    {.shape = shp_keyQuad, .nodes = 5, .result = facePointsQuad5},
    {.shape = shp_keyQuad, .nodes = 6, .with = shp_key3D, .result = facePointsQuad6Shell},
    {.shape = shp_keyQuad, .nodes = 6, .result = facePointsQuad},
    {.shape = shp_keyTetra, .nodes = 4, .result = facePointsTet4},
    {.shape = shp_keyTetra, .result = facePointsTet10},
    {.shape = shp_keyHex, .nodes = {8, 12, 24}, .result = facePointsHex8},
    {.shape = shp_keyHex, .nodes = 18, .with = shp_keyGasket, .result = facePointsHex18Gasket},
    {.shape = shp_keyHex, .nodes = 18, .result = facePointsHex8},
    {.shape = shp_keyHex, .nodes = {20, 27}, .result = facePointsHex20},
    {.shape = shp_keyPrism, .nodes = {6, 9}, .result = facePointsPrism6},
    {.shape = shp_keyPrism, .nodes = 12, .result = facePointsPrism12},
    {.shape = shp_keyPrism, .nodes = {15, 18}, .result = facePointsPrism15},
    {.shape = shp_keyPyramid, .result = facePointsPyramid},
};

} // namespace

int const * shp_ConnectivityTables::getNdPerEdgTblPtr(shp_Options const & options) {
    return shp_firstFit(nodesPerEdge, options);
}

int const * shp_ConnectivityTables::getEdgPerFcTblPtr(shp_Options const & options) {
    return shp_firstFit(edgesPerFace, options);
}

int const * shp_ConnectivityTables::getNdPerFcTblPtr(shp_Options const & options) {
    return shp_firstFit(nodesPerFace, options);
}

int const * shp_ConnectivityTables::getIpPerFcTblPtr(shp_Options const & options) {
    return shp_firstFit(pointsPerFace, options);
}
