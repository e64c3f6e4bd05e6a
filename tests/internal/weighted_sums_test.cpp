// The kernels of the weighted sums, for the plainest machine and for this one, against one sum after the other. Arrays
// end where they are said to end, and begin at any address.

#include "shp_WeightedSumsKernel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <random>
#include <vector>

namespace {

using Limits = std::numeric_limits<float>;

/// A value of any size; one in four is special.
float anyValue() {
    static std::mt19937 random(4711);
    constexpr float special[] = {0.0f,          -0.0f,         Limits::infinity(),  -Limits::infinity(),
                                 Limits::max(), Limits::min(), Limits::quiet_NaN(), Limits::denorm_min()};
    if (random() % 4 == 0)
        return special[random() % std::size(special)];
    return std::ldexp(std::uniform_real_distribution<float>(-1, 1)(random), static_cast<int>(random() % 250) - 125);
}

/// `count` values behind the first `offset`, which are not used.
struct Array {
    Array(int count, int offset) : all(static_cast<std::size_t>(count + offset)), first(all.data() + offset) {
        std::generate(all.begin(), all.end(), anyValue);
    }
    std::vector<float> all;
    float * first;
};

float narrowed(double sum) {
    constexpr double largestFinite = Limits::max();
    return static_cast<float>(std::isnan(sum) ? sum : std::clamp(sum, -largestFinite, largestFinite));
}
float narrowed(float sum) {
    return sum;
}

/// All not-a-numbers are the same; zeros differ in sign.
std::uint32_t bitsOf(float value) {
    return std::bit_cast<std::uint32_t>(std::isnan(value) ? Limits::quiet_NaN() : value);
}

/// What `tested` makes of arrays of one size must be sums of type Sum.
template <class Sum> void expectSums(shp_WeightedSums * tested, int rows, int points, int comps) {
    int const offset = (rows + points + comps) % 4;
    Array const values(points * comps, offset), weights(rows * points, offset), out(rows * comps, offset);
    tested(values.first, weights.first, out.first, rows, points, comps);
    for (int row = 0; row < rows; ++row)
        for (int c = 0; c < comps; ++c) {
            Sum sum = 0;
            for (int p = 0; p < points; ++p)
                sum += static_cast<Sum>(values.first[p * comps + c] * weights.first[row * points + p]);
            ASSERT_EQ(bitsOf(out.first[row * comps + c]), bitsOf(narrowed(sum)))
                << rows << " rows, " << points << " points, " << comps << " components: row " << row << ", component "
                << c;
        }
}

void expectLaw(shp_SumKernels const & tested) {
    for (int rows : {0, 1, 2, 3, 4, 5, 8, 27})
        for (int points : {0, 1, 3, 4, 5, 8, 27})
            for (int comps = 1; comps <= 14; ++comps) {
                expectSums<double>(tested.inDouble, rows, points, comps);
                expectSums<float>(tested.inFloat, rows, points, comps);
            }
}

} // namespace

TEST(WeightedSums, AreTheirDefinitionToTheLastBitOnEveryMachine) {
    expectLaw(kernels);
}

TEST(WeightedSums, AreTheirDefinitionToTheLastBitInWideVectors) {
#ifdef __x86_64__
    if (!__builtin_cpu_supports("avx"))
        GTEST_SKIP() << "This machine has no wide vectors.";
#endif
    if (!shp_wideSumKernels.inDouble)
        GTEST_SKIP() << "Built for machines without wide vectors.";
    expectLaw(shp_wideSumKernels);
}
