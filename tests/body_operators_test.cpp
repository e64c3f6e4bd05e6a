#include "mem_Alloc.h"
#include "mem_OutOfMemoryException.h"
#include "shp_BodyOperators.h"
#include "shp_InterpolationTables.h"
#include "shp_KeyBit.h"
#include "uti_CoordCont3D.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <random>
#include <vector>

namespace {

struct Node {
    float x, y, z;
};
using Nodes = std::vector<Node>;
using Weights = std::vector<double>;

Weights weightsOf(shp_BodyOperator op, std::size_t count, Nodes const & nodes) {
    uti_CoordCont3D coords;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        coords.SetCoord(static_cast<int>(i), nodes[i].x, nodes[i].y, nodes[i].z);
    float const untouched = -77;
    std::vector<float> weights(count + 1, untouched);
    op(coords, weights.data());
    EXPECT_EQ(weights[count], untouched);
    return Weights(weights.begin(), weights.end() - 1);
}

constexpr double sideG[8] = {-1, 1, 1, -1, -1, 1, 1, -1};
constexpr double sideH[8] = {-1, -1, 1, 1, -1, -1, 1, 1};
constexpr double sideR[8] = {-1, -1, -1, -1, 1, 1, 1, 1};

/// Shares of the corners of a hexahedron (8 nodes) or of a quadrilateral (4), by the Gauss rule with four points along
/// each axis; `density` of x multiplies the volume.
template <class Density> Weights integrated(Nodes const & nodes, Density density) {
    constexpr double gauss[4] = {-0.86113631159405258, -0.33998104358485626, 0.33998104358485626, 0.86113631159405258};
    constexpr double share[4] = {0.34785484513745386, 0.65214515486254614, 0.65214515486254614, 0.34785484513745386};
    bool const solid = nodes.size() == 8;
    Weights integral(nodes.size());
    double total = 0;
    for (int a = 0; a < 4; ++a)
        for (int b = 0; b < 4; ++b)
            for (int c = 0; c < (solid ? 4 : 1); ++c) {
                double const g = gauss[a], h = gauss[b], r = solid ? gauss[c] : -1;
                double x = 0, jacobian[3][3] = {{0, 0, 0}, {0, 0, 0}, {0, 0, solid ? 0.0 : 1.0}};
                Weights value(nodes.size());
                for (std::size_t i = 0; i < nodes.size(); ++i) {
                    double const fg = 1 + sideG[i] * g, fh = 1 + sideH[i] * h, fr = 1 + sideR[i] * r;
                    double const at[3] = {static_cast<double>(nodes[i].x), static_cast<double>(nodes[i].y),
                                          solid ? static_cast<double>(nodes[i].z) : 0.0};
                    value[i] = fg * fh * fr / 8;
                    x += value[i] * at[0];
                    for (int k = 0; k < 3; ++k) {
                        jacobian[0][k] += sideG[i] * fh * fr / 8 * at[k];
                        jacobian[1][k] += sideH[i] * fg * fr / 8 * at[k];
                        jacobian[2][k] += sideR[i] * fg * fh / 8 * at[k];
                    }
                }
                auto const & j = jacobian;
                double const volume = share[a] * share[b] * (solid ? share[c] : 1.0) * density(x) *
                                      (j[0][0] * (j[1][1] * j[2][2] - j[1][2] * j[2][1]) -
                                       j[0][1] * (j[1][0] * j[2][2] - j[1][2] * j[2][0]) +
                                       j[0][2] * (j[1][0] * j[2][1] - j[1][1] * j[2][0]));
                total += volume;
                for (std::size_t i = 0; i < nodes.size(); ++i)
                    integral[i] += value[i] * volume;
            }
    for (double & entry : integral)
        entry /= total;
    return integral;
}
double uniform(double) {
    return 1;
}
double radius(double x) {
    return x;
}

void expectNear(Weights const & actual, Weights const & expected, double tolerance) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "weight " << i + 1;
}

/// A unit cube or square with corners moved by up to 0.3, stretched, at `centre` along x; negative `sizeX` inverts it.
Nodes distorted(std::size_t count, std::mt19937 & random, float centre, float sizeX) {
    std::uniform_real_distribution<float> shift(-0.3f, 0.3f);
    Nodes nodes(count);
    for (std::size_t i = 0; i < count; ++i)
        nodes[i] = {centre + sizeX * (static_cast<float>(sideG[i]) + shift(random)),
                    2 * (static_cast<float>(sideH[i]) + shift(random)),
                    5 * (static_cast<float>(sideR[i]) + shift(random))};
    return nodes;
}

Nodes picked(Nodes const & nodes, std::initializer_list<std::size_t> numbers) {
    Nodes chosen;
    for (std::size_t number : numbers)
        chosen.push_back(nodes[number - 1]);
    return chosen;
}

} // namespace

TEST(BodyOperators, QuadrilateralsAndHexahedraMatchTheirIntegrals) {
    std::mt19937 random(99);
    for (int i = 0; i < 200; ++i) {
        float const sizeX = i % 2 == 0 ? 1.5f : -1.5f;
        Nodes const hex = distorted(8, random, i % 3 == 0 ? 1000.0f : 0.5f, sizeX);
        expectNear(weightsOf(HexBodyOp, 8, hex), integrated(hex, uniform), 6e-8);
        Nodes const quad = distorted(4, random, i % 3 == 0 ? 100.0f : 0.5f, sizeX);
        expectNear(weightsOf(QuadBodyOp, 4, quad), integrated(quad, uniform), 5e-7);
        Nodes const ring = distorted(4, random, 4.0f, sizeX);
        expectNear(weightsOf(QuadAxiBodyOp, 4, ring), integrated(ring, radius), 2e-6);
    }
    Nodes const wideBelow = {{0, 0, 0}, {2, 0, 0}, {1.5f, 1, 0}, {0.5f, 1, 0}};
    Weights const weights = weightsOf(QuadBodyOp, 4, wideBelow);
    EXPECT_GT(weights[0], 0.25);
    EXPECT_GT(weights[1], 0.25);
}

// Where each step rounds to float shows in the last bits: of an element whose weights differ when a step is made in the
// other precision.
TEST(BodyOperators, PlanarWeightsAreRoundedStepByStep) {
    Nodes const quad = {{1.1f, 0.2f, 0}, {3.3f, -0.4f, 0}, {2.9f, 1.7f, 0}, {0.7f, 1.3f, 0}};
    Nodes const tri = picked(quad, {1, 2, 3});
    EXPECT_EQ(weightsOf(QuadBodyOp, 4, quad), (Weights{0.218869731f, 0.271551728f, 0.281130284f, 0.228448257f}));
    EXPECT_EQ(weightsOf(QuadAxiBodyOp, 4, quad), (Weights{0.185011342f, 0.321700692f, 0.314988673f, 0.178299308f}));
    EXPECT_EQ(weightsOf(TriBodyOp, 3, tri), (Weights{0.333333313f, 0.333333343f, 0.333333343f}));
    EXPECT_EQ(weightsOf(TriAxiBodyOp, 3, tri), (Weights{0.287671208f, 0.363013625f, 0.349315047f}));
}

TEST(BodyOperators, ARingFarFromTheAxisIsAPlaneSection) {
    std::mt19937 random(5);
    Nodes const ring = distorted(4, random, 4096.0f, 1.0f);
    expectNear(weightsOf(QuadAxiBodyOp, 4, ring), weightsOf(QuadBodyOp, 4, ring), 1e-3);
}

TEST(BodyOperators, TrianglesShareEquallyInPlaneAndByRadiusAroundAnAxis) {
    std::mt19937 random(7);
    for (int i = 0; i < 200; ++i) {
        Nodes const nodes = picked(distorted(4, random, 4.0f, i % 2 == 0 ? 1.0f : -1.0f), {1, 2, 4});
        expectNear(weightsOf(TriBodyOp, 3, nodes), {1 / 3.0, 1 / 3.0, 1 / 3.0}, 2e-7);
        Weights expected;
        double sum = 0;
        for (Node const & node : nodes)
            sum += static_cast<double>(node.x);
        for (Node const & node : nodes)
            expected.push_back((sum + static_cast<double>(node.x)) / (4 * sum));
        expectNear(weightsOf(TriAxiBodyOp, 3, nodes), expected, 2e-6);
    }
}

// Tetrahedron and prism look at the hexahedron of the entries 0 to 7 that the caller passed, whatever stands there.
TEST(BodyOperators, TetrahedronAndPrismUseTheFirstEightEntriesAsTheyStand) {
    std::mt19937 random(11);
    for (int i = 0; i < 50; ++i) {
        Nodes padded = distorted(8, random, 0.5f, 1.0f);
        for (std::size_t shortage : {0u, 2u, 4u}) {
            Nodes given(padded.begin(), padded.end() - static_cast<std::ptrdiff_t>(shortage));
            for (std::size_t missing = given.size(); missing < 8; ++missing)
                padded[missing] = {0, 0, 0};
            Weights const hex = weightsOf(HexBodyOp, 8, padded);
            std::vector<float> const r(hex.begin(), hex.end());
            EXPECT_EQ(weightsOf(TetraBodyOp, 4, given), (Weights{r[6] + r[2], r[3] + r[0] + r[4] + r[7], r[1], r[5]}));
            EXPECT_EQ(weightsOf(PrismBodyOp, 6, given), (Weights{r[3] + r[0], r[1], r[2], r[7] + r[4], r[5], r[6]}));
        }
    }
    Nodes const tetra = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    EXPECT_GT(std::abs(weightsOf(TetraBodyOp, 4, tetra)[0] - 0.25), 0.01);
}

TEST(BodyOperators, CollapsedHexahedraGiveTetrahedronAndPrismTheirOwnShares) {
    std::mt19937 random(13);
    for (int i = 0; i < 50; ++i) {
        Nodes const corners = distorted(8, random, 0.5f, 1.0f);
        Nodes const tetra = picked(corners, {1, 2, 4, 5});
        expectNear(weightsOf(TetraBodyOp, 4, picked(tetra, {2, 3, 1, 2, 2, 4, 1, 2})), {0.25, 0.25, 0.25, 0.25}, 1e-6);

        Nodes const prism = picked(corners, {1, 2, 4, 5, 6, 8});
        Weights const shares = weightsOf(PrismBodyOp, 6, picked(prism, {1, 2, 3, 1, 4, 5, 6, 4}));
        // The same integrals with another corner of the triangle doubled.
        Weights const other = integrated(picked(prism, {1, 2, 3, 3, 4, 5, 6, 6}), uniform);
        expectNear(shares, {other[0], other[1], other[2] + other[3], other[4], other[5], other[6] + other[7]}, 1e-6);
    }
}

TEST(BodyOperators, AnElementWithoutVolumeHasNoFiniteWeight) {
    Nodes flat, line;
    for (std::size_t i = 0; i < 8; ++i) {
        float const x = static_cast<float>(sideG[i]) + 4, y = static_cast<float>(sideH[i]);
        flat.push_back({x, y, 3});
        line.push_back({x + y, x + y, 3});
    }
    auto const expectNone = [](shp_BodyOperator op, std::size_t count, Nodes const & nodes) {
        for (double weight : weightsOf(op, count, nodes))
            EXPECT_FALSE(std::isfinite(weight));
    };
    expectNone(HexBodyOp, 8, flat);
    expectNone(TetraBodyOp, 4, flat);
    expectNone(PrismBodyOp, 6, flat);
    expectNone(QuadBodyOp, 4, line);
    expectNone(QuadAxiBodyOp, 4, line);
    expectNone(TriBodyOp, 3, line);
    expectNone(TriAxiBodyOp, 3, line);
}

namespace {
int allocationsLeft;
bool refuseAfterSome(std::size_t) {
    return allocationsLeft-- <= 0;
}
} // namespace

TEST(BodyOperators, RefusedMemoryIsRaisedByTheTwoThatAllocate) {
    uti_CoordCont3D coords;
    coords.Grow(8);
    float weights[8];
    auto const raises = [&](shp_BodyOperator op, int granted) {
        allocationsLeft = granted;
        mem_SetFailureHook(refuseAfterSome);
        bool raised = false;
        try {
            op(coords, weights);
        } catch (mem_OutOfMemoryException const &) {
            raised = true;
        }
        mem_SetFailureHook(nullptr);
        return raised;
    };
    EXPECT_FALSE(raises(HexBodyOp, 0));
    EXPECT_TRUE(raises(TetraBodyOp, 0));
    EXPECT_FALSE(raises(TetraBodyOp, 1));
    EXPECT_TRUE(raises(PrismBodyOp, 0));
    EXPECT_TRUE(raises(PrismBodyOp, 1)); // the array that it leaves behind
    EXPECT_FALSE(raises(PrismBodyOp, 2));
}

TEST(BodyOperators, OnlyFirstOrderElementsHaveOne) {
    auto const chosen = [](int shape, int nodes, bool axisymmetric = false) {
        LongKey key;
        unsigned int const bits[] = {static_cast<unsigned int>(shape), shp_keyAxisymmetric};
        key.setBits(axisymmetric ? 2 : 1, bits);
        shp_Options options(key);
        options.SetNumNodes(nodes);
        return shp_InterpolationTables::getBodyOpPtr(options);
    };
    EXPECT_EQ(chosen(shp_keyHex, 8), HexBodyOp);
    EXPECT_EQ(chosen(shp_keyPrism, 6), PrismBodyOp);
    EXPECT_EQ(chosen(shp_keyTetra, 4), TetraBodyOp);
    EXPECT_EQ(chosen(shp_keyQuad, 4), QuadBodyOp);
    EXPECT_EQ(chosen(shp_keyQuad, 4, true), QuadAxiBodyOp);
    EXPECT_EQ(chosen(shp_keyTri, 3), TriBodyOp);
    EXPECT_EQ(chosen(shp_keyTri, 3, true), TriAxiBodyOp);
    for (auto const & [shape, nodes] :
         {std::pair{0, 8}, {1, 1}, {2, 2}, {3, 6}, {4, 8}, {5, 10}, {6, 20}, {7, 15}, {8, 1}, {9, 5}})
        EXPECT_EQ(chosen(shape, nodes), nullptr) << shape;
}
