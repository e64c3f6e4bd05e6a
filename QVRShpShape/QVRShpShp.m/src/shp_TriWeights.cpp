#include "shp_TriInterpTables.h"

#include "shp_TableSource.h"
#include "shp_TriNodeLocations.h"
#include "shp_WeightRules.h"

namespace {

// Linear through the three points.
constexpr auto triNodeWeights3 = shp_simplexRule<3>(triNodeLocs, {1.6666667f, 0.66666669f, -0.33333331f});

// Not linear through the modified points: stored results were made with these values.
constexpr auto triModifiedWeights = shp_simplexRule<3>(triNodeLocs, {1.9333333f, 0.73333329f, -0.4666667f});

// Six points to six nodes. The first three rows are one row turned with the triangle, and so are the last three.
constexpr auto triNodeWeights6 = [] {
    constexpr float a = 1.7732038f, b = 0.1372463f, c = -0.5489852f, d = 0.050274f;
    constexpr float e = 0.0679483f, f = 0.1505874f, g = 1.2571023f, h = -0.2717931f;
    constexpr shp_WeightRow<6> corner = {{a, b, b, c, d, c}};
    constexpr shp_WeightRow<6> midside = {{e, e, f, g, h, h}};
    return shp_weightRows<6>({corner, shp_rotate(corner, 1), shp_rotate(corner, 2), midside, shp_rotate(midside, 1),
                              shp_rotate(midside, 2)});
}();

constexpr shp_TableChoice nodeWeights[] = {
    {.points = 6, .result = triNodeWeights6},
    {.with = shp_keyModified, .result = triModifiedWeights},
    {.result = triNodeWeights3},
};

} // namespace

float const * shp_TriInterpTables::getNdWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(nodeWeights, options).find(options);
}
