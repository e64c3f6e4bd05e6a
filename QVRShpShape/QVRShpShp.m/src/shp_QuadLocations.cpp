#include "shp_QuadInterpTables.h"

#include "shp_PointRules.h"
#include "shp_QuadNodeLocations.h"
#include "shp_TableSource.h"

namespace {

constexpr shp_TableChoice nodeLocations[] = {
    {.with = shp_keyInfinite, .result = quadInfiniteNodeLocs},
    {.nodes = 4, .with = shp_keyCohesive, .result = quadCohesiveNodeLocs4},
    {.with = shp_keyCohesive, .result = quadCohesiveNodeLocs6},
    {.nodes = 4, .with = shp_keyGasket, .result = quadGasketNodeLocs4},
    {.with = shp_keyGasket, .result = quadGasketNodeLocs6},
    {.notNodes = 6, .result = quadNodeLocs},
    {.with = shp_keyPipeSoil, .result = quadPipeSoilNodeLocs6},
    {.result = quadNodeLocs6},
};

constexpr float a2 = shp_a2, a3 = shp_a3, shortA2 = shp_shortA2, shortA3 = shp_shortA3;

/// Four Gauss points, g fastest. The fifth row, the centre, is for elements with 5 points.
constexpr float quadIntPts4[][3] = {{-a2, -a2, 0}, {a2, -a2, 0}, {-a2, a2, 0}, {a2, a2, 0}, {0, 0, 0}};
constexpr auto quadIntPts9 = shp_tensorPoints({-a3, 0, a3}, {-a3, 0, a3}, {0});

constexpr float quadCylIntPts2[][3] = {{0, -shortA2, 0}, {0, shortA2, 0}};
constexpr auto quadCylIntPts4 = shp_tensorPoints({-shortA2, shortA2}, {-shortA2, shortA2}, {0});
constexpr auto quadCylIntPts6 = shp_tensorPoints({-shortA2, shortA2}, {-shortA3, 0, shortA3}, {0});

/// Gaskets: along the middle line.
constexpr float quadLineIntPts3[][3] = {{-1, 0, 0}, {0, 0, 0}, {1, 0, 0}};
/// Both ends, and for elements with 3 points the middle last.
constexpr float quadEndsIntPts2[][3] = {{-1, 0, 0}, {1, 0, 0}, {0, 0, 0}};
constexpr float quadThicknessIntPts3[][3] = {{0, -shortA3, 0}, {0, 0, 0}, {0, shortA3, 0}};

/// The corners in the order of a tensor product, not of the nodes; the same rows as the gasket's nodes.
constexpr auto & quadCornerIntPts = quadGasketNodeLocs4;

constexpr shp_TableChoice integrationPoints[] = {
    {.with = shp_keyCornerLumped, .result = quadCornerIntPts},
    {.points = 2, .with = shp_keyCylindrical, .result = quadCylIntPts2},
    {.points = 2, .result = quadEndsIntPts2},
    {.points = 3, .with = shp_keyGasket, .result = quadLineIntPts3},
    {.points = 3, .with = shp_keyPipeSoil, .result = quadEndsIntPts2},
    {.points = 3, .result = quadThicknessIntPts3},
    {.points = 4, .with = shp_keyCylindrical, .result = quadCylIntPts4},
    {.points = {4, 5}, .result = quadIntPts4},
    {.points = 6, .result = quadCylIntPts6},
    {.points = 9, .result = quadIntPts9},
};

} // namespace

float const * shp_QuadInterpTables::getNdLocTblPtr(shp_Options const & options) {
    return shp_firstFit(nodeLocations, options).find(options);
}

float const * shp_QuadInterpTables::getIntPntLocTblPtr(shp_Options const & options) {
    return shp_firstFit(integrationPoints, options).find(options);
}
