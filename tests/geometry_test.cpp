// The geometry of the foundation: matrices, directions, and the coordinate container that grows.

#include "g3d_GeomUtils.h"
#include "g3d_Storage.h"
#include "g3d_Vector.h"
#include "g3d_XForm.h"
#include "mem_Alloc.h"
#include "mem_OutOfMemoryException.h"
#include "uti_CoordCont3D.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <random>
#include <utility>

namespace {

using Matrix = std::array<std::array<double, 4>, 4>;

Matrix entriesOf(g3d_XForm const & form) {
    Matrix m;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            m[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] = form.GetM(i, j);
    return m;
}

g3d_XForm formOf(Matrix const & m) {
    double rows[4][4];
    for (std::size_t i = 0; i < 4; ++i)
        std::copy(m[i].begin(), m[i].end(), rows[i]);
    return g3d_XForm(rows);
}

/// Determinant by elimination with row exchange, in extended precision: another road than the library's.
double eliminatedDeterminant(g3d_XForm const & form) {
    long double a[4][4];
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            a[i][j] = form.GetM(i, j);
    long double determinant = 1;
    for (int k = 0; k < 4; ++k) {
        int pivot = k;
        for (int i = k + 1; i < 4; ++i)
            if (std::fabs(a[i][k]) > std::fabs(a[pivot][k]))
                pivot = i;
        if (a[pivot][k] == 0)
            return 0;
        if (pivot != k) {
            std::swap_ranges(a[k], a[k] + 4, a[pivot]);
            determinant = -determinant;
        }
        determinant *= a[k][k];
        for (int i = k + 1; i < 4; ++i)
            for (int j = 3; j >= k; --j)
                a[i][j] -= a[i][k] / a[k][k] * a[k][j];
    }
    return static_cast<double>(determinant);
}

class RandomNumbers {
public:
    double operator()(double low, double high) { return std::uniform_real_distribution<double>(low, high)(engine); }

private:
    std::mt19937 engine{20240611};
};

/// A matrix whose inverse is as good as its entries: a dominant diagonal in shuffled rows, of all sizes.
g3d_XForm randomForm(RandomNumbers & random, bool isAffine) {
    double const scale = std::pow(10.0, random(-6, 6));
    Matrix m;
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t j = 0; j < 4; ++j)
            m[i][j] = scale * (random(-1, 1) + (i == j ? 4 : 0));
    if (isAffine)
        m[3] = {0, 0, 0, 1};
    else
        std::swap(m[static_cast<std::size_t>(random(0, 3.99))], m[static_cast<std::size_t>(random(0, 3.99))]);
    return formOf(m);
}

TEST(XForm, InverseUndoesTheMatrixAndDeterminantAgreesWithElimination) {
    RandomNumbers random;
    for (int trial = 0; trial < 500; ++trial) {
        g3d_XForm const form = randomForm(random, trial % 2 == 0);
        double const expected = eliminatedDeterminant(form);
        EXPECT_NEAR(form.Determinant(), expected, 1e-13 * std::fabs(expected));

        g3d_XForm inverse = form;
        ASSERT_TRUE(inverse.Invert());
        Matrix const a = entriesOf(form), b = entriesOf(inverse);
        for (std::size_t i = 0; i < 4; ++i)
            for (std::size_t j = 0; j < 4; ++j) {
                double product = 0, size = 0;
                for (std::size_t k = 0; k < 4; ++k) {
                    product += a[i][k] * b[k][j];
                    size += std::fabs(a[i][k] * b[k][j]);
                }
                EXPECT_NEAR(product, i == j ? 1 : 0, 2e-7 * size) << "trial " << trial << ", entry " << i << j;
            }
    }
}

TEST(XForm, SingularMatrixStaysAsItWas) {
    constexpr float tiny = 1e-39f; // the inverse would need 1e39
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    float const singular[][4][4] = {
        {{1, 2, 3, 4}, {5, 6, 7, 8}, {6, 8, 10, 12}, {0, 0, 0, 1}},
        {{1, 0, 0, 5}, {0, 0, 0, 6}, {0, 0, 1, 7}, {0, 0, 0, 1}},
        {{tiny, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}},
        {{nan, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}},
    };
    for (auto const & rows : singular) {
        g3d_XForm form(rows);
        EXPECT_FALSE(form.Invert());
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) {
                float const entry = form.GetM(i, j);
                EXPECT_EQ(std::memcmp(&entry, &rows[i][j], sizeof(float)), 0);
            }
    }
}

TEST(XForm, SmallEntriesAreNotTakenForSingular) {
    // The determinant, 1e-90, is far below the least float.
    float const rows[4][4] = {{1e-30f, 0, 0, 0}, {0, 1e-30f, 0, 0}, {0, 0, 1e-30f, 0}, {0, 0, 0, 1}};
    g3d_XForm form(rows);
    ASSERT_TRUE(form.Invert());
    EXPECT_FLOAT_EQ(form.GetM(1, 1), 1e30f);
}

TEST(Vector, NormalizeKeepsTheDirectionAtEverySize) {
    RandomNumbers random;
    for (int trial = 0; trial < 500; ++trial) {
        double const scale = std::pow(10.0, random(-36, 38));
        g3d_Vector v(static_cast<float>(scale * random(-1, 1)), static_cast<float>(scale * random(-1, 1)),
                     static_cast<float>(scale * random(-1, 1)));
        g3d_Vector const before = v;
        v.Normalize();
        double const length = std::hypot(double{before.X()}, double{before.Y()}, double{before.Z()});
        EXPECT_EQ(v.X(), static_cast<float>(before.X() / length)) << length;
        EXPECT_NEAR(g3d_Magnitude({v.X(), v.Y(), v.Z()}), 1, 1e-7);
        EXPECT_EQ(std::signbit(v.Z()), std::signbit(before.Z()));
    }
    g3d_Vector zero;
    zero.Normalize();
    EXPECT_TRUE(zero.X() == 0 && zero.Y() == 0 && zero.Z() == 0);
}

TEST(GeomUtils, EqualValueIncludesItsTolerance) {
    EXPECT_TRUE(g3d_GeomUtils::EqualValue(1.5, 1.0, 0.5));
    EXPECT_FALSE(g3d_GeomUtils::EqualValue(1.0, std::nextafter(1.5, 2.0), 0.5));
    EXPECT_FALSE(g3d_GeomUtils::EqualValue(std::nan(""), std::nan(""), 1.0));
}

// The coordinate container against a plain model.

void expectSame(uti_CoordCont3D const & container, std::map<int, std::array<float, 3>> const & model, int length) {
    EXPECT_EQ(container.Length(), length);
    for (int i = -3; i < length + 40; ++i) {
        auto const entry = model.find(i);
        std::array<float, 3> const expected = entry != model.end() ? entry->second : std::array<float, 3>{};
        uti_Coord3D const read = container[i];
        float x = -1, y = -1, z = -1;
        container.GetCoord(i, x, y, z);
        EXPECT_TRUE(read[0] == expected[0] && read[1] == expected[1] && read[2] == expected[2]) << i;
        EXPECT_TRUE(x == expected[0] && y == expected[1] && z == expected[2]) << i;
    }
}

TEST(CoordCont, ReadsBackWhatWasSetAndZeroElsewhere) {
    RandomNumbers random;
    uti_CoordCont3D container;
    std::map<int, std::array<float, 3>> model;
    int length = 0;
    for (int step = 0; step < 300; ++step) {
        int const index = static_cast<int>(random(-5, 10 + step));
        switch (step % 3) {
        case 0: {
            container.Grow(index);
            length = std::max(length, index);
            break;
        }
        case 1: {
            container.SetCoord(index, 1.0f + static_cast<float>(step), 2, 3);
            if (index >= 0)
                model[index] = {1.0f + static_cast<float>(step), 2, 3};
            break;
        }
        default: {
            uti_Coord3D const copied = container[step / 2];
            container.SetCoord(index, copied);
            if (index >= 0)
                model[index] = {copied[0], copied[1], copied[2]};
        }
        }
        if (step % 3 != 0)
            length = std::max(length, index + 1);
        expectSame(container, model, length);
        if (HasFailure())
            return;
    }
    uti_CoordCont3D const copy = container;
    container.SetCoord(0, 9, 9, 9);
    expectSame(copy, model, length);
}

TEST(CoordCont, GrowthWithoutMemoryLeavesTheEntries) {
    uti_CoordCont3D container;
    container.SetCoord(2, 1, 2, 3);
    mem_SetFailureHook([](std::size_t) { return true; });
    bool isRaised = false;
    try {
        container.SetCoord(1000, 4, 5, 6);
    } catch (mem_OutOfMemoryException const &) {
        isRaised = true;
    }
    mem_SetFailureHook(nullptr);
    EXPECT_TRUE(isRaised);
    expectSame(container, {{2, {1, 2, 3}}}, 3);
}

} // namespace
