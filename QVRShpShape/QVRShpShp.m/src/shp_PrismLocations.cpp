#include "shp_PrismInterpTables.h"

#include "shp_PointRules.h"
#include "shp_PrismNodeLocations.h"
#include "shp_TableSource.h"
#include "shp_TriIntegrationPoints.h"
#include "shp_TriInterpTables.h"
#include "shp_TriNodeLocations.h"

namespace {

constexpr shp_TableChoice nodeLocations[] = {
    {.nodes = 12, .with = shp_keyGasket, .result = prismGasketNodeLocs},
    {.with = shp_keyCylindrical, .result = prismCylNodeLocs},
    {.result = prismNodeLocs},
};

constexpr float a2 = shp_a2, a3 = shp_a3, shortA3 = shp_shortA3;

constexpr float third = 1.0f / 3.0f, shortThird = 0.333333f;
constexpr float prismIntPts2[][3] = {{third, third, -a2}, {third, third, a2}};
constexpr float prismThicknessIntPts3[][3] = {
    {shortThird, shortThird, -shortA3}, {shortThird, shortThird, 0}, {shortThird, shortThird, shortA3}};

constexpr float prismCornerIntPts3[][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
/// The midplane of cohesive and gasket elements: a triangle's corners and midsides.
constexpr auto & prismMidplaneIntPts = triNodeLocs;

// The constants of the four-point rule of a tetrahedron, which are not symmetric in a triangle (the third coordinates
// are 0.7236, 0.2764, 0.2764): stored results were made with these points.
constexpr float a = 0.13819660f, b = 0.58541018f;
constexpr float skewTriangle[][3] = {{a, a, 0}, {b, a, 0}, {a, b, 0}};
constexpr auto prismIntPts6 = shp_prismPoints(skewTriangle, {-a2, a2});
constexpr auto prismIntPts9 = shp_prismPoints(triIntPts3, {-a3, 0, a3});
constexpr auto prismIntPts18 = shp_prismPoints(triIntPts6, {-a3, 0, a3});

constexpr shp_TableChoice integrationPoints[] = {
    {.with = shp_keyLayeredSolid, .result = &shp_TriInterpTables::getIntPntLocTblPtr},
    {.points = 2, .result = prismIntPts2},
    {.points = 3, .with = shp_keyGasket, .result = prismMidplaneIntPts},
    {.points = 3, .without = shp_keyCohesive, .result = prismThicknessIntPts3},
    {.notNodes = 6, .points = 3, .with = shp_keyCohesive, .result = prismCornerIntPts3},
    {.nodes = 6, .points = 3, .with = shp_keyCohesive, .result = prismMidplaneIntPts},
    {.points = 6, .with = shp_keyGasket, .result = prismMidplaneIntPts},
    {.points = 6, .result = prismIntPts6},
    {.points = 9, .result = prismIntPts9},
    {.points = 18, .result = prismIntPts18},
};

} // namespace

float const * shp_PrismInterpTables::getNdLocTblPtr(shp_Options const & options) {
    return shp_firstFit(nodeLocations, options).find(options);
}

float const * shp_PrismInterpTables::getIntPntLocTblPtr(shp_Options const & options) {
    return shp_firstFit(integrationPoints, options).find(options);
}
