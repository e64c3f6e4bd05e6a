#include "shp_ConnectivityTables.h"

#include "shp_DecisionList.h"

// The node numbers along each edge: first end, midside node if there is one, other end. One face a row, its edges side
// by side, each the continuation of the one before it. Numbers count from 0; the filler is -1. The drawings of the
// elements stand with the face tables.

namespace {

// clang-format off

constexpr int edgeConnLine[] = {0, 1, 2};
constexpr int edgeConnLine3Infinite[] = {0, 2, 1};

constexpr int edgeConnTri3[] = {0, 1,  1, 2,  2, 0};
constexpr int edgeConnTri6[] = {0, 3, 1,  1, 4, 2,  2, 5, 0};

constexpr int edgeConnQuad4[] = {0, 1,  1, 2,  2, 3,  3, 0};
// Gaskets number their nodes in two rows, 2 above 0 and 3 above 1; every other 4-node element numbers a ring.
constexpr int edgeConnQuad4Gasket[] = {0, 1,  1, 3,  3, 2,  2, 0};
constexpr int edgeConnQuad4Infinite[] = {0, 1,  1, 2,  3, 0};
constexpr int edgeConnQuad5[] = {0, 4, 1,  1, 2, -1,  3, 0, -1};
constexpr int edgeConnQuad6[] = {0, 1, -1,  1, 4, 2,  2, 3, -1,  3, 5, 0};
constexpr int edgeConnQuad6Gasket[] = {0, 1, 2,  2, 5, -1,  5, 4, 3,  3, 0, -1};
constexpr int edgeConnQuad6PipeSoil[] = {0, 4, 1,  1, 2, -1,  2, 5, 3,  3, 0, -1};
constexpr int edgeConnQuad6Cohesive[] = {0, 1, -1,  1, 5, 2,  2, 3, -1,  3, 4, 0};
constexpr int edgeConnQuad8[] = {0, 4, 1,  1, 5, 2,  2, 6, 3,  3, 7, 0};

constexpr int edgeConnTet4[] = {
    0, 2,  2, 1,  1, 0,
    0, 1,  1, 3,  3, 0,
    1, 2,  2, 3,  3, 1,
    0, 3,  3, 2,  2, 0,
};
constexpr int edgeConnTet10[] = {
    0, 6, 2,  2, 5, 1,  1, 4, 0,
    0, 4, 1,  1, 8, 3,  3, 7, 0,
    1, 5, 2,  2, 9, 3,  3, 8, 1,
    0, 7, 3,  3, 9, 2,  2, 6, 0,
};

constexpr int edgeConnPyramid[] = {
     0,  3,   3,  2,   2,  1,   1,  0,
     0,  1,   1,  4,   4,  0,  -1, -1,
     1,  2,   2,  4,   4,  1,  -1, -1,
     2,  3,   3,  4,   4,  2,  -1, -1,
     3,  0,   0,  4,   4,  3,  -1, -1,
};

constexpr int edgeConnPrism6[] = {
     0,  2,   2,  1,   1,  0,  -1, -1,
     3,  4,   4,  5,   5,  3,  -1, -1,
     0,  1,   1,  4,   4,  3,   3,  0,
     1,  2,   2,  5,   5,  4,   4,  1,
     0,  3,   3,  5,   5,  2,   2,  0,
};
constexpr int edgeConnPrism9[] = {
     0,  2, -1,   2,  1, -1,   1,  0, -1,  -1, -1, -1,
     3,  4, -1,   4,  5, -1,   5,  3, -1,  -1, -1, -1,
     1,  7,  4,   4,  3, -1,   3,  6,  0,   0,  1, -1,
     2,  8,  5,   5,  4, -1,   4,  7,  1,   1,  2, -1,
     0,  6,  3,   3,  5, -1,   5,  8,  2,   2,  0, -1,
};
constexpr int edgeConnPrism12[] = {
     0,  5,  2,   2,  4,  1,   1,  3,  0,  -1, -1, -1,
     6,  9,  7,   7, 10,  8,   8, 11,  6,  -1, -1, -1,
     0,  3,  1,   1,  7, -1,   7,  9,  6,   6,  0, -1,
     1,  4,  2,   2,  8, -1,   8, 10,  7,   7,  1, -1,
     0,  6, -1,   6, 11,  8,   8,  2, -1,   2,  5,  0,
};
constexpr int edgeConnPrism15[] = {
     0,  8,  2,   2,  7,  1,   1,  6,  0,  -1, -1, -1,
     3,  9,  4,   4, 10,  5,   5, 11,  3,  -1, -1, -1,
     0,  6,  1,   1, 13,  4,   4,  9,  3,   3, 12,  0,
     1,  7,  2,   2, 14,  5,   5, 10,  4,   4, 13,  1,
     0, 12,  3,   3, 11,  5,   5, 14,  2,   2,  8,  0,
};
constexpr int edgeConnPrism15Cyl[] = {
     0, 11,  2,   2, 10,  1,   1,  9,  0,  -1, -1, -1,
     3, 12,  4,   4, 13,  5,   5, 14,  3,  -1, -1, -1,
     1,  7,  4,   4, 12,  3,   3,  6,  0,   0,  9,  1,
     2,  8,  5,   5, 13,  4,   4,  7,  1,   1, 10,  2,
     0,  6,  3,   3, 14,  5,   5,  8,  2,   2, 11,  0,
};

// Infinite hexahedra: the sides' third slot is the edge from infinity, written towards the element, and the fourth is
// empty. The last face, at infinity, has no edges; its filler keeps a walk with the full stride inside the table.

constexpr int edgeConnHex8[] = {
    0, 3,  3, 2,  2, 1,  1, 0,
    4, 5,  5, 6,  6, 7,  7, 4,
    0, 1,  1, 5,  5, 4,  4, 0,
    1, 2,  2, 6,  6, 5,  5, 1,
    3, 7,  7, 6,  6, 2,  2, 3,
    4, 7,  7, 3,  3, 0,  0, 4,
};
constexpr int edgeConnHex8Infinite[] = {
     0,  3,   3,  2,   2,  1,   1,  0,
     0,  1,   1,  5,   4,  0,  -1, -1,
     1,  2,   2,  6,   5,  1,  -1, -1,
     2,  3,   3,  7,   6,  2,  -1, -1,
     3,  0,   0,  4,   7,  3,  -1, -1,
    -1, -1,  -1, -1,  -1, -1,  -1, -1,
};
constexpr int edgeConnHex12[] = {
     0,  3, -1,   3,  2, -1,   2,  1, -1,   1,  0, -1,
     4,  5, -1,   5,  6, -1,   6,  7, -1,   7,  4, -1,
     1,  9,  5,   5,  4, -1,   4,  8,  0,   0,  1, -1,
     2, 10,  6,   6,  5, -1,   5,  9,  1,   1,  2, -1,
     3, 11,  7,   7,  6, -1,   6, 10,  2,   2,  3, -1,
     0,  8,  4,   4,  7, -1,   7, 11,  3,   3,  0, -1,
};
constexpr int edgeConnHex12Infinite[] = {
     0,  7,  3,   3,  6,  2,   2,  5,  1,   1,  4,  0,
     0,  4,  1,   1,  9, -1,   8,  0, -1,  -1, -1, -1,
     1,  5,  2,   2, 10, -1,   9,  1, -1,  -1, -1, -1,
     2,  6,  3,   3, 11, -1,  10,  2, -1,  -1, -1, -1,
     3,  7,  0,   0,  8, -1,  11,  3, -1,  -1, -1, -1,
    -1, -1, -1,  -1, -1, -1,  -1, -1, -1,  -1, -1, -1,
};
constexpr int edgeConnHex18[] = {
     0,  7,  3,   3,  6,  2,   2,  5,  1,   1,  4,  0,
     0,  4,  1,   1,  9, -1,   8,  0, -1,  -1, -1, -1,
     1,  5,  2,   2, 10, -1,   9,  1, -1,  -1, -1, -1,
     2,  6,  3,   3, 11, -1,  10,  2, -1,  -1, -1, -1,
     3,  7,  0,   0,  8, -1,  11,  3, -1,  -1, -1, -1,
    -1, -1, -1,  -1, -1, -1,  -1, -1, -1,  -1, -1, -1,
};
constexpr int edgeConnHex18Gasket[] = {
     0,  7,  3,   3,  6,  2,   2,  5,  1,   1,  4,  0,
     8, 12,  9,   9, 13, 10,  10, 14, 11,  11, 15,  8,
     0,  4,  1,   1,  9, -1,   9, 12,  8,   8,  0, -1,
     1,  5,  2,   2, 10, -1,  10, 13,  9,   9,  1, -1,
     3, 11, -1,  11, 14, 10,  10,  2, -1,   2,  6,  3,
     8, 15, 11,  11,  3, -1,   3,  7,  0,   0,  8, -1,
};
constexpr int edgeConnHex20[] = {
     0, 11,  3,   3, 10,  2,   2,  9,  1,   1,  8,  0,
     4, 12,  5,   5, 13,  6,   6, 14,  7,   7, 15,  4,
     0,  8,  1,   1, 17,  5,   5, 12,  4,   4, 16,  0,
     1,  9,  2,   2, 18,  6,   6, 13,  5,   5, 17,  1,
     3, 19,  7,   7, 14,  6,   6, 18,  2,   2, 10,  3,
     4, 15,  7,   7, 19,  3,   3, 11,  0,   0, 16,  4,
};
constexpr int edgeConnHex24[] = {
     0, 15,  3,   3, 14,  2,   2, 13,  1,   1, 12,  0,
     4, 16,  5,   5, 17,  6,   6, 18,  7,   7, 19,  4,
     1,  9,  5,   5, 16,  4,   4,  8,  0,   0, 12,  1,
     2, 10,  6,   6, 17,  5,   5,  9,  1,   1, 13,  2,
     3, 11,  7,   7, 18,  6,   6, 10,  2,   2, 14,  3,
     0,  8,  4,   4, 19,  7,   7, 11,  3,   3, 15,  0,
};
// The last two faces begin at other corners than in the 20-node table, as the faces do.
constexpr int edgeConnHex27[] = {
     0, 11,  3,   3, 10,  2,   2,  9,  1,   1,  8,  0,
     4, 12,  5,   5, 13,  6,   6, 14,  7,   7, 15,  4,
     0,  8,  1,   1, 17,  5,   5, 12,  4,   4, 16,  0,
     1,  9,  2,   2, 18,  6,   6, 13,  5,   5, 17,  1,
     2, 10,  3,   3, 19,  7,   7, 14,  6,   6, 18,  2,
     3, 11,  0,   0, 16,  4,   4, 15,  7,   7, 19,  3,
};

// clang-format on

// The infinite line stands before the row that it is an exception to.
constexpr shp_Choice<int const *> edgeConnectivity[] = {
    {.shape = {shp_keyPoint, shp_keyLine, shp_keyARS},
     .nodes = 3,
     .with = shp_keyInfinite,
     .result = edgeConnLine3Infinite},
    {.shape = {shp_keyPoint, shp_keyLine, shp_keyARS}, .result = edgeConnLine},
    {.shape = shp_keyTri, .nodes = 3, .result = edgeConnTri3},
    {.shape = shp_keyTri, .result = edgeConnTri6},
    {.shape = shp_keyQuad, .nodes = 4, .without = {shp_keyGasket, shp_keyInfinite}, .result = edgeConnQuad4},
    {.shape = shp_keyQuad, .nodes = 4, .with = shp_keyGasket, .result = edgeConnQuad4Gasket},
    {.shape = shp_keyQuad,
     .nodes = 4,
     .with = shp_keyInfinite,
     .without = shp_keyGasket,
     .result = edgeConnQuad4Infinite},
    {.shape = shp_keyQuad, .nodes = 5, .result = edgeConnQuad5},
    {.shape = shp_keyQuad,
     .nodes = 6,
     .without = {shp_keyGasket, shp_keyPipeSoil, shp_keyCohesive},
     .result = edgeConnQuad6},
    {.shape = shp_keyQuad, .nodes = 6, .with = shp_keyGasket, .result = edgeConnQuad6Gasket},
    {.shape = shp_keyQuad,
     .nodes = 6,
     .with = shp_keyPipeSoil,
     .without = shp_keyGasket,
     .result = edgeConnQuad6PipeSoil},
    {.shape = shp_keyQuad,
     .nodes = 6,
     .with = shp_keyCohesive,
     .without = {shp_keyGasket, shp_keyPipeSoil},
     .result = edgeConnQuad6Cohesive},
    {.shape = shp_keyQuad, .nodes = {8, 9}, .result = edgeConnQuad8},
    {.shape = shp_keyTetra, .nodes = 4, .result = edgeConnTet4},
    {.shape = shp_keyTetra, .result = edgeConnTet10},
    {.shape = shp_keyPyramid, .result = edgeConnPyramid},
    {.shape = shp_keyPrism, .nodes = 6, .result = edgeConnPrism6},
    {.shape = shp_keyPrism, .nodes = 9, .result = edgeConnPrism9},
    {.shape = shp_keyPrism, .nodes = 12, .result = edgeConnPrism12},
    {.shape = shp_keyPrism, .nodes = {15, 18}, .without = shp_keyCylindrical, .result = edgeConnPrism15},
    {.shape = shp_keyPrism, .nodes = {15, 18}, .with = shp_keyCylindrical, .result = edgeConnPrism15Cyl},
    {.shape = shp_keyHex, .nodes = 8, .without = shp_keyInfinite, .result = edgeConnHex8},
    {.shape = shp_keyHex, .nodes = 8, .with = shp_keyInfinite, .result = edgeConnHex8Infinite},
    {.shape = shp_keyHex, .nodes = 12, .without = shp_keyInfinite, .result = edgeConnHex12},
    {.shape = shp_keyHex, .nodes = 12, .with = shp_keyInfinite, .result = edgeConnHex12Infinite},
    {.shape = shp_keyHex, .nodes = 18, .without = shp_keyGasket, .result = edgeConnHex18},
    {.shape = shp_keyHex, .nodes = 18, .with = shp_keyGasket, .result = edgeConnHex18Gasket},
    {.shape = shp_keyHex, .nodes = 20, .result = edgeConnHex20},
    {.shape = shp_keyHex, .nodes = 24, .result = edgeConnHex24},
    {.shape = shp_keyHex, .nodes = 27, .result = edgeConnHex27},
};

} // namespace

int const * shp_ConnectivityTables::getEdgeConnTblPtr(shp_Options const & options) {
    return shp_firstFit(edgeConnectivity, options);
}
