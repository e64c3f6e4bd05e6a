// Weights of points, lines and pyramids, those that go by the points alone, and the choice of the family.

#include "shp_InterpolationTables.h"

#include "shp_HexInterpTables.h"
#include "shp_PrismInterpTables.h"
#include "shp_QuadInterpTables.h"
#include "shp_TableSource.h"
#include "shp_TetraInterpTables.h"
#include "shp_TriInterpTables.h"
#include "shp_WeightRules.h"

namespace {

/// Eight ones, for the elements with one integration point; behind them one more, which the nine-node elements read.
constexpr float allOnes[] = {1, 1, 1, 1, 1, 1, 1, 1, 1};

// The points stand at the nodes.
constexpr auto identity2 = shp_identity<2>();
constexpr auto identity3 = shp_identity<3>();
constexpr auto identity4 = shp_identity<4>();
constexpr auto identity6 = shp_identity<6>();
constexpr auto identity8 = shp_identity<8>();
constexpr auto identity9 = shp_identity<9>();

// The points stand at the corners, but run like a tensor product where the nodes go round.
constexpr auto cornerWeights4 = shp_selectPoints<4>({0, 1, 3, 2});
constexpr auto cornerWeights8 = shp_selectPoints<8>({0, 1, 3, 2, 4, 5, 7, 6});

// Lines.

constexpr float const (&end2)[2] = shp_endOf2;
constexpr float const (&end3)[3] = shp_endOf3;

constexpr auto lineFrameWeights = shp_identity<2, 3>();
constexpr auto lineWeights2 = shp_weightRows<3>({{end3[0], end3[1], end3[2]}, {end3[2], end3[1], end3[0]}});
constexpr auto lineWeights2Points = shp_weightRows<2>({{end2[0], end2[1]}, {0.5f, 0.5f}, {end2[1], end2[0]}});
// The middle node's row comes last, though it is the second node: results of axisymmetric lines on file were made so.
constexpr auto lineAxisymmetricWeights =
    shp_weightRows<3>({{end3[0], end3[1], end3[2]}, {end3[2], end3[1], end3[0]}, {0, 1, 0}});
constexpr auto lineWeights3 = shp_weightRows<3>({{end3[0], end3[1], end3[2]}, {0, 1, 0}, {end3[2], end3[1], end3[0]}});

constexpr shp_TableChoice lineNodeChoices[] = {
    {.nodes = 2, .with = shp_keyFrame, .result = lineFrameWeights},
    {.nodes = 2, .result = lineWeights2},
    {.points = 2, .result = lineWeights2Points},
    {.with = shp_keyAxisymmetric, .result = lineAxisymmetricWeights},
    {.result = lineWeights3},
};

float const * lineNodeWeights(shp_Options const & options) {
    return shp_firstFit(lineNodeChoices, options).find(options);
}

constexpr shp_TableChoice lineFaceNodeChoices[] = {
    {.nodes = 2, .result = lineWeights2},
    {.points = 2, .result = lineWeights2Points},
    {.with = shp_keyAxisymmetric, .result = lineAxisymmetricWeights},
    {.result = lineWeights3},
};

float const * lineFaceNodeWeights(shp_Options const & options) {
    return shp_firstFit(lineFaceNodeChoices, options).find(options);
}

// Pyramids.

constexpr auto pyramidNodeWeights = [] {
    constexpr float a = 2.2340081f, b = -0.55077881f, c = 0.18004988f, d = -0.31250075f, e = -0.14062504f;
    return shp_weightRows<5>(
        {{a, b, c, b, d}, {b, a, b, c, d}, {c, b, a, b, d}, {b, c, b, a, d}, {e, e, e, e, 1.5625004f}});
}();

/// The base, then the sides.
constexpr auto pyramidFaceWeights = [] {
    constexpr float a = 0.51420146f, b = -0.17045133f, c = 0.32812512f, d = 0.31249961f;
    return shp_weightRows<5>(
        {{c, c, c, c, -0.31250075f}, {a, a, b, b, d}, {b, a, a, b, d}, {b, b, a, a, d}, {a, b, b, a, d}});
}();

// Lines, triangles and quadrilaterals have one face, whose value is an average over the points.

constexpr float planarFaceWeights2[] = {0.5f, 0.5f};
constexpr float planarCylFaceWeights3[] = {0.2777778f, 0.4444444f, 0.2777778f};
constexpr float planarFaceWeights5[] = {0.2f, 0.2f, 0.2f, 0.2f, 0.2f};
// Sums to 1.0556, and its larger weights are not those of the middle level: face results on file were made with it.
constexpr float planarCylFaceWeights6[] = {0.1388889f, 0.1388889f, 0.1388889f, 0.1388889f, 0.25f, 0.25f};
constexpr float planarFaceWeights6[] = {0.166667f, 0.166667f, 0.166667f, 0.166667f, 0.166667f, 0.166667f};
constexpr float planarFaceWeights8[] = {0.125f, 0.125f, 0.125f, 0.125f, 0.125f, 0.125f, 0.125f, 0.125f};

// A number of points without a row reads the pyramid's table from its start, as it always has.
constexpr shp_TableChoice planarFaceChoices[] = {
    {.points = 2, .result = planarFaceWeights2},
    {.points = 3, .with = shp_keyCylindrical, .result = planarCylFaceWeights3},
    {.points = 3, .result = shp_average3},
    {.points = 4, .result = shp_average4},
    {.points = 5, .result = planarFaceWeights5},
    {.points = 6, .with = shp_keyCylindrical, .result = planarCylFaceWeights6},
    {.points = 6, .result = planarFaceWeights6},
    {.points = 8, .result = planarFaceWeights8},
    {.points = 9, .result = shp_average9},
    {.result = pyramidFaceWeights},
};

float const * planarFaceWeights(shp_Options const & options) {
    return shp_firstFit(planarFaceChoices, options).find(options);
}

// The choices by points, and by family.

constexpr shp_TableChoice nodeWeights[] = {
    {.nodes = 1, .with = shp_keyNodalIntegration, .result = allOnes},
    {.nodes = 2, .with = shp_keyNodalIntegration, .result = identity2},
    {.nodes = 3, .with = shp_keyNodalIntegration, .result = identity3},
    {.nodes = 4, .with = shp_keyNodalIntegration, .result = identity4},
    {.nodes = 6, .with = shp_keyNodalIntegration, .result = identity6},
    {.nodes = 8, .with = shp_keyNodalIntegration, .result = identity8},
    {.nodes = 9, .with = shp_keyNodalIntegration, .result = identity9},
    {.nodes = 4, .with = shp_keyCornerLumped, .result = cornerWeights4},
    {.with = shp_keyCornerLumped, .result = cornerWeights8},
    {.points = 1, .result = allOnes},
    {.shape = {shp_keyPoint, shp_keyARS}, .result = allOnes},
    {.shape = shp_keyPyramid, .result = pyramidNodeWeights},
    {.shape = shp_keyLine, .result = &lineNodeWeights},
    {.shape = shp_keyTri, .result = &shp_TriInterpTables::getNdWghtTblPtr},
    {.shape = shp_keyQuad, .result = &shp_QuadInterpTables::getNdWghtTblPtr},
    {.shape = shp_keyTetra, .result = &shp_TetraInterpTables::getNdWghtTblPtr},
    {.shape = shp_keyHex, .result = &shp_HexInterpTables::getNdWghtTblPtr},
    {.shape = shp_keyPrism, .result = &shp_PrismInterpTables::getNdWghtTblPtr},
};

constexpr shp_TableChoice faceWeights[] = {
    {.points = 1, .result = allOnes},
    {.shape = {shp_keyPoint, shp_keyARS}, .result = allOnes},
    {.shape = {shp_keyLine, shp_keyTri, shp_keyQuad}, .result = &planarFaceWeights},
    {.shape = shp_keyTetra, .result = &shp_TetraInterpTables::getFcWghtTblPtr},
    {.shape = shp_keyPrism, .result = &shp_PrismInterpTables::getFcWghtTblPtr},
    {.shape = shp_keyHex, .result = &shp_HexInterpTables::getFcWghtTblPtr},
    {.shape = shp_keyPyramid, .result = pyramidFaceWeights},
};

// The face of a triangle is the element itself.
constexpr shp_TableChoice faceNodeWeights[] = {
    {.shape = {shp_keyPoint, shp_keyARS}, .result = allOnes},
    {.shape = shp_keyLine, .result = &lineFaceNodeWeights},
    {.shape = shp_keyTri, .result = &shp_TriInterpTables::getNdWghtTblPtr},
    {.shape = shp_keyQuad, .result = &shp_QuadInterpTables::getFacialNdWghtTblPtr},
    {.shape = shp_keyHex, .result = &shp_HexInterpTables::getFacialNdWghtTblPtr},
    {.shape = shp_keyPrism, .result = &shp_PrismInterpTables::getFacialNdWghtTblPtr},
    {.shape = shp_keyTetra, .result = &shp_TetraInterpTables::getFacialNdWghtTblPtr},
};

constexpr shp_TableChoice centroidWeights[] = {
    {.shape = shp_keyHex, .result = &shp_HexInterpTables::getCylCentroidWghtTblPtr},
    {.shape = shp_keyPrism, .result = &shp_PrismInterpTables::getCylCentroidWghtTblPtr},
};

} // namespace

float const * shp_InterpolationTables::getNdWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(nodeWeights, options).find(options);
}

float const * shp_InterpolationTables::getFcWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(faceWeights, options).find(options);
}

float const * shp_InterpolationTables::getFacialNdWghtTblPtr(shp_Options const & options, int face) {
    return shp_firstFit(faceNodeWeights, options, face).find(options, face);
}

float const * shp_InterpolationTables::getCylCentroidWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(centroidWeights, options).find(options);
}

float const * shp_InterpolationTables::getOnePtTablePtr() {
    return allOnes;
}
