// The geometry of the foundation: matrices, directions, and the coordinate container that grows.

#include "g3d_GeomUtils.h"
#include "g3d_Storage.h"
#include "g3d_Vector.h"
#include "g3d_XForm.h"
#include "memory_refusals.h"
#include "uti_CoordCont3D.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <random>

namespace {

double random(double low, double high) {
    static std::mt19937 engine(20240611);
    return std::uniform_real_distribution<double>(low, high)(engine);
}

TEST(XForm, InverseUndoesTheMatrixAndItsDeterminant) {
    for (int trial = 0; trial < 500; ++trial) {
        // The inverse is as good as the entries: a dominant diagonal, in rows of any order, at any size.
        double const scale = std::pow(10, random(-6, 6));
        int const firstRow = static_cast<int>(random(0, 3.99));
        g3d_XForm form;
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j)
                form.M((i + firstRow) % 4, j) = static_cast<float>(scale * (random(-1, 1) + (i == j ? 4 : 0)));
        g3d_XForm inverse = form;
        ASSERT_TRUE(inverse.Invert());
        EXPECT_NEAR(form.Determinant() * inverse.Determinant(), 1, 1e-5);
        EXPECT_EQ(form.Determinant() < 0, firstRow % 2 == 1); // each row passed by changes the sign
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) {
                double product = 0, size = 0;
                for (int k = 0; k < 4; ++k) {
                    product += double{form.GetM(i, k)} * inverse.GetM(k, j);
                    size += std::fabs(double{form.GetM(i, k)} * inverse.GetM(k, j));
                }
                EXPECT_NEAR(product, i == j ? 1 : 0, 2e-7 * size) << "trial " << trial << ", entry " << i << j;
            }
    }
}

TEST(XForm, SingularMatrixStaysAsItWasAndSmallOnesAreNotSingular) {
    constexpr float tiny = 1e-39f; // the inverse would need 1e39
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    float const singular[][4][4] = {
        {{1, 2, 3, 4}, {5, 6, 7, 8}, {6, 8, 10, 12}, {0, 0, 0, 1}},
        {{tiny, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}},
        {{nan, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}},
    };
    for (auto const & rows : singular) {
        g3d_XForm form(rows);
        EXPECT_FALSE(form.Invert());
        EXPECT_EQ(std::memcmp(&form.M(0, 0), rows, sizeof rows), 0);
    }
    // The determinant, 1e-90, is far below the least float.
    double const small[4][4] = {{1e-30, 0, 0, 0}, {0, 1e-30, 0, 0}, {0, 0, 1e-30, 0}, {0, 0, 0, 1}};
    g3d_XForm form(small);
    ASSERT_TRUE(form.Invert());
    EXPECT_FLOAT_EQ(form.GetM(1, 1), 1e30f);
    // 8193 * 8191 and 8192 * 8192 are the same number in float.
    double const close[4][4] = {{8193, 8192, 0, 0}, {8192, 8191, 0, 0}, {0, 0, 8193, 8192}, {0, 0, 8192, 8191}};
    EXPECT_EQ(g3d_XForm(close).Determinant(), 1);
}

TEST(Vector, NormalizeKeepsTheDirectionAtEverySize) {
    for (int trial = 0; trial < 500; ++trial) {
        auto const scale = static_cast<float>(std::pow(10, random(-36, 38)));
        auto const component = [&] { return scale * static_cast<float>(random(-1, 1)); };
        g3d_Vector const before{component(), component(), component()};
        g3d_Vector v = before;
        v.Normalize();
        double const length = std::hypot(double{before.X()}, double{before.Y()}, double{before.Z()});
        EXPECT_EQ(v.X(), static_cast<float>(before.X() / length)) << length;
        EXPECT_EQ(v.Y(), static_cast<float>(before.Y() / length)) << length;
        EXPECT_EQ(v.Z(), static_cast<float>(before.Z() / length)) << length;
        EXPECT_NEAR(g3d_Magnitude({v.X(), v.Y(), v.Z()}), 1, 1e-7);
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

TEST(CoordCont, ReadsBackWhatWasSetAndZeroElsewhere) {
    uti_CoordCont3D container;
    std::map<int, std::array<float, 3>> model;
    int length = 0;
    for (int step = 0; step < 300; ++step) {
        int const index = static_cast<int>(random(-5, 10 + step));
        if (step % 3 == 0) {
            container.Grow(index);
            length = std::max(length, index);
        } else {
            uti_Coord3D const coord = step % 3 == 1 ? uti_Coord3D(1.0f + float(step), 2, 3) : container[step / 2];
            if (step == 200) { // growth without memory leaves the entries
                MemoryRefusal const noMemory;
                EXPECT_THROW(container.SetCoord(1000, coord), mem_OutOfMemoryException);
            }
            container.SetCoord(index, coord);
            length = std::max(length, index + 1);
            if (index >= 0)
                model[index] = {coord[0], coord[1], coord[2]};
        }
        ASSERT_EQ(container.Length(), length);
        for (int i = -3; i < length + 40; ++i) {
            std::array<float, 3> const expected = model.contains(i) ? model[i] : std::array<float, 3>{};
            std::array<float, 3> got{-1, -1, -1};
            container.GetCoord(i, got[0], got[1], got[2]);
            ASSERT_EQ(got, expected) << "entry " << i << ", step " << step;
        }
    }
}

} // namespace
