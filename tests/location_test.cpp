// Where a point of space lies in an element.

#include "positions.h"
#include "shp_KeyBit.h"

#include <array>
#include <cmath>
#include <set>

namespace {

using Iso = std::array<float, 3>;

auto scaled(double size) {
    return [=](double x, double y, double z) { return g3d_Storage(size * x, size * y, size * z); };
}
g3d_Storage mirroredAndSheared(double x, double y, double z) {
    return {x + 0.3 * y - 0.2 * z, 0.8 * y + 0.1 * z, 7 + 0.1 * x - 1.2 * z};
}
g3d_Storage twistedAndTapered(double x, double y, double z) {
    double const width = 1 + 0.08 * z, c = width * std::cos(0.15 * z), s = width * std::sin(0.15 * z);
    return {c * x - s * y, s * x + c * y, z + 0.05 * x * x};
}
template <int percent> g3d_Storage shaken(double x, double y, double z) {
    double const most = 0.01 * percent;
    return {x + between(-most, most), y + between(-most, most), z + between(-most, most)};
}

/// Somewhere inside a solid; in a pyramid not too near the apex.
Iso insideOf(shp_Topology const & t) {
    int const shape = t.options.Shape();
    double const low = shape == shp_keyHex || shape == shp_keyPyramid ? -1 : 0;
    Iso iso;
    do {
        iso = {static_cast<float>(between(low, 1)), static_cast<float>(between(low, 1)),
               static_cast<float>(between(shape == shp_keyTetra ? 0 : -1, shape == shp_keyPyramid ? 0.9 : 1))};
    } while (low == 0 && iso[0] + iso[1] + (shape == shp_keyTetra ? iso[2] : 0) > 1);
    return iso;
}

/// Derivatives that belong to other functions than the values.
bool hasForeignDerivatives(shp_Topology const & t) {
    return t.options.IsType(shp_keyInfinite) ||
           (t.options.Shape() == shp_keyPrism && t.BaseNodesPerElem() == 18 && !t.isCylindrical);
}

bool finds(shp_Topology const & t, Positions const & coords, g3d_Storage const & point, float * iso = Iso().data()) {
    return t.FindIsoPointLocation(point, coords.data(), iso);
}

/// How many of 1,000 random points are found. What is found is right: within 1e-5 of the element's size, or within the
/// tolerance of a node.
int findThousand(shp_Topology const & t, double size, g3d_Storage (*map)(double, double, double)) {
    int found = 0;
    Positions coords;
    for (int sample = 0; sample < 1000; ++sample) {
        if (sample % 50 == 0)
            coords = element(t, [=](double x, double y, double z) {
                g3d_Storage const p = map(x, y, z);
                return scaled(size)(p.X(), p.Y(), p.Z());
            });
        Iso iso = insideOf(t);
        g3d_Storage const point = t.InterpolatePointFromNodes(coords.data(), iso.data());
        if (!finds(t, coords, point, iso.data()))
            continue;
        ++found;
        EXPECT_LT(distance(t.InterpolatePointFromNodes(coords.data(), iso.data()), point),
                  std::max(1e-5 * size, 1.8e-6));
    }
    return found;
}

} // namespace

TEST(Location, OfEveryPointInsideASolidIsFound) {
    std::set<std::pair<void const *, void const *>> families;
    forEachShape([&](shp_Shape const & t) {
        if (!t.hasDerivatives || t.NumGeometryDimensions() != 3 || hasForeignDerivatives(t) ||
            !families.emplace(t.shapeFunctions, t.nodeLocationTable).second)
            return;
        for (double size : {5e-3, 1.0, 1e2, 1e4})
            for (auto map : {mirroredAndSheared, twistedAndTapered, shaken<4>})
                EXPECT_EQ(findThousand(t, size, map), 1000) << size;
    });
    EXPECT_EQ(families.size(), 14u);
}

// Midsides so far off the middle of their edges that the iteration may run away.
TEST(Location, MayFailWhereMidsidesAreFarOffTheirPlace) {
    for (char const * label : {"C3D10", "C3D15", "CCL18"}) {
        int const found = findThousand(shapeOf(label), 1, shaken<15>);
        RecordProperty(label, found);
        EXPECT_TRUE(800 < found && found < 1000) << label << ": " << found;
    }
}

// An element so small that nothing else in it is found.
TEST(Location, OfANodeNeedsNoIteration) {
    Positions const small = element(shapeOf("C3D27"), scaled(5e-5));
    forEachShape([&](shp_Shape const & t) {
        for (int i = 0; i < t.BaseNodesPerElem(); ++i) {
            Iso iso = {9, 9, 9}, row;
            t.GetNodeIsoCoords(i, row.data());
            g3d_Storage const & p = small[static_cast<std::size_t>(i)];
            EXPECT_EQ(finds(t, small, {p.X() + 0.9e-6, p.Y() - 0.9e-6, p.Z() + 0.9e-6}, iso.data()), t.hasDerivatives);
            EXPECT_EQ(iso, t.hasDerivatives ? row : (Iso{9, 9, 9}));
            EXPECT_FALSE(t.NumGeometryDimensions() == 3 && finds(t, small, {p.X(), p.Y() + 1.1e-6, p.Z()}));
        }
    });
    Iso iso; // the first of several at one place
    EXPECT_TRUE(finds(shapeOf("C3D8"), Positions(8), {}, iso.data()) && iso == (Iso{-1, -1, -1}));
}

TEST(Location, IsMovedOntoTheBoundsFromALittleOutside) {
    auto const check = [](char const * label, g3d_Storage const & p, bool isFound, Iso const & expected) {
        Iso iso;
        EXPECT_EQ(finds(shapeOf(label), element(shapeOf(label), scaled(1)), p, iso.data()), isFound);
        for (std::size_t c = 0; c < 3; ++c)
            EXPECT_TRUE(std::fabs(expected[c]) == 1 ? iso[c] == expected[c] : std::fabs(iso[c] - expected[c]) < 2e-7f);
    };
    check("C3D8", {1.000005, 0.5, 0.25}, true, {1.000005f, 0.5f, 0.25f});
    check("C3D8", {1.0003, 0.5, 0.25}, true, {1, 0.5f, 0.25f});
    check("C3D8", {1.0006, 0.5, 0.25}, false, {1, 0.5f, 0.25f});
    check("C3D8", {1.0002, -1.0002, 0.25}, true, {1, -1, 0.25f});
    check("C3D8", {1.0002, -1.0002, 1.0002}, false, {1, -1, 1});
    check("C3D4", {-0.0003, 0.5, 0.25}, true, {0, 0.5f, 0.25f});
    // An overshoot of 0.0006 that is less than the tolerance in space, and one that is more.
    EXPECT_TRUE(finds(shapeOf("C3D8"), element(shapeOf("C3D8"), scaled(1e-3)), {1.0006e-3, 0, 0}));
    EXPECT_FALSE(finds(shapeOf("C3D8"), element(shapeOf("C3D8"), scaled(2e-3)), {2.0012e-3, 0, 0}));
}

TEST(Location, HasLimits) {
    auto const isFound = [](char const * label, g3d_Storage const & point, double size = 1) {
        return finds(shapeOf(label), element(shapeOf(label), scaled(size)), point);
    };
    // In the unit of length.
    EXPECT_TRUE(isFound("C3D8", {1e-4, 1e-4, 1e-4}, 4.7e-4));
    EXPECT_FALSE(isFound("C3D8", {1e-4, 1e-4, 1e-4}, 4.6e-4));
    // The bounds of a simplex are a box.
    EXPECT_TRUE(isFound("C3D10", {0.9, 0.8, 0.7}));
    EXPECT_FALSE(isFound("C3D10", {0.9, 1.1, 0.7}));
    EXPECT_TRUE(isFound("S3", {0.75, 0.75, 0}));
    // Towards its apex the pyramid's Jacobian vanishes.
    EXPECT_FALSE(isFound("C3D5", {0, 0, 0.99999}));
    EXPECT_TRUE(isFound("C3D5", {0, 0, 1}));
    // x = 40 g g + g: the first step, to g = x, may make the Jacobian a thousand times as large.
    Positions const parabola = {{39, 0, 0}, {0, 0, 0}, {41, 0, 0}};
    EXPECT_TRUE(finds(shapeOf("T3D3"), parabola, {37, 0, 0}));
    EXPECT_FALSE(finds(shapeOf("T3D3"), parabola, {38, 0, 0}));
}

TEST(Location, OnASurfaceOrALineNeedsAPlaneOrAnAxis) {
    auto const turned = [](int turns, double x, double y, double z) {
        return turns == 0 ? g3d_Storage(x, y, z) : turns == 1 ? g3d_Storage(z, x, y) : g3d_Storage(y, z, x);
    };
    for (char const * label : {"S4", "S8R", "S9R5", "STRI65", "CPS3", "T3D2", "T3D3"})
        for (int turns = 0; turns < 3; ++turns) {
            SCOPED_TRACE(label);
            shp_Topology const & t = shapeOf(label);
            Iso const expected = {0.25f, t.NumGeometryDimensions() == 2 ? 0.625f : 0, 0};
            auto const inPlane = [=](double x, double y, double) { return turned(turns, 3 * x, 2 * y, 0); };
            auto const inclined = [=](double x, double y, double) { return turned(turns, 3 * x, 2 * y, 0.1 * x); };
            Positions const flat = element(t, inPlane), lifted = element(t, inclined);
            g3d_Storage point = t.InterpolatePointFromNodes(flat.data(), expected.data());
            Iso iso;
            EXPECT_TRUE(finds(t, flat, point, iso.data()));
            for (std::size_t c = 0; c < 3; ++c)
                EXPECT_NEAR(iso[c], expected[c], 3e-7f);
            point -= turned(turns, 0, 0, 1e-9);
            EXPECT_FALSE(finds(t, flat, point));
            EXPECT_FALSE(finds(t, lifted, t.InterpolatePointFromNodes(lifted.data(), expected.data())));
        }
    // The sign that is kept: near the start, the mirror image of a point of the plane is found, and the point is not.
    Positions const inclined = {{-1, -1, -0.1}, {1, -1, 0.1}, {1, 1, 0.1}, {-1, 1, -0.1}};
    EXPECT_FALSE(finds(shapeOf("S4"), inclined, {1e-4, 0, 1e-5}));
    EXPECT_TRUE(finds(shapeOf("S4"), inclined, {1e-4, 0, -1e-5}));
}

TEST(Location, EndsWhereNumbersOrElementsDo) {
    forEachShape([=](shp_Shape const & t) {
        for (double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300}) {
            Positions broken = element(t, scaled(1));
            EXPECT_FALSE(finds(t, broken, {0.1, bad, 0.1}));
            broken[0] = {bad, bad, 0};
            EXPECT_FALSE(finds(t, broken, {0.1, 0.123, 0.1}));
        }
        Positions const collapsed = element(t, [](double x, double, double) { return g3d_Storage(x, x, 1); });
        EXPECT_FALSE(finds(t, collapsed, {0.1, 0.1, 1}));
        EXPECT_FALSE(finds(t, Positions(27), {0.1, 0, 0}));
    });
}
