// Locations of points, lines and pyramids, all centres, and the choice of the family.

#include "shp_InterpolationTables.h"

#include "shp_HexInterpTables.h"
#include "shp_PointRules.h"
#include "shp_PrismInterpTables.h"
#include "shp_QuadInterpTables.h"
#include "shp_TableSource.h"
#include "shp_TetraInterpTables.h"
#include "shp_TriInterpTables.h"

#include <cmath>

namespace {

constexpr float third = 1.0f / 3.0f;
constexpr float twoThirds = 2.0f / 3.0f;

// Centres (g, h, r). That of the pyramid is not the mean of its nodes.
constexpr float centreOrigin[][3] = {{0, 0, 0}};
constexpr float centreTriangular[][3] = {{third, third, 0}};
constexpr float centreTetra[][3] = {{0.25f, 0.25f, 0.25f}};
constexpr float centrePyramid[][3] = {{0, 0, -0.5f}};

constexpr shp_TableChoice centres[] = {
    {.shape = {shp_keyPoint, shp_keyLine, shp_keyQuad}, .result = centreOrigin},
    {.shape = {shp_keyHex, shp_keyARS}, .result = centreOrigin},
    {.shape = {shp_keyTri, shp_keyPrism}, .result = centreTriangular},
    {.shape = shp_keyTetra, .result = centreTetra},
    {.shape = shp_keyPyramid, .result = centrePyramid},
};

// Face centres (g, h, r) in face order. The side faces of infinite elements are centred at -1/3 towards the pole, not
// midway between their two rings of nodes.
// clang-format off
constexpr float faceCentresTri2D[][3] = {{0.5f, 0, 0}, {0.5f, 0.5f, 0}, {0, 0.5f, 0}};
constexpr float faceCentresQuad2D[][3] = {{0, -1, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0}};
constexpr float faceCentresQuadInfinite2D[][3] = {{0, -1, 0}, {1, -third, 0}, {-1, -third, 0}};
constexpr float faceCentresTetra[][3] = {
    {third, third, 0}, {third, 0, third}, {third, third, third}, {0, third, third},
};
constexpr float faceCentresHex[][3] = {
    {0, 0, -1}, {0, 0, 1}, {0, -1, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0},
};
constexpr float faceCentresHexInfinite[][3] = {
    {0, 0, -1}, {0, -1, -third}, {1, 0, -third}, {0, 1, -third}, {-1, 0, -third},
    {0, 0, 0}, // the plane of the far ring of nodes
};
constexpr float faceCentresPrism[][3] = {
    {third, third, -1}, {third, third, 1}, {0.5f, 0, 0}, {0.5f, 0.5f, 0}, {0, 0.5f, 0},
};
constexpr float faceCentresPyramid[][3] = {
    {0, 0, -1}, {0, -twoThirds, -third}, {twoThirds, 0, -third}, {0, twoThirds, -third}, {-twoThirds, 0, -third},
};
// clang-format on

// The faces of a planar element are its edges in a two-dimensional model, itself in a three-dimensional one.
constexpr shp_TableChoice faceCentres[] = {
    {.shape = {shp_keyPoint, shp_keyLine, shp_keyARS}, .result = centreOrigin},
    {.shape = shp_keyTri, .with = shp_key2D, .result = faceCentresTri2D},
    {.shape = shp_keyTri, .result = centreTriangular},
    {.shape = shp_keyQuad, .with = shp_key2D, .also = shp_keyInfinite, .result = faceCentresQuadInfinite2D},
    {.shape = shp_keyQuad, .with = shp_key2D, .result = faceCentresQuad2D},
    {.shape = shp_keyQuad, .result = centreOrigin},
    {.shape = shp_keyTetra, .result = faceCentresTetra},
    {.shape = shp_keyHex, .with = shp_keyInfinite, .result = faceCentresHexInfinite},
    {.shape = shp_keyHex, .result = faceCentresHex},
    {.shape = shp_keyPrism, .result = faceCentresPrism},
    {.shape = shp_keyPyramid, .result = faceCentresPyramid},
};

// Lines, node numbers from 0; g from -1 to 1. The midside is the second node, unlike in every other family.
//
//   0-----1      0--1--2   g
constexpr float lineNodeLocs2[][3] = {{-1, 0, 0}, {1, 0, 0}};
constexpr float lineNodeLocs3[][3] = {{-1, 0, 0}, {0, 0, 0}, {1, 0, 0}};

constexpr float a2 = shp_a2, a3 = shp_a3;
constexpr float lineIntPts2[][3] = {{-a2, 0, 0}, {a2, 0, 0}};
constexpr float lineIntPts3[][3] = {{-a3, 0, 0}, {0, 0, 0}, {a3, 0, 0}};
/// Both ends first, the middle last.
constexpr float lineFrameIntPts[][3] = {{-1, 0, 0}, {1, 0, 0}, {0, 0, 0}};

constexpr shp_TableChoice lineNodes[] = {
    {.nodes = 2, .result = lineNodeLocs2},
    {.result = lineNodeLocs3},
};

float const * lineNodeLocations(shp_Options const & options) {
    return shp_firstFit(lineNodes, options).find(options);
}

constexpr shp_TableChoice linePoints[] = {
    {.points = 2, .result = lineIntPts2},
    {.with = shp_keyFrame, .result = lineFrameIntPts},
    {.result = lineIntPts3},
};

float const * lineIntegrationPoints(shp_Options const & options) {
    return shp_firstFit(linePoints, options).find(options);
}

// The pyramid, node numbers from 0; base at r = -1, apex at r = 1.
//
//          4          r
//         /|\         |  h
//       3--|--2       | /
//      /   | /        |/
//     0-----1         +--- g
constexpr float pyramidNodeLocs[][3] = {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1}, {0, 0, 1}};

// The one table that is filled at load. A reader that comes before finds the same values, to the bit.
constexpr float storedOffset = 0.58423740f;
float pyramidIntPtOffset = storedOffset;
float pyramidIntPts[][3] = {{-storedOffset, -storedOffset, -twoThirds},
                            {storedOffset, -storedOffset, -twoThirds},
                            {storedOffset, storedOffset, -twoThirds},
                            {-storedOffset, storedOffset, -twoThirds},
                            {0, 0, 0.4f}};

// Both run before the library's entry point (priority 110), in this order. At a second load they write what stands
// there already.
__attribute__((constructor(101))) void computePyramidIntPtOffset() {
    pyramidIntPtOffset = static_cast<float>(std::sqrt(0.13333333333333333) * 8.0 / 5.0);
}

__attribute__((constructor(102))) void fillPyramidIntPts() {
    for (int corner = 0; corner < 4; ++corner)
        for (int axis = 0; axis < 2; ++axis)
            pyramidIntPts[corner][axis] = pyramidNodeLocs[corner][axis] * pyramidIntPtOffset;
}

float const * pyramidIntegrationPoints(shp_Options const &) {
    return pyramidIntPts[0];
}

constexpr shp_TableChoice nodeLocations[] = {
    {.shape = {shp_keyPoint, shp_keyARS}, .result = centreOrigin},
    {.shape = shp_keyLine, .result = &lineNodeLocations},
    {.shape = shp_keyTri, .result = &shp_TriInterpTables::getNdLocTblPtr},
    {.shape = shp_keyTetra, .result = &shp_TetraInterpTables::getNdLocTblPtr},
    {.shape = shp_keyPyramid, .result = pyramidNodeLocs},
    {.shape = shp_keyQuad, .result = &shp_QuadInterpTables::getNdLocTblPtr},
    {.shape = shp_keyHex, .result = &shp_HexInterpTables::getNdLocTblPtr},
    {.shape = shp_keyPrism, .result = &shp_PrismInterpTables::getNdLocTblPtr},
};

constexpr shp_TableChoice integrationPoints[] = {
    {.points = 1, .result = &shp_InterpolationTables::getCenterLocTblPtr},
    {.with = shp_keyNodalIntegration, .result = &shp_InterpolationTables::getNdLocTblPtr},
    {.shape = {shp_keyPoint, shp_keyARS}, .result = &shp_InterpolationTables::getCenterLocTblPtr},
    {.shape = shp_keyLine, .result = &lineIntegrationPoints},
    {.shape = shp_keyTri, .result = &shp_TriInterpTables::getIntPntLocTblPtr},
    {.shape = shp_keyQuad, .result = &shp_QuadInterpTables::getIntPntLocTblPtr},
    {.shape = shp_keyTetra, .result = &shp_TetraInterpTables::getIntPntLocTblPtr},
    {.shape = shp_keyHex, .result = &shp_HexInterpTables::getIntPntLocTblPtr},
    {.shape = shp_keyPrism, .result = &shp_PrismInterpTables::getIntPntLocTblPtr},
    {.shape = shp_keyPyramid, .result = &pyramidIntegrationPoints},
};

} // namespace

float const * shp_InterpolationTables::getNdLocTblPtr(shp_Options const & options) {
    return shp_firstFit(nodeLocations, options).find(options);
}

float const * shp_InterpolationTables::getIntPntLocTblPtr(shp_Options const & options) {
    return shp_firstFit(integrationPoints, options).find(options);
}

float const * shp_InterpolationTables::getCenterLocTblPtr(shp_Options const & options) {
    return shp_firstFit(centres, options).find(options);
}

float const * shp_InterpolationTables::getFcCenterLocTblPtr(shp_Options const & options) {
    return shp_firstFit(faceCentres, options).find(options);
}
