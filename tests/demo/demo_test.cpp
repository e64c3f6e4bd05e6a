// The demo over every label of the catalogue: what it refuses, and that what it meshes is a mesh of the cylinder whose
// file any reader of unstructured grids understands.

#include "../catalogued_shapes.h"
#include "element_choice.h"
#include "vtu_writer.h"

#include <g3d_XForm.h>
#include <shp_KeyBit.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <numbers>
#include <set>
#include <sstream>
#include <string>
#include <tuple>

#include <unistd.h>

namespace {

/// Calls `visit(shape)` for one label of each different way through the demo.
template <class Visit> void forEachMeshed(Visit visit) {
    std::set<std::tuple<int, int, int, float const *, float const *, Model>> ways;
    forEachShape([&](shp_Shape const & shape) {
        if (reasonAgainst(shape).empty() &&
            ways.emplace(shape.options.Shape(), shape.BaseNodesPerElem(), shape.BaseIntPtsPerElem(),
                         shape.intPtLocationTable, shape.nodeWeights, modelOf(shape))
                .second)
            visit(shape);
    });
}

bool hasAny(shp_Topology const & shape, std::initializer_list<int> bits) {
    return std::any_of(bits.begin(), bits.end(), [&](int bit) { return shape.options.IsType(bit); });
}

/// What the node weights carry without error: 2 linear fields, 1 constant ones, 0 neither.
int promisedOrder(shp_Topology const & shape) {
    int order = 2;
    for (int node = 0; node < shape.BaseNodesPerElem(); ++node) {
        double unity = 0, iso[3] = {};
        for (int point = 0; point < shape.BaseIntPtsPerElem(); ++point) {
            double const weight = shape.nodeWeights[node * shape.BaseIntPtsPerElem() + point];
            unity += weight;
            for (int d = 0; d < 3; ++d)
                iso[d] += weight * shape.intPtLocationTable[3 * point + d];
        }
        if (std::abs(unity - 1) > 2e-3)
            return 0;
        for (int d = 0; d < 3; ++d)
            if (std::abs(iso[d] - shape.nodeLocationTable[3 * node + d]) > 2e-3)
                order = 1;
    }
    return order;
}

/// The numbers that a reader of the file finds under a name.
std::vector<double> arrayOf(std::string const & file, std::string const & name) {
    std::istringstream numbers(file.substr(file.find('>', file.find(" Name=\"" + name + '"')) + 1));
    return {std::istream_iterator<double>(numbers), {}};
}

using Nodes = std::vector<std::size_t>;

std::vector<Nodes> nodesIn(char const * text) {
    std::vector<Nodes> lists;
    std::istringstream words(text);
    for (std::string word; words >> word;)
        for (lists.emplace_back(); char const digit : word)
            lists.back().push_back(static_cast<std::size_t>(digit - '0'));
    return lists;
}

/// What the file format says of a family of cells, all of which have the leading nodes. Each word names corners.
struct CellRule {
    std::map<double, std::size_t> nodes; ///< of each type number; the first has the corners alone
    char const * laterNodes;             ///< for each node behind the corners, the corners between which it lies
    char const * simplices;              ///< triangles or tetrahedra of corners that fill the cell, all turning one way
};

// clang-format off
CellRule const cellRules[] = {
    {{{5, 3}, {22, 6}}, "01 12 20", "012"},
    {{{9, 4}, {23, 8}, {28, 9}}, "01 12 23 30 0123", "012 023"},
    {{{10, 4}, {24, 10}}, "01 12 20 03 13 23", "0123"},
    {{{12, 8}, {25, 20}, {29, 27}}, "01 12 23 30 45 56 67 74 04 15 26 37 0473 1265 0154 3762 0321 4567 01234567",
     "0126 0236 0376 0746 0456 0516"},
    {{{13, 6}, {26, 15}, {32, 18}}, "01 12 20 34 45 53 03 14 25 0143 1254 2035", "0125 0154 0453"}};
// clang-format on

std::string writtenFile(Cylinder const & cylinder, shp_Shape const & shape, int cells) {
    // One name per process: tests run side by side.
    std::string const path = testing::TempDir() + "demo_test_" + std::to_string(getpid()) + ".vtu";
    Mesh const mesh = meshCylinder(cylinder, shape, cells);
    writeVtu(path.c_str(), mesh, vtuCellOf(shape), recoverStress(cylinder, shape, mesh));
    std::ifstream file(path);
    std::remove(path.c_str());
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

TEST(Demo, MeshesEverySolidTetrahedronHexahedronAndPrismWithResults) {
    forEachShape([](shp_Shape const & shape) {
        bool const isSolid = hasAny(shape, {shp_keyTetra, shp_keyHex, shp_keyPrism}) &&
                             !hasAny(shape, {shp_key2D, shp_keyNoResults, shp_keyGasket, shp_keyInfinite,
                                             shp_keyCylindrical, shp_keyCohesive, shp_keyLayeredSolid});
        EXPECT_TRUE(isSolid == reasonAgainst(shape).empty() || shape.NumSpatialDimensions() == 2);
    });
    for (char const * label : {"CAX8R", "CAX4", "CPE8"})
        EXPECT_EQ(reasonAgainst(shapeOf(label)), "") << label;
    for (char const * label : {"ARSR", "MASS", "B31", "S4R", "CINPE4", "CAXA41", "PSI24", "C3D5", "COH2D4"})
        EXPECT_NE(reasonAgainst(shapeOf(label)), "") << label;
}

// Elements whose weights carry a linear field exactly give nodal stresses of second order at least; those that carry a
// constant one, of first order; AC3D6, whose weights carry not even that, of none.
TEST(Demo, ErrorsFallAsFastAsTheWeightsPromise) {
    Cylinder const cylinder;
    auto const recovered = [&](shp_Shape const & shape, int cells) {
        return recoverStress(cylinder, shape, meshCylinder(cylinder, shape, cells));
    };
    forEachMeshed([&](shp_Shape const & shape) {
        NodalStress const fine = recovered(shape, 6);
        double const order = std::log2(recovered(shape, 3).rmsError / fine.rmsError);
        int const promised = promisedOrder(shape);
        EXPECT_EQ(promised == 0, &shape == &shapeOf("AC3D6"));
        if (promised == 0) {
            EXPECT_LT(order, 0.5);
        } else if (fine.largestError > 1e-6 * cylinder.pressure) {
            EXPECT_GT(order, promised - 0.2);
        }
    });
    EXPECT_LT(recovered(shapeOf("DC3D8"), 2).largestError, 1e-6 * cylinder.pressure); // its points are at the nodes
}

TEST(Demo, FileHasPositiveCellsThatFillTheCylinderAndEachLaterNodeBetweenItsCorners) {
    Cylinder const shallow{.outerRadius = 1.5};
    constexpr int cells = 4; // a node leaves its chord by far less than the distance of two nodes, about 0.06
    // The corners span the prism over the chords of the quarter circles, or the whole axial section.
    double const overChords = cells * std::sin(std::numbers::pi / (2 * cells)) / 2 * (1.5 * 1.5 - 1);
    forEachMeshed([&](shp_Shape const & shape) {
        std::string const file = writtenFile(shallow, shape, cells);
        std::vector<double> const types = arrayOf(file, "types"), connectivity = arrayOf(file, "connectivity"),
                                  offsets = arrayOf(file, "offsets"), position = arrayOf(file, "position");
        auto const rule = std::find_if(std::begin(cellRules), std::end(cellRules),
                                       [&](CellRule const & r) { return r.nodes.contains(types.at(0)); });
        ASSERT_NE(rule, std::end(cellRules));
        std::size_t const nodes = rule->nodes.at(types[0]), corners = rule->nodes.begin()->second;
        ASSERT_EQ(connectivity.size(), types.size() * nodes);
        auto const coord = [&](std::size_t cell, std::size_t node, int d) {
            return static_cast<float>(position.at(static_cast<std::size_t>(3 * connectivity[cell * nodes + node] + d)));
        };
        double total = 0;
        for (std::size_t cell = 0; cell < types.size(); ++cell)
            for (Nodes const & simplex : nodesIn(rule->simplices)) {
                g3d_XForm edges; // a triangle keeps the identity's third row, the axis
                for (std::size_t i = 1; i < simplex.size(); ++i)
                    for (int d = 0; d < 3; ++d)
                        edges.M(static_cast<int>(i) - 1, d) = coord(cell, simplex[i], d) - coord(cell, simplex[0], d);
                double const part = edges.Determinant() / (simplex.size() == 3 ? 2 : 6);
                EXPECT_GT(part, 0);
                total += part;
            }
        EXPECT_NEAR(total, shape.isAxiSymmetric ? 0.5 : overChords, 1e-5);

        std::vector<Nodes> const laterNodes = nodesIn(rule->laterNodes);
        for (std::size_t node = corners; node < nodes; ++node)
            for (int d = 0; d < 3; ++d) {
                float middle = 0;
                for (std::size_t const corner : laterNodes[node - corners])
                    middle += coord(0, corner, d) / static_cast<float>(laterNodes[node - corners].size());
                EXPECT_NEAR(coord(0, node, d), middle, 0.03) << "node " << node;
            }
        EXPECT_EQ(offsets.back(), static_cast<double>(connectivity.size()));
        EXPECT_EQ(arrayOf(file, "stress").size(), 2 * position.size());
        EXPECT_EQ(arrayOf(file, "stress_error").size(), 2 * position.size());
    });
}
