#include "shp_ConnectivityTables.h"

#include "shp_DecisionList.h"

#include <cstddef>

// The surface of each element as triangles of its nodes, three numbers a triangle, counting from 0. A triangle's
// corners need not be corner nodes. The drawings of the elements stand with the face tables.

namespace {

// clang-format off

constexpr int trianglesTri3[] = {0, 1, 2};
constexpr int trianglesTri6[] = {0, 3, 5,  3, 1, 4,  3, 4, 5,  4, 2, 5};

// Chosen by node count alone, so elements that number their nodes in rows, or their midside nodes otherwise, are cut
// as the others are and their triangles overlap (gasket, cohesive and pipe-soil elements). 8-node elements name node 8
// too: whoever walks the triangles supplies the centre.
constexpr int trianglesQuad4[] = {0, 1, 2,  0, 2, 3};
constexpr int trianglesQuad5[] = {0, 4, 3,  4, 1, 2,  4, 2, 3};
constexpr int trianglesQuad6[] = {0, 1, 5,  5, 1, 4,  5, 4, 3,  3, 4, 2};
constexpr int trianglesQuad8[] = {
    0, 8, 7,  7, 8, 3,  0, 4, 8,  3, 8, 6,
    4, 1, 8,  6, 8, 2,  8, 1, 5,  8, 5, 2,
};

constexpr int trianglesTet4[] = {0, 2, 1,  0, 1, 3,  1, 2, 3,  0, 3, 2};
constexpr int trianglesTet10[] = {
    0, 6, 4,  4, 5, 1,  4, 6, 5,  6, 2, 5,
    0, 4, 7,  7, 8, 3,  7, 4, 8,  4, 1, 8,
    1, 5, 8,  8, 9, 3,  8, 5, 9,  5, 2, 9,
    0, 7, 6,  6, 9, 2,  6, 7, 9,  7, 3, 9,
};

constexpr int trianglesPyramid[] = {
    0, 3, 2,  0, 2, 1,  0, 1, 4,  1, 2, 4,
    2, 3, 4,  3, 0, 4,
};

constexpr int trianglesPrism6[] = {
    0, 2, 1,  4, 5, 3,  0, 1, 4,  0, 4, 3,
    1, 2, 5,  1, 5, 4,  0, 3, 2,  3, 5, 2,
};
// Both ends face inwards, and 6 4 8 reaches across the side 2-0. Stored intersections were made with it.
constexpr int trianglesPrism9[] = {
    0, 1, 2,  3, 5, 4,  0, 1, 6,  1, 7, 6,
    6, 7, 3,  7, 4, 3,  1, 2, 7,  7, 2, 8,
    7, 8, 4,  4, 8, 5,  0, 6, 2,  6, 8, 2,
    6, 4, 8,  3, 5, 8,
};
constexpr int trianglesPrism12[] = {
     0,  5,  3,   5,  2,  4,   5,  4,  3,   4,  1,  3,
     7, 10,  9,  10,  8, 11,  10, 11,  9,  11,  6,  9,
     0,  3,  6,   3,  1,  7,   3,  7,  9,   3,  9,  6,
     1,  4,  7,   4,  2,  8,   4,  8, 10,   4, 10,  7,
     2,  5,  8,   5,  0,  6,   5,  6, 11,   5, 11,  8,
};
constexpr int trianglesPrism15[] = {
     0,  8,  6,   6,  7,  1,   6,  8,  7,   8,  2,  7,
     4, 10,  9,   9, 11,  3,   9, 10, 11,  10,  5, 11,
     0,  6, 12,  12,  9,  3,  12,  6, 13,  12, 13,  9,
     6,  1, 13,   9, 13,  4,   1,  7, 13,  13, 10,  4,
    13,  7, 14,  13, 14, 10,   7,  2, 14,  10, 14,  5,
     3, 11, 12,  12,  8,  0,  12, 11, 14,  12, 14,  8,
    11,  5, 14,   8, 14,  2,
};
constexpr int trianglesPrism18[] = {
     0,  8,  6,   6,  7,  1,   6,  8,  7,   8,  2,  7,
     4, 10,  9,   9, 11,  3,   9, 10, 11,  10,  5, 11,
     3, 12, 15,   0, 15, 12,   3, 15,  9,   0,  6, 15,
     4,  9, 15,   1, 15,  6,   4, 15, 13,   1, 13, 15,
     4, 13, 16,   1, 16, 13,   4, 16, 10,   1,  7, 16,
     5, 10, 16,   2, 16,  7,   5, 16, 14,   2, 14, 16,
     0, 12, 17,   3, 17, 12,   0, 17,  8,   3, 11, 17,
     2,  8, 17,   5, 17, 11,   2, 17, 14,   5, 14, 17,
};
// 14 14 5 has no area, and 16 3 8 and 17 8 3 name corner 3 where corner 2 would close the sides: these stay too.
constexpr int trianglesPrism18Cyl[] = {
     0, 11,  9,   9, 10,  1,   9, 11, 10,  11,  2, 10,
     3, 12, 14,  12,  4, 13,  12, 13, 14,  14, 14,  5,
     0,  9,  6,   6,  9, 15,   9,  1, 15,  15,  1,  7,
     6, 15,  3,   3, 15, 12,  15,  7, 12,  12,  7,  4,
     1, 10,  7,   7, 10, 16,  10,  2, 16,  16,  3,  8,
     7, 16,  4,   4, 16, 13,  16,  8, 13,  13,  8,  5,
     0,  6, 11,   6, 17, 11,  11, 17,  2,  17,  8,  3,
     6,  3, 17,   3, 14, 17,  17, 14,  8,  14,  5,  8,
};

constexpr int trianglesHex8[] = {
    0, 3, 2,  0, 2, 1,  4, 6, 7,  4, 5, 6,
    0, 1, 5,  0, 5, 4,  1, 2, 6,  1, 6, 5,
    3, 6, 2,  3, 7, 6,  0, 7, 3,  4, 7, 0,
};
// Made for the infinite element; the cohesive one, with its nodes 4 to 7 at the other end, has the same rows.
constexpr int trianglesHex12[] = {
     0,  7,  4,   7,  3,  6,   6,  2,  5,   4,  5,  1,
     7,  6,  4,   4,  6,  5,   8,  9, 10,   8, 10, 11,
     0,  4,  8,   4,  1,  9,   4,  9,  8,   1,  5,  9,
     5,  2, 10,   5, 10,  9,   2,  6, 10,   6,  3, 11,
     6, 11, 10,   3,  7, 11,   7,  0,  8,   7,  8, 11,
};
constexpr int trianglesHex12Cyl[] = {
     0,  3,  1,   1,  3,  2,   4,  5,  7,   5,  6,  7,
     0,  1,  8,   8,  1,  9,   8,  9,  4,   4,  9,  5,
     1,  2,  9,   9,  2, 10,   9, 10,  5,   5, 10,  6,
     2,  3, 10,  10,  3, 11,  10, 11,  6,   6, 11,  7,
     3,  0, 11,  11,  0,  8,  11,  8,  7,   7,  8,  4,
};
// 6 3 1 leaves a gap in the side 2-3 (node 11 would close it): results on file were cut so.
constexpr int trianglesHex18[] = {
     1,  4,  5,   4,  0,  7,   7,  3,  6,   5,  6,  2,
     4,  6,  5,   4,  7,  6,   8, 12, 15,  12,  9, 13,
    13, 10, 14,  15, 14, 11,  12, 14, 15,  12, 13, 14,
     0,  4,  8,   4,  1,  9,   4, 12,  8,   4,  9, 12,
     1,  5,  9,   5,  2, 10,   5, 13,  9,   5, 10, 13,
     2,  6, 10,   6,  3,  1,   6, 14, 10,   6, 11, 14,
     3,  7, 11,   7,  0,  8,   7, 15, 11,   7,  8, 15,
};
constexpr int trianglesHex20[] = {
     0, 11,  8,   8,  9,  1,   8, 11, 10,   8, 10,  9,
    11,  3, 10,   9, 10,  2,   4, 12, 15,  15, 14,  7,
    15, 12, 14,  12, 13, 14,  12,  5, 13,  14, 13,  6,
     0,  8, 16,  16, 12,  4,  16,  8, 12,   8, 17, 12,
     8,  1, 17,  12, 17,  5,   1,  9, 17,  17, 13,  5,
    17,  9, 13,   9, 18, 13,   9,  2, 18,  13, 18,  6,
     3, 19, 10,  10, 18,  2,  10, 19, 14,  10, 14, 18,
    19,  7, 14,  18, 14,  6,   4, 15, 16,  16, 11,  0,
    11, 15, 19,  16, 15, 11,  15,  7, 19,  11, 19,  3,
};
constexpr int trianglesHex27[] = {
     1,  8, 21,   8,  0, 21,   1, 21,  9,   0, 11, 21,
     9, 21,  2,  11,  3, 21,   2, 21, 10,  10, 21,  3,
     4, 12, 22,  12,  5, 22,   4, 22, 15,   5, 13, 22,
    15, 22,  7,  22, 13,  6,   7, 22, 14,  22,  6, 14,
     0,  8, 23,   8,  1, 23,   0, 23, 16,   1, 17, 23,
    16, 23,  4,  23, 17,  5,   4, 23, 12,  23,  5, 12,
     1,  9, 24,   9,  2, 24,   1, 24, 17,   2, 18, 24,
    17, 24,  5,  24, 18,  6,   5, 24, 13,  24,  6, 13,
     2, 10, 25,  10,  3, 25,   2, 25, 18,   3, 19, 25,
    18, 25,  6,  25, 19,  7,   6, 25, 14,  25,  7, 14,
     3, 11, 26,  11,  0, 26,   3, 26, 19,   0, 16, 26,
    19, 26,  7,  26, 16,  4,   7, 26, 15,  26,  4, 15,
};
// 7 24 19 names a node that the element does not have (23 would close the side): results on file were cut so. Whoever
// walks these triangles must not read a 25th node.
constexpr int trianglesHex24[] = {
     0, 15, 12,  12, 13,  1,  12, 15, 13,  15,  3, 14,
    13, 14,  2,  15, 14, 13,   4, 16, 19,  16,  5, 17,
    16, 17, 19,   7, 19, 18,  18, 17,  6,  18, 19, 17,
     0, 12,  8,   8, 12, 20,  12,  1, 20,  20,  1,  9,
     8, 20,  4,   4, 20, 16,  20,  9, 16,  16,  9,  5,
     1, 13,  9,   9, 13, 21,  13,  2, 21,  21,  2, 10,
     9, 21,  5,   5, 21, 17,  21, 10, 17,  17, 10,  6,
     2, 14, 10,  10, 14, 22,  14,  3, 22,  22,  3, 11,
    10, 22,  6,   6, 22, 18,  22, 11, 18,  18, 11,  7,
     3, 15, 11,  11, 15, 23,  15,  0, 23,  23,  0,  8,
    11, 23,  7,   7, 24, 19,  23,  8, 19,  19,  8,  4,
};

// clang-format on

struct Triangles {
    int const * nodes = nullptr;
    int count = 0;

    constexpr Triangles() = default;
    template <std::size_t N> constexpr Triangles(int const (&table)[N]) : nodes(table), count(N / 3) {
        static_assert(N % 3 == 0);
    }
};

// Points and lines have no row. 18-node prisms and 27-node hexahedra are told apart by their integration points: only
// the layered ones, with fewer points, use the nodes in the middle of their faces.
constexpr shp_Choice<Triangles> faceTriangles[] = {
    {.shape = shp_keyTri, .nodes = 3, .result = trianglesTri3},
    {.shape = shp_keyTri, .result = trianglesTri6},
    {.shape = shp_keyQuad, .nodes = 4, .result = trianglesQuad4},
    {.shape = shp_keyQuad, .nodes = 5, .result = trianglesQuad5},
    {.shape = shp_keyQuad, .nodes = 6, .result = trianglesQuad6},
    {.shape = shp_keyQuad, .nodes = {8, 9}, .result = trianglesQuad8},
    {.shape = shp_keyTetra, .nodes = 4, .result = trianglesTet4},
    {.shape = shp_keyTetra, .result = trianglesTet10},
    {.shape = shp_keyPyramid, .result = trianglesPyramid},
    {.shape = shp_keyPrism, .nodes = 6, .result = trianglesPrism6},
    {.shape = shp_keyPrism, .nodes = 9, .result = trianglesPrism9},
    {.shape = shp_keyPrism, .nodes = 12, .result = trianglesPrism12},
    {.shape = shp_keyPrism, .nodes = 15, .result = trianglesPrism15},
    {.shape = shp_keyPrism, .nodes = 18, .points = 9, .without = shp_keyCylindrical, .result = trianglesPrism15},
    {.shape = shp_keyPrism, .nodes = 18, .without = shp_keyCylindrical, .result = trianglesPrism18},
    {.shape = shp_keyPrism, .nodes = 18, .with = shp_keyCylindrical, .result = trianglesPrism18Cyl},
    {.shape = shp_keyHex, .nodes = 8, .result = trianglesHex8},
    {.shape = shp_keyHex, .nodes = 12, .without = shp_keyCylindrical, .result = trianglesHex12},
    {.shape = shp_keyHex, .nodes = 12, .with = shp_keyCylindrical, .result = trianglesHex12Cyl},
    {.shape = shp_keyHex, .nodes = 18, .result = trianglesHex18},
    {.shape = shp_keyHex, .nodes = 20, .result = trianglesHex20},
    {.shape = shp_keyHex, .nodes = 27, .points = {14, 27}, .result = trianglesHex20},
    {.shape = shp_keyHex, .nodes = 27, .result = trianglesHex27},
    {.shape = shp_keyHex, .nodes = 24, .result = trianglesHex24},
};

} // namespace

int const * shp_ConnectivityTables::getFaceTriTblPtr(shp_Options const & options, int & numTriangles) {
    Triangles const triangles = shp_firstFit(faceTriangles, options);
    numTriangles = triangles.count;
    return triangles.nodes;
}
