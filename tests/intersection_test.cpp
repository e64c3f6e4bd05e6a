// Where a line meets an element, or a point, a line or a triangle.

#include "g3d_GeomUtils.h"
#include "positions.h"
#include "shp_KeyBit.h"

#include <array>
#include <cmath>

namespace {

using Parameters = std::vector<double>;
using Utils = g3d_GeomUtils;

g3d_Storage somewhere(double reach) {
    return {between(-reach, reach), between(-reach, reach), between(-reach, reach)};
}

g3d_Storage blend(g3d_Storage const & a, g3d_Storage const & b, double t) {
    return {a.X() + t * (b.X() - a.X()), a.Y() + t * (b.Y() - a.Y()), a.Z() + t * (b.Z() - a.Z())};
}

/// An affine image of an isoparametric location.
g3d_Storage image(double g, double h, double r) {
    return {3 + 2 * g - h, 1 + 0.5 * g + 3 * h + 0.2 * r, -2 + h + 4 * r};
}

/// The hits of a line with an element.
struct Hits {
    int count = -1;
    double params[3] = {};
    float iso[3][3] = {};
    g3d_Storage points[3];

    Hits(shp_Topology const & t, Positions coords, g3d_Storage const & p, g3d_Storage const & q, bool flag) {
        bool const isHit = t.LineShapeIntersection(p, q, coords.data(), params, iso, count, flag, points);
        EXPECT_EQ(count > 0, isHit);
        for (int i = 0; i < count && t.NumFaceTriangles() > 0; ++i)
            EXPECT_LT(distance(points[i], blend(p, q, params[i])), 1e-6);
    }
    Parameters parameters() const { return {params, params + count}; }
};

void expectNear(Parameters const & actual, Parameters const & expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-6);
}

void expectAt(float const * iso, std::array<double, 3> const & expected) {
    for (std::size_t c = 0; c < 3; ++c)
        EXPECT_NEAR(iso[c], expected[c], 2e-6);
}

} // namespace

TEST(Line, MeetsALine) {
    auto const meet = [](g3d_Storage const & q0, g3d_Storage const & q1, bool flag, bool flag2 = true) {
        double t[2], s[2];
        int count = -1;
        bool const isHit = Utils::LineLineIntersection({0, 0, 0}, {4, 0, 0}, q0, q1, t, s, count, flag, flag2);
        EXPECT_EQ(isHit, count > 0);
        Parameters hits;
        for (int i = 0; i < count; ++i)
            hits.insert(hits.end(), {t[i], s[i]});
        return hits;
    };
    expectNear(meet({1, -1, 0.99e-6}, {2, 3, 0.99e-6}, true), {0.3125, 0.25});
    expectNear(meet({1, -1, 1.01e-6}, {2, 3, 1.01e-6}, false), {});
    expectNear(meet({1, 0.99e-6, 0}, {1, 3, 0}, true), {0.25, 0});
    expectNear(meet({1, 1.01e-6, 0}, {1, 3, 0}, false), {});
    expectNear(meet({1, 1, 0}, {1, 3, 0}, true, false), {0.25, -0.5});
    expectNear(meet({5, -1, 0}, {5, 3, 0}, true), {});
    expectNear(meet({1, 1e-3, 0}, {2, 1e-3, 0}, false), {}); // parallel
    expectNear(meet({1, 0, 0}, {1, 0, 0}, false), {});       // no line
    expectNear(meet({1, 0, 0}, {std::nan(""), 0, 0}, false), {});
    // Collinear: the whole of the second line, or the ends of what both have.
    expectNear(meet({3, 0, 0}, {1, 5e-7, 0}, true), {0.75, 0, 0.25, 1});
    expectNear(meet({-1, 0, 0}, {3, 0, 0}, false), {-0.25, 0, 0.75, 1});
    expectNear(meet({6, 0, 0}, {-2, 0, 0}, true), {1, 0.25, 0, 0.75});
    expectNear(meet({2, 0, 0}, {1, 0, 0}, true, false), {1, -2, 0, 2});
    expectNear(meet({4, 0, 0}, {6, 0, 0}, true), {1, 0});
}

TEST(Line, MeetsATriangle) {
    auto const meet = [](g3d_Storage const & p, g3d_Storage const & q, bool flag, g3d_Storage const & c = {0, 4, 0}) {
        double t[2], u[2], v[2];
        int count = -1;
        bool const isHit = Utils::LineTriIntersection(p, q, {0, 0, 0}, {4, 0, 0}, c, t, u, v, count, flag);
        EXPECT_EQ(isHit, count > 0);
        for (int i = 0; i < count; ++i)
            EXPECT_LE(distance(blend(p, q, t[i]), {4 * u[i], 4 * v[i], 0}), 1.01e-6);
        return Parameters(t, t + count);
    };
    // Across: through a corner, on an edge, beyond the segment.
    expectNear(meet({1, 1, 1}, {-1, -1, -1}, true), {0.5});
    expectNear(meet({2, 2, -1}, {2, 2, 3}, true), {0.25});
    expectNear(meet({1, 1, 3}, {1, 1, 0.9e-6}, true), {1});
    expectNear(meet({1, 1, 3}, {1, 1, 1}, true), {});
    // In the plane: across, along an edge, through and past a corner, from inside, wholly inside, beyond the segment.
    expectNear(meet({-1, 1, 0.9e-6}, {7, 1, -0.9e-6}, true), {0.125, 0.5});
    expectNear(meet({-1, 1, 1.1e-6}, {7, 1, 1.1e-6}, true), {});
    expectNear(meet({6, -2, 0}, {-2, 6, 0}, true), {0.25, 0.75});
    expectNear(meet({6, -1.999, 0}, {-2, 6.001, 0}, true), {});
    expectNear(meet({-1, 1e-9, 0}, {7, -1.5e-8, 0}, false), {0.125, 0.3125}); // leaves the edge's slack half-way
    expectNear(meet({-1, 3, 0}, {1, 5, 0}, true), {0.5});
    expectNear(meet({-1, 3.001, 0}, {1, 5, 0}, true), {});
    EXPECT_EQ(meet({1, 1, 0}, {9, 1, 0}, true), (Parameters{0, 0.25}));
    expectNear(meet({1, 1, 0}, {9, 1, 0}, false), {-0.125, 0.25});
    expectNear(meet({5, 1, 0}, {9, 1, 0}, true), {});
    // Nothing to meet: a line without length, triangles without area.
    expectNear(meet({1, 1, 0}, {1, 1, 0}, false), {});
    for (g3d_Storage const & c : {g3d_Storage(1, 0, 0), g3d_Storage(4, 0, 0), g3d_Storage(std::nan(""), 1, 0)}) {
        expectNear(meet({1, 0, 1}, {1, 0, -1}, false, c), {});
        expectNear(meet({-1, 0, 0}, {7, 0, 0}, false, c), {});
    }
}

TEST(Intersection, OfABrickWithLinesOfEveryKind) {
    shp_Topology const & t = shapeOf("C3D8");
    Positions const coords = element(t, [](double x, double y, double z) { return g3d_Storage(1 + x, 1 + y, 1 + z); });
    auto const meet = [&](g3d_Storage const & p, g3d_Storage const & q, bool flag) {
        return Hits(t, coords, p, q, flag).parameters();
    };
    for (bool flag : {false, true}) {
        expectNear(meet({-1, 1, 1}, {3, 1, 1}, flag), {0.25, 0.75});     // through, on edges of triangles
        expectNear(meet({3, 1, 1}, {-1, 1, 1}, flag), {0.25, 0.75});     // reversed
        expectNear(meet({-1, 0, 0.5}, {3, 0, 0.5}, flag), {0.25, 0.75}); // in a face
        expectNear(meet({-1, 0, 0}, {3, 0, 0}, flag), {0.25, 0.75});     // along an edge
        expectNear(meet({-1, 1, 1}, {1, -1, 1}, flag), {0.5});           // touches an edge
        expectNear(meet({-1, 1, 2}, {1, 1, 4}, flag), {});               // beside
        expectNear(meet({1, 1, 1}, {1, 1, 1}, flag), {});                // no line
        expectNear(meet({1, 1, 1}, {1, HUGE_VAL, 1}, flag), {});
    }
    expectNear(meet({1, 1, 1}, {5, 1, 1}, true), {0.25}); // from inside
    expectNear(meet({1, 1, 1}, {5, 1, 1}, false), {-0.25, 0.25});
    expectNear(meet({-3, 1, 1}, {-1, 1, 1}, false), {}); // nothing before 1.5
    expectNear(meet({-3, 1, 1}, {-0.9, 1, 1}, false), {3 / 2.1, 5 / 2.1});
    expectNear(Hits(t, Positions(8), {-1, 0, 0}, {1, 0, 0}, false).parameters(), {});
    expectNear(meet({2, 1, 1}, {3, 1, 1}, false), {0}); // a hit at the start hides what lies before it
    expectNear(meet({0, 1, 1}, {-1, 1, 1}, false), {0});
    // A parameter near the start of a long line keeps its value; the same distance on a short one counts as none.
    EXPECT_NEAR(meet({-4e-7, 1, 1}, {3, 1, 1}, false)[0], 4e-7 / 3.0000004, 1e-15);
    EXPECT_EQ(meet({-4e-7, 1, 1}, {1e-3, 1, 1}, false)[0], 0);
    EXPECT_EQ(meet({2 - 4e-7, 1, 1}, {2 + 1e-3, 1, 1}, false)[1], 0);
    EXPECT_NEAR(meet({-1, 0.3, 0.7}, {2, 1.1, 1.3}, false)[1], 1, 1e-15); // not formed anew from float weights
}

// The triangles of an 8-node quadrilateral meet in the centre of the curved face.
TEST(Intersection, CompletesTheCentreOfAnEightNodeQuadrilateral) {
    shp_Topology const & t = shapeOf("S8R");
    Positions coords = element(t, image);
    coords[5] = {9, 9, 9};
    float iso[3] = {};
    g3d_Storage const centre = t.InterpolatePointFromNodes(coords.data(), iso);
    EXPECT_TRUE(t.FindPointInShape(centre, {3, 1, 9}, coords.data(), iso));
    EXPECT_LT(distance(coords[8], centre), 1e-12);
    expectAt(iso, {0, 0, 0});
}

// A triangle names a 25th node, and is as if it were not there; the array has no such node.
TEST(Intersection, PassesOverATriangleWithoutItsNode) {
    shp_Topology const & t = shapeOf("CCL24");
    Positions const coords = element(t, image);
    g3d_Storage const inside = blend(coords[0], coords[6], 0.5), edge = blend(coords[19], coords[23], 0.5);
    EXPECT_EQ(Hits(t, coords, inside, blend(edge, coords[7], 0.1), true).count, 0);
    EXPECT_EQ(Hits(t, coords, inside, blend(edge, coords[8], 0.1), true).count, 1);
}

TEST(Intersection, OfALineElementIsThatOfItsSegments) {
    shp_Topology const &two = shapeOf("T3D2"), &three = shapeOf("T3D3");
    Positions bent = {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}};
    Hits const both(three, bent, {0, -0.5, 0}, {4, 3.5, 0}, true); // each segment has its own g from -1 to 1
    expectNear(both.parameters(), {0.125, 0.5});
    expectAt(both.iso[0], {-0.5, 0, 0});
    expectAt(both.iso[1], {0.5, 0, 0});
    EXPECT_LT(distance(both.points[1], three.InterpolatePointFromNodes(bent.data(), both.iso[1])), 1e-12);
    expectNear(Hits(three, bent, {1, -1, 0}, {3, 1, 0}, true).parameters(), {0.5}); // the corner is one hit
    Hits const along(three, {{0, 0, 0}, {2, 0, 0}, {4, 0, 0}}, {-4, 0, 0}, {4, 0, 0}, true);
    expectNear(along.parameters(), {0.5, 1, 0.75}); // the middle node is a hit of its own
    float iso[3];
    EXPECT_TRUE(two.FindPointInShape({0.5, 0, 0}, {0.5, 1, 0}, bent.data(), iso));
    expectAt(iso, {-0.5, 0, 0});
}

TEST(Intersection, OfAPointNeedsAKeyWithoutShape) {
    shp_Topology const nothing{LongKey()};
    auto const meet = [&](g3d_Storage const & q, g3d_Storage const & point, bool flag) {
        return Hits(nothing, {point}, {1, 2, 3}, q, flag).parameters();
    };
    expectNear(meet({1, 2, 5}, {1 + 0.99e-6, 2, 4.5}, true), {0.75});
    expectNear(meet({1, 2, 5}, {1 + 1.01e-6, 2, 4.5}, true), {});
    expectNear(meet({1, 2, 5}, {1, 2, 5 + 0.99e-6}, true), {1});
    expectNear(meet({1, 2, 5}, {1, 2, 5 + 1.01e-6}, true), {});
    expectNear(meet({1, 2, 5}, {1, 2, 1}, false), {-1});
    expectNear(meet({1, 2, 3}, {1, 2, 3}, false), {});
    EXPECT_EQ(Hits(shapeOf("MASS"), {{1, 2, 3}}, {1, 2, 0}, {1, 2, 4}, false).count, 0);
    Positions node = {{1, 2, 3}};
    EXPECT_FALSE(nothing.FindPointInShape({1, 2, 0}, {1, 2, 4}, node.data(), nullptr));
    EXPECT_TRUE(nothing.FindPointInShape({1, 2, 3}, {1, 2, 4}, node.data(), nullptr));
}

TEST(Intersection, OfAKeyWithoutTrianglesIsNone) {
    shp_Topology const t(keyOf({shp_keyQuad, shp_keyNodes1, shp_key3D}));
    Positions coords(1);
    int count = 7;
    EXPECT_FALSE(t.LineShapeIntersection({0, 0, 0}, {1, 1, 1}, coords.data(), nullptr, nullptr, count, true, nullptr));
    EXPECT_FALSE(t.FindPointInShape({0, 0, 0}, {1, 1, 1}, coords.data(), nullptr));
    EXPECT_EQ(count, 7);
}

// Positions are an affine image of the node locations, so that every location is exact. Some tables of triangles leave
// a gap, and a line through it misses one side.
TEST(PointInShape, IsFoundBetweenTheHitsOnBothSides) {
    forEachShape([](shp_Shape const & t) {
        int const shape = t.options.Shape(), nodes = t.BaseNodesPerElem();
        if (t.NumFaceTriangles() == 0)
            return;
        bool const hasGaps = (shape == shp_keyPrism && (nodes == 9 || t.isCylindrical)) ||
                             (shape == shp_keyHex && (nodes == 18 || nodes == 24 || (nodes == 12 && t.isCohesive))) ||
                             (shape == shp_keyQuad && nodes == 6 && t.isCohesive);
        Positions coords = element(t, image);
        bool areAllFound = true;
        for (int sample = 0; sample < 200; ++sample) {
            double iso[3] = {};
            float located[3];
            int const towards = static_cast<int>(between(0, nodes - 0.01));
            for (int i = 0; i < 3 * nodes; ++i)
                iso[i % 3] += (0.3 / nodes + (i / 3 == towards ? 0.7 : 0)) * t.nodeLocationTable[i];
            bool const isFound =
                t.FindPointInShape(image(iso[0], iso[1], iso[2]), somewhere(9), coords.data(), located);
            areAllFound = areAllFound && isFound;
            if (isFound && !hasGaps)
                expectAt(located, {iso[0], iso[1], iso[2]});
            EXPECT_FALSE(t.FindPointInShape(image(iso[0] + 3, iso[1], iso[2]), somewhere(9), coords.data(), nullptr));
        }
        EXPECT_EQ(areAllFound, !hasGaps);
    });
}
