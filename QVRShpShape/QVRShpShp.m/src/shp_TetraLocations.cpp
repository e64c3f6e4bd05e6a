#include "shp_TetraInterpTables.h"

#include "shp_PointRules.h"
#include "shp_TableSource.h"
#include "shp_TetraNodeLocations.h"

#include <iterator>

namespace {

/// Four points, each towards its corner, in the order of the corners.
constexpr shp_Points<4> pointsTowardsCorners(float rest, float own) {
    return {{{rest, rest, rest}, {own, rest, rest}, {rest, own, rest}, {rest, rest, own}}};
}

constexpr shp_Points<4> tetraIntPts4 = pointsTowardsCorners(0.13819660f, 0.58541018f);
constexpr shp_Points<4> tetraModifiedIntPts = pointsTowardsCorners(0.17708333f, 0.46875f);

/// The ten nodes, then the centre.
constexpr auto tetraIntPts11 = [] {
    shp_Points<std::size(tetraNodeLocs) + 1> points;
    for (std::size_t i = 0; i < std::size(tetraNodeLocs); ++i)
        for (int axis = 0; axis < 3; ++axis)
            points.rows[i][axis] = tetraNodeLocs[i][axis];
    for (float & coordinate : points.rows[std::size(tetraNodeLocs)])
        coordinate = 0.25f;
    return points;
}();

/// The centre, four points towards the corners, four towards the faces, six towards the edges.
constexpr auto tetraIntPts15 = [] {
    constexpr shp_Points<4> corners = pointsTowardsCorners(0.09197108f, 0.72408676f);
    constexpr shp_Points<4> faces = pointsTowardsCorners(0.31979364f, 0.04061912f);
    constexpr float c = 0.05635083f, d = 0.44364917f;
    shp_Points<15> points = {{{0.25f, 0.25f, 0.25f},
                              {},
                              {},
                              {},
                              {},
                              {},
                              {},
                              {},
                              {},
                              {c, c, d},
                              {d, c, c},
                              {d, d, c},
                              {c, d, d},
                              {c, d, c},
                              {d, c, d}}};
    for (int i = 0; i < 4; ++i)
        for (int axis = 0; axis < 3; ++axis) {
            points.rows[1 + i][axis] = corners.rows[i][axis];
            points.rows[5 + i][axis] = faces.rows[i][axis];
        }
    return points;
}();

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
