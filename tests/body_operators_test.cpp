#include "catalogued_shapes.h"
#include "mem_Alloc.h"
#include "mem_OutOfMemoryException.h"
#include "shp_BodyOperators.h"
#include "shp_KeyBit.h"
#include "uti_CoordCont3D.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <utility>
#include <vector>

namespace {

using Nodes = std::vector<uti_Coord3D>;
using Weights = std::vector<float>;

Weights weightsOf(shp_BodyOperator op, std::size_t count, Nodes const & nodes) {
    uti_CoordCont3D coords;
    for (uti_Coord3D const & node : nodes)
        coords.SetCoord(coords.Length(), node);
    float const untouched = -77;
    Weights weights(count + 1, untouched);
    op(coords, weights.data());
    EXPECT_EQ(weights.back(), untouched);
    weights.pop_back();
    return weights;
}

constexpr double side[3][8] = {
    {-1, 1, 1, -1, -1, 1, 1, -1}, {-1, -1, 1, 1, -1, -1, 1, 1}, {-1, -1, -1, -1, 1, 1, 1, 1}};

struct Case {
    shp_BodyOperator op;
    std::size_t nodes;
    bool isAxisymmetric;
    float centre; ///< along x
    double tolerance;
    std::size_t nodeAt[8]; ///< each corner of the hexahedron; a planar element is a layer of it
};
constexpr Case cases[] = {
    {HexBodyOp, 8, false, 1000, 6e-8, {0, 1, 2, 3, 4, 5, 6, 7}},
    {QuadBodyOp, 4, false, 100, 5e-7, {0, 1, 2, 3, 0, 1, 2, 3}},
    {QuadAxiBodyOp, 4, true, 4, 2e-6, {0, 1, 2, 3, 0, 1, 2, 3}},
    {TriBodyOp, 3, false, 4, 2e-7, {0, 0, 1, 2, 0, 0, 1, 2}},
    {TriAxiBodyOp, 3, true, 4, 2e-6, {0, 0, 1, 2, 0, 0, 1, 2}},
};

/// The integrals of the trilinear functions of a hexahedron, added up by node and divided by their sum, by the Gauss
/// rule that is exact for them: one point towards each corner. Around an axis the volume is multiplied by x.
std::vector<double> integrated(Case const & each, Nodes const & nodes) {
    std::vector<double> integral(each.nodes);
    double total = 0;
    for (int point = 0; point < 8; ++point) {
        double value[8], x = 0, j[3][3] = {}, volume = 0;
        for (int i = 0; i < 8; ++i) {
            uti_Coord3D const & node = nodes[each.nodeAt[i]];
            float const at[3] = {node[0], node[1], each.nodes < 8 ? static_cast<float>(side[2][i]) : node[2]};
            double factor[3];
            for (int d = 0; d < 3; ++d)
                factor[d] = 1 + side[d][i] * side[d][point] / std::sqrt(3.0);
            value[i] = factor[0] * factor[1] * factor[2];
            x += value[i] * static_cast<double>(at[0]);
            for (int d = 0; d < 3; ++d)
                for (int c = 0; c < 3; ++c)
                    j[d][c] += side[d][i] * factor[(d + 1) % 3] * factor[(d + 2) % 3] * static_cast<double>(at[c]);
        }
        for (int a = 0; a < 3; ++a) {
            int const b = (a + 1) % 3, c = (a + 2) % 3;
            volume += j[0][a] * (j[1][b] * j[2][c] - j[1][c] * j[2][b]) * (each.isAxisymmetric ? x : 1);
        }
        for (int i = 0; i < 8; ++i) {
            integral[each.nodeAt[i]] += value[i] * volume;
            total += value[i] * volume;
        }
    }
    for (double & entry : integral)
        entry /= total;
    return integral;
}

/// A unit cube with corners moved by up to 0.3, stretched, at `centre` along x; negative `sizeX` inverts it.
Nodes distorted(std::mt19937 & random, float centre, float sizeX) {
    std::uniform_real_distribution<float> shift(-0.3f, 0.3f);
    auto const moved = [&](int axis, int i) { return static_cast<float>(side[axis][i]) + shift(random); };
    Nodes nodes;
    for (int i = 0; i < 8; ++i)
        nodes.emplace_back(centre + sizeX * moved(0, i), 2 * moved(1, i), 5 * moved(2, i));
    return nodes;
}

} // namespace

TEST(BodyOperators, AreTheIntegralsOfTheCornerFunctions) {
    std::mt19937 random(99);
    for (Case const & each : cases)
        for (int sample = 0; sample < 200; ++sample) {
            Nodes const nodes = distorted(random, each.centre, sample % 2 == 0 ? 1.5f : -1.5f);
            Weights const weights = weightsOf(each.op, each.nodes, nodes);
            std::vector<double> const expected = integrated(each, nodes);
            for (std::size_t i = 0; i < each.nodes; ++i)
                EXPECT_NEAR(static_cast<double>(weights[i]), expected[i], each.tolerance);
        }
}

// Where each step rounds to float shows in the last bits: of an element whose weights differ when a step is made in the
// other precision.
TEST(BodyOperators, PlanarWeightsAreRoundedStepByStep) {
    Nodes const quad = {{1.1f, 0.2f, 0}, {3.3f, -0.4f, 0}, {2.9f, 1.7f, 0}, {0.7f, 1.3f, 0}};
    EXPECT_EQ(weightsOf(QuadBodyOp, 4, quad), (Weights{0.218869731f, 0.271551728f, 0.281130284f, 0.228448257f}));
    EXPECT_EQ(weightsOf(QuadAxiBodyOp, 4, quad), (Weights{0.185011342f, 0.321700692f, 0.314988673f, 0.178299308f}));
    EXPECT_EQ(weightsOf(TriBodyOp, 3, quad), (Weights{0.333333313f, 0.333333343f, 0.333333343f}));
    EXPECT_EQ(weightsOf(TriAxiBodyOp, 3, quad), (Weights{0.287671208f, 0.363013625f, 0.349315047f}));
}

// Tetrahedron and prism look at the hexahedron of the entries 0 to 7 that the caller passed, whatever stands there.
TEST(BodyOperators, TetrahedronAndPrismUseTheFirstEightEntriesAsTheyStand) {
    std::mt19937 random(11);
    for (std::size_t given : {8u, 6u, 4u}) {
        Nodes nodes = distorted(random, 0.5f, 1);
        nodes.resize(given);
        Weights const r = weightsOf(HexBodyOp, 8, nodes);
        EXPECT_EQ(weightsOf(TetraBodyOp, 4, nodes), (Weights{r[6] + r[2], r[3] + r[0] + r[4] + r[7], r[1], r[5]}));
        EXPECT_EQ(weightsOf(PrismBodyOp, 6, nodes), (Weights{r[3] + r[0], r[1], r[2], r[7] + r[4], r[5], r[6]}));
    }
}

TEST(BodyOperators, AnElementWithoutVolumeHasNoFiniteWeight) {
    for (Case const & each : cases)
        for (float weight : weightsOf(each.op, each.nodes, Nodes(8, {4, 1, 3})))
            EXPECT_FALSE(std::isfinite(weight));
}

namespace {
int allocationsLeft;
} // namespace

TEST(BodyOperators, RefusedMemoryIsRaisedByTheTwoThatAllocate) {
    uti_CoordCont3D coords;
    coords.Grow(8);
    float weights[8];
    // A prism's second block is the array that it leaves behind.
    for (auto const & [op, blocks] : {std::pair{&HexBodyOp, 0}, {TetraBodyOp, 1}, {PrismBodyOp, 2}})
        for (int granted = 0; granted <= blocks; ++granted) {
            allocationsLeft = granted;
            mem_SetFailureHook([](std::size_t) { return allocationsLeft-- <= 0; });
            if (granted < blocks) {
                EXPECT_THROW(op(coords, weights), mem_OutOfMemoryException);
            } else {
                EXPECT_NO_THROW(op(coords, weights));
            }
            mem_SetFailureHook(nullptr);
        }
}

TEST(BodyOperators, OnlyFirstOrderElementsHaveOne) {
    forEachShape([](shp_Shape const & shape) {
        shp_Options const & options = shape.options;
        bool const isAxisymmetric = options.IsType(shp_keyAxisymmetric);
        shp_BodyOperator expected = nullptr;
        switch (100 * options.Shape() + options.NumNodes()) {
        case 100 * shp_keyTri + 3: expected = isAxisymmetric ? TriAxiBodyOp : TriBodyOp; break;
        case 100 * shp_keyQuad + 4: expected = isAxisymmetric ? QuadAxiBodyOp : QuadBodyOp; break;
        case 100 * shp_keyTetra + 4: expected = TetraBodyOp; break;
        case 100 * shp_keyHex + 8: expected = HexBodyOp; break;
        case 100 * shp_keyPrism + 6: expected = PrismBodyOp; break;
        }
        EXPECT_EQ(shape.bodyOp, expected);
    });
}
