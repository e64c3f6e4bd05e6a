// The weight tables of all element types, held against the locations of nodes, faces and integration points. Where a
// table breaks a law, the lists below say so with the reason, and the law must then really be broken.

#include "catalogued_shapes.h"
#include "shp_HexInterpTables.h"
#include "shp_InterpolationTables.h"
#include "table_laws.h"

#include <numeric>

namespace {

/// What every row of weights promises: to sum to 1, and to carry a field that is linear in g, h or r exactly from the
/// points to the row's target, in each direction in which the points differ.
enum Law { sum = 1, alongG = 2, alongH = 4, alongR = 8 };

std::vector<Exception> const nodeWeightExceptions = {
    {{shp_keyLine, {2}, {2}, {}, {shp_keyNodalIntegration}}, sum | alongG, "rows of three are read two wide"},
    {{shp_keyLine, {3}, {3}, {shp_keyAxisymmetric}, {shp_keyNodalIntegration}}, alongG, "middle node's row last"},
    {{shp_keyTri, {6}, {3}, {shp_keyModified}}, alongG | alongH, "not linear through its points"},
    {{shp_keyTri, {6}, {6}, {}, {shp_keyNodalIntegration}}, alongG | alongH, "six point rule does not extrapolate"},
    {{shp_keyQuad, {6}, {3}, {shp_keyCylindrical}}, sum | alongH, "1.47788 for 1.47883"},
    {{shp_keyQuad, {9}, {6}, {shp_keyCylindrical}}, alongG, "linear through other points in g"},
    {{shp_keyTetra, {10}, {4}, {shp_keyModified}}, alongG | alongH | alongR, "not linear through its points"},
    {{shp_keyHex, {8}, {8}, {shp_keyInfinite}}, alongR, "far nodes at r = 0 take the rows of r = 1"},
    {{shp_keyHex, {18}, {18}, {shp_keyInfinite}}, alongR, "point levels -0.789 and -0.211 in three digits"},
    {{shp_keyPrism, {6}, {6}, {}, {shp_keyNodalIntegration}},
     sum | alongG | alongH | alongR,
     "rows of eighteen are read six wide"},
    {{shp_keyPrism, {9}, {3}, {shp_keyCohesive}}, alongG | alongH, "third ring of nodes located at midsides"},
    {{shp_keyPyramid, {5}, {5}}, alongG | alongH, "not linear through its points"},
};

std::vector<Exception> const faceWeightExceptions = {
    {{shp_keyLine, {2}, {3}, {shp_keyNodalIntegration}}, sum, "row of three is read two wide"},
    {{shp_keyQuad, {9}, {6}, {shp_keyCylindrical}}, sum | alongH, "larger weights on the last level"},
    {{shp_keyQuad, {9}, {9}, {shp_keyNodalIntegration}}, alongH, "row in tensor order, points in node order"},
    {{shp_keyTetra, {10}, {15}}, sum | alongG | alongH | alongR, "row made for another order of points"},
    {{shp_keyTetra, {10}, {4}, {shp_keyModified}}, alongG | alongH | alongR, "rows of the unmodified points"},
    {{shp_keyHex, {8, 12}, {8}, {shp_keyInfinite}}, alongR, "rows of a finite hexahedron"},
    {{shp_keyHex, {18}, {18}, {shp_keyInfinite}}, alongR, "sides midway, not at the pole's -1/3"},
    {{shp_keyHex, {18}, {9}, {shp_keyGasket}}, alongG | alongH, "three sides take other points than theirs"},
    {{shp_keyHex, {8}, {8}, {shp_keyCornerLumped}}, alongG | alongH | alongR, "Gauss rows on corner points"},
    {{shp_keyHex, {20}, {8}}, alongG | alongH | alongR, "values of the 14-point rule"},
    {{shp_keyHex, {27}, {5}, {shp_keyLayeredSolid}, {}, 1}, sum | alongH | alongR, "caps: nine weights, five points"},
    {{shp_keyHex, {27}, {5}, {shp_keyLayeredSolid}, {}, 2}, sum | alongG | alongR, "caps: nine weights, five points"},
    {{shp_keyHex, {27}, {5}, {shp_keyLayeredSolid}, {}, 3}, sum | alongG | alongH, "caps: nine weights, five points"},
    {{shp_keyHex, {8}, {4}, {shp_keyLayeredSolid}, {}, 1}, alongH | alongR, "sides from node rows s and s + 1"},
    {{shp_keyHex, {8}, {4}, {shp_keyLayeredSolid}, {}, 2}, alongR, "sides from node rows s and s + 1"},
    {{shp_keyHex, {20, 27}, {4, 9}, {shp_keyLayeredSolid}, {}, 1}, alongH | alongR, "sides from node rows 4 and up"},
    {{shp_keyHex, {20, 27}, {4, 9}, {shp_keyLayeredSolid}, {}, 2}, alongG | alongR, "sides from node rows 4 and up"},
    {{shp_keyHex, {20, 27}, {4, 9}, {shp_keyLayeredSolid}, {}, 3}, alongG | alongH, "sides from node rows 4 and up"},
    {{shp_keyPrism, {6}, {6}, {}, {shp_keyNodalIntegration}}, alongG | alongH | alongR, "plain means of skew points"},
    {{shp_keyPrism, {15, 18}, {3}, {shp_keyLayeredSolid}}, alongG | alongH, "sides from node rows 3 and up"},
    {{shp_keyPyramid, {5}, {5}}, alongG | alongH, "not linear through its points"},
};

/// A table that is read with another number of points than its own breaks its sums, and is asked for nothing else.
std::vector<Exception> const faceNodeWeightExceptions = {
    {{shp_keyLine, {2}}, sum, "rows of three, two points"},
    {{shp_keyLine, {3}, {1, 3}}, sum, "rows of three, two points"},
    {{shp_keyTri, {3}}, sum, "rows of three, one or two points"},
    {{shp_keyTri, {6}, {1, 3}, {shp_key2D}}, sum, "rows of three, two points"},
    {{shp_keyTri, {6}, {6}}, sum, "rows of six, two or three points"},
    {{shp_keyQuad, {4}, {1, 4}, {shp_key2D}}, sum, "rows of four, two points"},
    {{shp_keyQuad, {8}, {}, {shp_key2D}}, sum, "rows of four, two points"},
    {{shp_keyQuad, {6}, {3}, {shp_key2D}}, sum, "rows of three, two points"},
    {{shp_keyQuad, {4, 6}, {}, {shp_key3D, shp_keyGasket}}, sum, "rows of two or three, four points"},
    {{shp_keyQuad, {4, 6}, {}, {shp_key3D, shp_keyPipeSoil}}, sum, "rows of two or three, four points"},
    {{shp_keyTetra, {4}}, sum, "rows of three, one point"},
    {{shp_keyPrism, {6, 9}, {}, {}, {}, -1, {0, 1}}, sum, "rows of three, one point"},
    {{shp_keyHex, {18}, {}, {shp_keyGasket}, {}, -1, {2, 3, 4, 5}}, sum, "rows of four, one point"},
    {{shp_keyPrism, {12}, {}, {shp_keyGasket}, {}, -1, {2, 3, 4}}, sum, "rows of four, one point"},
    {{shp_keyPrism, {18}, {}, {shp_keyCylindrical}, {}, -1, {2, 3, 4}}, sum, "rows of four, nine points"},

    {{shp_keyPrism, {9}, {}, {shp_keyCohesive}, {}, -1, {2}}, alongG | alongR, "second middle from the wrong edge"},
    {{shp_keyPrism, {9}, {}, {shp_keyCohesive}, {}, -1, {3}}, alongH | alongR, "second middle from the wrong edge"},
    {{shp_keyPrism, {9}, {}, {shp_keyCohesive}, {}, -1, {4}}, alongR, "second middle from the wrong edge"},
    {{shp_keyHex, {12}, {}, {shp_keyCohesive}, {}, -1, {2, 4}}, alongG | alongR, "second middle from the wrong edge"},
    {{shp_keyHex, {12}, {}, {shp_keyCohesive}, {}, -1, {3, 5}}, alongH | alongR, "second middle from the wrong edge"},
    {{shp_keyHex, {18}, {}, {shp_keyInfinite}, {}, -1, {1, 3}}, alongG | alongR, "second midside from the wrong edge"},
    {{shp_keyHex, {18}, {}, {shp_keyInfinite}, {}, -1, {2, 4}}, alongH | alongR, "second midside from the wrong edge"},
};

/// Tables, and points, in literals of four to six digits.
Kind const shortLiterals[] = {
    {shp_keyTri, {}, {}, {shp_keyModified}},
    {shp_keyQuad, {}, {}, {shp_keyCylindrical}},
    {shp_keyTetra, {}, {15}},
    {shp_keyHex, {}, {14}},
};

double toleranceFor(shp_Shape const & shape) {
    bool const isShort = std::any_of(std::begin(shortLiterals), std::end(shortLiterals),
                                     [&](Kind const & kind) { return kind.holds(shape, -1); });
    return isShort ? 5e-5 : 5e-6;
}

/// The laws that rows of `weights` break; `target(n)` is where row n's value belongs, `points` where the values stand.
int brokenLaws(float const * weights, std::vector<Place> const & targets, std::vector<Place> const & points,
               double tolerance) {
    int broken = 0;
    for (std::size_t n = 0; n < targets.size(); ++n) {
        double total = 0;
        Place carried = {};
        for (std::size_t i = 0; i < points.size(); ++i) {
            double const weight = static_cast<double>(weights[n * points.size() + i]);
            total += weight;
            for (std::size_t axis = 0; axis < 3; ++axis)
                carried[axis] += weight * points[i][axis];
        }
        broken |= std::abs(total - 1) > tolerance ? sum : 0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            bool const differ =
                std::any_of(points.begin(), points.end(), [&](Place const & p) { return p[axis] != points[0][axis]; });
            if (differ && std::abs(carried[axis] - targets[n][axis]) > tolerance)
                broken |= alongG << axis;
        }
    }
    return broken;
}

/// Where the values of a face's points stand. Unit rows: each point at the corner that takes it. Nine points: a 3 by 3
/// grid of Gauss points (g fastest) between the corners, each corner being the end of the grid where its row is
/// largest. Else the face is a planar element, and has the Gauss points of one.
std::vector<Place> facePoints(float const * weights, int points, std::vector<Place> const & nodes) {
    std::vector<Place> places(static_cast<std::size_t>(points));
    if (points < 9 && weights[std::max_element(weights, weights + points) - weights] != 1)
        return pointsOf(shapeOf(points == 3 ? "CPS6" : "CPS8R"));
    std::size_t const corners = points == 3 ? 3 : 4;
    for (std::size_t k = 0; k < corners; ++k) {
        float const * own = weights + static_cast<std::size_t>(points) * k;
        int const largest = static_cast<int>(std::max_element(own, own + points) - own);
        if (points != 9) {
            places[static_cast<std::size_t>(largest)] = nodes[k];
            continue;
        }
        for (int i = 0; i < points; ++i) {
            double const g = std::sqrt(0.6) * (i % 3 - 1), h = std::sqrt(0.6) * (i / 3 - 1);
            double const share = (1 + g * (largest % 3 - 1)) * (1 + h * (largest / 3 - 1)) / 4;
            for (std::size_t axis = 0; axis < 3; ++axis)
                places[static_cast<std::size_t>(i)][axis] += share * nodes[k][axis];
        }
    }
    return places;
}

/// A map of an element onto itself.
using Symmetry = Place (*)(Place const &);

/// Lines, quadrilaterals, hexahedra, pyramids: mirrored in g. Triangles, prisms, tetrahedra: corners of the plane r = 0
/// turned by one.
Place mirror(Place const & p) {
    return {-p[0], p[1], p[2]};
}
Place turn(Place const & p) {
    return {1 - p[0] - p[1], p[0], p[2]};
}
Place turnTetra(Place const & p) {
    return {1 - p[0] - p[1] - p[2], p[0], p[2]};
}

Symmetry symmetryOf(int family) {
    return family == shp_keyTetra ? turnTetra : family == shp_keyTri || family == shp_keyPrism ? turn : mirror;
}

/// The row that stands where the map takes row `index`, or -1.
int image(std::vector<Place> const & places, std::size_t index, Symmetry map) {
    for (std::size_t i = 0; i < places.size(); ++i)
        if (distance(places[i], map(places[index])) < 1e-3)
            return static_cast<int>(i);
    return -1;
}

/// Equal weights for each node and point and for their images.
bool isSymmetric(shp_Shape const & shape) {
    std::vector<Place> const nodes = nodesOf(shape), points = pointsOf(shape);
    Symmetry const map = symmetryOf(shape.options.Shape());
    for (std::size_t n = 0; n < nodes.size(); ++n)
        for (std::size_t i = 0; i < points.size(); ++i) {
            int const node = image(nodes, n, map), point = image(points, i, map);
            if (node < 0 || point < 0 ||
                shape.nodeWeights[n * points.size() + i] !=
                    shape.nodeWeights[static_cast<std::size_t>(node) * points.size() + static_cast<std::size_t>(point)])
                return false;
        }
    return true;
}

} // namespace

TEST(Weights, CarryLinearFieldsToTheNodes) {
    Laws laws(nodeWeightExceptions);
    forEachShape([&](shp_Shape const & shape) {
        laws.expect(brokenLaws(shape.nodeWeights, nodesOf(shape), pointsOf(shape), toleranceFor(shape)), shape);
    });
}

// A planar element has one row, for its centre.
TEST(Weights, CarryLinearFieldsToTheFaceCentres) {
    Laws laws(faceWeightExceptions);
    forEachShape([&](shp_Shape const & shape) {
        std::vector<Place> const targets = shape.NumGeometryDimensions() == 3
                                               ? rows(shape.faceCenterLocationTable, shape.NumFacesPerElem())
                                               : rows(shape.centerLocation, 1);
        laws.expect(brokenLaws(shape.faceWeights, targets, pointsOf(shape), toleranceFor(shape)), shape);
    });
}

TEST(Weights, CarryLinearFieldsAlongEachFaceToItsNodes) {
    Laws laws(faceNodeWeightExceptions);
    forEachShape([&](shp_Shape const & shape) {
        for (int face = 0; face < shape.NumFacesPerElem(); ++face) {
            float const * weights = shp_InterpolationTables::getFacialNdWghtTblPtr(shape.options, face);
            if (shape.options.Shape() == shp_keyPyramid) {
                EXPECT_EQ(weights, nullptr);
                continue;
            }
            int const points = shape.intPtsPerFaceTbl[face];
            std::vector<Place> nodes;
            for (int i = 0; i < shape.BaseNodesPerFace(face); ++i)
                nodes.push_back(
                    row(shape.nodeLocationTable, shape.options.IsType(shp_keyCaxa) ? i : shape.FaceNodeIndex(face, i)));
            bool const areLocated = points > 2 && shape.NumGeometryDimensions() > 1;
            std::vector<Place> const places =
                areLocated ? facePoints(weights, points, nodes) : std::vector<Place>(static_cast<std::size_t>(points));
            int const broken = brokenLaws(weights, nodes, places, 5e-6);
            laws.expect((broken & sum) != 0 ? sum : broken, shape, face);
        }
    });
}

// The typed tables that extrapolate to no linear law are still held to the symmetry of their element.
TEST(Weights, AreAsSymmetricAsTheElement) {
    std::vector<Exception> const exceptions = {
        {{shp_keyLine, {2}, {2}, {}, {shp_keyNodalIntegration}}, 1, "rows of three are read two wide"},
        {{shp_keyLine, {3}, {3}, {shp_keyAxisymmetric}, {shp_keyNodalIntegration}}, 1, "middle node's row last"},
        {{shp_keyPrism, {6}, {6}, {}, {shp_keyNodalIntegration}}, 1, "skew points, rows read with another width"},
    };
    Laws laws(exceptions);
    forEachShape([&](shp_Shape const & shape) { laws.expect(isSymmetric(shape) ? 0 : 1, shape); });
}

TEST(Weights, OfCylindricalCentroidsSumToOneInAnOrderOfTheirOwn) {
    forEachShape([](shp_Shape const & shape) {
        bool const isHex = shape.options.Shape() == shp_keyHex && shape.options.NumNodes() == 12;
        bool const isPrism = shape.options.Shape() == shp_keyPrism && shape.options.NumNodes() == 9;
        float const * weights = shp_InterpolationTables::getCylCentroidWghtTblPtr(shape.options);
        ASSERT_EQ(weights != nullptr, shape.isCylindrical && (isHex || isPrism));
        if (!weights)
            return;
        int const entries = isHex ? 12 : 6, group = isHex ? 4 : 1; // the nodes at r = 0 would be the third group
        EXPECT_NEAR(std::accumulate(weights, weights + entries, 0.0), 1, 2e-5);
        EXPECT_EQ(std::max_element(weights, weights + entries) - weights, group);
        EXPECT_EQ(std::count(weights, weights + entries, weights[group]), group);
    });
}

TEST(Weights, OfOnePointAreOneForEveryNodeAndFace) {
    float const * ones = shp_InterpolationTables::getOnePtTablePtr();
    EXPECT_EQ(std::count(ones, ones + 8, 1.0f), 8);
    forEachShape([&](shp_Shape const & shape) {
        if (shape.baseIntPtsPerElem != 1 || shape.isLayeredSolid)
            return;
        EXPECT_EQ(shape.nodeWeights, ones);
        EXPECT_EQ(shape.faceWeights, ones);
    });
}

// What is odd in a table, and yet has a rule.
TEST(Weights, KeepTheirOddities) {
    // Faces of the 15-point tetrahedron have the same weights, the negative one of a corner on these points.
    int const negative[] = {3, 4, 3, 3};
    float const * tetra = shapeOf("DC3D10").faceWeights;
    for (int face = 0; face < 4; ++face) {
        EXPECT_EQ(tetra[15 * face + negative[face]], -0.145497f) << face;
        EXPECT_TRUE(std::is_permutation(tetra, tetra + 15, tetra + 15 * face)) << face;
    }
    // A gasket's sides take these points of the midplane, three of them not their own.
    std::vector<std::vector<int>> const sides = {{0, 1, 4}, {2, 3, 5}, {3, 4, 6}, {0, 4, 7}};
    for (int side = 0; side < 4; ++side)
        for (int point : sides[static_cast<std::size_t>(side)])
            EXPECT_EQ(shapeOf("GK3D18").faceWeights[9 * (2 + side) + point], 0.333333f) << side;
    // The nine rows of a cylindrical prism's side, four wide, are read nine wide: what lies behind them is 0.
    float const * side = shp_InterpolationTables::getFacialNdWghtTblPtr(shapeOf("CCL18").options, 2);
    for (int row = 0; row < 20; ++row, side += 4)
        EXPECT_EQ(std::accumulate(side, side + 4, 0.0f), row < 9 ? 1 : 0) << row;
}

TEST(Weights, OfKeysOutsideTheCatalogue) {
    // Ten nodes with points at the nodes have no identity: the family's list decides by the points.
    EXPECT_EQ(shp_InterpolationTables::getNdWghtTblPtr(
                  optionsOf({shp_keyTetra, shp_keyNodes10, shp_keyIntPts4, shp_keyNodalIntegration})),
              shapeOf("C3D10").nodeWeights);
    // A planar element with a number of points without a row reads the pyramid's table.
    EXPECT_EQ(shp_InterpolationTables::getFcWghtTblPtr(optionsOf({shp_keyTri, shp_keyNodes6, shp_keyIntPts12})),
              shapeOf("C3D5").faceWeights);
    EXPECT_EQ(shp_InterpolationTables::getNdWghtTblPtr(optionsOf({shp_keyHex, shp_keyNodes20, shp_keyIntPts15})),
              nullptr);
    EXPECT_EQ(shp_InterpolationTables::getFcWghtTblPtr(optionsOf({shp_keyHex, shp_keyNodes20, shp_keyIntPts15})),
              nullptr);
    EXPECT_EQ(shp_HexInterpTables::getCylCentroidWghtTblPtr(optionsOf({shp_keyHex, shp_keyNodes12, shp_keyIntPts12})),
              nullptr);
    // Without a shape the choices by points and bits still hold, those by family give nothing.
    shp_Options const shapeless = optionsOf({shp_keyNodes4, shp_keyIntPts4});
    EXPECT_EQ(shp_InterpolationTables::getNdWghtTblPtr(shapeless), nullptr);
    EXPECT_EQ(shp_InterpolationTables::getFcWghtTblPtr(shapeless), nullptr);
    EXPECT_EQ(shp_InterpolationTables::getFacialNdWghtTblPtr(shapeless, 0), nullptr);
    EXPECT_EQ(shp_InterpolationTables::getNdWghtTblPtr(optionsOf({shp_keyIntPts1})),
              shp_InterpolationTables::getOnePtTablePtr());
}
