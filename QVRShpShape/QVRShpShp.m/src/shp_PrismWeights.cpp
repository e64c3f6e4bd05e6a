#include "shp_PrismInterpTables.h"

#include "shp_FaceNodeWeights.h"
#include "shp_PrismNodeLocations.h"
#include "shp_TableSource.h"
#include "shp_TriInterpTables.h"
#include "shp_WeightRules.h"

namespace {

// Rows of nodes, in node order.

// Each node takes the point below or above it; the points are the midplane's.
constexpr auto prismMidplaneWeights6 = shp_selectPoints<3>({0, 1, 2, 0, 1, 2});
constexpr auto prismMidplaneWeights9 = shp_selectPoints<3>({0, 1, 2, 0, 1, 2, 0, 1, 2});
constexpr auto prismGasketWeights12 = shp_selectPoints<6>({0, 1, 2, 3, 4, 5, 0, 1, 2, 3, 4, 5});

constexpr auto prismCylWeights9 = [] {
    constexpr float lower[] = {1.47883f, -0.666667f, 0.187836f};
    shp_WeightTable<9, 3> table;
    for (int node = 0; node < 3; ++node) {
        for (int point = 0; point < 3; ++point) {
            table.at(node, point) = lower[point];
            table.at(3 + node, point) = lower[2 - point];
        }
        table.at(6 + node, 1) = 1;
    }
    return table;
}();

// The linear function of the triangle's three points times the row of the end or the middle in r. Stored results depend
// on the six-digit literals of the cylindrical table as they stand.
constexpr auto prismCylWeights = shp_prismRule<18>(prismCylNodeLocs, {.near = {2.46472f, 0.985887f, -0.492943f},
                                                                      .middle = {-1.11111f, -0.444444f, 0.222222f},
                                                                      .far = {0.31306f, 0.125224f, -0.062612f},
                                                                      .centre = {1.66667f, 0.666667f, -0.333333f}});

// 15 rows for 15 nodes; the last three, the middles of the side faces, are for elements with 18.
constexpr auto prismWeights9Points = [] {
    constexpr shp_CornerWeights linear = {1.6666667f, 0.66666669f, -0.33333331f};
    return shp_prismRule<18>(prismNodeLocs, {.near = {2.4647176f, linear.edge * shp_endOf3[0], -0.49294353f},
                                             .middle = {-1.1111112f, linear.edge * shp_endOf3[1], 0.22222222f},
                                             .far = {0.31306019f, linear.edge * shp_endOf3[2], -0.062612042f},
                                             .centre = linear});
}();

constexpr auto prismWeights2Points = [] {
    shp_WeightTable<6, 2> table;
    for (int node = 0; node < 6; ++node)
        for (int point = 0; point < 2; ++point)
            table.at(node, point) = shp_endOf2[node < 3 ? point : 1 - point];
    return table;
}();

// Six points on each of three levels, 15 by 18. Not the tensor interpolant of the points; stored results were made with
// these rows. One corner, one midside and one corner of the middle layer are typed; the others are these turned with
// the triangle and turned over for r = 1.
constexpr auto prismNodeWeights18 = [] {
    constexpr int perLevel = 6;
    // clang-format off
    constexpr shp_WeightRow<18> corner = {{
        0.61098391f, -0.061591901f, -0.061591901f, 1.3081383f, -1.6252459f, 1.3081383f,
        -0.41750979f, 0.0420883f, 0.0420883f, -0.43999261f, 0.54665178f, -0.43999261f,
        0.077605098f, -0.0078232f, -0.0078232f, 0.16615529f, -0.2064333f, 0.16615529f}};
    constexpr shp_WeightRow<18> midside = {{
        0.27469599f, 0.27469599f, -0.061591901f, 1.3081383f, -0.15855379f, -0.15855379f,
        -0.18771081f, -0.18771081f, 0.0420883f, -0.43999261f, 0.053329598f, 0.053329598f,
        0.034890998f, 0.034890998f, -0.0078232f, 0.16615529f, -0.020138999f, -0.020138999f}};
    constexpr shp_WeightRow<18> middleCorner = {{
        0, 0, 0, 0, 0, 0,
        0.62626481f, -0.063132398f, -0.063132398f, 0.65998888f, -0.8199777f, 0.65998888f,
        0, 0, 0, 0, 0, 0}};
    // clang-format on
    shp_WeightRow<18> rows[15];
    for (int turn = 0; turn < 3; ++turn) {
        rows[turn] = shp_rotate(corner, turn);
        rows[3 + turn] = shp_turnOver(rows[turn], perLevel);
        rows[6 + turn] = shp_rotate(midside, turn);
        rows[9 + turn] = shp_turnOver(rows[6 + turn], perLevel);
        rows[12 + turn] = shp_rotate(middleCorner, turn);
    }
    return shp_weightRows<18>(rows);
}();

constexpr shp_TableChoice nodeWeights[] = {
    {.with = shp_keyLayeredSolid, .result = &shp_TriInterpTables::getNdWghtTblPtr},
    {.nodes = 6, .with = shp_keyGasket, .result = prismMidplaneWeights6},
    {.with = shp_keyGasket, .result = prismGasketWeights12},
    {.nodes = 6, .with = shp_keyCohesive, .result = prismMidplaneWeights6},
    {.with = shp_keyCohesive, .result = prismMidplaneWeights9},
    {.nodes = 9, .with = shp_keyCylindrical, .result = prismCylWeights9},
    {.with = shp_keyCylindrical, .result = prismCylWeights},
    {.points = 2, .result = prismWeights2Points},
    {.points = 9, .result = prismWeights9Points},
    {.result = prismNodeWeights18},
};

// Rows of faces: r = -1, r = 1, then the sides 0-1, 1-2, 2-0.

constexpr float third = 0.333333f, sixth = 0.166667f;

constexpr auto prismFaceWeights2 = shp_weightRows<2>({
    {shp_endOf2[0], shp_endOf2[1]},
    {shp_endOf2[1], shp_endOf2[0]},
    {0.5f, 0.5f},
    {0.5f, 0.5f},
    {0.5f, 0.5f},
});

constexpr auto prismCylFaceWeights3 = shp_weightRows<3>({
    {shp_endOf3[0], shp_endOf3[1], shp_endOf3[2]},
    {shp_endOf3[2], shp_endOf3[1], shp_endOf3[0]},
    {third, third, third},
    {third, third, third},
    {third, third, third},
});

constexpr auto prismMidplaneFaceWeights3 = shp_weightRows<3>({
    {third, third, third},
    {third, third, third},
    {0.5f, 0.5f, 0},
    {0, 0.5f, 0.5f},
    {0.5f, 0, 0.5f},
});

constexpr auto prismMidplaneFaceWeights6 = shp_weightRows<6>({
    {sixth, sixth, sixth, sixth, sixth, sixth},
    {sixth, sixth, sixth, sixth, sixth, sixth},
    {third, third, 0, third, 0, 0},
    {0, third, third, 0, third, 0},
    {third, 0, third, 0, 0, third},
});

constexpr auto prismFaceWeights6 = shp_weightRows<6>({
    {third, third, third, 0, 0, 0},
    {0, 0, 0, third, third, third},
    {0.25f, 0.25f, 0, 0.25f, 0.25f, 0},
    {0, 0.25f, 0.25f, 0, 0.25f, 0.25f},
    {0.25f, 0, 0.25f, 0.25f, 0, 0.25f},
});

/// Faces from the row of r = -1 and the row of the side 0-1: the other end turned over, the other sides turned with the
/// triangle.
template <int Columns>
constexpr auto endAndSides(shp_WeightRow<Columns> const & end, shp_WeightRow<Columns> const & side) {
    return shp_weightRows<Columns>(
        {end, shp_turnOver(end, Columns / 3), side, shp_rotate(side, 1), shp_rotate(side, 2)});
}

// clang-format off

constexpr auto prismFaceWeights9 = endAndSides<9>(
    {{0.492944f, 0.492944f, 0.492944f,
      -0.222222f, -0.222222f, -0.222222f,
      0.062612f, 0.062612f, 0.062612f}},
    {{0.148148f, 0.148148f, -0.148148f,
      0.37037f, 0.37037f, -0.037037f,
      0.148148f, 0.148148f, -0.148148f}});

constexpr auto prismFaceWeights18 = endAndSides<18>(
    {{0.1626f, 0.1626f, 0.1626f, 0.330344f, 0.330344f, 0.330344f,
      -0.073301f, -0.073301f, -0.073301f, -0.148921f, -0.148921f, -0.148921f,
      0.020653f, 0.020653f, 0.020653f, 0.041959f, 0.041959f, 0.041959f}},
    {{0.059876f, 0.059876f, -0.046451f, 0.116723f, 0.016099f, 0.016099f,
      0.14969f, 0.14969f, -0.116126f, 0.291809f, 0.040247f, 0.040247f,
      0.059876f, 0.059876f, -0.046451f, 0.116723f, 0.016099f, 0.016099f}});

// clang-format on

constexpr shp_TableChoice faceWeights[] = {
    {.with = shp_keyLayeredSolid, .result = shp_average3}, // one row, over the points of a layer
    {.points = 2, .result = prismFaceWeights2},
    {.points = 3, .with = shp_keyCylindrical, .result = prismCylFaceWeights3},
    {.points = 3, .result = prismMidplaneFaceWeights3},
    {.points = 9, .result = prismFaceWeights9},
    {.points = 18, .result = prismFaceWeights18},
    {.with = shp_keyGasket, .result = prismMidplaneFaceWeights6},
    {.result = prismFaceWeights6},
};

// The sides of 18-node cylindrical prisms are read nine points wide: the entries behind the nine rows of four are 0.
constexpr auto prismCylSides18 = shp_cornerPoints<4, 9, 81>(1);

constexpr shp_TableChoice faceNodeWeights[] = {
    {.nodes = 9, .face = {0, 1}, .with = shp_keyCylindrical, .result = shp_faceTriFrom0},
    {.nodes = 9, .with = shp_keyCylindrical, .result = shp_faceQuadSixNodes},
    {.nodes = 18, .face = {0, 1}, .with = shp_keyCylindrical, .result = shp_faceTriFrom0},
    {.nodes = 18, .with = shp_keyCylindrical, .result = prismCylSides18},
    {.with = shp_keyCylindrical, .result = shp_faceQuadSixNodes},
    {.face = 0, .with = shp_keyGasket, .result = shp_faceTriFrom2},
    {.face = 1, .with = shp_keyGasket, .result = shp_faceTriFrom0},
    {.with = shp_keyGasket, .result = shp_faceQuadFrom3},
    {.nodes = {15, 18}, .face = {0, 1}, .result = shp_faceTriFrom2},
    {.nodes = {15, 18}, .face = 4, .result = shp_faceGaussFrom0},
    {.nodes = {15, 18}, .result = shp_faceGaussFrom3},
    {.face = {0, 1}, .result = shp_faceTriFrom2},
    {.face = 4, .result = shp_faceQuadFrom0},
    {.result = shp_faceQuadFrom3},
};

constexpr float prismCylCentroidWeights[] = {0.27778f, 0.44444f, 0.27778f, 0, 0, 0};

constexpr shp_TableChoice centroidWeights[] = {
    {.nodes = 9, .with = shp_keyCylindrical, .result = prismCylCentroidWeights},
};

} // namespace

float const * shp_PrismInterpTables::getNdWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(nodeWeights, options).find(options);
}

float const * shp_PrismInterpTables::getFcWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(faceWeights, options).find(options);
}

float const * shp_PrismInterpTables::getFacialNdWghtTblPtr(shp_Options const & options, int face) {
    return shp_firstFit(faceNodeWeights, options, face).find(options);
}

float const * shp_PrismInterpTables::getCylCentroidWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(centroidWeights, options).find(options);
}
