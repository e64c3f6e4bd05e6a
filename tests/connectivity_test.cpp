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

    bool is(int bit) const { return shape.options.IsType(bit); }
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

/// A face lists its corners, the midside nodes of its edges, and perhaps its centre, in the order of its edges.
bool faceFollowsItsEdges(Element const & element) {
    for (int f = 0; f < element.faces(); ++f) {
        Nodes expected = element.corners(f);
        Nodes const ring = expected;
        for (Nodes const & e : element.edges(f))
            if (e.size() == 3)
                expected.push_back(e[1]);
        Nodes const listed = element.face(f);
        if (listed.size() > expected.size())
            expected.push_back(listed.back());
        if (listed != expected)
            return false;
        for (std::size_t i = 0; i < ring.size() && !element.is(shp_keyInfinite); ++i)
            if (element.edges(f)[i].back() != ring[(i + 1) % ring.size()])
                return false;
    }
    return true;
}

/// A solid's face is a plane, and the face lists every node in it.
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
    for (int t = 0; t < element.shape.NumFaceTriangles(); ++t, nodes += 3)
        all.push_back({nodes[0], nodes[1], nodes[2]});
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

/// A solid's triangles meet side to side, without a gap: each side is there once in each direction.
bool trianglesMeet(Element const & element) {
    std::map<std::pair<int, int>, int> sides;
    for (Nodes const & t : triangles(element))
        for (std::size_t i = 0; i < 3; ++i)
            ++sides[{t[i], t[(i + 1) % 3]}];
    return std::all_of(sides.begin(), sides.end(), [&](auto const & side) {
        auto const twin = sides.find({side.first.second, side.first.first});
        return side.second == 1 && twin != sides.end() && twin->second == 1;
    });
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

/// No face has more integration points than the element type says at most.
bool facePointsWithinMaximum(Element const & element) {
    bool const isByEdge = element.dimensions() == 2 && element.shape.NumSpatialDimensions() == 2;
    int const entries = isByEdge ? element.shape.NumEdgesPerFace(0) : element.faces();
    int const * points = element.shape.intPtsPerFaceTbl;
    return *std::max_element(points, points + entries) <= element.shape.maxIntPtsPerFace;
}

struct Law {
    char const * name;
    bool (*holds)(Element const &);
    int fromDimension; ///< geometry dimensions that an element must have for the law to speak of it
};

constexpr Law laws[] = {
    {"faceFollowsItsEdges", faceFollowsItsEdges, 2},
    {"faceHasAllNodesOfItsPlane", faceHasAllNodesOfItsPlane, 3},
    {"facesOutward", facesOutward, 2},
    {"edgesJoinFaces", edgesJoinFaces, 2},
    {"midsideNodesAtMiddles", midsideNodesAtMiddles, 1},
    {"trianglesLieOnFaces", trianglesLieOnFaces, 2},
    {"trianglesFaceOutward", trianglesFaceOutward, 2},
    {"trianglesCoverFaces", trianglesCoverFaces, 2},
    {"trianglesMeet", trianglesMeet, 3},
    {"reversalIsItsOwnInverse", reversalIsItsOwnInverse, 1},
    {"reversalTurnsInsideOut", reversalTurnsInsideOut, 1},
    {"edgeMapNamesEachEdge", edgeMapNamesEachEdge, 1},
    {"facePointsWithinMaximum", facePointsWithinMaximum, 1},
};

struct Exception {
    bool (*holds)(Element const &);
    bool (*types)(Element const &);
    char const * reason;
};

bool isShape(Element const & element, int shape, int nodes) {
    return element.shape.options.Shape() == shape && element.shape.options.NumNodes() == nodes;
}

constexpr Exception exceptions[] = {
    {nullptr, [](Element const & e) { return isShape(e, 1, 1); }, ""},
};

template <class Visit> void forEachElement(Visit visit) {
    shp_ShapeDictionary & dictionary = omi_Singleton<shp_ShapeDictionary>::Instance();
    omi_BtreeIterator<cow_String, void *> labels(dictionary.Keys());
    for (bool more = labels.First(); more; more = labels.Next())
        visit(Element(*dictionary.GetShape(labels.CurrentKey())));
}

} // namespace

TEST(Connectivity, OfEveryLabelKeepsTheLawsThatNoExceptionIsMadeOf) {
    std::set<Exception const *> used;
    forEachElement([&](Element const & element) {
        for (Law const & law : laws) {
            if (element.dimensions() < law.fromDimension)
                continue;
            bool isExcepted = false;
            for (Exception const & exception : exceptions)
                if (exception.holds == law.holds && exception.types(element)) {
                    isExcepted = true;
                    used.insert(&exception);
                }
            EXPECT_EQ(law.holds(element), !isExcepted) << element.shape.label.CStr() << " " << law.name;
        }
    });
    EXPECT_EQ(used.size(), std::size(exceptions));
}
