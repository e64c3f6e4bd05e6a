#include "shp_TetraInterpTables.h"

#include "shp_PointRules.h"
#include "shp_TableSource.h"
#include "shp_TetraNodeLocations.h"

namespace {

/// Four points, each towards its corner, in the order of the corners.
constexpr shp_Points<4> pointsTowardsCorners(float rest, float own) {
    return {{{rest, rest, rest}, {own, rest, rest}, {rest, own, rest}, {rest, rest, own}}};
}

constexpr shp_Points<4> tetraIntPts4 = pointsTowardsCorners(0.13819660f, 0.58541018f);
constexpr shp_Points<4> tetraModifiedIntPts = pointsTowardsCorners(0.17708333f, 0.46875f);

constexpr float centre[][3] = {{0.25f, 0.25f, 0.25f}};
constexpr auto tetraIntPts11 = shp_joinPoints(tetraNodeLocs, centre);

/// The centre, four points towards the corners, four towards the faces, six towards the edges.
constexpr float c = 0.05635083f, d = 0.44364917f;
constexpr float towardsEdges[][3] = {{c, c, d}, {d, c, c}, {d, d, c}, {c, d, d}, {c, d, c}, {d, c, d}};
constexpr auto tetraIntPts15 = shp_joinPoints(centre, pointsTowardsCorners(0.09197108f, 0.72408676f).rows,
                                              pointsTowardsCorners(0.31979364f, 0.04061912f).rows, towardsEdges);

constexpr shp_TableChoice integrationPoints[] = {
    {.with = shp_keyModified, .result = tetraModifiedIntPts},
    {.with = shp_keyNodalIntegration, .result = tetraNodeLocs},
    {.points = 4, .result = tetraIntPts4},
    {.points = 11, .result = tetraIntPts11},
    {.result = tetraIntPts15},
};

} // namespace

float const * shp_TetraInterpTables::getNdLocTblPtr(shp_Options const &) {
    return tetraNodeLocs[0];
}

float const * shp_TetraInterpTables::getIntPntLocTblPtr(shp_Options const & options) {
    return shp_firstFit(integrationPoints, options).find(options);
}
