// Weights, positions, values and Jacobians inside one element.

#include "g3d_Point.h"
#include "omi_BtreeIterator.h"
#include "shp_KeyBit.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"
#include "uti_CoordCont3D.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

namespace {

shp_ShapeDictionary & dictionary() {
    return omi_Singleton<shp_ShapeDictionary>::Instance();
}

shp_Shape const & shapeOf(char const * label) {
    return *dictionary().GetShape(label);
}

template <class Check> void forEachLabel(Check check) {
    omi_BtreeIterator<cow_String, void *> labels(dictionary().Keys());
    for (bool isLabel = labels.First(); isLabel; isLabel = labels.Next()) {
        SCOPED_TRACE(labels.CurrentKey().CStr());
        check(*dictionary().GetShape(labels.CurrentKey()));
    }
}

std::mt19937 & random() {
    static std::mt19937 generator(20240607);
    return generator;
}

float between(float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(random());
}

std::vector<float> randomValues(int count) {
    std::vector<float> values(static_cast<std::size_t>(count));
    std::generate(values.begin(), values.end(), [] { return between(-10, 10); });
    return values;
}

std::vector<g3d_Storage> randomPositions(int count) {
    std::vector<g3d_Storage> positions;
    for (int i = 0; i < count; ++i)
        positions.emplace_back(between(-5, 5), between(-5, 5), between(-5, 5));
    return positions;
}

/// Somewhere in every shape's domain.
std::vector<float> randomIso() {
    return {between(0, 0.5f), between(0, 0.4f), between(-0.5f, 0.5f)};
}

bool sameBits(float a, float b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

float slope(shp_Topology const & t, int direction, int node, std::vector<float> const & iso) {
    switch (direction) {
    case 0: return t.dUdGValue(node, iso[0], iso[1], iso[2]);
    case 1: return t.dUdHValue(node, iso[0], iso[1], iso[2]);
    default: return t.dUdRValue(node, iso[0], iso[1], iso[2]);
    }
}

double component(g3d_Storage const & p, int c) {
    return c == 0 ? p.X() : c == 1 ? p.Y() : p.Z();
}
float component(g3d_Point const & p, int c) {
    return c == 0 ? p.X() : c == 1 ? p.Y() : p.Z();
}

/// Derivative of coordinate c, summed in node order at the precision of the positions.
template <class Real, class Position>
Real tangent(shp_Topology const & t, std::vector<Position> const & coords, int c, int direction,
             std::vector<float> const & iso) {
    Real sum = 0;
    for (int i = 0; i < t.BaseNodesPerElem(); ++i)
        sum += static_cast<Real>(slope(t, direction, i, iso)) * component(coords[static_cast<std::size_t>(i)], c);
    return sum;
}

template <class Real, class Position>
void expectSolidJacobian(shp_Topology const & t, std::vector<Position> const & coords) {
    std::vector<float> iso = randomIso();
    g3d_XForm const jacobian = t.ShapeFunctionJacobian(coords.data(), iso.data());
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column) {
            bool const isTangent = row < 3 && column < 3;
            float const expected = isTangent ? static_cast<float>(tangent<Real>(t, coords, row, column, iso))
                                             : static_cast<float>(row == column);
            EXPECT_TRUE(sameBits(jacobian.GetM(row, column), expected)) << row << ", " << column;
        }
}

using Matrix = std::vector<std::vector<float>>;

Matrix upperLeft(g3d_XForm const & m) {
    Matrix rows;
    for (int i = 0; i < 3; ++i)
        rows.push_back({m.GetM(i, 0), m.GetM(i, 1), m.GetM(i, 2)});
    return rows;
}

Matrix jacobianOf(char const * label, std::vector<g3d_Storage> const & coords) {
    std::vector<g3d_Point> points;
    for (g3d_Storage const & p : coords)
        points.emplace_back(static_cast<float>(p.X()), static_cast<float>(p.Y()), static_cast<float>(p.Z()));
    float iso[3] = {};
    Matrix const fromDoubles = upperLeft(shapeOf(label).ShapeFunctionJacobian(coords.data(), iso));
    EXPECT_EQ(upperLeft(shapeOf(label).ShapeFunctionJacobian(points.data(), iso)), fromDoubles);
    return fromDoubles;
}

uti_CoordCont3D container(std::vector<g3d_Storage> const & positions) {
    uti_CoordCont3D coords;
    for (std::size_t i = 0; i < positions.size(); ++i)
        coords.SetCoord(static_cast<int>(i), static_cast<float>(positions[i].X()), static_cast<float>(positions[i].Y()),
                        static_cast<float>(positions[i].Z()));
    return coords;
}

bool sameCoord(uti_Coord3D const & a, uti_Coord3D const & b) {
    return sameBits(a[0], b[0]) && sameBits(a[1], b[1]) && sameBits(a[2], b[2]);
}

} // namespace

TEST(Weights, AllAtOnceAreTheSameBitsAsOneByOne) {
    forEachLabel([](shp_Topology const & t) {
        auto const nodes = static_cast<std::size_t>(t.BaseNodesPerElem());
        for (int sample = 0; sample < 5; ++sample) {
            std::vector<float> const iso = randomIso();
            std::vector<float> weights(nodes + 1, 99.0f);
            t.CalculateNodesShapeWeight(iso.data(), weights.data());
            for (std::size_t i = 0; i < nodes; ++i)
                EXPECT_TRUE(sameBits(weights[i], t.shapeFuncValue(static_cast<int>(i), iso[0], iso[1], iso[2])));
            EXPECT_EQ(weights[nodes], 99.0f);
        }
    });
}

TEST(Weights, OfTheCentreAreTheFunctionsButForCylindricalSolidsOfNineAndTwelveNodes) {
    int withOwnTable = 0;
    forEachLabel([&](shp_Topology const & t) {
        auto const size = static_cast<std::size_t>(std::max(t.BaseNodesPerElem(), t.numIntPtsPerElem));
        std::vector<float> weights(size, 99.0f), cylindrical(size, 99.0f);
        t.GetCenterNodeWeights(weights.data());
        t.CalculateCylindricalCentroidWeights(nullptr, cylindrical.data());
        if (t.cylCentroidWeights && t.NumGeometryDimensions() == 3) {
            ++withOwnTable;
            EXPECT_EQ(weights, cylindrical);
            EXPECT_TRUE(std::equal(weights.begin(), weights.begin() + t.numIntPtsPerElem, t.cylCentroidWeights));
            return;
        }
        EXPECT_EQ(cylindrical, std::vector<float>(size, 99.0f));
        float iso[3];
        t.IsoParCentroidLocation(iso);
        for (int i = 0; i < t.BaseNodesPerElem(); ++i)
            EXPECT_TRUE(sameBits(weights[static_cast<std::size_t>(i)], t.shapeFuncValue(i, iso[0], iso[1], iso[2])));
    });
    EXPECT_GT(withOwnTable, 0);
}

TEST(Positions, FollowAnAffineMapOfTheReferenceElement) {
    forEachLabel([](shp_Topology const & t) {
        // Kept by all but these: an infinite element's map has a pole, a pyramid's g and h shrink towards its apex, and
        // the nine-node cohesive prism's table of node locations has another order than its functions.
        bool const hasPole = t.options.IsType(shp_keyInfinite) && t.NumGeometryDimensions() >= 2;
        bool const shrinks = t.options.Shape() == shp_keyPyramid;
        bool const isMisplaced = t.isCohesive && t.options.Shape() == shp_keyPrism && t.BaseNodesPerElem() == 9;
        auto const image = [](float const * iso) {
            return g3d_Storage(3 + 2 * iso[0] - iso[1], 1 + 0.5 * iso[0] + 3 * iso[1], -2 + iso[1] + 4 * iso[2]);
        };
        std::vector<g3d_Storage> coords;
        for (int i = 0; i < t.BaseNodesPerElem(); ++i)
            coords.push_back(image(t.IsoNodeLocationTable() + 3 * i));
        std::vector<float> iso = {0.25f, 0.125f, -0.375f};
        for (int axis = t.NumGeometryDimensions(); axis < 3; ++axis)
            iso[static_cast<std::size_t>(axis)] = 0;
        if (t.BaseNodesPerElem() == 1)
            iso = {0, 0, 0};
        g3d_Storage difference = t.InterpolatePointFromNodes(coords.data(), iso.data());
        difference -= image(iso.data());
        EXPECT_EQ(g3d_Magnitude(difference) > 4e-6, hasPole || shrinks || isMisplaced) << g3d_Magnitude(difference);
    });
}

TEST(Positions, AreSummedInDoubleAndValuesInFloat) {
    forEachLabel([](shp_Topology const & t) {
        int const nodes = t.BaseNodesPerElem();
        std::vector<g3d_Storage> const coords = randomPositions(nodes);
        std::vector<float> const values = randomValues(nodes), iso = randomIso();
        double position[3] = {};
        float value = 0;
        for (int i = 0; i < nodes; ++i) {
            auto const at = static_cast<std::size_t>(i);
            float const weight = t.shapeFuncValue(i, iso[0], iso[1], iso[2]);
            for (int c = 0; c < 3; ++c)
                position[c] += static_cast<double>(weight) * component(coords[at], c);
            value += values[at] * weight;
        }
        g3d_Storage const result = t.InterpolatePointFromNodes(coords.data(), iso.data());
        for (int c = 0; c < 3; ++c)
            EXPECT_EQ(component(result, c), position[c]);
        EXPECT_TRUE(sameBits(t.InterpolateResultFromNodes(values.data(), iso.data(), 1e30f), value));
    });
}

TEST(Values, AreUndefinedWhenOneNodeIs) {
    shp_Topology const & t = shapeOf("C3D20");
    float const iso[3] = {0, 0, -1};
    float const nan = std::numeric_limits<float>::quiet_NaN();
    std::vector<float> values(20, 1.0f);
    values.back() = -999; // a node with no share in the point
    EXPECT_EQ(t.InterpolateResultFromNodes(values.data(), iso, -999), -999);
    EXPECT_EQ(t.InterpolateResultFromNodes(values.data(), iso, -998), 1);
    EXPECT_EQ(t.InterpolateResultFromNodes(values.data(), iso, nan), 1);
    values.back() = nan;
    EXPECT_TRUE(std::isnan(t.InterpolateResultFromNodes(values.data(), iso, nan)));
    values.front() = -999;
    EXPECT_EQ(t.InterpolateResultFromNodes(values.data(), iso, -999), -999);
}

TEST(Jacobian, OfASolidSumsInThePrecisionOfItsPositions) {
    forEachLabel([](shp_Topology const & t) {
        std::vector<g3d_Storage> const coords = randomPositions(t.BaseNodesPerElem());
        std::vector<g3d_Point> points;
        for (g3d_Storage const & p : coords)
            points.emplace_back(static_cast<float>(p.X()), static_cast<float>(p.Y()), static_cast<float>(p.Z()));
        if (!t.hasDerivatives) {
            std::vector<float> iso = randomIso();
            EXPECT_EQ(upperLeft(t.ShapeFunctionJacobian(coords.data(), iso.data())), upperLeft(g3d_XForm()));
        } else if (t.NumGeometryDimensions() == 3) {
            expectSolidJacobian<double>(t, coords);
            expectSolidJacobian<float>(t, points);
        }
    });
}

TEST(Jacobian, OfASurfaceGetsTheUnitDirectionThatCompletesIt) {
    // In z = const, x = const and y = const, in general position, and collapsed to a point.
    EXPECT_EQ(jacobianOf("S4", {{0, 0, 5}, {4, 0, 5}, {4, 2, 5}, {0, 2, 5}}),
              (Matrix{{2, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    EXPECT_EQ(jacobianOf("S4", {{5, 0, 0}, {5, 4, 0}, {5, 4, 2}, {5, 0, 2}}),
              (Matrix{{0, 0, 1}, {2, 0, 0}, {0, 1, 0}}));
    EXPECT_EQ(jacobianOf("S4", {{0, 5, 0}, {4, 5, 0}, {4, 5, 2}, {0, 5, 2}}),
              (Matrix{{2, 0, 0}, {0, 0, 1}, {0, 1, 0}}));
    EXPECT_EQ(jacobianOf("S3", {{0, 0, 0}, {1, 0, 2}, {0, 1, 3}}), (Matrix{{1, 0, 0}, {0, 1, 0}, {2, 3, 1}}));
    EXPECT_EQ(jacobianOf("S3", {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}}), (Matrix{{0, 0, 1}, {0, 0, 0}, {0, 0, 0}}));
}

TEST(Jacobian, OfALineKeepsTheFirstCoordinateThatVaries) {
    EXPECT_EQ(jacobianOf("T3D2", {{1, 0, 0}, {5, 8, 2}}), (Matrix{{2, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    EXPECT_EQ(jacobianOf("T3D2", {{1, 0, 0}, {1, 8, 2}}), (Matrix{{0, 1, 0}, {4, 0, 0}, {0, 0, 1}}));
    EXPECT_EQ(jacobianOf("T3D2", {{1, 0, 0}, {1, 0, 2}}), (Matrix{{0, 0, 1}, {0, 1, 0}, {1, 0, 0}}));
    EXPECT_EQ(jacobianOf("T3D2", {{1, 0, 0}, {1, 0, 0}}), (Matrix{{0, 0, 1}, {0, 1, 0}, {0, 0, 0}}));
}

// What float cannot tell from 0 still varies along the element when positions are doubles.
TEST(Jacobian, AsksForZeroInThePrecisionOfItsPositions) {
    float iso[3] = {};
    auto const from = [&](char const * label, std::vector<g3d_Storage> const & coords) {
        return upperLeft(shapeOf(label).ShapeFunctionJacobian(coords.data(), iso));
    };
    EXPECT_EQ(from("T3D2", {{0, 0, 0}, {1e-60, 8, 2}}), (Matrix{{0, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    EXPECT_EQ(from("S3", {{0, 0, 0}, {1, 0, 2}, {0, 1e-60, 3}}), (Matrix{{1, 0, 0}, {0, 0, 0}, {2, 3, 1}}));
    g3d_Point const line[] = {{0, 0, 0}, {1e-30f, 8, 2}};
    EXPECT_EQ(upperLeft(shapeOf("T3D2").ShapeFunctionJacobian(line, iso)),
              (Matrix{{0.5e-30f, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    // In float the product of two such slopes is 0.
    g3d_Point const triangle[] = {{0, 0, 0}, {1e-30f, 0, 2}, {0, 1e-30f, 3}};
    EXPECT_EQ(upperLeft(shapeOf("S3").ShapeFunctionJacobian(triangle, iso)),
              (Matrix{{1e-30f, 0, 0}, {0, 1e-30f, 1}, {2, 3, 0}}));
}

TEST(Centroid, LeavesOutANodeAtThePlaceOfTheOneBefore) {
    shp_Topology const & brick = shapeOf("C3D8");
    std::vector<g3d_Storage> corners = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                        {0, 0, 7}, {1, 0, 7}, {1, 1, 7}, {0, 1, 7}};
    auto const centroidOf = [&](int const * conn, bool useConnectivity) {
        uti_CoordCont3D centroid;
        centroid.Grow(1);
        brick.Centroid(conn, container(corners), centroid, useConnectivity);
        return centroid[0];
    };
    EXPECT_TRUE(sameCoord(centroidOf(nullptr, false), {0.5f, 0.5f, 3.5f}));
    corners[3] = corners[2];
    EXPECT_TRUE(sameCoord(centroidOf(nullptr, false), {4 * (1.0f / 7), 3 * (1.0f / 7), 28 * (1.0f / 7)}));
    corners[3] = corners[0]; // not one behind the other in the walk
    EXPECT_TRUE(sameCoord(centroidOf(nullptr, false), {0.5f, 0.375f, 3.5f}));
    int const allTheSame[8] = {5, 5, 5, 5, 5, 5, 5, 5};
    EXPECT_TRUE(sameCoord(centroidOf(allTheSame, true), {1, 0, 7}));
}

TEST(IntegrationPoints, StandWhereTheirWeightsSay) {
    shp_Topology const & twentyNodes = shapeOf("C3D20");
    forEachLabel([&](shp_Topology const & t) {
        int const rowLength = t.BaseNodesPerElem() == 27 ? 20 : t.BaseNodesPerElem();
        shp_Topology const & functions = rowLength == 20 ? twentyNodes : t;
        std::vector<int> conn(static_cast<std::size_t>(rowLength));
        std::iota(conn.rbegin(), conn.rend(), 0); // the nodes stand in reverse, and no more than are used
        std::vector<g3d_Storage> const positions = randomPositions(rowLength);
        uti_CoordCont3D const coords = container(positions);
        uti_CoordCont3D points, withUnknownOrder;
        t.IntPtCoord(coords, conn.data(), points, 3);
        t.IntPtCoord(coords, conn.data(), withUnknownOrder, 7);
        ASSERT_EQ(points.Length(), t.BaseIntPtsPerElem());
        for (int p = 0; p < points.Length(); ++p) {
            float sum[3] = {};
            for (int i = 0; i < rowLength; ++i) {
                float const * iso = t.intPtLocationTable + 3 * p;
                float const weight = t.BaseIntPtsPerElem() == 1 ? static_cast<float>(1.0 / t.BaseNodesPerElem())
                                                                : functions.shapeFuncValue(i, iso[0], iso[1], iso[2]);
                for (int c = 0; c < 3; ++c)
                    sum[c] += weight * coords[conn[static_cast<std::size_t>(i)]][c];
            }
            EXPECT_TRUE(sameCoord(points[p], {sum[0], sum[1], sum[2]})) << "point " << p;
            EXPECT_TRUE(sameCoord(points[p], withUnknownOrder[p]));
        }
    });
}

TEST(IntegrationPoints, TakeTheNodesOfOtherOrders) {
    shp_Topology const & brick = shapeOf("C3D8");
    uti_CoordCont3D const coords = container(randomPositions(8));
    int const orders[][8] = {{0, 3, 7, 4, 1, 2, 6, 5}, {0, 4, 5, 1, 3, 7, 6, 2}};
    for (int nodeOrder : {1, 2}) {
        std::vector<int> conn(8);
        std::iota(conn.begin(), conn.end(), 0);
        uti_CoordCont3D points, expected;
        brick.IntPtCoord(coords, conn.data(), points, nodeOrder);
        brick.IntPtCoord(coords, orders[nodeOrder - 1], expected, 3);
        for (int p = 0; p < 8; ++p)
            EXPECT_TRUE(sameCoord(points[p], expected[p]));
    }
    // Four of four nodes, turned over; a row of three weights reads no fourth node.
    int const conn[4] = {0, 1, 2, 3}, turned[4] = {0, 3, 2, 1}, three[3] = {4, 6, 5};
    int const triangleConn[4] = {4, 0, 5, 6}; // entries 0, 3, 2 are read
    uti_CoordCont3D points, expected;
    shapeOf("S4").IntPtCoord(coords, conn, points, 4);
    shapeOf("S4").IntPtCoord(coords, turned, expected, 3);
    for (int p = 0; p < 4; ++p)
        EXPECT_TRUE(sameCoord(points[p], expected[p]));
    shapeOf("S3").IntPtCoord(coords, triangleConn, points, 4);
    shapeOf("S3").IntPtCoord(coords, three, expected, 3);
    EXPECT_TRUE(sameCoord(points[0], expected[0]));
}

// Rows of eight weights are read one after the other, though the table's own rows are twenty long.
TEST(IntegrationPoints, OfALargerElementInABrickOrderReadTheWeightsStraightThrough) {
    shp_Topology const & t = shapeOf("C3D20");
    uti_CoordCont3D coords, points;
    for (int i = 0; i < 8; ++i)
        coords.SetCoord(i, 1, 0, 0);
    std::vector<int> conn(8);
    std::iota(conn.begin(), conn.end(), 0);
    t.IntPtCoord(coords, conn.data(), points, 1);
    for (int p = 0; p < t.BaseIntPtsPerElem(); ++p)
        EXPECT_FLOAT_EQ(points[p][0],
                        std::accumulate(t.intPointNodeWeights + 8 * p, t.intPointNodeWeights + 8 * (p + 1), 0.0f));
}

TEST(BodyWeights, OfABrickGiveItsCentroidAndOthersStayAsTheyWere) {
    std::vector<float> weights(20, 99.0f);
    uti_CoordCont3D const coords = container(randomPositions(20));
    shapeOf("C3D20").BodyOp(coords, weights.data());
    EXPECT_EQ(weights, std::vector<float>(20, 99.0f));

    uti_CoordCont3D cube;
    float const * const corners = shapeOf("C3D8").IsoNodeLocationTable();
    for (int i = 0; i < 8; ++i)
        cube.SetCoord(i, corners[3 * i], corners[3 * i + 1], corners[3 * i + 2]);
    shapeOf("C3D8").BodyOp(cube, weights.data());
    for (std::size_t i = 0; i < 8; ++i)
        EXPECT_NEAR(weights[i], 0.125f, 1e-6);
    EXPECT_EQ(weights[8], 99.0f);
}
