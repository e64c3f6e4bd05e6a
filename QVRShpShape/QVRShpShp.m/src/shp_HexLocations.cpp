#include "shp_HexInterpTables.h"

#include "shp_HexNodeLocations.h"
#include "shp_PointRules.h"
#include "shp_QuadInterpTables.h"
#include "shp_TableSource.h"

namespace {

constexpr shp_TableChoice nodeLocations[] = {
    {.nodes = 8, .with = shp_keyInfinite, .result = hexInfiniteNodeLocs8},
    {.with = shp_keyInfinite, .result = hexInfiniteNodeLocs18},
    {.nodes = 8, .with = shp_keyCohesive, .result = hexNodeLocs},
    {.with = shp_keyCohesive, .result = hexCylNodeLocs},
    {.with = shp_keyCylindrical, .result = hexCylNodeLocs},
    {.nodes = 18, .with = shp_keyGasket, .result = hexGasketNodeLocs},
    {.result = hexNodeLocs},
};

constexpr float a2 = shp_a2, shortA2 = shp_shortA2, shortA3 = shp_shortA3;

constexpr auto hexIntPts8 = shp_tensorPoints({-a2, a2}, {-a2, a2}, {-a2, a2});
constexpr auto hexIntPts12 = shp_tensorPoints({-shortA2, shortA2}, {-shortA2, shortA2}, {-shortA3, 0, shortA3});

// Irons' 14 points in four digits. The first eight run like the corner nodes, not like a tensor product.
constexpr float c14 = 0.7588f, f14 = 0.7958f;
// clang-format off
constexpr float hexIntPts14[][3] = {
    {-c14, -c14, -c14}, {c14, -c14, -c14}, {c14, c14, -c14}, {-c14, c14, -c14},
    {-c14, -c14, c14}, {c14, -c14, c14}, {c14, c14, c14}, {-c14, c14, c14},
    {0, -f14, 0}, {f14, 0, 0}, {0, f14, 0}, {-f14, 0, 0},
    {0, 0, -f14}, {0, 0, f14},
};
// clang-format on

// The levels of r are three-digit literals of the Gauss points between r = -1 and r = 0.
constexpr auto hexIntPts18 = shp_tensorPoints({-shortA3, 0, shortA3}, {-shortA3, 0, shortA3}, {-0.789f, -0.211f});
constexpr auto hexIntPts27 = shp_tensorPoints({-shortA3, 0, shortA3}, {-shortA3, 0, shortA3}, {-shortA3, 0, shortA3});
constexpr auto hexGridIntPts27 = shp_tensorPoints({-1, 0, 1}, {-1, 0, 1}, {-1, 0, 1});
constexpr auto hexCornerIntPts = shp_tensorPoints({-1, 1}, {-1, 1}, {-1, 1});

/// The midplane of cohesive and gasket elements, in the order of a quadrilateral's nodes; with 4 points its corners.
// clang-format off
constexpr float hexMidplaneIntPts[][3] = {
    {-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0},
    {0, -1, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0},
    {0, 0, 0},
};
// clang-format on

constexpr shp_TableChoice integrationPoints[] = {
    {.with = shp_keyLayeredSolid, .result = &shp_QuadInterpTables::getIntPntLocTblPtr},
    {.with = shp_keyCornerLumped, .result = hexCornerIntPts},
    {.points = {4, 9}, .result = hexMidplaneIntPts},
    {.points = 8, .result = hexIntPts8},
    {.points = 12, .result = hexIntPts12},
    {.points = 14, .result = hexIntPts14},
    {.points = 18, .result = hexIntPts18},
    {.nodes = 8, .result = hexGridIntPts27},
    {.result = hexIntPts27},
};

} // namespace

float const * shp_HexInterpTables::getNdLocTblPtr(shp_Options const & options) {
    return shp_firstFit(nodeLocations, options).find(options);
}

float const * shp_HexInterpTables::getIntPntLocTblPtr(shp_Options const & options) {
    return shp_firstFit(integrationPoints, options).find(options);
}
