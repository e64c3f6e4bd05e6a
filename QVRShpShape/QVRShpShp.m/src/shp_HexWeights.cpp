#include "shp_HexInterpTables.h"

#include "shp_FaceNodeWeights.h"
#include "shp_HexNodeLocations.h"
#include "shp_QuadInterpTables.h"
#include "shp_TableSource.h"
#include "shp_WeightRules.h"

#include <array>
#include <iterator>

namespace {

constexpr double root3 = 1.7320508075688772;
constexpr double gauss3 = 0.77459666924148338; // sqrt(3/5)

// Levels of the point grids.
constexpr double gaussLevels2[] = {-1 / root3, 1 / root3};
constexpr double gaussLevels3[] = {-gauss3, 0, gauss3};
/// Two Gauss points between r = -1 and r = 0: the exact ones, not the three-digit literals of the points' table.
constexpr double nearHalfLevels[] = {-0.5 - 0.5 / root3, -0.5 + 0.5 / root3};

// Rows of nodes, in node order.

// Each node takes the point below or above it; the points are the midplane's.
constexpr auto hexMidplaneWeights8 = shp_selectPoints<4>({0, 1, 2, 3, 0, 1, 2, 3});
constexpr auto hexMidplaneWeights12 = shp_selectPoints<4>({0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3});
constexpr auto hexGasketWeights18 = shp_selectPoints<9>({0, 1, 2, 3, 4, 5, 6, 7, 0, 1, 2, 3, 4, 5, 6, 7, 8, 8});

constexpr auto hexInfiniteWeights8Points12 =
    shp_tensorRule<12>(hexInfiniteNodeLocs18, gaussLevels2, gaussLevels2, gaussLevels2);
constexpr auto hexInfiniteWeights8Points18 =
    shp_tensorRule<18>(hexInfiniteNodeLocs18, gaussLevels2, gaussLevels2, gaussLevels2);
constexpr auto hexWeights8Points = shp_tensorRule<20>(hexNodeLocs, gaussLevels2, gaussLevels2, gaussLevels2);
constexpr auto hexCylWeights12Points = shp_tensorRule<24>(hexCylNodeLocs, gaussLevels2, gaussLevels2, gaussLevels3);
constexpr auto hexInfiniteWeights18Points =
    shp_tensorRule<18>(hexInfiniteNodeLocs18, gaussLevels3, gaussLevels3, nearHalfLevels);
constexpr auto hexCylWeights27Points = shp_tensorRule<24>(hexCylNodeLocs, gaussLevels3, gaussLevels3, gaussLevels3);
constexpr auto hexWeights27Points = shp_tensorRule<27>(hexNodeLocs, gaussLevels3, gaussLevels3, gaussLevels3);

/// Trilinear through the first eight of 14 points, which run like the corner nodes; the six near the faces take no
/// part.
constexpr auto hexWeights14Points = [] {
    constexpr double level = 0.7588;
    constexpr int corners = 8;
    shp_WeightTable<static_cast<int>(std::size(hexNodeLocs)), 14> table;
    for (int node = 0; node < static_cast<int>(std::size(hexNodeLocs)); ++node)
        for (int point = 0; point < corners; ++point) {
            double weight = 1;
            for (int axis = 0; axis < 3; ++axis)
                weight *= (1 + static_cast<double>(hexNodeLocs[node][axis] * hexNodeLocs[point][axis]) / level) / 2;
            table.at(node, point) = static_cast<float>(weight);
        }
    return table;
}();

/// Each node takes the point of the grid that it stands on.
constexpr auto hexGridWeights = shp_selectPoints<27>({0, 2, 8, 6, 18, 20, 26, 24});

constexpr shp_TableChoice nodeWeights[] = {
    {.with = shp_keyLayeredSolid, .result = &shp_QuadInterpTables::getNdWghtTblPtr},
    {.nodes = 8, .with = shp_keyGasket, .result = hexMidplaneWeights8},
    {.with = shp_keyGasket, .result = hexGasketWeights18},
    {.nodes = 8, .with = shp_keyCohesive, .result = hexMidplaneWeights8},
    {.with = shp_keyCohesive, .result = hexMidplaneWeights12},
    {.nodes = 12, .points = 8, .result = hexInfiniteWeights8Points12},
    {.nodes = 18, .points = 8, .result = hexInfiniteWeights8Points18},
    {.points = 8, .result = hexWeights8Points},
    {.points = 12, .result = hexCylWeights12Points},
    {.points = 14, .result = hexWeights14Points},
    {.nodes = 18, .points = 18, .result = hexInfiniteWeights18Points},
    {.nodes = 8, .points = {18, 27}, .result = hexGridWeights},
    {.nodes = 24, .points = {18, 27}, .result = hexCylWeights27Points},
    {.points = {18, 27}, .result = hexWeights27Points},
};

// Rows of faces, in the order r = -1, r = 1, h = -1, g = 1, h = 1, g = -1 unless said otherwise. Infinite elements have
// the far face r = 0 last, behind their four sides.

constexpr auto hexMidplaneFaceWeights4 = shp_weightRows<4>({
    {0.25f, 0.25f, 0.25f, 0.25f},
    {0.25f, 0.25f, 0.25f, 0.25f},
    {0.5f, 0.5f, 0, 0},
    {0, 0.5f, 0.5f, 0},
    {0, 0, 0.5f, 0.5f},
    {0.5f, 0, 0, 0.5f},
});

/// Eight points or nodes, by the face each lies at: `near` on the four of the face, `far` on the others.
enum class PointOrder { tensor, corners };

template <int Columns> constexpr shp_WeightTable<6, Columns> nearAndFar(float near, float far, PointOrder order) {
    constexpr int axis[] = {2, 2, 1, 0, 1, 0};
    constexpr float end[] = {-1, 1, -1, 1, 1, -1};
    shp_WeightTable<6, Columns> table;
    for (int face = 0; face < 6; ++face)
        for (int point = 0; point < 8; ++point) {
            float const tensor[] = {point % 2 ? 1.0f : -1.0f, point / 2 % 2 ? 1.0f : -1.0f, point / 4 ? 1.0f : -1.0f};
            float const side = order == PointOrder::tensor ? tensor[axis[face]] : hexNodeLocs[point][axis[face]];
            table.at(face, point) = side == end[face] ? near : far;
        }
    return table;
}

constexpr float trilinearNear = 0.341506f, trilinearFar = -0.0915063f;
constexpr float irons14Near = 0.289737f, irons14Far = -0.0397366f;

constexpr auto hexFaceWeights8 = nearAndFar<8>(trilinearNear, trilinearFar, PointOrder::tensor);
constexpr auto hexFaceWeightsAtNodes = nearAndFar<8>(0.25f, 0, PointOrder::corners);
// The values of the 14-point rule on the points of the 8-point rule: face results of reduced second-order elements on
// file were made with them.
constexpr auto hexReducedFaceWeights8 = nearAndFar<8>(irons14Near, irons14Far, PointOrder::tensor);
constexpr auto hexFaceWeights14 = nearAndFar<14>(irons14Near, irons14Far, PointOrder::corners);

constexpr auto hexInfiniteFaceWeights8 = [] {
    constexpr int faces[] = {0, 2, 3, 4, 5, 1};
    shp_WeightTable<6, 8> table;
    for (int face = 0; face < 6; ++face)
        for (int point = 0; point < 8; ++point)
            table.at(face, point) = hexFaceWeights8.at(faces[face], point);
    return table;
}();

// A gasket's sides take three points each. Those of the last three are not the points of the midplane's sides: face
// results on file were made with these rows.
constexpr auto hexGasketFaceWeights9 = [] {
    constexpr int sidePoints[4][3] = {{0, 1, 4}, {2, 3, 5}, {3, 4, 6}, {0, 4, 7}};
    shp_WeightTable<6, 9> table;
    for (int point = 0; point < 9; ++point)
        table.at(0, point) = table.at(1, point) = 0.111111f;
    for (int side = 0; side < 4; ++side)
        for (int point : sidePoints[side])
            table.at(2 + side, point) = 0.333333f;
    return table;
}();

// One-dimensional rows: the end -1, the end 1 and the middle of two or three Gauss points, Gauss averages, and the mean
// of the two ends.
constexpr std::array<double, 2> end2 = {(1 + root3) / 2, (1 - root3) / 2};
constexpr std::array<double, 2> farEnd2 = {end2[1], end2[0]};
constexpr std::array<double, 2> middle2 = {0.5, 0.5};
constexpr std::array<double, 3> end3 = {5.0 / 6 * (1 + gauss3), -2.0 / 3, 5.0 / 6 * (1 - gauss3)};
constexpr std::array<double, 3> farEnd3 = {end3[2], end3[1], end3[0]};
constexpr std::array<double, 3> middle3 = {0, 1, 0};
constexpr std::array<double, 3> average3 = {5.0 / 18, 4.0 / 9, 5.0 / 18};
constexpr std::array<double, 3> meanOfEnds3 = {5.0 / 6, -2.0 / 3, 5.0 / 6};

// Along r, the curved direction, the sides take two thirds of the mean of the ends and one third of the middle.
constexpr std::array<double, 3> cylThrough = {5.0 / 9, -1.0 / 9, 5.0 / 9};
constexpr auto hexCylFaceWeights12 = shp_tensorRows<2, 2, 3>({
    {middle2, middle2, end3},
    {middle2, middle2, farEnd3},
    {middle2, end2, cylThrough},
    {farEnd2, middle2, cylThrough},
    {middle2, farEnd2, cylThrough},
    {end2, middle2, cylThrough},
});

constexpr auto hexInfiniteFaceWeights18 = shp_tensorRows<3, 3, 2>({
    {middle3, middle3, end2},
    {meanOfEnds3, end3, middle2},
    {farEnd3, meanOfEnds3, middle2},
    {meanOfEnds3, farEnd3, middle2},
    {end3, meanOfEnds3, middle2},
    {middle3, middle3, farEnd2},
});

/// Each face takes the point of the grid in its middle.
constexpr auto hexGridFaceWeights = shp_selectPoints<27>({4, 22, 10, 14, 16, 12});

constexpr auto hexFaceWeights27 = shp_tensorRows<3, 3, 3>({
    {average3, average3, end3},
    {average3, average3, farEnd3},
    {average3, end3, average3},
    {farEnd3, average3, average3},
    {average3, farEnd3, average3},
    {end3, average3, average3},
});

// A layered solid has one row, the average over the points of one layer; with 5 points the first five of nine are read.
constexpr shp_TableChoice faceWeights[] = {
    {.points = 4, .with = shp_keyLayeredSolid, .result = shp_average4},
    {.with = shp_keyLayeredSolid, .result = shp_average9},
    {.points = 4, .result = hexMidplaneFaceWeights4},
    {.points = 8, .with = shp_keyInfinite, .result = hexInfiniteFaceWeights8},
    {.points = 8, .with = shp_keyNodalIntegration, .result = hexFaceWeightsAtNodes},
    {.notNodes = 8, .points = 8, .result = hexReducedFaceWeights8},
    {.points = 8, .result = hexFaceWeights8},
    {.points = 9, .result = hexGasketFaceWeights9},
    {.points = 12, .result = hexCylFaceWeights12},
    {.points = 14, .result = hexFaceWeights14},
    {.points = 18, .result = hexInfiniteFaceWeights18},
    {.nodes = 8, .points = 27, .result = hexGridFaceWeights},
    {.points = 27, .result = hexFaceWeights27},
};

constexpr shp_TableChoice faceNodeWeights[] = {
    {.nodes = 12, .face = {0, 1}, .with = shp_keyCylindrical, .result = shp_faceQuadFrom0},
    {.nodes = 12, .with = shp_keyCylindrical, .result = shp_faceQuadSixNodes},
    {.nodes = 24, .face = {0, 1}, .with = shp_keyCylindrical, .result = shp_faceQuadFrom0},
    {.nodes = 24, .with = shp_keyCylindrical, .result = shp_faceQuadFrom1},
    {.with = shp_keyCylindrical, .result = shp_faceQuadFrom3},
    {.face = 1, .with = shp_keyGasket, .result = shp_faceQuadFrom0},
    {.with = shp_keyGasket, .result = shp_faceQuadFrom3},
    {.nodes = {20, 27}, .face = 4, .result = shp_faceGaussFrom0},
    {.nodes = {20, 27}, .face = 5, .result = shp_faceGaussFrom1},
    {.nodes = {20, 27}, .result = shp_faceGaussFrom3},
    {.face = 4, .result = shp_faceQuadFrom0},
    {.face = 5, .result = shp_faceQuadFrom1},
    {.result = shp_faceQuadFrom3},
};

// By rings of four nodes, the middle value on the second, though the ring at r = 0 is the third in node order: stored
// results were made with this order.
constexpr float hexCylCentroidWeights[] = {0.069445f, 0.069445f, 0.069445f, 0.069445f, 0.11111f,  0.11111f,
                                           0.11111f,  0.11111f,  0.069445f, 0.069445f, 0.069445f, 0.069445f};

constexpr shp_TableChoice centroidWeights[] = {
    {.nodes = 12, .with = shp_keyCylindrical, .result = hexCylCentroidWeights},
};

} // namespace

float const * shp_HexInterpTables::getNdWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(nodeWeights, options).find(options);
}

float const * shp_HexInterpTables::getFcWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(faceWeights, options).find(options);
}

float const * shp_HexInterpTables::getFacialNdWghtTblPtr(shp_Options const & options, int face) {
    return shp_firstFit(faceNodeWeights, options, face).find(options);
}

float const * shp_HexInterpTables::getCylCentroidWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(centroidWeights, options).find(options);
}
