#include "shp_ConnectivityTables.h"

#include "shp_DecisionList.h"

// The node numbers of each face, one face a row: corners counter-clockwise seen from outside, then midside nodes, then
// the centre node. Numbers count from 0. Surplus slots hold the filler that stands: -1, the first node of the row
// (pyramid, 6-node prism) or 0 (15- and 18-node prism). Faces are in the order in which stored results name them, which
// is not the same for all hexahedra, nor are the corners' starting points: see there.
//
// The drawings show the node numbers once for each family; edges, triangles and reversal refer to the same ones.

namespace {

// clang-format off

/// Points, lines and planar elements have one face, which is the element.
///
///   line     0----1       quadrilateral  3---6---2     triangle  2
///            0--1--2                     |       |               |`.
///                                        7   8   5               5  4
///    h                                   |       |               |    `.
///    |                                   0---4---1               0--3--1
///    o--- g
///
/// Quadrilaterals that number otherwise:
///
///   gasket  2---3   3---4---5     cohesive, 6  3-------2     cylindrical, 6  3-------2     pipe-soil, 6  3---5---2
///           |   |   |       |                  4       5                     5       4                   |       |
///           0---1   0---1---2                  0-------1                     0-------1                   0---4---1
///
///   infinite  3       2    (2 and 3 lie at h = 0, halfway to the open side)
///             |       |
///             0--[4]--1
constexpr int faceConnIdentity[] = {0, 1, 2, 3, 4, 5, 6, 7, 8};

/// The 3-node infinite line counts its ends first.
constexpr int faceConnLine3Infinite[] = {0, 2, 1};

/// Tetrahedron; corner 0 at the origin, 1, 2, 3 on the axes g, h, r. Midside nodes: 4 (0-1), 5 (1-2), 6 (2-0),
/// 7 (0-3), 8 (1-3), 9 (2-3).
///
///      3
///      |`.`-.
///      7  9   8         r
///      |   `.   `-.     |  h
///      |     2     `-.  | /
///      |  6 '  `- 5   `.|/
///      0-------4-------1  --- g
constexpr int faceConnTet4[] = {
    0, 2, 1,
    0, 1, 3,
    1, 2, 3,
    0, 3, 2,
};
constexpr int faceConnTet10[] = {
    0, 2, 1, 6, 5, 4,
    0, 1, 3, 4, 8, 7,
    1, 2, 3, 5, 9, 8,
    0, 3, 2, 7, 9, 6,
};

/// Pyramid: the base at r = -1, the apex 4 on the r axis. The rows of the sides end with their first node again.
///
///            4          r
///          .'|`.        |  h
///        3'--|--`2      | /
///       /  .'  `/       |/
///      0'------1        o--- g
constexpr int faceConnPyramid[] = {
    0, 3, 2, 1,
    0, 1, 4, 0,
    1, 2, 4, 1,
    2, 3, 4, 2,
    3, 0, 4, 3,
};

/// Prism: triangles at r = -1 (face 0) and r = 1 (face 1), then the sides 0-1, 1-2, 2-0.
///
///        5            the others number the nodes between the corners so:
///      11|`10            9 nodes: 6, 7, 8 halfway up the edges 0-3, 1-4, 2-5
///      / |  `.           gasket, 12 nodes: corners 0 1 2, midsides 3 4 5 below; corners 6 7 8, midsides 9 10 11 above
///     3---9---4          cylindrical, 18 nodes: 6 7 8 halfway up the edges, 9 10 11 midsides below, 12 13 14 above,
///     |  14   |             15 16 17 centres of the sides
///     |  |    |
///    12  2   13     r    15, 16, 17: centres of the sides 0-1, 1-2, 2-0 of the other 18-node prism
///     | 8 `7  |     |  h
///     |/    `.|     | /
///     0---6---1     |/__ g
constexpr int faceConnPrism6[] = {
    0, 2, 1, 0,
    3, 4, 5, 3,
    0, 1, 4, 3,
    1, 2, 5, 4,
    0, 3, 5, 2,
};
constexpr int faceConnPrism9[] = {
    0, 2, 1, -1, -1, -1,
    3, 4, 5, -1, -1, -1,
    1, 4, 3,  0,  7,  6,
    2, 5, 4,  1,  8,  7,
    0, 3, 5,  2,  6,  8,
};
constexpr int faceConnPrism12[] = {
    0, 2, 1, 5,  4,  3,
    6, 7, 8, 9, 10, 11,
    0, 1, 7, 6,  3,  9,
    1, 2, 8, 7,  4, 10,
    0, 6, 8, 2,  5, 11,
};
constexpr int faceConnPrism15[] = {
    0, 2, 1, 8,  7,  6,  0,  0,
    3, 4, 5, 9, 10, 11,  0,  0,
    0, 1, 4, 3,  6, 13,  9, 12,
    1, 2, 5, 4,  7, 14, 10, 13,
    0, 3, 5, 2, 12, 11, 14,  8,
};
constexpr int faceConnPrism18[] = {
    0, 2, 1, 8,  7,  6,  0,  0,  0,
    3, 4, 5, 9, 10, 11,  0,  0,  0,
    0, 1, 4, 3,  6, 13,  9, 12, 15,
    1, 2, 5, 4,  7, 14, 10, 13, 16,
    0, 3, 5, 2, 12, 11, 14,  8, 17,
};
constexpr int faceConnPrism18Cyl[] = {
    0, 2, 1, 11, 10,  9, -1, -1, -1,
    3, 4, 5, 12, 13, 14, -1, -1, -1,
    1, 4, 3,  0,  7, 12,  6,  9, 15,
    2, 5, 4,  1,  8, 13,  7, 10, 16,
    0, 3, 5,  2,  6, 14,  8, 11, 17,
};

/// Hexahedron of 8, 20 and 27 nodes. 20 is the centre; 21 to 26 are the centres of the faces r = -1, r = 1, h = -1,
/// g = 1, h = 1, g = -1.
///
///           7------14-----6
///          /|            /|
///        15 19         13 18
///        /  |          /  |
///       4------12-----5   |
///       |   3------10-|---2     r
///      16  /         17  /      |  h
///       | 11          | 9       | /
///       |/            |/        |/
///       0------8------1         o--- g
///
/// 12 nodes between curved faces (cylindrical, cohesive): 8 to 11 halfway up the edges. 24 nodes: then 12 to 15
/// midsides at r = -1, 16 to 19 at r = 1, 20 to 23 centres of the sides h = -1, g = 1, h = 1, g = -1.
/// 18 nodes (gasket): corners 0 to 3, midsides 4 to 7 at r = -1; corners 8 to 11, midsides 12 to 15 at r = 1; 16, 17
/// centres of the two.
/// Infinite: the second ring of nodes lies at r = 0 and its face comes last, after the sides: 8 nodes number as above,
/// 12 and 18 as the gasket does, the 12-node one without midside nodes in its second ring.
///
/// The sides h = 1 and g = -1 of the 8- and 20-node hexahedra begin at other corners than those of the 27-node one, of
/// the infinite ones and of those between curved faces, and the gasket's begin elsewhere again. Stored results depend
/// on each of these orders.
constexpr int faceConnHex8[] = {
    0, 3, 2, 1,
    4, 5, 6, 7,
    0, 1, 5, 4,
    1, 2, 6, 5,
    3, 7, 6, 2,
    4, 7, 3, 0,
};
constexpr int faceConnHex8Infinite[] = {
    0, 3, 2, 1,
    0, 1, 5, 4,
    1, 2, 6, 5,
    2, 3, 7, 6,
    3, 0, 4, 7,
    4, 5, 6, 7,
};
constexpr int faceConnHex12[] = {
    0, 3,  2,  1,  7,  6,  5,  4,
    0, 1,  9,  8,  4, -1, -1, -1,
    1, 2, 10,  9,  5, -1, -1, -1,
    2, 3, 11, 10,  6, -1, -1, -1,
    3, 0,  8, 11,  7, -1, -1, -1,
    8, 9, 10, 11, -1, -1, -1, -1,
};
constexpr int faceConnHex12Cyl[] = {
    0, 3, 2, 1, -1, -1,
    4, 5, 6, 7, -1, -1,
    1, 5, 4, 0,  9,  8,
    2, 6, 5, 1, 10,  9,
    3, 7, 6, 2, 11, 10,
    0, 4, 7, 3,  8, 11,
};
constexpr int faceConnHex18[] = {
    0, 3,  2,  1,  7,  6,  5,  4, 16,
    0, 1,  9,  8,  4, 12, -1, -1, -1,
    1, 2, 10,  9,  5, 13, -1, -1, -1,
    2, 3, 11, 10,  6, 14, -1, -1, -1,
    3, 0,  8, 11,  7, 15, -1, -1, -1,
    8, 9, 10, 11, 12, 13, 14, 15, 17,
};
constexpr int faceConnHex18Gasket[] = {
    0,  3,  2,  1,  7,  6,  5,  4, 16,
    8,  9, 10, 11, 12, 13, 14, 15, 17,
    0,  1,  9,  8,  4, 12, -1, -1, -1,
    1,  2, 10,  9,  5, 13, -1, -1, -1,
    3, 11, 10,  2,  6, 14, -1, -1, -1,
    8, 11,  3,  0, 15,  7, -1, -1, -1,
};
constexpr int faceConnHex20[] = {
    0, 3, 2, 1, 11, 10,  9,  8,
    4, 5, 6, 7, 12, 13, 14, 15,
    0, 1, 5, 4,  8, 17, 12, 16,
    1, 2, 6, 5,  9, 18, 13, 17,
    3, 7, 6, 2, 19, 14, 18, 10,
    4, 7, 3, 0, 15, 19, 11, 16,
};
constexpr int faceConnHex24[] = {
    0, 3, 2, 1, 15, 14, 13, 12, -1,
    4, 5, 6, 7, 16, 17, 18, 19, -1,
    1, 5, 4, 0,  9, 16,  8, 12, 20,
    2, 6, 5, 1, 10, 17,  9, 13, 21,
    3, 7, 6, 2, 11, 18, 10, 14, 22,
    0, 4, 7, 3,  8, 19, 11, 15, 23,
};
constexpr int faceConnHex27[] = {
    0, 3, 2, 1, 11, 10,  9,  8, 21,
    4, 5, 6, 7, 12, 13, 14, 15, 22,
    0, 1, 5, 4,  8, 17, 12, 16, 23,
    1, 2, 6, 5,  9, 18, 13, 17, 24,
    2, 3, 7, 6, 10, 19, 14, 18, 25,
    3, 0, 4, 7, 11, 16, 15, 19, 26,
};

// clang-format on

// The infinite line stands before the row that it is an exception to.
constexpr shp_Choice<int const *> faceConnectivity[] = {
    {.shape = {shp_keyPoint, shp_keyLine, shp_keyARS},
     .nodes = 3,
     .with = shp_keyInfinite,
     .result = faceConnLine3Infinite},
    {.shape = {shp_keyPoint, shp_keyLine, shp_keyARS}, .result = faceConnIdentity},
    {.shape = {shp_keyTri, shp_keyQuad}, .result = faceConnIdentity},
    {.shape = shp_keyTetra, .nodes = 4, .result = faceConnTet4},
    {.shape = shp_keyTetra, .result = faceConnTet10},
    {.shape = shp_keyPyramid, .result = faceConnPyramid},
    {.shape = shp_keyPrism, .nodes = 6, .result = faceConnPrism6},
    {.shape = shp_keyPrism, .nodes = 9, .result = faceConnPrism9},
    {.shape = shp_keyPrism, .nodes = 12, .result = faceConnPrism12},
    {.shape = shp_keyPrism, .nodes = 15, .result = faceConnPrism15},
    {.shape = shp_keyPrism, .nodes = 18, .without = shp_keyCylindrical, .result = faceConnPrism18},
    {.shape = shp_keyPrism, .nodes = 18, .with = shp_keyCylindrical, .result = faceConnPrism18Cyl},
    {.shape = shp_keyHex, .nodes = 8, .without = shp_keyInfinite, .result = faceConnHex8},
    {.shape = shp_keyHex, .nodes = 8, .with = shp_keyInfinite, .result = faceConnHex8Infinite},
    {.shape = shp_keyHex, .nodes = 12, .without = {shp_keyCylindrical, shp_keyCohesive}, .result = faceConnHex12},
    {.shape = shp_keyHex, .nodes = 12, .with = {shp_keyCylindrical, shp_keyCohesive}, .result = faceConnHex12Cyl},
    {.shape = shp_keyHex, .nodes = 18, .without = shp_keyGasket, .result = faceConnHex18},
    {.shape = shp_keyHex, .nodes = 18, .with = shp_keyGasket, .result = faceConnHex18Gasket},
    {.shape = shp_keyHex, .nodes = 20, .result = faceConnHex20},
    {.shape = shp_keyHex, .nodes = 24, .result = faceConnHex24},
    {.shape = shp_keyHex, .nodes = 27, .result = faceConnHex27},
};

} // namespace

int const * shp_ConnectivityTables::getFaceConnTblPtr(shp_Options const & options) {
    return shp_firstFit(faceConnectivity, options);
}
