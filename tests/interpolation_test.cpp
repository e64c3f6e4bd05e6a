// Weights, positions, values and Jacobians inside one element.

#include "catalogued_shapes.h"
#include "g3d_Point.h"
#include "shp_KeyBit.h"
#include "uti_CoordCont3D.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

namespace {

using Floats = std::vector<float>;
/// Enough for every shape: the same nodes in all three forms, a value at each, and a point in every shape's domain.
struct Sample {
    g3d_Storage positions[27];
    g3d_Point points[27];
    uti_CoordCont3D coords;
    float values[27];
    float iso[3] = {0.27f, 0.13f, -0.41f};

    Sample() {
        std::mt19937 random(20240607);
        std::uniform_real_distribution<float> between(-5, 5);
        for (int i = 0; i < 27; ++i) {
            float const x = between(random), y = between(random), z = between(random);
            positions[i] = {x, y, z};
            points[i] = {x, y, z};
            coords.SetCoord(i, x, y, z);
            values[i] = between(random);
        }
    }
};

Floats flat(uti_CoordCont3D const & coords) {
    Floats values;
    for (int i = 0; i < coords.Length(); ++i)
        values.insert(values.end(), {coords[i][0], coords[i][1], coords[i][2]});
    return values;
}

/// All 16 entries by rows.
Floats flat(g3d_XForm const & m) {
    Floats values;
    for (int entry = 0; entry < 16; ++entry)
        values.push_back(m.GetM(entry / 4, entry % 4));
    return values;
}

/// The upper left entries by rows, in a matrix that is else the identity.
Floats matrix(Floats const & m) {
    return {m[0], m[1], m[2], 0, m[3], m[4], m[5], 0, m[6], m[7], m[8], 0, 0, 0, 0, 1};
}

double component(g3d_Storage const & p, int c) {
    return c == 0 ? p.X() : c == 1 ? p.Y() : p.Z();
}

/// The Jacobian of a solid: derivatives of x, y, z, summed in node order as `Real`.
template <class Real> Floats tangents(shp_Topology const & t, Sample const & sample) {
    Real sum[9] = {};
    auto const [g, h, r] = sample.iso;
    for (int i = 0; i < t.BaseNodesPerElem(); ++i) {
        Real const slopes[3] = {t.dUdGValue(i, g, h, r), t.dUdHValue(i, g, h, r), t.dUdRValue(i, g, h, r)};
        for (int entry = 0; entry < 9; ++entry)
            sum[entry] += slopes[entry % 3] * static_cast<Real>(component(sample.positions[i], entry / 3));
    }
    return matrix(Floats(std::begin(sum), std::end(sum)));
}

} // namespace

TEST(Interpolation, SumsTheSingleFunctionsInNodeOrderValuesInFloatAndPositionsInDouble) {
    Sample const sample;
    forEachShape([&](shp_Topology const & t) {
        float weights[28] = {}, expected[28] = {};
        double position[3] = {};
        float value = 0;
        for (int i = 0; i < t.BaseNodesPerElem(); ++i) {
            expected[i] = t.shapeFuncValue(i, sample.iso[0], sample.iso[1], sample.iso[2]);
            value += sample.values[i] * expected[i];
            for (int c = 0; c < 3; ++c)
                position[c] += static_cast<double>(expected[i]) * component(sample.positions[i], c);
        }
        weights[t.BaseNodesPerElem()] = expected[t.BaseNodesPerElem()] = 99; // stays as it was
        t.CalculateNodesShapeWeight(sample.iso, weights);
        EXPECT_TRUE(std::equal(weights, weights + 28, expected));
        EXPECT_EQ(t.InterpolateResultFromNodes(sample.values, sample.iso, 1e30f), value);
        g3d_Storage const result = t.InterpolatePointFromNodes(sample.positions, sample.iso);
        for (int c = 0; c < 3; ++c)
            EXPECT_EQ(component(result, c), position[c]);
    });
}

TEST(Interpolation, AtANodeIsThatNodesValue) {
    forEachShape([](shp_Topology const & t) {
        auto const nodes = static_cast<std::size_t>(t.BaseNodesPerElem());
        bool isKept = true;
        for (std::size_t node = 0; node < nodes; ++node) {
            Floats weights(nodes), expected(nodes);
            expected[node] = 1;
            t.CalculateNodesShapeWeight(t.IsoNodeLocationTable() + 3 * node, weights.data());
            isKept = isKept && weights == expected;
        }
        // The nine-node cohesive prism's functions have another order than its node locations, and the plain prism of
        // 18 nodes has the functions of 15.
        bool const isPrism = t.options.Shape() == shp_keyPrism && !t.isCylindrical;
        EXPECT_EQ(isKept, !(isPrism && (nodes == 9 || nodes == 18)));
    });
}

TEST(Interpolation, AtTheCentreUsesTheFunctionsButForCylindricalSolidsWithATableOfTheirOwn) {
    forEachShape([](shp_Topology const & t) {
        Floats weights(static_cast<std::size_t>(std::max(t.BaseNodesPerElem(), t.numIntPtsPerElem)), 99.0f);
        Floats cylindrical = weights, expected = weights;
        t.GetCenterNodeWeights(weights.data());
        t.CalculateCylindricalCentroidWeights(nullptr, cylindrical.data());
        bool const hasOwnTable = t.cylCentroidWeights && t.NumGeometryDimensions() == 3;
        if (hasOwnTable)
            std::copy_n(t.cylCentroidWeights, t.numIntPtsPerElem, expected.begin());
        EXPECT_EQ(cylindrical, expected);
        if (!hasOwnTable)
            t.CalculateNodesShapeWeight(t.centerLocation, expected.data());
        EXPECT_EQ(weights, expected);
    });
}

TEST(Interpolation, IsUndefinedWhenOneNodeIs) {
    shp_Topology const & t = shapeOf("C3D20");
    float const iso[3] = {0, 0, -1};
    float const nan = std::numeric_limits<float>::quiet_NaN();
    Floats values(20, 1.0f);
    values.back() = -999; // a node with no share in the point
    EXPECT_EQ(t.InterpolateResultFromNodes(values.data(), iso, -999), -999);
    EXPECT_EQ(t.InterpolateResultFromNodes(values.data(), iso, nan), 1);
    values.back() = nan;
    EXPECT_TRUE(std::isnan(t.InterpolateResultFromNodes(values.data(), iso, -999)));
    values.front() = -999;
    EXPECT_EQ(t.InterpolateResultFromNodes(values.data(), iso, -999), -999);
}

TEST(Jacobian, OfASolidSumsInThePrecisionOfItsPositions) {
    Sample sample;
    forEachShape([&](shp_Topology const & t) {
        Floats const inDoubles = flat(t.ShapeFunctionJacobian(sample.positions, sample.iso));
        if (!t.hasDerivatives) {
            EXPECT_EQ(inDoubles, matrix({1, 0, 0, 0, 1, 0, 0, 0, 1}));
        } else if (t.NumGeometryDimensions() == 3) {
            EXPECT_EQ(inDoubles, tangents<double>(t, sample));
            EXPECT_EQ(flat(t.ShapeFunctionJacobian(sample.points, sample.iso)), tangents<float>(t, sample));
        }
    });
}

// A surface gets the unit direction that completes it; a line keeps the first coordinate that varies. Both ask for zero
// in the precision of the positions.
TEST(Jacobian, OfASurfaceOrALineIsCompletedByUnitDirections) {
    struct {
        char const * label;
        std::vector<g3d_Storage> coords;
        Floats expected, ofFloats; ///< where it is another one
    } const cases[] = {
        // In z = const, x = const and y = const, turned over, and collapsed to a line.
        {"S4", {{0, 2, 5}, {4, 2, 5}, {2, 0, 5}, {0, 0, 5}}, {1.25f, -0.75f, 0, 0, -1, 0, 0, 0, 1}, {}},
        {"S4", {{5, 0, 0}, {5, 4, 0}, {5, 4, 2}, {5, 0, 2}}, {0, 0, 1, 2, 0, 0, 0, 1, 0}, {}},
        {"S4", {{4, 5, 0}, {0, 5, 0}, {0, 5, 2}, {4, 5, 2}}, {-2, 0, 0, 0, 0, 1, 0, 1, 0}, {}},
        {"S3", {{0, 0, 0}, {1, 1, 0}, {1, 1, 1}}, {1, 1, 0, 1, 1, 1, 0, 1, 0}, {}},
        {"S3", {{0, 0, 0}, {1, 0, 1}, {1, 0, 1}}, {1, 1, 1, 0, 0, 0, 1, 1, 0}, {}},
        // In float the product of these two slopes is 0.
        {"S3",
         {{0, 0, 0}, {1e-30f, 0, 2}, {0, 1e-30f, 3}},
         {1e-30f, 0, 0, 0, 1e-30f, 0, 2, 3, 1},
         {1e-30f, 0, 0, 0, 1e-30f, 1, 2, 3, 0}},
        {"S3", {{0, 0, 0}, {1, 0, 2}, {0, 1e-60, 3}}, {1, 0, 0, 0, 0, 0, 2, 3, 1}, {1, 0, 0, 0, 0, 1, 2, 3, 0}},
        {"T3D2", {{1, 8, 0}, {1, 0, 2}}, {0, 1, 0, -4, 0, 0, 0, 0, 1}, {}},
        {"T3D2", {{1, 0, 0}, {1, 0, 2}}, {0, 0, 1, 0, 1, 0, 1, 0, 0}, {}},
        {"T3D2", {{1, 0, 0}, {1, 0, 0}}, {0, 0, 1, 0, 1, 0, 0, 0, 0}, {}},
        {"T3D2", {{1e-30f, 0, 0}, {0, 8, 2}}, {-0.5e-30f, 0, 0, 0, 1, 0, 0, 0, 1}, {}},
        {"T3D2", {{0, 0, 0}, {1e-60, 8, 2}}, {0, 0, 0, 0, 1, 0, 0, 0, 1}, {0, 1, 0, 4, 0, 0, 0, 0, 1}},
    };
    float iso[3] = {0.5f, 0.5f, 9};
    for (auto const & [label, coords, expected, ofFloats] : cases) {
        SCOPED_TRACE(label);
        std::vector<g3d_Point> points;
        for (g3d_Storage const & p : coords)
            points.emplace_back(static_cast<float>(p.X()), static_cast<float>(p.Y()), static_cast<float>(p.Z()));
        EXPECT_EQ(flat(shapeOf(label).ShapeFunctionJacobian(coords.data(), iso)), matrix(expected));
        EXPECT_EQ(flat(shapeOf(label).ShapeFunctionJacobian(points.data(), iso)),
                  matrix(ofFloats.empty() ? expected : ofFloats));
    }
}

TEST(Centroid, LeavesOutANodeAtThePlaceOfTheOneBefore) {
    uti_CoordCont3D coords;
    for (int i = 0; i < 8; ++i)
        coords.SetCoord(i, i % 4 == 1 || i % 4 == 2 ? 1.0f : 0.0f, i % 4 < 2 ? 0.0f : 1.0f, i < 4 ? 0.0f : 7.0f);
    int const allTheSame[8] = {5, 5, 5, 5, 5, 5, 5, 5};
    auto const centroid = [&](bool useConnectivity) {
        uti_CoordCont3D result;
        result.Grow(1);
        shapeOf("C3D8").Centroid(allTheSame, coords, result, useConnectivity);
        return flat(result);
    };
    EXPECT_EQ(centroid(false), (Floats{0.5f, 0.5f, 3.5f}));
    EXPECT_EQ(centroid(true), (Floats{1, 0, 7}));
    coords.SetCoord(3, coords[2]);
    EXPECT_EQ(centroid(false), (Floats{4 * (1.0f / 7), 3 * (1.0f / 7), 28 * (1.0f / 7)}));
    coords.SetCoord(3, coords[0]); // not one behind the other in the walk
    EXPECT_EQ(centroid(false), (Floats{0.5f, 0.375f, 3.5f}));
}

// Rows of weights are read one after the other, also where an order has fewer nodes than the element; a 27-node element
// is one of 20 nodes.
TEST(IntegrationPoints, TakeTheNodesInTheOrderAskedFor) {
    std::vector<int> straight(24);
    std::iota(straight.begin(), straight.end(), 0);
    std::vector<int> const orders[] = {
        straight, {0, 3, 7, 4, 1, 2, 6, 5}, {0, 4, 5, 1, 3, 7, 6, 2}, straight, {0, 3, 2, 1}, straight};
    int conn[27];
    std::iota(std::rbegin(conn), std::rend(conn), 0);
    Sample const sample;
    forEachShape([&](shp_Topology const & t) {
        int const rowLength = t.BaseNodesPerElem() == 27 ? 20 : t.BaseNodesPerElem();
        for (int nodeOrder = 0; nodeOrder < 6; ++nodeOrder) {
            std::vector<int> order = orders[nodeOrder];
            order.resize(std::min(order.size(), static_cast<std::size_t>(rowLength)));
            Floats expected;
            float const * weight = t.intPointNodeWeights;
            for (int p = 0; p < t.BaseIntPtsPerElem(); ++p) {
                float sum[3] = {};
                for (int i : order) {
                    for (int c = 0; c < 3; ++c)
                        sum[c] += *weight * sample.coords[conn[i]][c];
                    ++weight;
                }
                expected.insert(expected.end(), sum, sum + 3);
            }
            uti_CoordCont3D points;
            t.IntPtCoord(sample.coords, conn, points, nodeOrder);
            EXPECT_EQ(flat(points), expected) << "order " << nodeOrder;
        }
    });
}

TEST(BodyWeights, GoToTheOperatorAndStayAsTheyWereWithoutOne) {
    Floats weights(20, 99.0f), expected = weights;
    Sample const sample;
    shapeOf("C3D20").BodyOp(sample.coords, weights.data());
    EXPECT_EQ(weights, expected);
    shapeOf("C3D8").BodyOp(sample.coords, weights.data());
    HexBodyOp(sample.coords, expected.data());
    EXPECT_EQ(weights, expected);
}
