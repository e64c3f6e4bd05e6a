// The node numbering of all element types, held against the geometry of their nodes: what is called an edge must be an
// edge, what is called a face must enclose the element, and so on. Where a table breaks a law on purpose, the list of
// exceptions says so, and the law must then really be broken.

#include "omi_BtreeIterator.h"
#include "shp_ConnectivityTables.h"
#include "shp_KeyBit.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <numeric>
#include <set>
#include <vector>

namespace {

using Nodes = std::vector<int>;
using Vector = std::array<double, 3>;

Vector operator+(Vector const & a, Vector const & b) {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
Vector operator*(double f, Vector const & a) {
    return {f * a[0], f * a[1], f * a[2]};
}
Vector operator-(Vector const & a, Vector const & b) {
    return a + -1.0 * b;
}
double dot(Vector const & a, Vector const & b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
double length(Vector const & a) {
    return std::sqrt(dot(a, a));
}
Vector cross(Vector const & a, Vector const & b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
bool isZero(double x) {
    return std::abs(x) < 1e-6;
}

/// One plane of an element type, seen through the operations that a caller has.
class Element {
public:
    explicit Element(shp_Shape const & s) : shape(s), conn(static_cast<std::size_t>(s.NumNodesPerElem())) {
        std::iota(conn.begin(), conn.end(), firstNumber);
    }

    shp_Shape const & shape;
    std::map<Nodes, Nodes> mendedTriangles; ///< taken for those of the table

    bool is(int bit) const { return shape.options.IsType(bit); }
    bool isShape(int family, int count) const { return is(family) && shape.options.NumNodes() == count; }
    int dimensions() const { return shape.NumGeometryDimensions(); }
    int faces() const { return shape.NumFacesPerElem(); }
    int nodes() const { return shape.BaseNodesPerElem(); }

    Nodes edge(int f, int e) const {
        Nodes global(static_cast<std::size_t>(shape.NumNodesPerEdge(f, e)));
        shape.EdgeConnectivity(conn.data(), f, e, global.data());
        return local(global, shape.BaseNodesPerEdge(f, e));
    }
    std::vector<Nodes> edges(int f) const {
        std::vector<Nodes> all;
        for (int e = 0; e < shape.NumEdgesPerFace(f); ++e)
            all.push_back(edge(f, e));
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
        if (is(shp_keyInfinite)) {
            ring.resize(4);
            return ring;
        }
        ring.clear();
        for (Nodes const & e : edges(f))
            ring.push_back(e.front());
        return ring;
    }
    /// What node i becomes when the element is turned inside out.
    Nodes reversed() const {
        Nodes image = conn;
        shape.ReverseElemConnectivity(image.data());
        return local(image, nodes());
    }

    Vector at(int node) const {
        float const * row = shape.IsoNodeLocationTable() + 3 * node;
        return {row[0], row[1], row[2]};
    }
    Vector middle(Nodes const & of) const {
        Vector sum{};
        for (int node : of)
            sum = sum + at(node);
        return (1.0 / static_cast<double>(of.size())) * sum;
    }
    /// Area times normal.
    Vector area(Nodes const & ring) const {
        Vector sum{};
        for (std::size_t i = 0; i < ring.size(); ++i)
            sum = sum + 0.5 * cross(at(ring[i]), at(ring[(i + 1) % ring.size()]));
        return sum;
    }
    Nodes allCorners() const {
        std::set<int> all;
        for (int f = 0; f < faces(); ++f)
            for (int node : corners(f))
                all.insert(node);
        return {all.begin(), all.end()};
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

// The laws. Each answers for one element type.

/// Face f of a solid, or edge f of an element of a two-dimensional model, has its centre in row f of the face centres.
/// The sides of infinite elements have theirs somewhere in their plane or line.
bool facesInOrderOfTheirCentres(Element const & element) {
    bool const isSolid = element.dimensions() == 3;
    if (!isSolid && element.shape.NumSpatialDimensions() == 3)
        return element.faces() == 1;
    int const count = isSolid ? element.faces() : element.shape.NumEdgesPerFace(0);
    for (int f = 0; f < count; ++f) {
        float const * row = element.shape.faceCenterLocationTable + 3 * f;
        Vector const listed{row[0], row[1], row[2]};
        Nodes const ends = isSolid ? element.corners(f) : Nodes{element.edge(0, f).front(), element.edge(0, f).back()};
        Vector const normal =
            isSolid ? element.area(ends) : cross(element.at(ends[1]) - element.at(ends[0]), Vector{0, 0, 1});
        Vector const off = listed - element.middle(ends);
        if (!isZero(dot(off, normal)) || (!element.is(shp_keyInfinite) && !isZero(length(off))))
            return false;
    }
    return true;
}

/// The edges of a face lead from corner to corner around it. Where an infinite element has no edge, the second of the
/// two corners begins the next one.
bool edgesGoAroundTheirFace(Element const & element) {
    for (int f = 0; f < element.faces(); ++f) {
        Nodes const ring = element.corners(f);
        std::vector<Nodes> const edges = element.edges(f);
        for (std::size_t e = 0; e < edges.size(); ++e) {
            std::size_t const first = element.is(shp_keyInfinite) && edges.size() == 3 && e == 2 ? 3 : e;
            if (edges[e].front() != ring[first] || edges[e].back() != ring[(first + 1) % ring.size()])
                return false;
        }
    }
    return true;
}

/// A face lists its corners, the midside nodes of its edges, and perhaps its centre, in the order of its edges.
bool faceFollowsItsEdges(Element const & element) {
    for (int f = 0; f < element.faces(); ++f) {
        Nodes expected = element.corners(f);
        for (Nodes const & e : element.edges(f))
            if (e.size() == 3)
                expected.push_back(e[1]);
        Nodes const listed = element.face(f);
        if (listed.size() > expected.size())
            expected.push_back(listed.back());
        if (listed != expected)
            return false;
    }
    return true;
}

/// A face is a plane, and lists every node in it; a line or a planar element, all its nodes.
bool faceHasAllNodesOfItsPlane(Element const & element) {
    for (int f = 0; f < element.faces(); ++f) {
        Nodes const ring = element.corners(f);
        Nodes inPlane;
        for (int node = 0; node < element.nodes(); ++node)
            if (isZero(dot(element.at(node) - element.at(ring[0]), element.area(ring))))
                inPlane.push_back(node);
        Nodes listed = element.face(f);
        std::sort(listed.begin(), listed.end());
        if (listed != inPlane)
            return false;
    }
    return true;
}

/// A solid's faces turn counter-clockwise seen from outside; a planar element turns from g to h.
bool facesOutward(Element const & element) {
    Vector const centre = element.middle(element.allCorners());
    for (int f = 0; f < element.faces(); ++f) {
        Nodes const ring = element.corners(f);
        Vector const outward = element.dimensions() == 3 ? element.middle(ring) - centre : Vector{0, 0, 1};
        if (dot(outward, element.area(ring)) < 0.1)
            return false;
    }
    return true;
}

using EdgeUses = std::map<Nodes, Nodes>;

/// Each distinct edge, named from its lower end; 1 for a use in this direction, -1 for one in the other.
EdgeUses edgeUses(Element const & element) {
    EdgeUses uses;
    for (int f = 0; f < element.faces(); ++f)
        for (Nodes e : element.edges(f)) {
            bool const isForward = e.front() < e.back();
            if (!isForward)
                std::reverse(e.begin(), e.end());
            uses[e].push_back(isForward ? 1 : -1);
        }
    return uses;
}

/// A solid's edge stands in two faces, in opposite directions; a planar element's in its one face.
bool edgesJoinFaces(Element const & element) {
    for (auto const & [edge, uses] : edgeUses(element)) {
        bool const isSolid = element.dimensions() == 3;
        if (uses.size() != (isSolid ? 2u : 1u) || (isSolid && uses[0] + uses[1] != 0))
            return false;
    }
    return true;
}

bool midsideNodesAtMiddles(Element const & element) {
    for (auto const & [edge, uses] : edgeUses(element))
        if (edge.size() == 3 && !isZero(length(element.at(edge[1]) - element.middle({edge[0], edge[2]}))))
            return false;
    return true;
}

std::vector<Nodes> triangles(Element const & element) {
    std::vector<Nodes> all;
    int const * nodes = element.shape.FaceTriangles();
    for (int t = 0; t < element.shape.NumFaceTriangles(); ++t, nodes += 3) {
        Nodes const triangle{nodes[0], nodes[1], nodes[2]};
        auto const mended = element.mendedTriangles.find(triangle);
        all.push_back(mended == element.mendedTriangles.end() ? triangle : mended->second);
    }
    return all;
}

/// The face whose nodes a triangle has, or -1. The centre of an 8-node quadrilateral is supplied by its users.
int faceOf(Element const & element, Nodes const & triangle) {
    for (int f = 0; f < element.faces(); ++f) {
        Nodes nodes = element.face(f);
        if (element.dimensions() == 2 && nodes.size() == 8)
            nodes.push_back(8);
        auto const isOnFace = [&](int node) { return std::find(nodes.begin(), nodes.end(), node) != nodes.end(); };
        if (std::all_of(triangle.begin(), triangle.end(), isOnFace))
            return f;
    }
    return -1;
}

bool trianglesLieOnFaces(Element const & element) {
    for (Nodes const & triangle : triangles(element))
        if (faceOf(element, triangle) < 0)
            return false;
    return true;
}

/// No triangle is turned over or has no area.
bool trianglesFaceOutward(Element const & element) {
    for (Nodes const & triangle : triangles(element)) {
        int const f = faceOf(element, triangle);
        if (f >= 0 && dot(element.area(triangle), element.area(element.corners(f))) < 1e-3)
            return false;
    }
    return true;
}

/// The triangles of each face have its area in sum.
bool trianglesCoverFaces(Element const & element) {
    std::vector<double> covered(static_cast<std::size_t>(element.faces()));
    for (Nodes const & triangle : triangles(element))
        if (int const f = faceOf(element, triangle); f >= 0)
            covered[static_cast<std::size_t>(f)] += length(element.area(triangle));
    for (int f = 0; f < element.faces(); ++f)
        if (!isZero(covered[static_cast<std::size_t>(f)] - length(element.area(element.corners(f)))))
            return false;
    return true;
}

/// Triangles meet side to side, without a gap: each side is there once in each direction. Only the outline of a planar
/// element is there in one direction.
bool trianglesMeet(Element const & element) {
    std::set<std::pair<int, int>> sides, outline;
    for (Nodes const & t : triangles(element))
        for (std::size_t i = 0; i < 3; ++i)
            if (!sides.insert({t[i], t[(i + 1) % 3]}).second)
                return false;
    if (element.dimensions() == 2) {
        for (Nodes const & e : element.edges(0))
            for (std::size_t i = 0; i + 1 < e.size(); ++i)
                outline.insert({e[i], e[i + 1]});
        if (element.is(shp_keyInfinite))
            outline.insert({2, 3});
    }
    for (auto const & [from, to] : sides)
        if (sides.count({to, from}) + outline.count({from, to}) != 1)
            return false;
    return std::includes(sides.begin(), sides.end(), outline.begin(), outline.end());
}

/// Turning the element inside out twice gives it back.
bool reversalIsItsOwnInverse(Element const & element) {
    Nodes const image = element.reversed();
    for (int node = 0; node < element.nodes(); ++node)
        if (image[static_cast<std::size_t>(image[static_cast<std::size_t>(node)])] != node)
            return false;
    return true;
}

/// The reversed element has the faces and edges of the old one, each running the other way round.
bool reversalTurnsInsideOut(Element const & element) {
    Nodes const image = element.reversed();
    auto const renamed = [&](Nodes nodes) {
        for (int & node : nodes)
            node = image[static_cast<std::size_t>(node)];
        return nodes;
    };
    std::set<std::pair<std::set<Nodes>, std::set<int>>> before, after;
    for (int f = 0; f < element.faces(); ++f) {
        std::set<Nodes> edges, turned;
        for (Nodes e : element.edges(f)) {
            edges.insert(e);
            std::reverse(e.begin(), e.end());
            turned.insert(renamed(e));
        }
        Nodes const nodes = element.face(f), moved = renamed(nodes);
        before.insert({edges, {nodes.begin(), nodes.end()}});
        after.insert({turned, {moved.begin(), moved.end()}});
    }
    return before == after;
}

/// As many entries as there are edges name each edge once.
bool edgeMapNamesEachEdge(Element const & element) {
    EdgeUses const uses = edgeUses(element);
    std::set<Nodes> named;
    for (std::size_t i = 0; i < uses.size(); ++i) {
        int const f = element.shape.edgeMapTbl[2 * i], e = element.shape.edgeMapTbl[2 * i + 1];
        if (f >= element.faces() || e >= element.shape.NumEdgesPerFace(f))
            return false;
        Nodes edge = element.edge(f, e);
        if (edge.front() > edge.back())
            std::reverse(edge.begin(), edge.end());
        named.insert(edge);
    }
    return named.size() == uses.size();
}

/// Faces with as many corners and nodes have as many integration points, and the largest number is the element type's.
bool facePointsGoByKindOfFace(Element const & element) {
    bool const isByEdge = element.dimensions() == 2 && element.shape.NumSpatialDimensions() == 2;
    int const entries = isByEdge ? element.shape.NumEdgesPerFace(0) : element.faces();
    std::map<std::pair<std::size_t, std::size_t>, int> pointsOf;
    int largest = 0;
    for (int i = 0; i < entries; ++i) {
        int const f = isByEdge ? 0 : i, points = element.shape.intPtsPerFaceTbl[i];
        largest = std::max(largest, points);
        if (pointsOf.insert({{element.corners(f).size(), element.face(f).size()}, points}).first->second != points)
            return false;
    }
    return largest == element.shape.maxIntPtsPerFace;
}

using Holds = bool (*)(Element const &);

struct Law {
    char const * name;
    Holds holds;
    int fromDimension; ///< geometry dimensions that an element must have for the law to speak of it
};

constexpr Law laws[] = {
    {"facesInOrderOfTheirCentres", facesInOrderOfTheirCentres, 2},
    {"edgesGoAroundTheirFace", edgesGoAroundTheirFace, 2},
    {"faceFollowsItsEdges", faceFollowsItsEdges, 2},
    {"faceHasAllNodesOfItsPlane", faceHasAllNodesOfItsPlane, 1},
    {"facesOutward", facesOutward, 2},
    {"edgesJoinFaces", edgesJoinFaces, 2},
    {"midsideNodesAtMiddles", midsideNodesAtMiddles, 1},
    {"trianglesLieOnFaces", trianglesLieOnFaces, 2},
    {"trianglesFaceOutward", trianglesFaceOutward, 2},
    {"trianglesCoverFaces", trianglesCoverFaces, 2},
    {"trianglesMeet", trianglesMeet, 2},
    {"reversalIsItsOwnInverse", reversalIsItsOwnInverse, 1},
    {"reversalTurnsInsideOut", reversalTurnsInsideOut, 1},
    {"edgeMapNamesEachEdge", edgeMapNamesEachEdge, 1},
    {"facePointsGoByKindOfFace", facePointsGoByKindOfFace, 1},
};

/// Element types and the laws that each of them breaks.
struct Exception {
    char const * reason;
    bool (*types)(Element const &);
    std::array<Holds, 5> broken;
};

constexpr Exception exceptions[] = {
    {"the infinite line's edge runs 0 2 1; its locations and its reversal are those of the other lines",
     [](Element const & e) { return e.isShape(shp_keyLine, 3) && e.is(shp_keyInfinite); },
     {midsideNodesAtMiddles, reversalTurnsInsideOut}},
    {"numbered in two rows, but listed, cut and reversed as a ring",
     [](Element const & e) { return e.is(shp_keyQuad) && e.is(shp_keyGasket); },
     {faceFollowsItsEdges, trianglesFaceOutward, trianglesMeet, reversalTurnsInsideOut}},
    {"the same with midside nodes: not even the area is right",
     [](Element const & e) { return e.isShape(shp_keyQuad, 6) && e.is(shp_keyGasket); },
     {trianglesCoverFaces}},
    {"midside nodes on two opposite edges, cut as if they were on the other two",
     [](Element const & e) { return e.isShape(shp_keyQuad, 6) && e.is(shp_keyPipeSoil); },
     {trianglesFaceOutward, trianglesCoverFaces, trianglesMeet}},
    {"nodes 4 and 5 have changed sides against the cylindrical element, whose triangles it has",
     [](Element const & e) { return e.isShape(shp_keyQuad, 6) && e.is(shp_keyCohesive); },
     {faceFollowsItsEdges, trianglesFaceOutward, trianglesMeet}},
    {"the reversal leaves the midside nodes of the two sides that it exchanges where they are",
     [](Element const & e) { return e.isShape(shp_keyQuad, 6) && (e.is(shp_keyCohesive) || e.is(shp_keyCylindrical)); },
     {reversalTurnsInsideOut}},
    {"the reversal exchanges the open side with the one opposite",
     [](Element const & e) { return e.is(shp_keyQuad) && e.is(shp_keyInfinite); },
     {reversalTurnsInsideOut}},
    {"the points of the whole element are counted at its first edge",
     [](Element const & e) { return e.isShape(shp_keyQuad, 5); },
     {facePointsGoByKindOfFace}},
    {"one face lists its midside nodes against the order of its edges; the reversal is that of another numbering",
     [](Element const & e) { return e.is(shp_keyGasket) && (e.nodes() == 12 || e.nodes() == 18); },
     {faceFollowsItsEdges, reversalTurnsInsideOut}},
    {"the largest number of points is that of the other prisms, which no face of it has",
     [](Element const & e) { return e.isShape(shp_keyPrism, 12); },
     {facePointsGoByKindOfFace}},
    {"midside nodes of the outer ring are listed, which has no edges; the reversal is that of another numbering",
     [](Element const & e) { return e.isShape(shp_keyHex, 18) && e.is(shp_keyInfinite); },
     {faceFollowsItsEdges, reversalTurnsInsideOut}},
    {"the triangle 6 3 1 stands where 6 3 11 would close the side",
     [](Element const & e) { return e.isShape(shp_keyHex, 18); },
     {trianglesFaceOutward, trianglesCoverFaces, trianglesMeet}},
    {"the reversal is that of the 20-node hexahedron, which has its midside nodes elsewhere",
     [](Element const & e) { return e.isShape(shp_keyHex, 12) || e.isShape(shp_keyHex, 24); },
     {reversalTurnsInsideOut}},
    {"the triangle 7 24 19 names a node that the element does not have",
     [](Element const & e) { return e.isShape(shp_keyHex, 24); },
     {trianglesLieOnFaces, trianglesCoverFaces, trianglesMeet}},
    {"numbered as the cylindrical hexahedron, but cut as the infinite one, with the edge map of the 20-node one",
     [](Element const & e) { return e.isShape(shp_keyHex, 12) && e.is(shp_keyCohesive); },
     {trianglesLieOnFaces, trianglesFaceOutward, trianglesCoverFaces, edgeMapNamesEachEdge}},
    {"the edge map is that of closed hexahedra, and names slots without an edge",
     [](Element const & e) { return e.is(shp_keyHex) && e.is(shp_keyInfinite); },
     {edgeMapNamesEachEdge}},
    {"the last two faces begin at other corners than those for which the edge map was made",
     [](Element const & e) { return e.isShape(shp_keyHex, 27); },
     {edgeMapNamesEachEdge}},
    {"both ends are cut facing inwards, the side 2-0 is crossed; the reversal is that of the 15-node prism",
     [](Element const & e) { return e.isShape(shp_keyPrism, 9); },
     {trianglesLieOnFaces, trianglesFaceOutward, trianglesCoverFaces, trianglesMeet, reversalTurnsInsideOut}},
    {"located with nodes 6 to 8 at midsides, not halfway up the edges; the edge map is that of the 15-node prism",
     [](Element const & e) { return e.isShape(shp_keyPrism, 9) && e.is(shp_keyCohesive); },
     {faceHasAllNodesOfItsPlane, midsideNodesAtMiddles, edgeMapNamesEachEdge}},
    {"the triangles 14 14 5, 16 3 8 and 17 8 3",
     [](Element const & e) { return e.isShape(shp_keyPrism, 18) && e.is(shp_keyCylindrical); },
     {trianglesLieOnFaces, trianglesFaceOutward, trianglesCoverFaces, trianglesMeet}},
    {"a reversal is defined for prisms of up to 15 nodes",
     [](Element const & e) { return e.isShape(shp_keyPrism, 18); },
     {reversalTurnsInsideOut}},
};

/// Whether the list says that `element` breaks the law; notes in `used` which entries say so.
bool isExcepted(Element const & element, Holds law, std::set<Holds const *> & used) {
    bool found = false;
    for (Exception const & exception : exceptions)
        for (Holds const & broken : exception.broken)
            if (broken == law && exception.types(element)) {
                found = true;
                used.insert(&broken);
            }
    return found;
}

template <class Visit> void forEachElement(Visit visit) {
    shp_ShapeDictionary & dictionary = omi_Singleton<shp_ShapeDictionary>::Instance();
    omi_BtreeIterator<cow_String, void *> labels(dictionary.Keys());
    for (bool more = labels.First(); more; more = labels.Next())
        visit(Element(*dictionary.GetShape(labels.CurrentKey())));
}

Element element(char const * label) {
    return Element(*omi_Singleton<shp_ShapeDictionary>::Instance().GetShape(label));
}

} // namespace

TEST(Connectivity, OfEveryLabelKeepsEveryLawThatIsNotOnItsListOfExceptions) {
    std::set<Holds const *> used;
    forEachElement([&](Element const & element) {
        for (Law const & law : laws) {
            bool const isKept = !isExcepted(element, law.holds, used);
            if (element.dimensions() >= law.fromDimension) {
                EXPECT_EQ(law.holds(element), isKept) << element.shape.label.CStr() << " " << law.name;
            }
        }
    });
    for (Exception const & exception : exceptions)
        for (Holds const & broken : exception.broken)
            EXPECT_TRUE(broken == nullptr || used.count(&broken) == 1) << "no label for: " << exception.reason;
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
    for (auto const & surface : surfaces) {
        Element mended = element(surface.label);
        mended.mendedTriangles = surface.mended;
        EXPECT_TRUE(trianglesLieOnFaces(mended)) << surface.label;
        EXPECT_TRUE(trianglesFaceOutward(mended)) << surface.label;
        EXPECT_TRUE(trianglesCoverFaces(mended)) << surface.label;
        EXPECT_TRUE(trianglesMeet(mended)) << surface.label;
    }
}

// Reads every slot, filler included: under AddressSanitizer a table that is shorter than its strides is found here.
TEST(Connectivity, TablesAreAsLongAsTheirStridesSay) {
    forEachElement([](Element const & element) {
        shp_Shape const & shape = element.shape;
        auto const isNode = [&](int node) { return node >= -1 && node < shape.NumNodesPerElem(); };
        for (int f = 0; f < element.faces(); ++f) {
            EXPECT_LE(shape.NumEdgesPerFace(f), shape.maxEdgesPerFace) << shape.label.CStr();
            EXPECT_LE(shape.NumNodesPerFace(f), shape.maxNodesPerFace) << shape.label.CStr();
            EXPECT_GE(shape.intPtsPerFaceTbl[f], 1) << shape.label.CStr();
            for (int i = 0; i < shape.maxNodesPerFace; ++i)
                EXPECT_TRUE(isNode(shape.FaceNodeIndex(f, i))) << shape.label.CStr();
            for (int e = 0; e < shape.maxEdgesPerFace; ++e) {
                EXPECT_LE(shape.NumNodesPerEdge(f, e), shape.maxNodesPerEdge) << shape.label.CStr();
                for (int i = 0; i < shape.maxNodesPerEdge; ++i)
                    EXPECT_TRUE(isNode(shape.EdgeNodeIndex(f, e, i))) << shape.label.CStr();
            }
        }
    });
}

TEST(Connectivity, OfSeveralPlanesRepeatsTheSectionPlaneAfterPlane) {
    int sections = 0;
    forEachElement([&](Element const & element) {
        shp_Shape const & shape = element.shape;
        if (!element.is(shp_keyCaxa))
            return;
        ++sections;
        int const planes = shape.options.Mode() + 1;
        ASSERT_EQ(shape.NumNodesPerElem(), planes * element.nodes());
        ASSERT_EQ(shape.NumNodesPerFace(0), shape.NumNodesPerElem());
        for (int i = 0; i < shape.NumNodesPerElem(); ++i)
            EXPECT_EQ(shape.FaceNodeIndex(0, i), i);
        for (int e = 0; e < shape.NumEdgesPerFace(0); ++e) {
            int const inPlane = shape.BaseNodesPerEdge(0, e);
            ASSERT_EQ(shape.NumNodesPerEdge(0, e), planes * inPlane);
            for (int i = 0; i < planes * inPlane; ++i)
                EXPECT_EQ(shape.EdgeNodeIndex(0, e, i),
                          shape.EdgeNodeIndex(0, e, i % inPlane) + i / inPlane * element.nodes());
        }
    });
    EXPECT_EQ(sections, 48);
}

TEST(Connectivity, ReversedEdgeRunsTheOtherWay) {
    forEachElement([](Element const & element) {
        for (int f = 0; f < element.faces(); ++f)
            for (int e = 0; e < element.shape.NumEdgesPerFace(f); ++e) {
                Nodes turned = element.edge(f, e), expected(turned.rbegin(), turned.rend());
                element.shape.ReverseEdgeConnectivity(turned.data(), f, e);
                EXPECT_EQ(turned, expected) << element.shape.label.CStr();
            }
    });
    // A slot without an edge: nothing is read or written.
    element("C3D6").shape.ReverseEdgeConnectivity(nullptr, 0, 3);
}

TEST(Connectivity, ReversedFaceOfFirstOrderFacesTheOtherWay) {
    forEachElement([](Element const & element) {
        bool const isRing = element.dimensions() >= 2 && !element.is(shp_keyGasket) && !element.is(shp_keyCaxa);
        if (element.shape.interpolationOrder != 1 || !isRing)
            return;
        for (int f = 0; f < element.faces(); ++f) {
            Nodes face = element.face(f);
            Vector const before = element.area(face);
            element.shape.ReverseFaceConnectivity(face.data(), f);
            EXPECT_TRUE(isZero(length(before + element.area(face)))) << element.shape.label.CStr();
        }
    });
}

TEST(Connectivity, ReversedFaceOfHigherOrderIsPermutedAsTheElement) {
    Element const shell = element("S8R"), gasket = element("GKPE6");
    Nodes face = shell.face(0);
    shell.shape.ReverseFaceConnectivity(face.data(), 0);
    EXPECT_EQ(face, shell.reversed());
    // Two rows of three: only the first four entries change places, pair by pair.
    face = gasket.face(0);
    gasket.shape.ReverseFaceConnectivity(face.data(), 0);
    EXPECT_EQ(face, (Nodes{1, 0, 3, 2, 4, 5}));
}

TEST(Connectivity, ReversalLeavesAnEntryAloneWhoseSourceTheElementDoesNotHave) {
    EXPECT_EQ(element("CINPE5R").reversed(), (Nodes{3, 2, 1, 0, 4}));
    EXPECT_EQ(element("GK3D18").reversed().at(16), 16);
    EXPECT_EQ(element("CCL24").reversed().at(23), 23);
}

// What no law of geometry decides: at which corner a face begins. Stored results go by it.
TEST(Connectivity, FacesBeginAtTheCornersThatStoredResultsKnow) {
    EXPECT_EQ(element("C3D8").face(4), (Nodes{3, 7, 6, 2}));
    EXPECT_EQ(element("C3D8").face(5), (Nodes{4, 7, 3, 0}));
    EXPECT_EQ(element("C3D20").face(5), (Nodes{4, 7, 3, 0, 15, 19, 11, 16}));
    EXPECT_EQ(element("C3D27").face(4), (Nodes{2, 3, 7, 6, 10, 19, 14, 18, 25}));
    EXPECT_EQ(element("C3D27").face(5), (Nodes{3, 0, 4, 7, 11, 16, 15, 19, 26}));
    EXPECT_EQ(element("CCL24").face(2), (Nodes{1, 5, 4, 0, 9, 16, 8, 12, 20}));
    EXPECT_EQ(element("CIN3D8").face(5), (Nodes{4, 5, 6, 7}));
    EXPECT_EQ(element("GK3D18").face(5), (Nodes{8, 11, 3, 0, 15, 7}));
    EXPECT_EQ(element("ACIN2D3").face(0), (Nodes{0, 2, 1}));
    EXPECT_EQ(element("ACIN2D3").edge(0, 0), (Nodes{0, 2, 1}));
    EXPECT_EQ(element("GK2D2").face(0), (Nodes{0, 1}));
}

TEST(Connectivity, OfAnUnknownCombinationIsNull) {
    unsigned int const hexOfNineNodes[] = {shp_keyHex, shp_keyNodes9, shp_key3D};
    LongKey key;
    key.setBits(3, hexOfNineNodes);
    shp_Options const hex(key), nothing{LongKey()};
    for (auto const * options : {&hex, &nothing}) {
        int numTriangles = 7;
        EXPECT_EQ(shp_ConnectivityTables::getFaceTriTblPtr(*options, numTriangles), nullptr);
        EXPECT_EQ(numTriangles, 0);
        EXPECT_EQ(shp_ConnectivityTables::getNdPerEdgTblPtr(*options), nullptr);
        EXPECT_EQ(shp_ConnectivityTables::getNdPerFcTblPtr(*options), nullptr);
        EXPECT_EQ(shp_ConnectivityTables::getIpPerFcTblPtr(*options), nullptr);
        EXPECT_EQ(shp_ConnectivityTables::getFaceConnTblPtr(*options), nullptr);
        EXPECT_EQ(shp_ConnectivityTables::getEdgeConnTblPtr(*options), nullptr);
    }
    EXPECT_NE(shp_ConnectivityTables::getEdgPerFcTblPtr(hex), nullptr);
    EXPECT_EQ(shp_ConnectivityTables::getRevConnTblPtr(nothing), nullptr);
}
