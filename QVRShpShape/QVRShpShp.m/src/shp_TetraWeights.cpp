#include "shp_TetraInterpTables.h"

#include "shp_FaceNodeWeights.h"
#include "shp_TableSource.h"
#include "shp_TetraNodeLocations.h"
#include "shp_WeightRules.h"

namespace {

// Linear through the four points.
constexpr auto tetraNodeWeights4 = shp_simplexRule<4>(tetraNodeLocs, {1.927051f, 0.809017f, -0.309017f});

// Not linear through the modified points: stored results were made with these values.
constexpr auto tetraModifiedWeights = shp_simplexRule<4>(tetraNodeLocs, {2.3269229f, 0.94230771f, -0.44230771f});

// The points are the ten nodes and the centre, which no node takes.
constexpr auto tetraNodeWeights11 = shp_identity<10, 11>();

// Only the points towards the corners (columns 1 to 4) and towards the edges (9 to 14) count.
constexpr auto tetraNodeWeights15 = [] {
    constexpr int edgeNodes = 6;
    // Of each corner: the three columns of its edges.
    constexpr int cornerEdges[4][3] = {{9, 10, 13}, {10, 11, 14}, {11, 12, 13}, {9, 12, 14}};
    // Of each midside: the column of its own edge, and of the opposite one.
    constexpr int ownEdge[edgeNodes] = {10, 11, 13, 9, 14, 12};
    constexpr int oppositeEdge[edgeNodes] = {12, 9, 14, 11, 13, 10};
    shp_WeightTable<10, 15> table;
    for (int corner = 0; corner < 4; ++corner) {
        for (int point = 1; point <= 4; ++point)
            table.at(corner, point) = point == corner + 1 ? 2.87917f : 0.37648f;
        for (int point = 9; point < 15; ++point)
            table.at(corner, point) = -0.12576f;
        for (int point : cornerEdges[corner])
            table.at(corner, point) = -0.87711f;
    }
    for (int midside = 0; midside < edgeNodes; ++midside) {
        for (int point = 1; point <= 4; ++point)
            table.at(4 + midside, point) = 0.16703f;
        for (int point = 9; point < 15; ++point)
            table.at(4 + midside, point) = -0.22246f;
        table.at(4 + midside, ownEdge[midside]) = 1.25637f;
        table.at(4 + midside, oppositeEdge[midside]) = -0.03463f;
    }
    return table;
}();

constexpr shp_TableChoice nodeWeights[] = {
    {.points = 15, .result = tetraNodeWeights15},
    {.with = shp_keyModified, .result = tetraModifiedWeights},
    {.points = 11, .result = tetraNodeWeights11},
    {.result = tetraNodeWeights4},
};

/// One value on the three corners of each face, another on the corner across: 3, 2, 0, 1. `Columns` beyond 4 stay 0.
template <int Columns> constexpr shp_WeightTable<4, Columns> faceCorners(float on, float across) {
    constexpr int cornerAcross[] = {3, 2, 0, 1};
    shp_WeightTable<4, Columns> table;
    for (int face = 0; face < 4; ++face)
        for (int corner = 0; corner < 4; ++corner)
            table.at(face, corner) = corner == cornerAcross[face] ? across : on;
    return table;
}

constexpr auto tetraFaceWeightsAtNodes = faceCorners<4>(0.333333f, 0);
constexpr auto tetraFaceWeights4 = faceCorners<4>(0.436339f, -0.309017f);
constexpr auto tetraFaceWeights11 = faceCorners<11>(0.333333f, 0);

// Typed as one piece: the first row was made for another order of the points than theirs, the others are its images
// under the exchange of corners. They do not sum to 1; face results on file were made with them.
constexpr auto tetraFaceWeights15 = shp_weightRows<15>({
    {0.381832f, 0.381832f, 0.381832f, -0.145497f, 0.1626f, 0.059876f, 0.059876f, -0.046451f, 0.041959f, 0.330344f,
     0.016099f, 0.016099f, 0.14969f, -0.073301f, -0.073301f},
    {0.381832f, 0.381832f, 0.381832f, 0.1626f, -0.145497f, 0.059876f, 0.059876f, 0.041959f, -0.046451f, -0.073301f,
     0.016099f, -0.073301f, 0.14969f, 0.330344f, 0.016099f},
    {0.381832f, 0.1626f, 0.381832f, -0.145497f, 0.381832f, 0.041959f, 0.059876f, -0.046451f, 0.059876f, 0.330344f,
     -0.073301f, 0.016099f, -0.073301f, 0.14969f, 0.016099f},
    {0.381832f, 0.381832f, 0.1626f, -0.145497f, 0.381832f, 0.059876f, 0.041959f, -0.046451f, 0.059876f, 0.016099f,
     0.330344f, 0.14969f, 0.016099f, -0.073301f, -0.073301f},
});

constexpr shp_TableChoice faceWeights[] = {
    {.with = shp_keyNodalIntegration, .result = tetraFaceWeightsAtNodes},
    {.points = 4, .result = tetraFaceWeights4},
    {.points = 11, .result = tetraFaceWeights11},
    {.result = tetraFaceWeights15},
};

constexpr shp_TableChoice faceNodeWeights[] = {
    {.face = {0, 1, 2}, .result = shp_faceTriFrom2},
    {.result = shp_faceTriFrom0},
};

} // namespace

float const * shp_TetraInterpTables::getNdWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(nodeWeights, options).find(options);
}

float const * shp_TetraInterpTables::getFcWghtTblPtr(shp_Options const & options) {
    return shp_firstFit(faceWeights, options).find(options);
}

float const * shp_TetraInterpTables::getFacialNdWghtTblPtr(shp_Options const & options, int face) {
    return shp_firstFit(faceNodeWeights, options, face).find(options);
}
