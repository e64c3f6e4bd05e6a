#include "shp_ConnectivityTables.h"
#include "shp_DecisionList.h"
#include "uti_CoordCont3D.h"

#include <algorithm>

// How the two tangents of a face come from the positions of its nodes. Node numbers here are places in the face's own
// list: as a rule corners first, counter-clockwise seen from outside, then midside nodes; gasket, cohesive and
// cylindrical elements have orders of their own (see shp_ConnectivityTablesFaces.cpp).

namespace {

/// The way from one node of the face to another.
struct Difference {
    int to, from;
};

/// Both tangents of a face.
struct Tangents {
    Difference first, second;
    bool isQuadratic = false; ///< the differences are not looked at: see quadraticTangents
};

/// The tangents of a triangle with midside nodes, at its centre.
constexpr Tangents quadratic = {{}, {}, true};

/// A solid's tangents where its ends, the first `numEnds` faces, are of another kind than its sides; with no ends, all
/// faces are alike.
struct FaceKinds {
    int numEnds;
    Tangents ends, sides;
};

constexpr FaceKinds allFaces(Tangents tangents) {
    return {0, tangents, tangents};
}

/// The tangents of each kind of element. The order of the two decides on which side the normal is.
/// FaceTanMidsideSwapped has them the other way round, so that 9-node cylindrical membranes look to the other side than
/// all others: normals on file were made so.
// clang-format off
constexpr FaceKinds FaceTanTri            = allFaces({{1, 0}, {2, 0}});
constexpr FaceKinds FaceTanQuadraticTri   = allFaces(quadratic);
constexpr FaceKinds FaceTanDiagonals      = allFaces({{2, 0}, {3, 1}});
constexpr FaceKinds FaceTanDiagonalsMixed = allFaces({{3, 0}, {2, 1}});
constexpr FaceKinds FaceTanCorner         = allFaces({{1, 0}, {3, 0}});
constexpr FaceKinds FaceTanGasketQuad     = allFaces({{5, 0}, {3, 1}});
constexpr FaceKinds FaceTanMidside        = allFaces({{6, 4}, {7, 5}});
constexpr FaceKinds FaceTanMidsideSwapped = allFaces({{7, 5}, {6, 4}});
constexpr FaceKinds FaceTanMidsideCross   = allFaces({{5, 7}, {6, 4}});
constexpr FaceKinds FaceTanBrick12        = {2, {{2, 0}, {3, 1}}, {{1, 0}, {5, 4}}};
constexpr FaceKinds FaceTanWedge6         = {2, {{1, 0}, {2, 0}}, {{2, 0}, {3, 1}}};
constexpr FaceKinds FaceTanWedge9         = {2, {{1, 0}, {2, 0}}, {{1, 0}, {5, 4}}};
constexpr FaceKinds FaceTanWedge12        = {2, quadratic,        {{1, 0}, {2, 1}}};
constexpr FaceKinds FaceTanWedge15        = {2, quadratic,        {{6, 4}, {7, 5}}};
constexpr FaceKinds FaceTanWedge15Cyl     = {2, {{1, 0}, {2, 0}}, {{5, 7}, {6, 4}}};
constexpr FaceKinds FaceTanPyramid        = {1, {{2, 0}, {3, 1}}, {{1, 0}, {2, 0}}};
// clang-format on

/// A node's position, one variable for each coordinate: what is stored singly and read back in pairs is slow.
struct Position {
    float x, y, z;
    Position(uti_CoordCont3D const & coords, int node) { coords.GetCoord(node, x, y, z); }
};

void difference(uti_CoordCont3D const & coords, Difference nodes, float * out) {
    Position const to(coords, nodes.to), from(coords, nodes.from);
    out[0] = to.x - from.x;
    out[1] = to.y - from.y;
    out[2] = to.z - from.z;
}

/// Three times the derivatives of the quadratic triangle at its centre: corners 0, 1, 2, midside nodes 3, 4, 5.
void quadraticTangents(uti_CoordCont3D const & coords, float * t1, float * t2) {
    Position const c0(coords, 0), c1(coords, 1), c2(coords, 2), c3(coords, 3), c4(coords, 4), c5(coords, 5);
    auto const slope = [](float middle, float corner, float otherMiddle, float origin) {
        return 4 * middle + corner - 4 * otherMiddle - origin;
    };
    t1[0] = slope(c4.x, c1.x, c5.x, c0.x);
    t1[1] = slope(c4.y, c1.y, c5.y, c0.y);
    t1[2] = slope(c4.z, c1.z, c5.z, c0.z);
    t2[0] = slope(c4.x, c2.x, c3.x, c0.x);
    t2[1] = slope(c4.y, c2.y, c3.y, c0.y);
    t2[2] = slope(c4.z, c2.z, c3.z, c0.z);
}

/// The function of one row above.
template <FaceKinds const & kinds>
void tangents(uti_CoordCont3D const & coords, unsigned int face, float * t1, float * t2) {
    bool const isEnd = face < static_cast<unsigned int>(kinds.numEnds);
    Tangents const & rule = isEnd ? kinds.ends : kinds.sides;
    if (rule.isQuadratic) {
        quadraticTangents(coords, t1, t2);
    } else {
        difference(coords, rule.first, t1);
        difference(coords, rule.second, t2);
    }
}

/// Points, lines, and node counts that a shape does not have.
void FaceTanNone(uti_CoordCont3D const &, unsigned int, float * t1, float * t2) {
    std::fill_n(t1, 3, 0.0f);
    std::fill_n(t2, 3, 0.0f);
}

// clang-format off
constexpr shp_Choice<shp_FaceTangents> faceTangents[] = {
    {.shape = shp_keyTri,    .nodes = 3,                                                                  .result = tangents<FaceTanTri>},
    {.shape = shp_keyTri,                                                                                 .result = tangents<FaceTanQuadraticTri>},
    {.shape = shp_keyQuad,   .nodes = {4, 5},    .with = shp_keyGasket,                                   .result = tangents<FaceTanDiagonalsMixed>},
    {.shape = shp_keyQuad,   .nodes = {4, 5},    .without = shp_keyGasket,                                .result = tangents<FaceTanDiagonals>},
    {.shape = shp_keyQuad,   .nodes = 6,         .with = {shp_keyCylindrical, shp_keyCohesive},           .result = tangents<FaceTanCorner>},
    {.shape = shp_keyQuad,   .nodes = 6,         .with = shp_keyGasket,                                   .result = tangents<FaceTanGasketQuad>},
    {.shape = shp_keyQuad,   .nodes = 6,                                                                  .result = tangents<FaceTanDiagonals>},
    {.shape = shp_keyQuad,   .nodes = 8,                                                                  .result = tangents<FaceTanMidside>},
    {.shape = shp_keyQuad,   .nodes = 9,         .with = shp_keyCylindrical,                              .result = tangents<FaceTanMidsideSwapped>},
    {.shape = shp_keyQuad,   .nodes = 9,         .without = shp_keyCylindrical,                           .result = tangents<FaceTanMidsideCross>},
    {.shape = shp_keyTetra,  .nodes = 4,                                                                  .result = tangents<FaceTanTri>},
    {.shape = shp_keyTetra,                                                                               .result = tangents<FaceTanQuadraticTri>},
    {.shape = shp_keyHex,    .nodes = {8, 18},                                                            .result = tangents<FaceTanDiagonals>},
    {.shape = shp_keyHex,    .nodes = 12,        .with = {shp_keyCylindrical, shp_keyCohesive},           .result = tangents<FaceTanBrick12>},
    {.shape = shp_keyHex,    .nodes = 12,        .without = {shp_keyCylindrical, shp_keyCohesive},        .result = tangents<FaceTanDiagonals>},
    {.shape = shp_keyHex,    .nodes = {20, 27},                                                           .result = tangents<FaceTanMidside>},
    {.shape = shp_keyHex,    .nodes = 24,                                                                 .result = tangents<FaceTanMidsideCross>},
    {.shape = shp_keyPrism,  .nodes = 6,                                                                  .result = tangents<FaceTanWedge6>},
    {.shape = shp_keyPrism,  .nodes = 9,                                                                  .result = tangents<FaceTanWedge9>},
    {.shape = shp_keyPrism,  .nodes = 12,                                                                 .result = tangents<FaceTanWedge12>},
    {.shape = shp_keyPrism,  .nodes = {15, 18},  .with = shp_keyCylindrical,                              .result = tangents<FaceTanWedge15Cyl>},
    {.shape = shp_keyPrism,  .nodes = {15, 18},  .without = shp_keyCylindrical,                           .result = tangents<FaceTanWedge15>},
    {.shape = shp_keyPyramid,                                                                             .result = tangents<FaceTanPyramid>},
    {.result = FaceTanNone},
};
// clang-format on

} // namespace

shp_FaceTangents shp_ConnectivityTables::getFaceTanFuncPtr(shp_Options const & options) {
    return shp_firstFit(faceTangents, options);
}
