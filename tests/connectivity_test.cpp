// The node numbering of all element types, held against the geometry of their nodes: what is called an edge must be an
// edge, what is called a face must enclose the element, and so on.

#include "catalogued_shapes.h"
#include "shp_ConnectivityTables.h"
#include "table_laws.h"

#include <map>
#include <numeric>
#include <set>
#include <utility>

namespace {

using Nodes = std::vector<int>;

Place cross(Place const & a, Place const & b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// One plane of an element type, seen through the operations that a caller has.
class Element {
public:
    explicit Element(shp_Shape const & s) : shape(s), conn(static_cast<std::size_t>(s.NumNodesPerElem())) {
        std::iota(conn.begin(), conn.end(), firstNumber);
    }

    shp_Shape const & shape;

    bool isInfinite() const { return shape.options.IsType(shp_keyInfinite); }
    int dimensions() const { return shape.NumGeometryDimensions(); }
    int faces() const { return shape.NumFacesPerElem(); }

    std::vector<Nodes> edges(int f) const {
        std::vector<Nodes> all;
        for (int e = 0; e < shape.NumEdgesPerFace(f); ++e) {
            Nodes global(static_cast<std::size_t>(shape.NumNodesPerEdge(f, e)));
            shape.EdgeConnectivity(conn.data(), f, e, global.data());
            all.push_back(local(global, shape.BaseNodesPerEdge(f, e)));
        }
        return all;
    }
    Nodes face(int f) const {
        Nodes global(static_cast<std::size_t>(shape.NumNodesPerFace(f)));
        shape.FaceConnectivity(conn.data(), f, global.data());
        return local(global, shape.BaseNodesPerFace(f));
    }
    /// The corners of a face in order: where its edges begin; the open sides of infinite elements list them first.
    Nodes corners(int f) const {
        Nodes ring = face(f);
        if (isInfinite()) {
            ring.resize(4);
            return ring;
        }
        ring.clear();
        for (Nodes const & edge : edges(f))
            ring.push_back(edge.front());
        return ring;
    }
    /// What node i becomes when the element is turned inside out.
    Nodes reversed() const {
        Nodes image = conn;
        shape.ReverseElemConnectivity(image.data());
        return local(image, shape.BaseNodesPerElem());
    }

    Place at(int node) const { return row(shape.nodeLocationTable, node); }
    /// Area times normal.
    Place area(Nodes const & ring) const {
        Place sum{};
        for (std::size_t i = 0; i < ring.size(); ++i) {
            Place const part = cross(at(ring[i]), at(ring[(i + 1) % ring.size()]));
            for (std::size_t axis = 0; axis < 3; ++axis)
                sum[axis] += part[axis] / 2;
        }
        return sum;
    }

private:
    static constexpr int firstNumber = 1000;

    static Nodes local(Nodes global, int count) {
        global.resize(static_cast<std::size_t>(count));
        for (int & node : global)
            node -= firstNumber;
        return global;
    }

    Nodes conn;
};

enum Law {
    edgesGoAround = 1,       ///< the edges of a face lead from corner to corner around it
    faceFollowsEdges = 2,    ///< a face lists its corners, its edges' midside nodes, perhaps its centre, in this order
    faceIsWhole = 4,         ///< a face lists every node of its plane
    outward = 8,             ///< a face turns counter-clockwise seen from outside, a planar element from g to h
    midsideInMiddle = 16,    ///< a midside node stands halfway along its edge
    edgesJoin = 32,          ///< a solid's edge stands in two faces in opposite directions, a planar element's in one
    trianglesOnFaces = 64,   ///< each triangle has its nodes on one face, and is turned as the face is
    trianglesMeet = 128,     ///< each side of a triangle is there once in each direction, or lies on the outline
    reversalInsideOut = 256, ///< the reversed element has the faces and edges of the old one, turned round
    mapNamesEdges = 512,     ///< as many entries of the edge map as there are edges name each edge once
    pointsByFace = 1024,     ///< faces of one kind have as many integration points; the largest number is the shape's
};
constexpr int lawsOfLines = faceIsWhole | midsideInMiddle | reversalInsideOut | mapNamesEdges | pointsByFace;

int unless(bool isKept, Law law) {
    return isKept ? 0 : law;
}

int brokenByFaces(Element const & element) {
    int broken = 0;
    for (int f = 0; f < element.faces(); ++f) {
        Nodes const ring = element.corners(f), listed = element.face(f);
        std::vector<Nodes> const edges = element.edges(f);
        Nodes expected = ring, inPlane;
        for (std::size_t e = 0; e < edges.size(); ++e) {
            // Where an infinite element has no edge, the second of the two corners begins the next one.
            std::size_t const first = element.isInfinite() && edges.size() == 3 && e == 2 ? 3 : e;
            int const from = edges[e].front(), to = edges[e].back();
            broken |= unless(from == ring[first] && to == ring[(first + 1) % ring.size()], edgesGoAround);
            if (edges[e].size() == 3) {
                expected.push_back(edges[e][1]);
                Place const middle = mean({element.at(from), element.at(to)});
                broken |= unless(distance(middle, element.at(edges[e][1])) < 1e-6, midsideInMiddle);
            }
        }
        if (listed.size() > expected.size())
            expected.push_back(listed.back());
        broken |= unless(listed == expected, faceFollowsEdges);

        Place const normal = element.area(ring), corner = element.at(ring[0]);
        for (int node = 0; node < element.shape.BaseNodesPerElem(); ++node)
            if (std::abs(dot(minus(element.at(node), corner), normal)) < 1e-6)
                inPlane.push_back(node);
        broken |=
            unless(std::is_permutation(listed.begin(), listed.end(), inPlane.begin(), inPlane.end()), faceIsWhole);
        bool const isSolid = element.dimensions() == 3;
        Place const away = isSolid ? minus(corner, mean(nodesOf(element.shape))) : Place{0, 0, 1};
        broken |= unless(dot(away, normal) > 0.1, outward);
    }
    return broken;
}

/// The face whose nodes a triangle has, or -1. The centre of an 8-node quadrilateral is supplied by its users.
int faceOf(Element const & element, Nodes const & triangle) {
    for (int f = 0; f < element.faces(); ++f) {
        Nodes nodes = element.face(f);
        if (element.dimensions() == 2 && nodes.size() == 8)
            nodes.push_back(8);
        auto const isOnFace = [&](int node) { return std::count(nodes.begin(), nodes.end(), node) == 1; };
        if (std::all_of(triangle.begin(), triangle.end(), isOnFace))
            return f;
    }
    return -1;
}

/// Triangles of `mended` are taken for those of the table.
int brokenByTriangles(Element const & element, std::map<Nodes, Nodes> const & mended = {}) {
    int broken = 0;
    std::set<std::pair<int, int>> sides, outline;
    int const * nodes = element.shape.FaceTriangles();
    for (int t = 0; t < element.shape.NumFaceTriangles(); ++t, nodes += 3) {
        Nodes triangle{nodes[0], nodes[1], nodes[2]};
        if (auto const other = mended.find(triangle); other != mended.end())
            triangle = other->second;
        int const f = faceOf(element, triangle);
        broken |=
            unless(f >= 0 && dot(element.area(triangle), element.area(element.corners(f))) > 1e-3, trianglesOnFaces);
        for (std::size_t i = 0; i < 3; ++i)
            broken |= unless(sides.insert({triangle[i], triangle[(i + 1) % 3]}).second, trianglesMeet);
    }
    if (element.dimensions() == 2) {
        for (Nodes const & e : element.edges(0))
            for (std::size_t i = 0; i + 1 < e.size(); ++i)
                outline.insert({e[i], e[i + 1]});
        if (element.isInfinite())
            outline.insert({2, 3});
    }
    for (auto const & [from, to] : sides)
        broken |= unless(sides.count({to, from}) + outline.count({from, to}) == 1, trianglesMeet);
    bool const hasOutline = std::includes(sides.begin(), sides.end(), outline.begin(), outline.end());
    return broken | unless(hasOutline && !sides.empty(), trianglesMeet);
}

int brokenByEdges(Element const & element) {
    // Each distinct edge, named from its lower end; 1 for a use in this direction, -1 for one in the other.
    std::map<Nodes, Nodes> uses;
    std::vector<std::vector<Nodes>> edgeAt;
    for (int f = 0; f < element.faces(); ++f) {
        edgeAt.push_back(element.edges(f));
        for (Nodes & edge : edgeAt.back()) {
            bool const isForward = edge.front() < edge.back();
            if (!isForward)
                std::reverse(edge.begin(), edge.end());
            uses[edge].push_back(isForward ? 1 : -1);
        }
    }
    int broken = 0;
    for (auto const & [edge, directions] : uses)
        broken |= unless(element.dimensions() == 3 ? directions.size() == 2 && directions[0] + directions[1] == 0
                                                   : directions.size() == 1,
                         edgesJoin);
    std::set<Nodes> named;
    for (std::size_t i = 0; i < uses.size(); ++i) {
        auto const f = static_cast<std::size_t>(element.shape.edgeMapTbl[2 * i]);
        auto const e = static_cast<std::size_t>(element.shape.edgeMapTbl[2 * i + 1]);
        if (f < edgeAt.size() && e < edgeAt[f].size())
            named.insert(edgeAt[f][e]);
    }
    return broken | unless(named.size() == uses.size(), mapNamesEdges);
}

int brokenByReversal(Element const & element) {
    Nodes const image = element.reversed();
    auto const renamed = [&](Nodes nodes) {
        for (int & node : nodes)
            node = image[static_cast<std::size_t>(node)];
        return nodes;
    };
    std::set<std::pair<std::set<Nodes>, std::set<int>>> before, after;
    for (int f = 0; f < element.faces(); ++f) {
        std::set<Nodes> edges, turned;
        for (Nodes edge : element.edges(f)) {
            edges.insert(edge);
            std::reverse(edge.begin(), edge.end());
            turned.insert(renamed(edge));
        }
        Nodes const nodes = element.face(f), moved = renamed(nodes);
        before.insert({edges, {nodes.begin(), nodes.end()}});
        after.insert({turned, {moved.begin(), moved.end()}});
    }
    return unless(before == after, reversalInsideOut);
}

int brokenByPoints(Element const & element) {
    bool const isByEdge = element.dimensions() == 2 && element.shape.NumSpatialDimensions() == 2;
    int const entries = isByEdge ? element.shape.NumEdgesPerFace(0) : element.faces();
    int const * points = element.shape.intPtsPerFaceTbl;
    std::map<std::pair<std::size_t, std::size_t>, int> pointsOfKind;
    int broken = unless(*std::max_element(points, points + entries) == element.shape.maxIntPtsPerFace, pointsByFace);
    for (int i = 0; i < entries; ++i) {
        int const f = isByEdge ? 0 : i;
        auto const kind = pointsOfKind.insert({{element.corners(f).size(), element.face(f).size()}, points[i]}).first;
        broken |= unless(kind->second == points[i], pointsByFace);
    }
    return broken;
}

std::vector<Exception> const exceptions = {
    {{shp_keyLine, {3}, {}, {shp_keyInfinite}},
     midsideInMiddle | reversalInsideOut,
     "the edge runs 0 2 1; locations and reversal are those of the other lines"},
    {{shp_keyQuad, {}, {}, {shp_keyGasket}},
     faceFollowsEdges | trianglesOnFaces | trianglesMeet | reversalInsideOut,
     "numbered in two rows, but listed, cut and reversed as a ring"},
    {{shp_keyQuad, {6}, {}, {shp_keyPipeSoil}},
     trianglesOnFaces | trianglesMeet,
     "midside nodes on two opposite edges, cut as if they were on the other two"},
    {{shp_keyQuad, {6}, {}, {shp_keyCohesive}},
     faceFollowsEdges | trianglesOnFaces | trianglesMeet | reversalInsideOut,
     "nodes 4 and 5 have changed sides against the cylindrical element, whose triangles and reversal it has"},
    {{shp_keyQuad, {6}, {}, {shp_keyCylindrical}},
     reversalInsideOut,
     "the reversal leaves the midside nodes of the two sides that it exchanges where they are"},
    {{shp_keyQuad, {}, {}, {shp_keyInfinite}},
     reversalInsideOut,
     "the reversal exchanges the open side with the one opposite"},
    {{shp_keyQuad, {5}}, pointsByFace, "the points of the whole element are counted at its first edge"},
    {{shp_keyPrism, {12}, {}, {shp_keyGasket}},
     faceFollowsEdges | reversalInsideOut | pointsByFace,
     "one face lists its midside nodes against its edges; reversal and largest number of points of other prisms"},
    {{shp_keyHex, {18}, {}, {shp_keyGasket}},
     faceFollowsEdges | reversalInsideOut,
     "one face lists its midside nodes against its edges; the reversal of another numbering"},
    {{shp_keyHex, {18}, {}, {shp_keyInfinite}},
     faceFollowsEdges | reversalInsideOut,
     "midside nodes of the outer ring are listed, which has no edges; the reversal of another numbering"},
    {{shp_keyHex, {18}}, trianglesOnFaces | trianglesMeet, "the triangle 6 3 1 where 6 3 11 would close the side"},
    {{shp_keyHex, {12, 24}}, reversalInsideOut, "the reversal of the 20-node hexahedron"},
    {{shp_keyHex, {24}}, trianglesOnFaces | trianglesMeet, "the triangle 7 24 19 where 7 23 19 would close the side"},
    {{shp_keyHex, {12}, {}, {shp_keyCohesive}},
     trianglesOnFaces | mapNamesEdges,
     "numbered as the cylindrical hexahedron, cut as the infinite one, with the edge map of the 20-node one"},
    {{shp_keyHex, {}, {}, {shp_keyInfinite}}, mapNamesEdges, "the edge map of closed hexahedra"},
    {{shp_keyHex, {27}}, mapNamesEdges, "the last two faces begin at other corners than the edge map was made for"},
    {{shp_keyPrism, {9}},
     trianglesOnFaces | trianglesMeet | reversalInsideOut,
     "both ends are cut facing inwards, the side 2-0 is crossed; the reversal of the 15-node prism"},
    {{shp_keyPrism, {9}, {}, {shp_keyCohesive}},
     faceIsWhole | midsideInMiddle | mapNamesEdges,
     "located with nodes 6 to 8 at midsides, not halfway up the edges; the edge map of the 15-node prism"},
    {{shp_keyPrism, {18}, {}, {shp_keyCylindrical}},
     trianglesOnFaces | trianglesMeet,
     "the triangles 14 14 5, 16 3 8 and 17 8 3"},
    {{shp_keyPrism, {18}}, reversalInsideOut, "a reversal is defined for prisms of up to 15 nodes"},
};

} // namespace

TEST(Connectivity, OfEveryLabelKeepsEveryLawThatIsNotOnItsListOfExceptions) {
    Laws laws(exceptions);
    forEachShape([&](shp_Shape const & shape) {
        Element const element(shape);
        int const broken = brokenByFaces(element) | brokenByTriangles(element) | brokenByEdges(element) |
                           brokenByReversal(element) | brokenByPoints(element);
        if (element.dimensions() > 0)
            laws.expect(element.dimensions() == 1 ? broken & lawsOfLines : broken, shape);
    });
}

// The surfaces that the list of exceptions calls broken have no further fault than the triangles named here.
TEST(Connectivity, BrokenSurfacesCloseWhenTheirOddTrianglesAreReplaced) {
    struct {
        char const * label;
        std::map<Nodes, Nodes> mended;
    } const surfaces[] = {
        {"GK3D18", {{{6, 3, 1}, {6, 3, 11}}}},
        {"CIN3D18R", {{{6, 3, 1}, {6, 3, 11}}}},
        {"CCL24", {{{7, 24, 19}, {7, 23, 19}}}},
        {"CCL9", {{{0, 1, 2}, {0, 2, 1}}, {{3, 5, 4}, {3, 4, 5}}, {{6, 4, 8}, {6, 3, 8}}}},
        {"CCL18", {{{14, 14, 5}, {14, 13, 5}}, {{16, 3, 8}, {16, 2, 8}}, {{17, 8, 3}, {17, 8, 2}}}},
    };
    for (auto const & surface : surfaces)
        EXPECT_EQ(brokenByTriangles(Element(shapeOf(surface.label)), surface.mended), 0) << surface.label;
}

// Reads every slot: under AddressSanitizer a table that is shorter than its strides is found here. What the edges do
// not fill is -1, but for the triangles of prisms of 6, 15 and 18 nodes, and of pyramids.
TEST(Connectivity, TablesHoldNodesAsFarAsTheirCountsAndFillersAsFarAsTheirStrides) {
    forEachShape([](shp_Shape const & shape) {
        bool areAllFilled = true;
        auto const expectNode = [&](int node, bool isUsed) {
            EXPECT_TRUE(node >= (isUsed ? 0 : -1) && node < shape.NumNodesPerElem()) << node;
            areAllFilled = areAllFilled && (isUsed || node == -1);
        };
        for (int f = 0; f < shape.NumFacesPerElem(); ++f) {
            EXPECT_GE(shape.intPtsPerFaceTbl[f], 1);
            for (int i = 0; i < shape.maxNodesPerFace; ++i)
                expectNode(shape.FaceNodeIndex(f, i), i < shape.NumNodesPerFace(f));
            for (int e = 0; e < shape.maxEdgesPerFace; ++e)
                for (int i = 0; i < shape.maxNodesPerEdge; ++i)
                    expectNode(shape.EdgeNodeIndex(f, e, i),
                               e < shape.NumEdgesPerFace(f) && i < shape.NumNodesPerEdge(f, e));
        }
        int const nodes = shape.NumNodesPerElem();
        bool const isPrism = shape.options.IsType(shp_keyPrism) && !shape.isCylindrical && nodes != 9 && nodes != 12;
        EXPECT_EQ(areAllFilled, !isPrism && !shape.options.IsType(shp_keyPyramid));
    });
}

TEST(Connectivity, OfAnUnknownCombinationIsNull) {
    using Tables = shp_ConnectivityTables;
    shp_Options const hex = optionsOf({shp_keyHex, shp_keyNodes9, shp_key3D}), nothing = optionsOf({});
    for (auto const * options : {&hex, &nothing}) {
        int numTriangles = 7;
        EXPECT_EQ(Tables::getFaceTriTblPtr(*options, numTriangles), nullptr);
        EXPECT_EQ(numTriangles, 0);
        for (auto const getter : {Tables::getNdPerEdgTblPtr, Tables::getNdPerFcTblPtr, Tables::getIpPerFcTblPtr,
                                  Tables::getFaceConnTblPtr, Tables::getEdgeConnTblPtr})
            EXPECT_EQ(getter(*options), nullptr);
    }
    EXPECT_NE(Tables::getEdgPerFcTblPtr(hex), nullptr);
    EXPECT_EQ(Tables::getRevConnTblPtr(nothing), nullptr);
}
