// Normals and centroids of faces, held against the plane in which the face's nodes lie and the side on which the
// element is.

#include "catalogued_shapes.h"
#include "g3d_Point.h"
#include "table_laws.h"
#include "uti_CoordCont3D.h"

#include <numeric>

namespace {

uti_CoordCont3D containerOf(std::vector<Place> const & places) {
    uti_CoordCont3D coords;
    for (Place const & p : places)
        coords.SetCoord(coords.Length(), static_cast<float>(p[0]), static_cast<float>(p[1]), static_cast<float>(p[2]));
    return coords;
}

std::vector<int> distinctLabels() {
    std::vector<int> labels(100);
    std::iota(labels.begin(), labels.end(), 1);
    return labels;
}

/// Skews an element so that no face is normal to an axis; `side` is -1 for its mirror image.
Place skewed(shp_Topology const & shape, Place const & iso, double side) {
    auto const [g, h, r] = iso;
    double const z = shape.NumSpatialDimensions() == 2 ? 0 : 0.25 * g - 0.5 * h + r + 7;
    return {side * (2 * g + 0.3 * h + 0.2 * r + 5), 0.2 * g + 1.5 * h - 0.1 * r - 3, z};
}

enum Law {
    normalOfFace = 1,   ///< a face has its outward normal
    normalAtNodes = 2,  ///< each node of a face has the same normal, if it has any
    triangleAtNode = 4, ///< each node of a face is in one of its triangles
    centroid = 8,       ///< a face's centroid is the middle of its corners, in a plane each edge's of its ends
    normalOfBent = 16,  ///< a bent face has the normal at its centre of the shell with as many nodes
};

bool hasNormalOfShell(shp_Topology const & shape, int face) {
    int const count = shape.BaseNodesPerFace(face);
    constexpr char const * shells[] = {"S3", "S4", "", "STRI65", "", "S8R", "S9R5"};
    if (count == 5 || count == 7 || (count == 6 && shape.NumEdgesPerFace(face) == 4))
        return true; // there is none
    std::vector<Place> nodes;
    std::vector<g3d_Storage> coords;
    for (int i = 0; i < count; ++i) {
        auto const [x, y, z] = skewed(shape, row(shape.nodeLocationTable, shape.FaceNodeIndex(face, i)), 1);
        nodes.push_back({x + 0.1 * y * z, y + 0.2 * z * x, z + 0.3 * x * y});
        coords.emplace_back(nodes.back()[0], nodes.back()[1], nodes.back()[2]);
    }
    shp_Shape const & shell = shapeOf(shells[count - 3]);
    float normal[3], centre[] = {shell.centerLocation[0], shell.centerLocation[1], 0};
    shape.ComputeFaceNormal(distinctLabels().data(), face, containerOf(nodes), normal);
    g3d_XForm const j = shell.ShapeFunctionJacobian(coords.data(), centre);
    for (int column : {0, 1}) {
        Place const tangent = {j.GetM(0, column), j.GetM(1, column), j.GetM(2, column)};
        if (std::abs(dot(row(normal, 0), tangent)) > 1e-5 * std::sqrt(dot(tangent, tangent)))
            return false;
    }
    return true;
}

int brokenLaws(shp_Topology const & shape, int face, double side) {
    auto const at = [&](int node) {
        return skewed(shape, row(shape.nodeLocationTable, node % shape.BaseNodesPerElem()), side);
    };
    std::vector<Place> nodes, corners;
    for (int i = 0; i < shape.NumNodesPerFace(face); ++i)
        nodes.push_back(at(shape.FaceNodeIndex(face, i)));
    Place const outwards = minus(mean(nodes), skewed(shape, mean(nodesOf(shape)), side));

    // Unit length, at right angles to the face, and to the right side: outwards of a solid, from g to h of a plane
    // element.
    float normal[3];
    auto const isNormal = [&] {
        Place const n = row(normal, 0);
        bool const isFlat = std::all_of(nodes.begin(), nodes.end(), [&](Place const & node) {
            return std::abs(dot(n, minus(node, nodes[0]))) < 1e-5;
        });
        double const way = shape.NumGeometryDimensions() == 2 ? n[2] : dot(n, outwards);
        return isFlat && std::abs(dot(n, n) - 1) < 1e-5 && side * way > 0;
    };
    std::vector<int> const labels = distinctLabels();
    uti_CoordCont3D const coords = containerOf(nodes);
    int broken = shape.ComputeFaceNormal(labels.data(), face, coords, normal) == 0 && isNormal() ? 0 : normalOfFace;
    for (int node = 0; node < shape.BaseNodesPerFace(face); ++node)
        if (shape.ComputeFaceNormal(labels.data(), face, node, coords, normal) != 0)
            broken |= triangleAtNode;
        else if (!isNormal())
            broken |= normalAtNodes;

    std::vector<g3d_Storage> all;
    for (int node = 0; node < shape.BaseNodesPerElem(); ++node)
        all.emplace_back(at(node)[0], at(node)[1], at(node)[2]);
    auto const checkCentroid = [&](int f, std::vector<Place> const & ends) {
        g3d_Storage const c = shape.GetFaceCentroid(f, all.data(), labels.data());
        if (!(distance({c.X(), c.Y(), c.Z()}, mean(ends)) < 1e-5))
            broken |= centroid;
    };
    for (int e = 0; e < shape.NumEdgesPerFace(face); ++e) {
        corners.push_back(at(shape.EdgeNodeIndex(face, e, 0)));
        if (shape.NumSpatialDimensions() == 2)
            checkCentroid(e, {corners.back(), at(shape.EdgeNodeIndex(face, e, shape.BaseNodesPerEdge(face, e) - 1))});
    }
    if (shape.NumSpatialDimensions() == 3)
        checkCentroid(face, corners);
    if (shape.NumSpatialDimensions() == 3 && !hasNormalOfShell(shape, face))
        broken |= normalOfBent;
    return broken;
}

// clang-format off
std::vector<Exception> const exceptions = {
    {{shp_keyQuad, {9}, {}, {shp_keyCylindrical}}, normalOfFace, "its tangents change places"},
    {{shp_keyQuad, {8}, {}, {}, {shp_keyCaxa}}, triangleAtNode, "all triangles meet in a ninth point"},
    {{shp_keyQuad, {8}, {}, {shp_keyCaxa}}, normalAtNodes, "the ninth point is the first of the next plane"},
    {{shp_keyQuad, {}, {}, {shp_keyGasket}}, normalAtNodes, "numbered in two rows, but cut as a ring"},
    {{shp_keyQuad, {4}, {}, {shp_keyGasket, shp_key3D}}, normalOfBent, "numbered in two rows"},
    {{shp_keyQuad, {6}, {}, {shp_keyPipeSoil}}, normalAtNodes, "cut for midside nodes on the other two edges"},
    {{shp_keyQuad, {6}, {}, {shp_keyCohesive}}, normalAtNodes, "cut for midside nodes on changed sides"},
    {{shp_keyHex, {12}, {}, {shp_keyCohesive}, {}, -1, {0}}, triangleAtNode, "cut as the infinite hexahedron"},
    {{shp_keyHex, {12}, {}, {shp_keyCohesive}, {}, -1, {1, 2, 3, 4, 5}}, normalAtNodes, "the same"},
    {{shp_keyHex, {18}, {}, {}, {}, -1, {0}}, normalAtNodes | triangleAtNode, "no centre; 6 3 1 in place of 6 3 11"},
    {{shp_keyHex, {18}, {}, {shp_keyGasket}, {}, -1, {1}}, triangleAtNode, "no triangle has the centre"},
    {{shp_keyHex, {18}, {}, {shp_keyGasket}, {}, -1, {4}}, triangleAtNode, "6 3 1 in place of 6 3 11"},
    {{shp_keyHex, {18}, {}, {shp_keyInfinite}, {}, -1, {3}}, triangleAtNode, "6 3 1 in place of 6 3 11"},
    {{shp_keyHex, {18}, {}, {shp_keyInfinite}, {}, -1, {5}}, triangleAtNode, "no triangle has the centre"},
    {{shp_keyHex, {18}, {}, {shp_keyInfinite}, {}, -1, {1, 2, 3, 4}}, normalOfBent, "the diagonals of eight nodes"},
    {{shp_keyHex, {27}, {14, 27}}, triangleAtNode, "cut as the 20-node hexahedron"},
    {{shp_keyPrism, {18}, {9}, {}, {shp_keyCylindrical}, -1, {2, 3, 4}}, triangleAtNode, "cut as the 15-node prism"},
    {{shp_keyPrism, {18}, {}, {shp_keyCylindrical}, {}, -1, {1}}, normalAtNodes, "14 14 5 in place of 14 13 5"},
    {{shp_keyPrism, {18}, {}, {shp_keyCylindrical}, {}, -1, {0, 1}}, normalOfBent, "by its corners alone"},
    {{shp_keyPrism, {9}, {}, {}, {}, -1, {0, 1}}, normalAtNodes, "both ends are cut facing inwards"},
    {{shp_keyPrism, {9}, {}, {shp_keyCohesive}, {}, -1, {2, 3, 4}}, normalOfFace | normalAtNodes | centroid, "located with nodes 6 to 8 at midsides, not halfway up the edges"},
    {{shp_keyPyramid, {}, {}, {}, {}, -1, {1, 2, 3, 4}}, centroid, "located halfway up to the apex"},
    {{shp_keyHex, {}, {}, {shp_keyInfinite}, {}, -1, {1, 2, 3, 4, 5}}, centroid, "located towards infinity"},
};
// clang-format on

} // namespace

TEST(FaceGeometry, OfEveryLabelKeepsEveryLawThatIsNotOnItsListOfExceptions) {
    Laws laws(exceptions);
    forEachShape([&](shp_Shape const & shape) {
        for (int face = 0; shape.NumGeometryDimensions() > 1 && face < shape.NumFacesPerElem(); ++face)
            for (double side : {1, -1})
                laws.expect(brokenLaws(shape, face, side), shape, face);
    });
}

// A node of a folded face has the sum of the vector products of its triangles' unit sides at their first corner.
TEST(FaceNormal, AtANodeOfAFoldedFaceIsTheMeanOverItsTriangles) {
    // Face 1 is cut into 4 6 7, that is its places 0 2 3, and 4 5 6, its places 0 1 2. The first stands upright on the
    // diagonal, with 45 degrees at place 0; the second lies flat, with 30.
    uti_CoordCont3D const coords = containerOf({{0, 0, 0}, {3, -std::sqrt(3.0), 0}, {1, 0, 0}, {1, 0, 1}});
    int const labels[] = {1, 2, 3, 4};
    double const upright = std::sqrt(0.5), flat = 0.5, length = std::hypot(upright, flat);
    Place const expected[] = {
        {0, -upright / length, flat / length}, {0, 0, 1}, {0, -upright / length, flat / length}, {0, -1, 0}};
    for (int node = 0; node < 4; ++node) {
        float normal[3];
        EXPECT_EQ(shapeOf("C3D8").ComputeFaceNormal(labels, 1, node, coords, normal), 0);
        EXPECT_LT(distance(row(normal, 0), expected[node]), 1e-6) << node;
    }
}

TEST(FaceNormal, OfCollapsedFacesAndOfFacesWithoutAPlaneIsAsPromised) {
    uti_CoordCont3D const square = containerOf({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}});
    uti_CoordCont3D const twoRows = containerOf({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}});
    uti_CoordCont3D const point = containerOf({{2, 3, 4}, {2, 3, 4}, {2, 3, 4}, {2, 3, 4}});
    struct {
        char const * label;
        uti_CoordCont3D const & coords;
        std::vector<int> conn;
        std::vector<float> expected; ///< result and z of the face, and of its node 2
        char const * reason;
    } const cases[] = {
        // clang-format off
        {"C3D8",  square,  {5, 5, 5, 5}, {1, 0, 1, 0}, "one label"},
        {"C3D8",  square,  {5, 5, 6, 6}, {1, 0, 1, 0}, "an edge"},
        {"C3D8",  square,  {5, 5, 6, 7}, {0, 1, 0, 1}, "a triangle"},
        {"C3D4",  square,  {5, 6, 5},    {0, 1, 0, 1}, "each label differs from the next"},
        {"T3D2",  square,  {5, 5},       {0, 0, 0, 0}, "two nodes have no normal"},
        {"T3D3",  square,  {5, 6, 7},    {0, 0, 1, 0}, "neither tangents nor triangles"},
        {"T2D3",  square,  {5, 6, 7},    {0, 1, 1, 0}, "the same in a plane"},
        {"C3D8",  point,   {5, 6, 7, 8}, {0, 0, 0, 0}, "tangents without length"},
        {"CPS4",  point,   {5, 6, 7, 8}, {0, 1, 0, 1}, "the same in a plane"},
        {"GKPS4", twoRows, {5, 6, 7, 8}, {0, 1, 0, 0}, "two triangles of opposite sense at node 2"},
        // clang-format on
    };
    for (auto const & c : cases) {
        int const node = std::min(2, static_cast<int>(c.conn.size()) - 1);
        float normal[3] = {7, 7, 7}, atNode[3] = {7, 7, 7};
        int const result = shapeOf(c.label).ComputeFaceNormal(c.conn.data(), 0, c.coords, normal);
        int const resultAtNode = shapeOf(c.label).ComputeFaceNormal(c.conn.data(), 0, node, c.coords, atNode);
        std::vector<float> const found = {static_cast<float>(result), normal[2], static_cast<float>(resultAtNode),
                                          atNode[2]};
        EXPECT_EQ(found, c.expected) << c.reason;
        for (float const * inPlane : {normal, atNode})
            EXPECT_TRUE(inPlane[0] == 0 && inPlane[1] == 0) << c.reason;
    }
}

// Without a label of its own for the middle node of face 2, the face's other eight nodes decide. A billion from the
// origin floats are 64 apart.
TEST(FaceCentroid, OfA27NodeBrickWithoutAMiddleNodeComesFromTheFacesOtherNodes) {
    std::vector<g3d_Storage> doubles;
    std::vector<g3d_Point> floats;
    for (int node = 0; node < 27; ++node) {
        doubles.emplace_back(1e9 + node * node, 0, 0);
        floats.emplace_back(static_cast<float>(node * node), 0.0f, 0.0f);
    }
    std::vector<int> labels = distinctLabels();
    labels[23] = labels[22];
    double const x[] = {441, 484, 0.5 * (64 + 289 + 144 + 256) - 0.25 * (0 + 1 + 25 + 16), 576, 625, 676};
    for (int face = 0; face < 6; ++face) {
        EXPECT_EQ(shapeOf("C3D27").GetFaceCentroid(face, doubles.data(), labels.data()).X(), 1e9 + x[face]) << face;
        g3d_Point const point = shapeOf("C3D27").GetFaceCentroid(face, floats.data(), labels.data());
        EXPECT_EQ(point.X(), x[face]) << face;
        EXPECT_EQ(point.W(), 1.0f);
    }
}

// Of a plane element's first edge, not the mean of its own nodes but of the element's first ones, as many as it has.
TEST(FaceCentroid, FromElementCoordinatesIsTheMeanOfTheNodes) {
    struct {
        char const * label;
        int face;
        std::vector<double> nodes;
    } const cases[] = {
        {"C3D10", 2, {1, 2, 3, 5, 9, 8}}, {"S4R", 0, {0, 1, 2, 3}}, {"T3D3", 0, {0, 1, 2}},
        {"CPS8", 0, {0, 1, 2}},           {"CPS8", 3, {3, 7, 0}},   {"CAXA41", 1, {1, 2, 5, 6}},
    };
    uti_CoordCont3D coords, centroids;
    for (int node = 0; node < 10; ++node)
        coords.SetCoord(node, static_cast<float>(node), 1, static_cast<float>(-node));
    centroids.Grow(4);
    for (auto const & c : cases) {
        shapeOf(c.label).FaceCentroidFromElementCoordinates(c.face, coords, centroids);
        uti_Coord3D const found = centroids[c.face];
        double const sum = std::accumulate(c.nodes.begin(), c.nodes.end(), 0.0);
        double const x = sum / static_cast<double>(c.nodes.size());
        EXPECT_LT(distance({found[0], found[1], found[2]}, {x, 1, -x}), 1e-5) << c.label;
    }
}
