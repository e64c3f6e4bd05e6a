// Points and lines in the demo's mesh: the element that holds a point, a line's path from element to element, and what
// is written of it.

#include "cut_picture.h"
#include "cut_report.h"

#include <shp_Shape.h>
#include <shp_ShapeDictionary.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <random>
#include <sstream>
#include <string>

#include <unistd.h>

namespace {

constexpr Cylinder cylinder;

/// One mesh of each family, with straight edges and with midside nodes.
struct Case {
    char const * label;
    bool isStraight; ///< elements with flat faces
};
constexpr Case cases[] = {{"C3D8", true},   {"C3D20R", false}, {"C3D27", false}, {"C3D4", true},
                          {"C3D10", false}, {"C3D6", true},    {"C3D15", false}, {"CPE3", true},
                          {"CPE6", false},  {"CPE4", true},    {"CPE8", false},  {"CAX4", true}};

struct MeshedCase {
    MeshedCase(char const * label, int cells)
        : shape(*omi_Singleton<shp_ShapeDictionary>::Instance().GetShape(label)),
          mesh(meshCylinder(cylinder, shape, cells)), search(shape, mesh) {}

    g3d_Storage at(int element, float const * iso) const {
        return shape.InterpolatePointFromNodes(elementCoords(mesh, element).data(), iso);
    }
    std::vector<Crossing> cut(Line const & line) const {
        return cutMesh(shape, mesh, BoxGrid(elementBoxes(mesh)), recoverStress(cylinder, shape, mesh), line);
    }

    shp_Shape const & shape;
    Mesh mesh;
    ElementSearch search;
};

double distance(g3d_Storage const & a, g3d_Storage const & b) {
    return Line{a, b}.length();
}

double lengthOf(std::vector<Crossing> const & path, Line const & line) {
    double sum = 0;
    for (Crossing const & crossing : path)
        sum += crossing.exit.parameter - crossing.entry.parameter;
    return sum * line.length();
}

/// How often the path leaves an element at a place where it does not enter the next one.
int gapsIn(std::vector<Crossing> const & path) {
    int gaps = 0;
    for (std::size_t i = 1; i < path.size(); ++i)
        gaps += distance(path[i].entry.point, path[i - 1].exit.point) > 2e-6;
    return gaps;
}

/// A place well inside an element: moving one a little farther out into the domain changes nothing.
std::array<float, 3> randomInside(shp_Topology const & shape, std::mt19937 & random) {
    std::uniform_real_distribution<float> coordinate(-0.95f, 0.95f);
    std::array<float, 3> iso{}, outer, moved;
    do {
        for (int d = 0; d < shape.NumGeometryDimensions(); ++d)
            iso[static_cast<std::size_t>(d)] = coordinate(random);
        outer = {iso[0] * 1.05f, iso[1] * 1.05f, iso[2] * 1.05f};
        moved = outer;
        moveIntoDomain(shape.options.Shape(), moved);
    } while (moved != outer);
    return iso;
}

} // namespace

// The neighbours' boxes of node locations hold the point too; of triangles and tetrahedra nearly all accept it.
TEST(Probe, FindsTheElementAndThePlaceThatAPointWasMadeFrom) {
    std::mt19937 random(1);
    for (Case const & one : cases) {
        SCOPED_TRACE(one.label);
        MeshedCase const c(one.label, 3);
        for (int element = 0; element < c.mesh.numElements(); ++element) {
            std::array<float, 3> const iso = randomInside(c.shape, random);
            std::optional<MeshPoint> const found = c.search.find(c.at(element, iso.data()));
            ASSERT_TRUE(found) << element;
            EXPECT_EQ(found->element, element);
            for (std::size_t d = 0; d < 3; ++d)
                EXPECT_NEAR(found->iso[d], iso[d], 2e-5) << element;
        }
    }
}

TEST(Probe, OnAFaceFindsAnElementThatHasTheFace) {
    for (Case const & one : cases) {
        SCOPED_TRACE(one.label);
        MeshedCase const c(one.label, 2);
        bool const isFlat = c.mesh.model != Model::solid;
        int const sides = isFlat ? c.shape.NumEdgesPerFace(0) : c.shape.NumFacesPerElem();
        for (int element = 0; element < c.mesh.numElements(); ++element)
            for (int side = 0; side < sides; ++side) {
                int corners[27];
                if (isFlat)
                    c.shape.EdgeConnectivity(c.mesh.element(element), 0, side, corners);
                else
                    c.shape.FaceConnectivity(c.mesh.element(element), side, corners);
                int const count = isFlat ? c.shape.NumNodesPerEdge(0, side) : c.shape.NumNodesPerFace(side);

                g3d_Storage const point = c.at(element, c.shape.faceCenterLocationTable + 3 * side);
                std::optional<MeshPoint> const found = c.search.find(point);
                ASSERT_TRUE(found) << element << ' ' << side;
                EXPECT_LT(distance(c.at(found->element, found->iso.data()), point), 2e-6);
                int const * const nodes = c.mesh.element(found->element);
                EXPECT_TRUE(std::all_of(corners, corners + count,
                                        [&](int corner) {
                                            return std::find(nodes, nodes + c.mesh.nodesPerElement, corner) !=
                                                   nodes + c.mesh.nodesPerElement;
                                        }))
                    << element << ' ' << side;
            }
    }
}

TEST(Probe, FindsNothingOutside) {
    for (Case const & one : cases) {
        SCOPED_TRACE(one.label);
        MeshedCase const c(one.label, 2);
        double const z = c.mesh.model == Model::solid ? 0.4 : 0;
        for (double radius : {0.9, 2.003, 50.0})
            for (double angle : {0.02, 0.3, 0.7, 1.2}) {
                bool const isAxial = c.mesh.model == Model::axisymmetric;
                EXPECT_FALSE(isAxial ? c.search.find({radius, angle / 2, z})
                                     : c.search.find({radius * std::cos(angle), radius * std::sin(angle), z}));
            }
        EXPECT_FALSE(c.search.find({1.5, 0.1, z - 0.41}));
        EXPECT_FALSE(c.search.find({1.5, -0.001, z}));
        EXPECT_FALSE(c.search.find({std::nan(""), 0.1, z}));
    }
    // Half-way along an arc, beyond the straight edge that stands for it: inside the element's box, and of its
    // coordinates.
    MeshedCase const triangles("CPE3", 2);
    double const chord = 2 * std::cos(std::numbers::pi / 8);
    auto const onArc = [](double radius) {
        return g3d_Storage(radius * std::cos(std::numbers::pi / 8), radius * std::sin(std::numbers::pi / 8), 0);
    };
    EXPECT_TRUE(triangles.search.find(onArc(chord - 1e-4)));
    EXPECT_FALSE(triangles.search.find(onArc(chord + 1e-4)));
}

TEST(Cut, RadialLineIsAsLongInTheElementsAsTheWallAndHasNoGap) {
    constexpr int cells = 6;
    constexpr double half = std::numbers::pi / 4 / cells;
    for (Case const & one : cases) {
        SCOPED_TRACE(one.label);
        MeshedCase const c(one.label, cells);
        if (c.mesh.model == Model::axisymmetric)
            continue;
        double const z = c.mesh.model == Model::solid ? 0.37 : 0;
        // Within a cell, near its side, and along the side that two cells share.
        for (double angle : {0.4 * half, 5.1 * half, 8.9 * half, 4 * half}) {
            Line const line{{0, 0, z}, {3 * std::cos(angle), 3 * std::sin(angle), z}};
            std::vector<Crossing> const path = c.cut(line);
            bool const isOnSide = angle == 4 * half;
            if (!isOnSide) {
                EXPECT_EQ(gapsIn(path), 0) << angle;
                double const offMiddle = std::remainder(angle - half, 2 * half);
                double const exact = one.isStraight ? std::cos(half) / std::cos(offMiddle) : 1;
                EXPECT_NEAR(lengthOf(path, line), exact, one.isStraight ? 1e-6 : 1 - std::cos(half)) << angle;
            }
            double covered = 0; // from the first entry on, elements side by side counted once
            for (Crossing const & crossing : path) {
                EXPECT_TRUE(covered == 0 || 3 * crossing.entry.parameter <= covered + 2e-6) << angle;
                covered = std::max(covered, 3 * crossing.exit.parameter);
            }
            EXPECT_NEAR(covered, 2, 0.02);
        }
    }
}

TEST(Cut, FanFollowsTheWallAndLeavesItForTheBoreOnly) {
    for (Case const & one : cases) {
        SCOPED_TRACE(one.label);
        MeshedCase const c(one.label, 8);
        Fan const fan = fanThrough(cylinder, c.mesh.model);
        bool const isAxial = c.mesh.model == Model::axisymmetric;
        for (std::size_t i = 0; i < fan.directions.size(); ++i) {
            std::vector<Crossing> const path = c.cut(fan.line(i));
            EXPECT_NEAR(lengthOf(path, fan.line(i)), lengthInWall(cylinder, c.mesh.model, fan.line(i)),
                        isAxial          ? 1e-6
                        : one.isStraight ? 0.04
                                         : 0.01);
            EXPECT_EQ(gapsIn(path), !isAxial && i == 2 ? 1 : 0) << i;
            for (Crossing const & crossing : path)
                for (Hit const & hit : {crossing.entry, crossing.exit})
                    EXPECT_LT(distance(hit.point, fan.line(i).at(hit.parameter)), 2e-6);
        }
    }
    // By hand: through the wall at y = 0.6 from x = 0.8 to 1.9079; a triangle of a line in the axial section.
    double const straight = lengthInWall(cylinder, Model::plane, {{-1, 0.6, 0}, {3, 0.6, 0}});
    EXPECT_NEAR(straight, std::sqrt(4 - 0.36) - 0.8, 1e-12);
    EXPECT_NEAR(lengthInWall(cylinder, Model::axisymmetric, {{0, 0, 0}, {2, 2, 0}}), 0, 1e-12);
    EXPECT_NEAR(lengthInWall(cylinder, Model::axisymmetric, {{0.5, 0, 0}, {2.5, 2, 0}}), std::sqrt(0.5), 1e-12);
}

// A hit's place comes from the surface's triangles, a probe's from the shape functions; in simplices they are one.
TEST(Cut, StressAtAHitIsThatOfAProbeThere) {
    for (char const * label : {"C3D4", "CPE3"}) {
        SCOPED_TRACE(label);
        MeshedCase const c(label, 4);
        NodalStress const stress = recoverStress(cylinder, c.shape, c.mesh);
        Fan const fan = fanThrough(cylinder, c.mesh.model);
        for (Crossing const & crossing : c.cut(fan.line(5))) {
            std::optional<MeshPoint> const found = c.search.find(crossing.exit.point);
            ASSERT_TRUE(found);
            Stress const exact = exactStress(cylinder, c.mesh.model, crossing.exit.point.X(), crossing.exit.point.Y());
            Stress const probed = interpolateStress(c.shape, c.mesh, stress, found->element, found->iso.data());
            for (std::size_t k = 0; k < probed.size(); ++k) {
                EXPECT_NEAR(probed[k], crossing.exit.stress[k], 0.01);
                EXPECT_NEAR(probed[k], exact[k], 0.1 * cylinder.pressure);
            }
        }
    }
}

TEST(Cut, FilesHoldEveryCrossing) {
    MeshedCase const c("C3D6", 3);
    Fan const fan = fanThrough(cylinder, c.mesh.model);
    std::vector<std::vector<Crossing>> paths;
    std::size_t crossings = 0;
    for (std::size_t i = 0; i < fan.directions.size(); ++i) {
        paths.push_back(c.cut(fan.line(i)));
        crossings += paths.back().size();
    }
    std::string const path = testing::TempDir() + "probe_test_" + std::to_string(getpid());
    auto const contents = [&] {
        std::stringstream text;
        text << std::ifstream(path).rdbuf();
        std::remove(path.c_str());
        return text;
    };

    writeCsv(path.c_str(), fan, paths);
    std::stringstream table = contents();
    std::string line;
    std::getline(table, line);
    auto const columns = std::count(line.begin(), line.end(), ',');
    for (std::size_t i = 0; i < paths.size(); ++i)
        for (Crossing const & crossing : paths[i]) {
            ASSERT_TRUE(std::getline(table, line));
            EXPECT_EQ(std::count(line.begin(), line.end(), ','), columns);
            std::size_t number;
            int element;
            double direction, entry, x;
            ASSERT_EQ(std::sscanf(line.c_str(), "%zu,%lf,%d,%lf,%lf", &number, &direction, &element, &entry, &x), 5);
            EXPECT_EQ(number, i + 1);
            EXPECT_EQ(element, crossing.element);
            EXPECT_NEAR(x, fan.line(i).at(entry).X(), 1e-6);
        }
    EXPECT_FALSE(std::getline(table, line));

    writePicture(path.c_str(), "a title", cylinder, c.shape, c.mesh, fan, paths);
    std::string const picture = contents().str();
    std::size_t dots = 0;
    for (std::size_t at = 0; (at = picture.find("<circle", at)) != std::string::npos; ++at)
        ++dots;
    EXPECT_EQ(dots, 4 * crossings + 1); // each end of a crossing in both charts, and the apex
    EXPECT_EQ(picture.find("nan"), std::string::npos);
    EXPECT_EQ(picture.find("inf"), std::string::npos);
    EXPECT_TRUE(picture.ends_with("</svg>\n"));
    EXPECT_THROW(writeCsv("no such folder/file", fan, paths), std::runtime_error);
}

TEST(BoxGrid, FindsTheBoxesThatASearchOfAllFinds) {
    std::mt19937 random(2);
    std::uniform_int_distribution<int> eighth(0, 80); // so that points fall on the boxes' bounds and the cells' too
    auto const coordinate = [&] { return eighth(random) / 8.0; };
    std::vector<Box> boxes;
    for (int i = 0; i < 300; ++i) {
        Box box{{coordinate(), coordinate(), 1}, {}};
        box.high = {box.low[0] + coordinate() / 8, box.low[1] + coordinate() / 8, 1};
        boxes.push_back(box);
    }
    BoxGrid const grid(boxes);
    for (int i = 0; i < 1000; ++i) {
        g3d_Storage const start(coordinate(), coordinate(), 1);
        g3d_Storage const end(coordinate(), coordinate(), i % 2);
        std::vector<int> const found = grid.at(start);
        std::vector<int> const met = grid.along(start, end);
        for (int b = 0; b < static_cast<int>(boxes.size()); ++b) {
            bool const holds = boxes[static_cast<std::size_t>(b)].holds(start);
            EXPECT_EQ(std::count(found.begin(), found.end(), b), holds);
            bool isPassed = false;
            for (int step = 0; step <= 64; ++step)
                isPassed |= boxes[static_cast<std::size_t>(b)].holds(Line{start, end}.at(step / 64.0));
            EXPECT_TRUE(!isPassed || std::count(met.begin(), met.end(), b) == 1);
        }
    }
    EXPECT_TRUE(BoxGrid({}).at({0, 0, 0}).empty());
    EXPECT_FALSE((Box{{0, 0, 0}, {1, 1, 1}}).meets({-1, 0.9, 0.5}, {0.2, 2.4, 0.5})); // past a corner
}
