// Each set is held against the space of functions that it spans, written down as a list of monomials: functions that
// reproduce every one of them from its values at the nodes, as many as there are nodes, can be no others.

#include "shp_FunctionSets.h"
#include "shp_InterpolationTables.h"
#include "shp_KeyBit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using Point = std::array<double, 3>;

/// g^a h^b r^c, times (1 - x)^weight, x the coordinate number `pole`.
struct Term {
    int a, b, c, weight = 0;
    std::size_t pole = 0;

    double operator()(Point const & p) const {
        return std::pow(p[0], a) * std::pow(p[1], b) * std::pow(p[2], c) * std::pow(1 - p[pole], weight);
    }
    double slope(Point p, std::size_t direction) const {
        double const step = 1e-5;
        p[direction] += step;
        double const ahead = (*this)(p);
        p[direction] -= 2 * step;
        return (ahead - (*this)(p)) / (2 * step);
    }
};
using Space = std::vector<Term>;

/// All monomials, none of whose powers is above 2, that `keep` accepts.
template <class Keep> Space monomials(Keep keep) {
    Space space;
    for (int i = 0; i < 27; ++i)
        if (keep(i % 3, i / 3 % 3, i / 9))
            space.push_back({i % 3, i / 3 % 3, i / 9});
    return space;
}
Space tensor(int g, int h, int r) {
    return monomials([=](int a, int b, int c) { return a <= g && b <= h && c <= r; });
}
/// At most one coordinate squared; r up to its own power where the plane alone is of this kind.
Space serendipity(int r, bool planar) {
    return monomials([=](int a, int b, int c) { return c <= r && (a == 2) + (b == 2) + (!planar && c == 2) <= 1; });
}
/// Total degree in g and h, times powers of r.
Space triangular(int degree, int r) {
    return monomials([=](int a, int b, int c) { return a + b <= degree && c <= r; });
}
Space tetrahedral(int degree) {
    return monomials([=](int a, int b, int c) { return a + b + c <= degree; });
}
/// The triangle's quadratics times 1 and r, its linear functions times r^2.
Space prism15() {
    return monomials([](int a, int b, int c) { return a + b <= (c == 2 ? 1 : 2); });
}
/// Quadratic along the near edge, linear along the far one.
Space infinite5() {
    return monomials([](int a, int b, int c) { return a + b < 3 && b < 2 && c == 0; });
}
/// The 8-node serendipity functions at the near ring, the bilinear ones at the far ring.
Space infinite12() {
    return monomials([](int a, int b, int c) { return c == 0 ? a + b < 4 : c == 1 && a < 2 && b < 2; });
}
/// Constant, r, and what vanishes at the apex.
Space pyramid() {
    return {{0, 0, 0}, {0, 0, 1}, {1, 0, 0, 1, 2}, {0, 1, 0, 1, 2}, {1, 1, 0, 1, 2}};
}

struct Subject {
    char const * name;
    int nodes;
    std::vector<unsigned int> bits; ///< of the keys that lead to this set, the shape's first
    Space space;
    Space field = space; ///< what its derivatives belong to, where it is another space than that of its values
};

/// An infinite element: the factor of its values has the pole, that of the field vanishes there.
Subject infinite(char const * name, int nodes, unsigned int shape, Space const & space, std::size_t pole) {
    Subject subject = {name, nodes, {shape, shp_keyInfinite}, space};
    for (std::size_t i = 0; i < space.size(); ++i) {
        subject.space[i].pole = subject.field[i].pole = pole;
        subject.space[i].weight = -1;
        subject.field[i].weight = 1;
    }
    return subject;
}

Subject const subjects[] = {
    {"Point1", 1, {shp_keyPoint}, tensor(0, 0, 0)},
    {"Line2", 2, {shp_keyLine}, tensor(1, 0, 0)},
    {"Line3", 3, {shp_keyLine}, tensor(2, 0, 0)},
    {"Tri3", 3, {shp_keyTri}, triangular(1, 0)},
    {"Tri6", 6, {shp_keyTri}, triangular(2, 0)},
    {"Quad4", 4, {shp_keyQuad}, tensor(1, 1, 0)},
    {"QuadCohesive4", 4, {shp_keyQuad, shp_keyCohesive}, tensor(1, 1, 0)},
    {"QuadGasket4", 4, {shp_keyQuad, shp_keyGasket}, tensor(1, 1, 0)},
    {"Quad6", 6, {shp_keyQuad, shp_keyCylindrical}, tensor(1, 2, 0)},
    {"QuadCohesive6", 6, {shp_keyQuad, shp_keyCohesive}, tensor(1, 2, 0)},
    {"QuadGasket6", 6, {shp_keyQuad, shp_keyGasket}, tensor(2, 1, 0)},
    {"QuadPipeSoil6", 6, {shp_keyQuad, shp_keyPipeSoil}, tensor(2, 1, 0)},
    {"Quad8", 8, {shp_keyQuad}, serendipity(0, true)},
    {"Quad9", 9, {shp_keyQuad}, tensor(2, 2, 0)},
    infinite("QuadInfinite4", 4, shp_keyQuad, tensor(1, 1, 0), 1),
    infinite("QuadInfinite5", 5, shp_keyQuad, infinite5(), 1),
    {"Tetra4", 4, {shp_keyTetra}, tetrahedral(1)},
    {"Tetra10", 10, {shp_keyTetra}, tetrahedral(2)},
    {"Hex8", 8, {shp_keyHex}, tensor(1, 1, 1)},
    {"Hex12", 12, {shp_keyHex, shp_keyCylindrical}, tensor(1, 1, 2)},
    {"Hex20", 20, {shp_keyHex}, serendipity(2, false)},
    {"Hex24", 24, {shp_keyHex, shp_keyCylindrical}, serendipity(2, true)},
    {"Hex27", 27, {shp_keyHex}, tensor(2, 2, 2)},
    {"HexGasket18", 18, {shp_keyHex, shp_keyGasket}, tensor(2, 2, 1)},
    infinite("HexInfinite8", 8, shp_keyHex, tensor(1, 1, 1), 2),
    infinite("HexInfinite12", 12, shp_keyHex, infinite12(), 2),
    infinite("HexInfinite18", 18, shp_keyHex, tensor(2, 2, 1), 2),
    {"Prism6", 6, {shp_keyPrism}, triangular(1, 1)},
    {"Prism9", 9, {shp_keyPrism, shp_keyCylindrical}, triangular(1, 2)},
    {"Prism12", 12, {shp_keyPrism, shp_keyGasket}, triangular(2, 1)},
    {"Prism15", 15, {shp_keyPrism}, prism15()},
    {"Prism18Cyl", 18, {shp_keyPrism, shp_keyCylindrical}, triangular(2, 2)},
    {"Prism18", 18, {shp_keyPrism}, prism15(), triangular(2, 2)},
    {"Pyramid5", 5, {shp_keyPyramid}, pyramid()},
};

shp_Options optionsOf(int nodes, std::vector<unsigned int> const & bits) {
    LongKey key;
    key.setBits(static_cast<unsigned int>(bits.size()), bits.data());
    shp_Options options(key);
    options.SetNumNodes(nodes);
    return options;
}

} // namespace

TEST(ShapeFunctions, AreOneAtTheirNodeAndReproduceTheirSpace) {
    std::mt19937 random(20240607);
    std::uniform_real_distribution<float> between(-1, 0.9f); // the infinite elements' pole is at 1
    for (Subject const & s : subjects) {
        SCOPED_TRACE(s.name);
        shp_Options const options = optionsOf(s.nodes, s.bits);
        shp_FunctionSet const & set = *shp_valueSet(options);
        std::size_t const count = static_cast<std::size_t>(s.nodes);
        // Prism18 has the 15-node prism's functions and three that are 0, and derivatives of other functions, in which
        // the midsides at r = 1 bear those of the midsides of the middle plane as well.
        bool const isPrism18 = s.name == std::string("Prism18");
        std::size_t const usedNodes = isPrism18 ? 15 : count;
        ASSERT_EQ(s.space.size(), usedNodes);
        ASSERT_EQ(s.field.size(), count);

        float const * const table = shp_InterpolationTables::getNdLocTblPtr(options);
        std::vector<Point> nodes;
        for (float const * at = table; at != table + 3 * count; at += 3) {
            for (std::size_t i = 0; i < count && nodes.size() < usedNodes; ++i)
                EXPECT_EQ(set.functions[i](at[0], at[1], at[2]), i == nodes.size() ? 1.0f : 0.0f) << "function " << i;
            nodes.push_back({at[0], at[1], at[2]});
        }

        // Only the functions divide by zero at the pole.
        std::size_t const slopes = count * static_cast<std::size_t>(set.directions);
        float const inPlane = set.directions == 2 ? 1.0f : 0.5f;
        for (std::size_t i = 0; i < count && s.space[0].weight < 0; ++i)
            EXPECT_FALSE(std::isfinite(set.functions[i](0.25f, inPlane, 1)));
        for (std::size_t i = 0; i < slopes; ++i)
            EXPECT_TRUE(std::isfinite(set.derivatives[i](0.25f, inPlane, 1)));

        for (int sample = 0; sample < 50; ++sample) {
            float const g = between(random), h = between(random), r = between(random);
            Point const p = {g, h, r};
            // Sums of functions, or derivatives, times what a term is at the nodes.
            auto const expectSum = [&](shp_ShapeFunction const * functions, auto const & atNode, double expected) {
                double sum = 0, size = 1;
                for (std::size_t i = 0; i < count; ++i) {
                    double const part = static_cast<double>(functions[i](g, h, r)) * atNode(i);
                    sum += part;
                    size += std::abs(part);
                }
                EXPECT_NEAR(sum, expected, 5e-7 * size);
            };
            for (Term const & term : s.space)
                expectSum(
                    set.functions, [&](std::size_t i) { return term(nodes[i]); }, term(p));
            for (std::size_t i = usedNodes; i < count; ++i)
                EXPECT_EQ(set.functions[i](g, h, r), 0);
            for (Term const & term : s.field) {
                auto const atNode = [&](std::size_t i) {
                    return term(nodes[i]) - (i < usedNodes ? 0 : term(nodes[i - 6]));
                };
                for (std::size_t d = 0; d < static_cast<std::size_t>(set.directions); ++d)
                    expectSum(set.derivatives + d * count, atNode, term.slope(p, d));
            }
        }
    }
}

TEST(ShapeFunctions, FusedEvaluatorsHaveTheBitsOfTheSingleFunctions) {
    using Limits = std::numeric_limits<float>;
    float const extremes[] = {
        -1, -0.0f, 0, 0.5f, 1, 1.0f / 3, 1e20f, Limits::denorm_min(), -Limits::infinity(), Limits::quiet_NaN()};
    std::mt19937 random(4711);
    std::uniform_real_distribution<float> wide(-1.5f, 1.5f);
    auto const coordinate = [&] {
        std::size_t const pick = random() % 20;
        return pick < std::size(extremes) ? extremes[pick] : wide(random);
    };
    // Which not-a-number comes out of two is open, and nobody's business.
    auto const differ = [](float a, float b) {
        return std::bit_cast<std::uint32_t>(a) != std::bit_cast<std::uint32_t>(b) && !(std::isnan(a) && std::isnan(b));
    };
    float const untouched = -77;
    shp_FunctionSetList const all = shp_allFunctionSets();
    for (shp_FunctionSet const * set : std::vector(all.sets, all.sets + all.count)) {
        std::size_t const count = static_cast<std::size_t>(set->count);
        std::size_t const slopes = count * static_cast<std::size_t>(set->directions);
        std::vector<float> row(count + 1, untouched), gradient(slopes + 1, untouched);
        int different = 0;
        for (int sample = 0; sample < 20000; ++sample) {
            float const g = coordinate(), h = coordinate(), r = coordinate();
            set->row(g, h, r, row.data());
            if (set->gradient != nullptr)
                set->gradient(g, h, r, gradient.data());
            for (std::size_t i = 0; i < count; ++i)
                different += differ(row[i], set->functions[i](g, h, r));
            for (std::size_t i = 0; i < slopes; ++i)
                different += differ(gradient[i], set->derivatives[i](g, h, r));
        }
        EXPECT_EQ(different, 0) << set->name;
        EXPECT_TRUE(row[count] == untouched && gradient[slopes] == untouched) << set->name;
    }
}

TEST(ShapeFunctions, GettersHandOutTheArraysOfTheSetThatTheOptionsLeadTo) {
    using Tables = shp_InterpolationTables;
    shp_FunctionSetList const all = shp_allFunctionSets();
    ASSERT_EQ(static_cast<std::size_t>(all.count), std::size(subjects));
    for (int i = 0; i < all.count; ++i) {
        Subject const & s = subjects[i];
        SCOPED_TRACE(s.name);
        shp_Options const options = optionsOf(s.nodes, s.bits);
        shp_FunctionSet const & set = *all.sets[i];
        shp_FunctionSet const * const slopes = shp_derivativeSet(options);
        EXPECT_EQ(shp_valueSet(options), &set);
        EXPECT_STREQ(set.name, s.name);
        EXPECT_TRUE(set.directions == 0 ? !set.derivatives && !set.gradient : slopes == &set);
        for (int j = 0; j < i; ++j)
            EXPECT_NE(set.functions, all.sets[j]->functions) << all.sets[j]->name;
        EXPECT_EQ(Tables::getNdFuncPtrTblPtr(options), set.functions);
        // A line has one array, for every direction.
        int const directions = slopes != nullptr ? slopes->directions : 0;
        for (int d = 0; d < (directions < 2 ? 3 : directions); ++d)
            EXPECT_EQ(Tables::getdUdGHRFuncPtrTblPtr(options, d),
                      directions == 0 ? nullptr : slopes->derivatives + (directions == 1 ? 0 : d * slopes->count));
    }
}

TEST(ShapeFunctions, SomeElementsHaveFunctionsWithoutDerivativesOrNothing) {
    struct {
        int nodes;
        std::vector<unsigned int> bits;
        char const * sets; ///< of values and of derivatives
    } const cases[] = {
        {1, {shp_keyARS}, "Point1, none"},
        {4, {shp_keyQuad, shp_keyCohesive}, "QuadCohesive4, Quad4"},
        {6, {shp_keyQuad}, "Quad6, none"},
        {6, {shp_keyQuad, shp_keyCohesive}, "QuadCohesive6, none"},
        {6, {shp_keyQuad, shp_keyPipeSoil}, "QuadPipeSoil6, none"},
        {12, {shp_keyHex, shp_keyCohesive}, "Hex12, none"},
        {9, {shp_keyPrism}, "Prism9, none"},
        // An unlisted number of nodes: the last set of the family, or nothing.
        {18, {shp_keyHex}, "Hex27, Hex27"},
        {7, {shp_keyTri}, "Tri6, Tri6"},
        {7, {shp_keyQuad}, "none, none"},
        {8, {shp_keyPrism}, "none, none"},
        {8, {}, "none, none"},
        // Conditions that two rows satisfy: the first one counts.
        {4, {shp_keyQuad, shp_keyInfinite, shp_keyGasket}, "QuadInfinite4, QuadInfinite4"},
        {18, {shp_keyHex, shp_keyInfinite, shp_keyGasket}, "HexInfinite18, HexInfinite18"},
        {12, {shp_keyHex, shp_keyCohesive, shp_keyCylindrical}, "Hex12, none"},
    };
    auto const name = [](shp_FunctionSet const * set) { return std::string(set != nullptr ? set->name : "none"); };
    for (auto const & [nodes, bits, sets] : cases) {
        shp_Options const options = optionsOf(nodes, bits);
        EXPECT_EQ(name(shp_valueSet(options)) + ", " + name(shp_derivativeSet(options)), sets);
        EXPECT_EQ(shp_InterpolationTables::getNdFuncPtrTblPtr(options) == nullptr, shp_valueSet(options) == nullptr);
    }
}
