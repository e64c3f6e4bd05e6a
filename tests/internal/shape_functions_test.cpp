#include "shp_FunctionSets.h"
#include "shp_HexInterpTables.h"
#include "shp_InterpolationTables.h"
#include "shp_KeyBit.h"
#include "shp_PrismInterpTables.h"
#include "shp_QuadInterpTables.h"
#include "shp_TetraInterpTables.h"
#include "shp_TriInterpTables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

// Each set is held against functions made another way: the space of functions that it spans is written down as a list
// of monomials, and the functions that are 1 at one node and 0 at the others are solved for in double.

namespace {

using Point = std::array<double, 3>;

/// g^a h^b r^c, times (1 - x)^weight, x the coordinate number `pole`.
struct Term {
    int a, b, c, weight, pole;

    double operator()(Point const & p) const {
        return std::pow(p[0], a) * std::pow(p[1], b) * std::pow(p[2], c) *
               std::pow(1 - p[static_cast<std::size_t>(pole)], weight);
    }
};
using Space = std::vector<Term>;

/// All monomials up to the given powers that `keep` accepts.
template <class Keep> Space monomials(int g, int h, int r, Keep keep) {
    Space space;
    for (int a = 0; a <= g; ++a)
        for (int b = 0; b <= h; ++b)
            for (int c = 0; c <= r; ++c)
                if (keep(a, b, c))
                    space.push_back({a, b, c, 0, 0});
    return space;
}
Space tensor(int g, int h, int r) {
    return monomials(g, h, r, [](int, int, int) { return true; });
}
/// At most one coordinate squared; r up to its own power where the plane alone is of this kind.
Space serendipity(int r, bool planar) {
    return monomials(2, 2, r, [=](int a, int b, int c) { return (a == 2) + (b == 2) + (!planar && c == 2) <= 1; });
}
/// Total degree in g and h, times powers of r.
Space triangular(int degree, int r) {
    return monomials(degree, degree, r, [=](int a, int b, int) { return a + b <= degree; });
}
Space tetrahedral(int degree) {
    return monomials(degree, degree, degree, [=](int a, int b, int c) { return a + b + c <= degree; });
}
/// The triangle's quadratics times 1 and r, its linear functions times r^2.
Space prism15() {
    return monomials(2, 2, 2, [](int a, int b, int c) { return a + b <= (c == 2 ? 1 : 2); });
}
/// Constant, r, and what vanishes at the apex.
Space pyramid() {
    return {{0, 0, 0, 0, 2}, {0, 0, 1, 0, 2}, {1, 0, 0, 1, 2}, {0, 1, 0, 1, 2}, {1, 1, 0, 1, 2}};
}

Space times(Space space, int weight, int pole) {
    for (Term & term : space) {
        term.weight = weight;
        term.pole = pole;
    }
    return space;
}

struct Subject {
    char const * name;
    int shape, nodes;
    std::vector<int> bits; ///< key bits beside the shape's that lead to this set
    Space space;
    double valueTolerance; ///< relative to the largest of 1 and the function
    double slopeTolerance; ///< absolute
    Space field = {};      ///< what its derivatives belong to, where it is another space than that of its values
};

/// An infinite element: the factor of its values has the pole, that of the field vanishes there.
Subject infinite(char const * name, int shape, int nodes, Space const & regular, int pole) {
    return {name, shape, nodes, {shp_keyInfinite}, times(regular, -1, pole), 4e-7, 1.2e-6, times(regular, 1, pole)};
}

/// The 8-node serendipity functions at the near ring, the bilinear ones at the far ring.
Space infinite12() {
    return monomials(2, 2, 1, [](int a, int b, int c) { return c == 0 ? a + b < 4 : a < 2 && b < 2; });
}

std::vector<Subject> const & subjects() {
    static std::vector<Subject> const all = {
        {"Point1", shp_keyPoint, 1, {}, tensor(0, 0, 0), 0, 0},
        {"Line2", shp_keyLine, 2, {}, tensor(1, 0, 0), 2e-7, 0},
        {"Line3", shp_keyLine, 3, {}, tensor(2, 0, 0), 2e-7, 2e-7},
        {"Tri3", shp_keyTri, 3, {}, triangular(1, 0), 2e-7, 0},
        {"Tri6", shp_keyTri, 6, {}, triangular(2, 0), 3e-7, 1e-6},
        {"Quad4", shp_keyQuad, 4, {}, tensor(1, 1, 0), 2e-7, 1e-7},
        {"QuadCohesive4", shp_keyQuad, 4, {shp_keyCohesive}, tensor(1, 1, 0), 2e-7, 1e-7},
        {"QuadGasket4", shp_keyQuad, 4, {shp_keyGasket}, tensor(1, 1, 0), 2e-7, 1e-7},
        {"Quad6", shp_keyQuad, 6, {shp_keyCylindrical}, tensor(1, 2, 0), 2e-7, 3e-7},
        {"QuadCohesive6", shp_keyQuad, 6, {shp_keyCohesive}, tensor(1, 2, 0), 2e-7, 0},
        {"QuadGasket6", shp_keyQuad, 6, {shp_keyGasket}, tensor(2, 1, 0), 2e-7, 3e-7},
        {"QuadPipeSoil6", shp_keyQuad, 6, {shp_keyPipeSoil}, tensor(2, 1, 0), 2e-7, 0},
        {"Quad8", shp_keyQuad, 8, {}, serendipity(0, true), 3e-7, 5e-7},
        {"Quad9", shp_keyQuad, 9, {}, tensor(2, 2, 0), 2e-7, 4e-7},
        infinite("QuadInfinite4", shp_keyQuad, 4, tensor(1, 1, 0), 1),
        infinite("QuadInfinite5", shp_keyQuad, 5, monomials(2, 1, 0, [](int a, int b, int) { return a + b < 3; }), 1),
        {"Tetra4", shp_keyTetra, 4, {}, tetrahedral(1), 2e-7, 0},
        {"Tetra10", shp_keyTetra, 10, {}, tetrahedral(2), 4e-7, 1.5e-6},
        {"Hex8", shp_keyHex, 8, {}, tensor(1, 1, 1), 2e-7, 1e-7},
        {"Hex12", shp_keyHex, 12, {shp_keyCylindrical}, tensor(1, 1, 2), 2e-7, 3e-7},
        {"Hex20", shp_keyHex, 20, {}, serendipity(2, false), 4e-7, 6e-7},
        {"Hex24", shp_keyHex, 24, {shp_keyCylindrical}, serendipity(2, true), 3e-7, 5e-7},
        {"Hex27", shp_keyHex, 27, {}, tensor(2, 2, 2), 2e-7, 4e-7},
        {"HexGasket18", shp_keyHex, 18, {shp_keyGasket}, tensor(2, 2, 1), 2e-7, 4e-7},
        infinite("HexInfinite8", shp_keyHex, 8, tensor(1, 1, 1), 2),
        infinite("HexInfinite12", shp_keyHex, 12, infinite12(), 2),
        infinite("HexInfinite18", shp_keyHex, 18, tensor(2, 2, 1), 2),
        {"Prism6", shp_keyPrism, 6, {}, triangular(1, 1), 2e-7, 2e-7},
        {"Prism9", shp_keyPrism, 9, {shp_keyCylindrical}, triangular(1, 2), 2e-7, 3e-7},
        {"Prism12", shp_keyPrism, 12, {shp_keyGasket}, triangular(2, 1), 3e-7, 1e-6},
        {"Prism15", shp_keyPrism, 15, {}, prism15(), 4e-7, 1.2e-6},
        {"Prism18Cyl", shp_keyPrism, 18, {shp_keyCylindrical}, triangular(2, 2), 3e-7, 1e-6},
        {"Prism18", shp_keyPrism, 18, {}, prism15(), 4e-7, 1e-6, triangular(2, 2)},
        {"Pyramid5", shp_keyPyramid, 5, {}, pyramid(), 2e-7, 2e-7},
    };
    return all;
}

/// Sets whose derivative arrays do not belong to their functions.
bool derivativesBelongElsewhere(Subject const & subject) {
    return std::string(subject.name).find("Infinite") != std::string::npos || std::string(subject.name) == "Prism18";
}

shp_Options optionsOf(int shape, int nodes, std::vector<int> const & bits) {
    LongKey key;
    unsigned int const shapeBit = static_cast<unsigned int>(shape);
    key.setBits(1, &shapeBit);
    for (int bit : bits) {
        unsigned int const number = static_cast<unsigned int>(bit);
        key.setBits(1, &number);
    }
    shp_Options options(key);
    options.SetNumNodes(nodes);
    return options;
}
shp_Options optionsOf(Subject const & s) {
    return optionsOf(s.shape, s.nodes, s.bits);
}

/// The functions of a space that are 1 at one node and 0 at the others.
class NodalFunctions {
public:
    NodalFunctions(Space terms, std::vector<Point> const & nodes) : space(std::move(terms)) {
        std::size_t const n = space.size();
        // Gauss-Jordan elimination of [V | 1], V[node][term]; the inverse holds one function per column.
        std::vector<std::vector<double>> m(n, std::vector<double>(2 * n));
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = 0; j < n; ++j)
                m[i][j] = space[j](nodes.at(i));
            m[i][n + i] = 1;
        }
        for (std::size_t col = 0; col < n; ++col) {
            auto const below = m.begin() + static_cast<std::ptrdiff_t>(col);
            std::iter_swap(below, std::max_element(below, m.end(), [=](auto const & a, auto const & b) {
                               return std::abs(a[col]) < std::abs(b[col]);
                           }));
            double const pivot = m[col][col];
            singular = singular || std::abs(pivot) < 1e-9;
            for (double & entry : m[col])
                entry /= pivot;
            for (std::size_t i = 0; i < n; ++i)
                if (i != col)
                    for (std::size_t j = 2 * n; j-- > col;)
                        m[i][j] -= m[i][col] * m[col][j];
        }
        for (auto const & row : m)
            coefficients.emplace_back(row.begin() + static_cast<std::ptrdiff_t>(n), row.end());
    }

    bool isSingular() const { return singular; }

    double operator()(std::size_t node, Point const & p) const {
        double sum = 0;
        for (std::size_t term = 0; term < space.size(); ++term)
            sum += coefficients[term][node] * space[term](p);
        return sum;
    }

private:
    Space space;
    std::vector<std::vector<double>> coefficients;
    bool singular = false;
};

std::vector<Point> nodesOf(Subject const & s) {
    float const * const table = shp_InterpolationTables::getNdLocTblPtr(optionsOf(s));
    std::vector<Point> nodes(static_cast<std::size_t>(s.nodes));
    for (std::size_t i = 0; i < nodes.size(); ++i)
        for (std::size_t c = 0; c < 3; ++c)
            nodes[i][c] = static_cast<double>(table[3 * i + c]);
    return nodes;
}

/// What functions and derivatives of a set should be, in double.
struct Reference {
    explicit Reference(Subject const & s)
        : prism18(std::string(s.name) == "Prism18"), values(s.space, nodesOf(s)),
          field(s.field.empty() ? s.space : s.field, nodesOf(s)) {}

    double value(std::size_t node, Point const & p) const { return prism18 && node > 14 ? 0 : values(node, p); }

    double fieldValue(std::size_t node, Point const & p) const {
        double const function = field(node, p);
        return prism18 && node >= 9 && node < 12 ? function + field(node + 6, p) : function;
    }

    template <class Function>
    static double difference(Function function, std::size_t node, Point p, std::size_t direction) {
        double const step = 1e-5;
        p[direction] += step;
        double const ahead = function(node, p);
        p[direction] -= 2 * step;
        return (ahead - function(node, p)) / (2 * step);
    }

    bool prism18;
    NodalFunctions values, field;
};

/// Points of the shape's domain; towards the pole of an infinite element they stop at 0.9.
std::vector<std::array<float, 3>> pointsIn(Subject const & s) {
    std::mt19937 random(20240607);
    std::uniform_real_distribution<float> wide(-1, 1), unit(0, 1);
    bool const pole = derivativesBelongElsewhere(s) && s.shape != shp_keyPrism;
    std::vector<std::array<float, 3>> points;
    for (int i = 0; i < 400; ++i) {
        std::array<float, 3> p = {wide(random), wide(random), wide(random)};
        if (s.shape == shp_keyTri || s.shape == shp_keyPrism || s.shape == shp_keyTetra) {
            float const third = s.shape == shp_keyTetra ? unit(random) : p[2];
            do {
                p = {unit(random), unit(random), third};
            } while (p[0] + p[1] + (s.shape == shp_keyTetra ? p[2] : 0.0f) > 1);
        }
        if (pole)
            for (float & x : p)
                x = std::min(x, 0.9f);
        points.push_back(p);
    }
    return points;
}

Point widened(std::array<float, 3> const & p) {
    return {static_cast<double>(p[0]), static_cast<double>(p[1]), static_cast<double>(p[2])};
}

} // namespace

TEST(ShapeFunctions, EverySetIsASubjectAndIsChosenByItsOptions) {
    shp_FunctionSetList const all = shp_allFunctionSets();
    ASSERT_EQ(static_cast<std::size_t>(all.count), subjects().size());
    for (int i = 0; i < all.count; ++i) {
        Subject const & s = subjects()[static_cast<std::size_t>(i)];
        SCOPED_TRACE(s.name);
        EXPECT_STREQ(all.sets[i]->name, s.name);
        EXPECT_EQ(shp_valueSet(optionsOf(s)), all.sets[i]);
        if (all.sets[i]->directions > 0) {
            EXPECT_EQ(shp_derivativeSet(optionsOf(s)), all.sets[i]);
        }
        EXPECT_EQ(all.sets[i]->count, s.nodes);
        EXPECT_EQ(all.sets[i]->directions == 0, all.sets[i]->derivatives == nullptr);
        EXPECT_EQ(all.sets[i]->directions == 0, all.sets[i]->gradient == nullptr);
        for (int j = 0; j < i; ++j)
            EXPECT_NE(all.sets[i]->functions, all.sets[j]->functions) << all.sets[j]->name;
    }
}

TEST(ShapeFunctions, AreOneAtTheirNodeAndSumToOne) {
    for (Subject const & s : subjects()) {
        SCOPED_TRACE(s.name);
        shp_FunctionSet const & set = *shp_valueSet(optionsOf(s));
        bool interpolates = true;
        std::vector<Point> const nodes = nodesOf(s);
        for (std::size_t node = 0; node < nodes.size(); ++node)
            for (std::size_t i = 0; i < nodes.size(); ++i) {
                Point const & p = nodes[node];
                float const value =
                    set.functions[i](static_cast<float>(p[0]), static_cast<float>(p[1]), static_cast<float>(p[2]));
                interpolates = interpolates && value == (i == node ? 1.0f : 0.0f);
            }
        // The three zeros of Prism18 leave nothing at the midsides of the middle plane.
        EXPECT_EQ(interpolates, std::string(s.name) != "Prism18");

        double worst = 0;
        for (auto const & p : pointsIn(s)) {
            double sum = 0, size = 1;
            for (int i = 0; i < set.count; ++i) {
                double const value = static_cast<double>(set.functions[i](p[0], p[1], p[2]));
                sum += value;
                size = std::max(size, std::abs(value));
            }
            worst = std::max(worst, std::abs(sum - 1) / size);
        }
        EXPECT_LE(worst, 3 * s.valueTolerance);
    }
}

TEST(ShapeFunctions, ValuesAndDerivativesAreThoseOfTheNodalFunctionsOfTheirSpace) {
    for (Subject const & s : subjects()) {
        SCOPED_TRACE(s.name);
        Reference const reference(s);
        ASSERT_FALSE(reference.values.isSingular() || reference.field.isSingular());
        shp_FunctionSet const & set = *shp_valueSet(optionsOf(s));
        std::size_t const count = static_cast<std::size_t>(set.count);
        auto const own = [&](std::size_t node, Point const & p) { return reference.value(node, p); };
        auto const field = [&](std::size_t node, Point const & p) { return reference.fieldValue(node, p); };

        double worstValue = 0, worstOwnSlope = 0, worstFieldSlope = 0;
        for (auto const & p : pointsIn(s))
            for (std::size_t i = 0; i < count; ++i) {
                double const expected = own(i, widened(p));
                double const error = std::abs(static_cast<double>(set.functions[i](p[0], p[1], p[2])) - expected);
                worstValue = std::max(worstValue, error / std::max(1.0, std::abs(expected)));
                for (std::size_t d = 0; d < static_cast<std::size_t>(set.directions); ++d) {
                    double const slope = static_cast<double>(set.derivatives[d * count + i](p[0], p[1], p[2]));
                    worstOwnSlope =
                        std::max(worstOwnSlope, std::abs(slope - Reference::difference(own, i, widened(p), d)));
                    worstFieldSlope =
                        std::max(worstFieldSlope, std::abs(slope - Reference::difference(field, i, widened(p), d)));
                }
            }
        // The differences themselves are good to about 1e-9.
        double const slopeTolerance = s.slopeTolerance + 3e-9;
        EXPECT_LE(worstValue, s.valueTolerance);
        EXPECT_LE(worstFieldSlope, slopeTolerance);
        if (derivativesBelongElsewhere(s))
            EXPECT_GT(worstOwnSlope, 0.1);
        else
            EXPECT_LE(worstOwnSlope, slopeTolerance);
    }
}

TEST(ShapeFunctions, FusedEvaluatorsHaveTheBitsOfTheSingleFunctions) {
    constexpr float inf = std::numeric_limits<float>::infinity();
    float const extremes[] = {-1,
                              -0.0f,
                              0,
                              0.5f,
                              1,
                              std::nextafter(1.0f, 0.0f),
                              1.0f / 3,
                              -2,
                              1e-30f,
                              1e20f,
                              -std::numeric_limits<float>::max(),
                              std::numeric_limits<float>::denorm_min(),
                              inf,
                              -inf,
                              std::numeric_limits<float>::quiet_NaN()};
    std::vector<std::array<float, 3>> points;
    for (float g : extremes)
        for (float h : extremes)
            for (float r : extremes)
                points.push_back({g, h, r});
    std::mt19937 random(4711);
    std::uniform_real_distribution<float> wide(-1.5f, 1.5f);
    for (int i = 0; i < 20000; ++i)
        points.push_back({wide(random), wide(random), wide(random)});

    // Which not-a-number comes out of two is open, and nobody's business.
    auto const same = [](float a, float b) {
        return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b) || (std::isnan(a) && std::isnan(b));
    };
    float const untouched = -77;
    shp_FunctionSetList const all = shp_allFunctionSets();
    for (int n = 0; n < all.count; ++n) {
        shp_FunctionSet const & set = *all.sets[n];
        std::size_t const count = static_cast<std::size_t>(set.count);
        std::size_t const slopes = count * static_cast<std::size_t>(set.directions);
        std::vector<float> row(count + 1, untouched), gradient(slopes + 1, untouched);
        int different = 0;
        for (auto const & p : points) {
            set.row(p[0], p[1], p[2], row.data());
            for (std::size_t i = 0; i < count; ++i)
                different += same(row[i], set.functions[i](p[0], p[1], p[2])) ? 0 : 1;
            if (set.gradient != nullptr)
                set.gradient(p[0], p[1], p[2], gradient.data());
            for (std::size_t i = 0; i < slopes; ++i)
                different += same(gradient[i], set.derivatives[i](p[0], p[1], p[2])) ? 0 : 1;
        }
        EXPECT_EQ(different, 0) << set.name;
        EXPECT_TRUE(row[count] == untouched && gradient[slopes] == untouched) << set.name;
    }
}

TEST(ShapeFunctions, InfiniteSetsDivideByZeroAtThePoleAndTheirDerivativesDoNot) {
    for (Subject const & s : subjects()) {
        if (std::string(s.name).find("Infinite") == std::string::npos)
            continue;
        SCOPED_TRACE(s.name);
        shp_FunctionSet const & set = *shp_valueSet(optionsOf(s));
        std::vector<float> row(static_cast<std::size_t>(set.count)), gradient(row.size() * 3);
        set.row(0.25f, set.directions == 2 ? 1 : 0.5f, 1, row.data());
        set.gradient(0.25f, set.directions == 2 ? 1 : 0.5f, 1, gradient.data());
        EXPECT_TRUE(std::none_of(row.begin(), row.end(), [](float x) { return std::isfinite(x); }));
        EXPECT_TRUE(std::all_of(gradient.begin(), gradient.end(), [](float x) { return std::isfinite(x); }));
    }
}

TEST(ShapeFunctions, GettersHandOutTheArraysOfTheChosenSets) {
    using Functions = shp_ShapeFunction const * (*)(shp_Options const &);
    using Derivatives = shp_ShapeFunction const * (*)(shp_Options const &, int);
    std::pair<Functions, Derivatives> const ofFamily[] = {
        {nullptr, nullptr},
        {nullptr, nullptr},
        {nullptr, nullptr},
        {shp_TriInterpTables::getNdFuncPtrTblPtr, shp_TriInterpTables::getdUdGHRFuncPtrTblPtr},
        {shp_QuadInterpTables::getNdFuncPtrTblPtr, shp_QuadInterpTables::getdUdGHRFuncPtrTblPtr},
        {shp_TetraInterpTables::getNdFuncPtrTblPtr, shp_TetraInterpTables::getdUdGHRFuncPtrTblPtr},
        {shp_HexInterpTables::getNdFuncPtrTblPtr, shp_HexInterpTables::getdUdGHRFuncPtrTblPtr},
        {shp_PrismInterpTables::getNdFuncPtrTblPtr, shp_PrismInterpTables::getdUdGHRFuncPtrTblPtr},
        {nullptr, nullptr},
        {nullptr, nullptr},
    };
    for (Subject const & s : subjects()) {
        SCOPED_TRACE(s.name);
        shp_Options const options = optionsOf(s);
        auto const [functions, derivatives] = ofFamily[s.shape];
        EXPECT_EQ(shp_InterpolationTables::getNdFuncPtrTblPtr(options), shp_valueSet(options)->functions);
        if (functions != nullptr) {
            EXPECT_EQ(functions(options), shp_valueSet(options)->functions);
        }

        shp_FunctionSet const * const slopes = shp_derivativeSet(options);
        for (int d = 0; d < (slopes != nullptr ? slopes->directions : 3); ++d) {
            shp_ShapeFunction const * const expected =
                slopes != nullptr ? slopes->derivatives + d * slopes->count : nullptr;
            EXPECT_EQ(shp_InterpolationTables::getdUdGHRFuncPtrTblPtr(options, d), expected);
            if (derivatives != nullptr) {
                EXPECT_EQ(derivatives(options, d), expected);
            }
        }
    }
    shp_Options const line = optionsOf(shp_keyLine, 3, {});
    for (int direction : {-5, 1, 2, 1000})
        EXPECT_EQ(shp_InterpolationTables::getdUdGHRFuncPtrTblPtr(line, direction), shp_valueSet(line)->derivatives);
}

TEST(ShapeFunctions, SomeElementsHaveFunctionsWithoutDerivativesOrNothing) {
    auto const chosen = [](int shape, int nodes, std::vector<int> const & bits = {}) {
        shp_Options const options = optionsOf(shape, nodes, bits);
        auto const name = [](shp_FunctionSet const * set) { return std::string(set != nullptr ? set->name : "none"); };
        EXPECT_EQ(shp_InterpolationTables::getNdFuncPtrTblPtr(options) == nullptr, shp_valueSet(options) == nullptr);
        return name(shp_valueSet(options)) + ", " + name(shp_derivativeSet(options));
    };
    EXPECT_EQ(chosen(shp_keyARS, 1), "Point1, none");
    EXPECT_EQ(chosen(shp_keyQuad, 4, {shp_keyCohesive}), "QuadCohesive4, Quad4");
    EXPECT_EQ(chosen(shp_keyQuad, 6), "Quad6, none");
    EXPECT_EQ(chosen(shp_keyQuad, 6, {shp_keyCohesive}), "QuadCohesive6, none");
    EXPECT_EQ(chosen(shp_keyQuad, 6, {shp_keyPipeSoil}), "QuadPipeSoil6, none");
    EXPECT_EQ(chosen(shp_keyHex, 12, {shp_keyCohesive}), "Hex12, none");
    EXPECT_EQ(chosen(shp_keyPrism, 9), "Prism9, none");
    // An unlisted number of nodes: the last set of the family, or nothing.
    EXPECT_EQ(chosen(shp_keyHex, 18), "Hex27, Hex27");
    EXPECT_EQ(chosen(shp_keyTri, 7), "Tri6, Tri6");
    EXPECT_EQ(chosen(shp_keyQuad, 7), "none, none");
    EXPECT_EQ(chosen(shp_keyPrism, 8), "none, none");
    EXPECT_EQ(chosen(0, 8), "none, none");
    // Conditions that two rows satisfy: the first one counts.
    EXPECT_EQ(chosen(shp_keyQuad, 4, {shp_keyInfinite, shp_keyGasket}), "QuadInfinite4, QuadInfinite4");
    EXPECT_EQ(chosen(shp_keyHex, 18, {shp_keyInfinite, shp_keyGasket}), "HexInfinite18, HexInfinite18");
    EXPECT_EQ(chosen(shp_keyHex, 12, {shp_keyCohesive, shp_keyCylindrical}), "Hex12, none");
}
