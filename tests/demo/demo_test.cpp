// The demo over every label of the catalogue: what it refuses, and that what it meshes is a mesh of the cylinder whose
// file any reader of unstructured grids understands.

#include "element_choice.h"
#include "vtu_writer.h"

#include <omi_BtreeIterator.h>
#include <shp_KeyBit.h>
#include <shp_Shape.h>
#include <shp_ShapeDictionary.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <numbers>
#include <sstream>
#include <string>

#include <unistd.h>

namespace {

shp_ShapeDictionary & dictionary() {
    return omi_Singleton<shp_ShapeDictionary>::Instance();
}

template <class Visit> void forEachLabel(Visit visit) {
    omi_BtreeIterator<cow_String, void *> it(dictionary().Keys());
    for (bool isLabel = it.First(); isLabel; isLabel = it.Next())
        visit(std::string(it.CurrentKey().CStr()), *dictionary().GetShape(it.CurrentKey()));
}

/// One label for each different way through the demo.
std::map<std::string, shp_Shape const *> const & meshedLabels() {
    static std::map<std::string, shp_Shape const *> const labels = [] {
        std::map<std::string, shp_Shape const *> byWay;
        std::map<std::string, shp_Shape const *> result;
        forEachLabel([&](std::string const & label, shp_Shape const & shape) {
            if (!reasonAgainst(shape).empty())
                return;
            std::ostringstream way;
            way << shape.options.Shape() << ' ' << shape.BaseNodesPerElem() << ' ' << shape.BaseIntPtsPerElem() << ' '
                << shape.intPtLocationTable << ' ' << shape.nodeWeights << ' ' << static_cast<int>(modelOf(shape));
            if (byWay.emplace(way.str(), &shape).second)
                result.emplace(label, &shape);
        });
        return result;
    }();
    return labels;
}

bool hasAny(shp_Topology const & shape, std::initializer_list<int> bits) {
    return std::any_of(bits.begin(), bits.end(), [&](int bit) { return shape.options.IsType(bit); });
}

/// What the node weights carry without error: 2 linear fields, 1 constant ones, 0 neither.
int promisedOrder(shp_Topology const & shape) {
    auto const carries = [&](auto field) {
        for (int node = 0; node < shape.BaseNodesPerElem(); ++node) {
            double sum = 0;
            for (int point = 0; point < shape.BaseIntPtsPerElem(); ++point)
                sum += static_cast<double>(shape.nodeWeights[node * shape.BaseIntPtsPerElem() + point]) *
                       field(shape.intPtLocationTable + 3 * point);
            if (std::abs(sum - field(shape.nodeLocationTable + 3 * node)) > 2e-3)
                return false;
        }
        return true;
    };
    if (!carries([](float const *) { return 1.0; }))
        return 0;
    bool const isLinear = carries([](float const * iso) { return static_cast<double>(iso[0]); }) &&
                          carries([](float const * iso) { return static_cast<double>(iso[1]); }) &&
                          carries([](float const * iso) { return static_cast<double>(iso[2]); });
    return isLinear ? 2 : 1;
}

using Point = std::array<double, 3>;

Point operator-(Point const & a, Point const & b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

double tripleProduct(Point const & a, Point const & b, Point const & c) {
    return a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) + a[2] * (b[0] * c[1] - b[1] * c[0]);
}

/// What a reader of the file gets.
struct Grid {
    std::map<std::string, std::vector<double>> arrays;
    int type() const { return static_cast<int>(arrays.at("types").front()); }
    std::size_t numCells() const { return arrays.at("types").size(); }
    std::size_t nodesPerCell() const { return arrays.at("connectivity").size() / numCells(); }
    Point node(std::size_t cell, std::size_t i) const {
        auto const n = static_cast<std::size_t>(arrays.at("connectivity")[cell * nodesPerCell() + i]);
        std::vector<double> const & p = arrays.at("position");
        return {p[3 * n], p[3 * n + 1], p[3 * n + 2]};
    }
};

Grid readGrid(char const * path) {
    Grid grid;
    std::ifstream file(path);
    std::vector<double> * array = nullptr;
    for (std::string line; std::getline(file, line);) {
        if (auto const name = line.find(" Name=\""); name != std::string::npos)
            array = &grid.arrays[line.substr(name + 7, line.find('"', name + 7) - name - 7)];
        else if (line.find('<') != std::string::npos)
            array = nullptr;
        else if (array) {
            std::istringstream numbers(line);
            for (double number; numbers >> number;)
                array->push_back(number);
        }
    }
    return grid;
}

using Nodes = std::vector<std::size_t>;

/// What the file format says of a cell type.
struct CellRule {
    std::vector<Nodes> laterNodes; ///< for each node behind the corners, the corners between which it lies
    std::vector<Nodes> simplices;  ///< triangles or tetrahedra of corners that fill the cell, all turning one way
};

/// The rules by the number of the cell type.
std::map<int, CellRule> cellRules() {
    std::vector<Nodes> const triangle = {{0, 1}, {1, 2}, {2, 0}};
    std::vector<Nodes> const quad = {{0, 1}, {1, 2}, {2, 3}, {3, 0}};
    std::vector<Nodes> const tetra = {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}};
    std::vector<Nodes> const hex = {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6},
                                    {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};
    std::vector<Nodes> const wedge = {{0, 1}, {1, 2}, {2, 0}, {3, 4}, {4, 5}, {5, 3}, {0, 3}, {1, 4}, {2, 5}};
    auto const with = [](std::vector<Nodes> midsides, std::vector<Nodes> const & centres) {
        midsides.insert(midsides.end(), centres.begin(), centres.end());
        return midsides;
    };
    std::vector<Nodes> const fullQuad = with(quad, {{0, 1, 2, 3}});
    std::vector<Nodes> const fullHex = with(
        hex,
        {{0, 4, 7, 3}, {1, 2, 6, 5}, {0, 1, 5, 4}, {3, 7, 6, 2}, {0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 2, 3, 4, 5, 6, 7}});
    std::vector<Nodes> const fullWedge = with(wedge, {{0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}});

    std::vector<Nodes> const wholeTriangle = {{0, 1, 2}};
    std::vector<Nodes> const quadParts = {{0, 1, 2}, {0, 2, 3}};
    std::vector<Nodes> const wholeTetra = {{0, 1, 2, 3}};
    std::vector<Nodes> const hexParts = {{0, 1, 2, 6}, {0, 2, 3, 6}, {0, 3, 7, 6},
                                         {0, 7, 4, 6}, {0, 4, 5, 6}, {0, 5, 1, 6}};
    std::vector<Nodes> const wedgeParts = {{0, 1, 2, 5}, {0, 1, 5, 4}, {0, 4, 5, 3}};
    return {{5, {{}, wholeTriangle}},     {22, {triangle, wholeTriangle}},
            {9, {{}, quadParts}},         {23, {quad, quadParts}},
            {28, {fullQuad, quadParts}},  {10, {{}, wholeTetra}},
            {24, {tetra, wholeTetra}},    {12, {{}, hexParts}},
            {25, {hex, hexParts}},        {29, {fullHex, hexParts}},
            {13, {{}, wedgeParts}},       {26, {wedge, wedgeParts}},
            {32, {fullWedge, wedgeParts}}};
}

Grid writtenGrid(Cylinder const & cylinder, shp_Shape const & shape, int cells) {
    // One name per process: tests run side by side.
    std::string const path = testing::TempDir() + "demo_test_" + std::to_string(getpid()) + ".vtu";
    Mesh const mesh = meshCylinder(cylinder, shape, cells);
    writeVtu(path.c_str(), mesh, vtuCellOf(shape), recoverStress(cylinder, shape, mesh));
    Grid grid = readGrid(path.c_str());
    std::remove(path.c_str());
    return grid;
}

/// Area or volume of a triangle or tetrahedron, negative if it is turned over.
double measure(Grid const & grid, std::size_t cell, Nodes const & simplex) {
    Point const origin = grid.node(cell, simplex[0]);
    Point const a = grid.node(cell, simplex[1]) - origin;
    Point const b = grid.node(cell, simplex[2]) - origin;
    return simplex.size() == 3 ? tripleProduct(a, b, {0, 0, 1}) / 2
                               : tripleProduct(a, b, grid.node(cell, simplex[3]) - origin) / 6;
}

} // namespace

TEST(Demo, MeshesEverySolidTetrahedronHexahedronAndPrismWithResults) {
    forEachLabel([](std::string const & label, shp_Shape const & shape) {
        bool const isSolid = hasAny(shape, {shp_keyTetra, shp_keyHex, shp_keyPrism}) &&
                             !hasAny(shape, {shp_key2D, shp_keyNoResults, shp_keyGasket, shp_keyInfinite,
                                             shp_keyCylindrical, shp_keyCohesive, shp_keyLayeredSolid});
        EXPECT_TRUE(isSolid == reasonAgainst(shape).empty() || shape.NumSpatialDimensions() == 2) << label;
    });
    for (char const * label : {"CAX8R", "CAX4", "CPE8"})
        EXPECT_EQ(reasonAgainst(*dictionary().GetShape(label)), "") << label;
    for (char const * label : {"ARSR", "MASS", "B31", "S4R", "CINPE4", "CAXA41", "PSI24", "C3D5", "COH2D4"})
        EXPECT_NE(reasonAgainst(*dictionary().GetShape(label)), "") << label;
}

// Elements whose weights carry a linear field exactly give nodal stresses of second order at least; those that carry a
// constant one, of first order; AC3D6, whose weights carry not even that, of none.
TEST(Demo, ErrorsFallAsFastAsTheWeightsPromise) {
    Cylinder const cylinder;
    for (auto const & [label, shape] : meshedLabels()) {
        NodalStress const coarse = recoverStress(cylinder, *shape, meshCylinder(cylinder, *shape, 3));
        NodalStress const fine = recoverStress(cylinder, *shape, meshCylinder(cylinder, *shape, 6));
        int const promised = promisedOrder(*shape);
        double const order = std::log2(coarse.rmsError / fine.rmsError);
        EXPECT_EQ(promised == 0, label == "AC3D6") << label;
        if (promised == 0) {
            EXPECT_LT(order, 0.5) << label;
        } else if (fine.largestError > 1e-6 * cylinder.pressure) {
            EXPECT_GT(order, promised - 0.2) << label;
        }
    }
    double const pointsAtNodes = recoverStress(cylinder, *dictionary().GetShape("DC3D8"),
                                               meshCylinder(cylinder, *dictionary().GetShape("DC3D8"), 2))
                                     .largestError;
    EXPECT_LT(pointsAtNodes, 1e-6 * cylinder.pressure);
}

TEST(Demo, FileHasPositiveCellsThatFillTheCylinder) {
    std::map<int, CellRule> const rules = cellRules();
    Cylinder const cylinder;
    constexpr int cells = 2;
    // The corners span the prism over the chords of the quarter circles, or the whole axial section.
    double const overChords = cells * std::sin(std::numbers::pi / (2 * cells)) / 2 * (2 * 2 - 1 * 1);
    for (auto const & [label, shape] : meshedLabels()) {
        SCOPED_TRACE(label);
        Grid const grid = writtenGrid(cylinder, *shape, cells);
        double total = 0;
        for (std::size_t cell = 0; cell < grid.numCells(); ++cell)
            for (Nodes const & simplex : rules.at(grid.type()).simplices) {
                double const part = measure(grid, cell, simplex);
                EXPECT_GT(part, 0);
                total += part;
            }
        EXPECT_NEAR(total, shape->isAxiSymmetric ? 1 : overChords, 1e-5);
    }
}

TEST(Demo, FileHasEachLaterNodeBetweenItsCorners) {
    std::map<int, CellRule> const rules = cellRules();
    Cylinder const shallow{.innerRadius = 1, .outerRadius = 1.5, .height = 0.5};
    constexpr int cells = 4; // a node leaves its chord by far less than the distance of two nodes, about 0.06
    for (auto const & [label, shape] : meshedLabels()) {
        SCOPED_TRACE(label);
        Grid const grid = writtenGrid(shallow, *shape, cells);
        std::vector<Nodes> const & laterNodes = rules.at(grid.type()).laterNodes;
        std::size_t const corners = grid.nodesPerCell() - laterNodes.size();
        for (std::size_t i = 0; i < laterNodes.size(); ++i) {
            Point middle = {0, 0, 0};
            for (std::size_t corner : laterNodes[i])
                for (std::size_t d = 0; d < 3; ++d)
                    middle[d] += grid.node(0, corner)[d] / static_cast<double>(laterNodes[i].size());
            for (std::size_t d = 0; d < 3; ++d)
                EXPECT_NEAR(grid.node(0, corners + i)[d], middle[d], 0.03) << "node " << corners + i;
        }
        std::size_t const nodes = grid.arrays.at("position").size() / 3;
        EXPECT_EQ(grid.arrays.at("stress").size(), 6 * nodes);
        EXPECT_EQ(grid.arrays.at("stress_error").size(), 6 * nodes);
        EXPECT_EQ(grid.arrays.at("offsets").back(), static_cast<double>(grid.arrays.at("connectivity").size()));
    }
}
