#include "shp_QuadInterpTables.h"

#include "shp_FaceNodeWeights.h"
#include "shp_QuadNodeLocations.h"
#include "shp_TableSource.h"
#include "shp_WeightRules.h"

namespace {

/// The values of a bilinear rule through four points: at a corner from the near point, the two beside it, the one
/// across; at a midside from the near and far points; at the centre.
struct BilinearValues {
    float corner, beside, across, midside, farMidside, centre;
};

/// Four points, g fastest, to the nine nodes of `quadNodeLocs`.
constexpr shp_WeightTable<9, 4> bilinearWeights(BilinearValues const & values) {
    shp_WeightTable<9, 4> table;
    for (int node = 0; node < 9; ++node)
        for (int point = 0; point < 4; ++point) {
            float const g = quadNodeLocs[node][0] * static_cast<float>(point % 2 ? 1 : -1);
            float const h = quadNodeLocs[node][1] * static_cast<float>(point / 2 ? 1 : -1);
            float & weight = table.at(node, point);
            if (g != 0 && h != 0)
                weight = g > 0 && h > 0 ? values.corner : g < 0 && h < 0 ? values.across : values.beside;
            else if (g != 0 || h != 0)
                weight = g + h > 0 ? values.midside : values.farMidside;
            else
                weight = values.centre;
        }
    return table;
}

constexpr auto quadWeights4 = bilinearWeights({1.8660254f, -0.5f, 0.1339746f, 0.68301272f, -0.18301269f, 0.25f});

/// The fifth point stands in the centre, and only the centre node takes it.
constexpr auto quadWeights5 = [] {
    shp_WeightTable<9, 5> table;
    for (int node = 0; node < 8; ++node)
        for (int point = 0; point < 4; ++point)
            table.at(node, point) = quadWeights4.at(node, point);
    table.at(8, 4) = 1;
    return table;
}();

/// The far corners of an infinite element take the rows of the midsides.
constexpr auto quadInfiniteWeights = [] {
    shp_WeightTable<9, 4> table = quadWeights4;
    for (int point = 0; point < 4; ++point) {
        table.at(2, point) = quadWeights4.at(5, point);
        table.at(3, point) = quadWeights4.at(7, point);
    }
    return table;
}();

constexpr auto quadWeights9 = shp_gaussGridWeights();

// Cylindrical elements. The short literals stay as they stand, 1.47788 (for 1.47883) among them: stored results were
// made with them.
constexpr auto quadCylWeights2 = shp_weightRows<2>({
    {1.36602f, -0.36602f},
    {1.36602f, -0.36602f},
    {-0.36602f, 1.36602f},
    {-0.36602f, 1.36602f},
    {0.5f, 0.5f},
    {0.5f, 0.5f},
});

constexpr auto quadCylWeights3 = shp_weightRows<3>({
    {1.47788f, -0.666667f, 0.187836f},
    {1.47788f, -0.666667f, 0.187836f},
    {0.187836f, -0.666667f, 1.47788f},
    {0.187836f, -0.666667f, 1.47788f},
    {0, 1, 0},
    {0, 1, 0},
});

constexpr auto quadCylWeights4 = bilinearWeights({1.86602f, -0.5f, 0.133975f, 0.683f, -0.183f, 0.25f});

// Two points in g on each of three levels of h. In g the rows are linear through -+0.7746, where the points stand at
// -+0.57735; stored results were made with them.
constexpr auto quadCylWeights6 = [] {
    constexpr int perLevel = 2;
    constexpr shp_WeightRow<6> corner = {{1.694f, -0.215166f, -0.763665f, 0.0969981f, 0.215166f, -0.0273296f}};
    constexpr shp_WeightRow<6> lower = {{0.739415f, 0.739415f, -0.333333f, -0.333333f, 0.0939181f, 0.0939181f}};
    constexpr shp_WeightRow<6> right = {{0, 0, -0.145497f, 1.1455f, 0, 0}};
    constexpr shp_WeightRow<6> centre = {{0, 0, 0.5f, 0.5f, 0, 0}};
    constexpr shp_WeightRow<6> secondCorner = shp_mirror(corner, perLevel);
    return shp_weightRows<6>({corner, secondCorner, shp_turnOver(secondCorner, perLevel),
                              shp_turnOver(corner, perLevel), lower, right, shp_turnOver(lower, perLevel),
                              shp_mirror(right, perLevel), centre});
}();

// Each node takes one point. Face nodes read these tables four points wide: the entries behind the rows are 0.
constexpr auto quadGasketWeights4 = shp_selectPoints<2, 16>({0, 1, 0, 1});
constexpr auto quadGasketWeights6 = shp_selectPoints<3, 24>({0, 1, 2, 0, 1, 2});
constexpr auto quadCohesiveWeights4 = shp_selectPoints<2, 16>({0, 1, 1, 0});
constexpr auto quadCohesiveWeights6 = shp_selectPoints<2, 24>({0, 1, 1, 0, 0, 1});
constexpr auto quadPipeSoilWeights6 = shp_selectPoints<3, 24>({0, 1, 1, 0, 2, 2});
constexpr auto quadPipeSoilWeights4 = shp_selectPoints<2, 16>({0, 1, 1, 0});

constexpr shp_TableChoice nodeWeights[] = {
    {.nodes = 4, .with = shp_keyGasket, .result = quadGasketWeights4},
    {.with = shp_keyGasket, .result = quadGasketWeights6},
    {.nodes = 4, .with = shp_keyCohesive, .result = quadCohesiveWeights4},
    {.with = shp_keyCohesive, .result = quadCohesiveWeights6},
    {.nodes = 6, .points = 2, .with = shp_keyCylindrical, .result = quadCylWeights2},
    {.nodes = 6, .with = shp_keyCylindrical, .result = quadCylWeights3},
    {.points = 4, .with = shp_keyCylindrical, .result = quadCylWeights4},
    {.with = shp_keyCylindrical, .result = quadCylWeights6},
    {.nodes = 6, .with = shp_keyPipeSoil, .result = quadPipeSoilWeights6},
    {.with = shp_keyPipeSoil, .result = quadPipeSoilWeights4},
    {.points = 4, .with = shp_keyInfinite, .result = quadInfiniteWeights},
    {.points = 4, .result = quadWeights4},
    {.points = 5, .result = quadWeights5},
    {.result = quadWeights9},
};

/// Cylindrical with 6 nodes: corners, then the middles of the sides 1-2 and 3-0.
constexpr auto quadCylFaceWeights6 = shp_weightRows<4>({
    {1, 0, 0, 0},
    {0, 1, 0, 0},
    {0, 0, 1, 0},
    {0, 0, 0, 1},
    {0, 0.5f, 0.5f, 0},
    {0.5f, 0, 0, 0.5f},
});

constexpr shp_TableChoice faceNodeWeights[] = {
    {.nodes = 6, .with = shp_keyCylindrical, .result = quadCylFaceWeights6},
    {.with = shp_keyCylindrical, .result = shp_faceQuadFrom0},
    {.without = {shp_keyGasket, shp_keyCohesive, shp_keyPipeSoil, shp_keyInfinite}, .result = shp_faceQuadFrom0},
    {.nodes = 4, .with = shp_keyGasket, .result = quadGasketWeights4},
    {.with = shp_keyGasket, .result = quadGasketWeights6},
    {.with = shp_keyCohesive, .result = &shp_QuadInterpTables::getNdWghtTblPtr},
    {.with = shp_keyPipeSoil, .result = &shp_QuadInterpTables::getNdWghtTblPtr},
    {.points = 4, .with = shp_keyInfinite, .result = quadInfiniteWeights},
    {.points = 4, .result = quadWeights4},
    {.points = 5, .result = quadWeights5},
    {.result = quadWeights9},
};

} // namespace

float const * shp_QuadInterpTables::getNdWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(nodeWeights, options).find(options);
}

float const * shp_QuadInterpTables::getFacialNdWghtTblPtr(shp_Options const & options, int face) {
    return shp_firstFit(faceNodeWeights, options, face).find(options);
}
