#include "shp_TriInterpTables.h"

#include "shp_TableSource.h"
#include "shp_TriIntegrationPoints.h"
#include "shp_TriNodeLocations.h"

namespace {

// Four digits, not 5/24 and 7/12: stored results were made with these points.
constexpr float triModifiedIntPts[][3] = {{0.2083f, 0.2083f, 0}, {0.5833f, 0.2083f, 0}, {0.2083f, 0.5833f, 0}};

constexpr shp_TableChoice integrationPoints[] = {
    {.points = 6, .result = triIntPts6},
    {.with = shp_keyModified, .result = triModifiedIntPts},
    {.result = triIntPts3},
};

} // namespace

float const * shp_TriInterpTables::getNdLocTblPtr(shp_Options const &) {
    return triNodeLocs[0];
}

float const * shp_TriInterpTables::getIntPntLocTblPtr(shp_Options const & options) {
    return shp_firstFit(integrationPoints, options).find(options);
}
