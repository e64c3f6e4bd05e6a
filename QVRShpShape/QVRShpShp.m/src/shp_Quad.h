#ifndef shp_Quad_h
#define shp_Quad_h

// Four numbers side by side, for sums and products that do not depend on each other: four floats, and four doubles in
// one vector where the machine has such wide ones, else in two.
//
// Compiled once for each width of vectors; everything is in an unnamed namespace and inlined, so that no machine is
// given the instructions of a later one.

#ifdef __SSE2__
#include <immintrin.h>
#endif

namespace {

using Floats = float __attribute__((vector_size(16)));

using Pair = double __attribute__((vector_size(16)));

/// Three floats, the first two as one number; the last lane is 0.
[[gnu::always_inline]] inline Floats loadThree(float const * from) {
    double firstTwo;
    __builtin_memcpy(&firstTwo, from, sizeof firstTwo);
    Floats three = reinterpret_cast<Floats>(Pair{firstTwo, 0});
    three[2] = from[2];
    return three;
}

#ifdef __AVX2__

using Quad = double __attribute__((vector_size(32)));

[[gnu::always_inline]] inline Quad quadOf(Pair low, Pair high) {
    return __builtin_shufflevector(low, high, 0, 1, 2, 3);
}
[[gnu::always_inline]] inline Quad quadOf(double a, double b, double c, double d) {
    return Quad{a, b, c, d};
}
[[gnu::always_inline]] inline Quad widen(Floats four) {
    return _mm256_cvtps_pd(four);
}
[[gnu::always_inline]] inline Floats narrow(Quad four) {
    return _mm256_cvtpd_ps(four);
}
[[gnu::always_inline]] inline double lane(Quad four, int i) {
    return four[i];
}
/// Lane 0 in all of them.
[[gnu::always_inline]] inline Quad first(Quad four) {
    return _mm256_permute4x64_pd(four, 0);
}
/// Lanes 0, 2, 3, 1.
[[gnu::always_inline]] inline Quad turned(Quad four) {
    return _mm256_permute4x64_pd(four, _MM_SHUFFLE(1, 3, 2, 0));
}
/// Lanes 0 and 2 of a and b in turn: a0, b0, a2, b2.
[[gnu::always_inline]] inline Quad evenLanes(Quad a, Quad b) {
    return _mm256_unpacklo_pd(a, b);
}
/// Lanes 1 and 3 of a and b in turn: a1, b1, a3, b3.
[[gnu::always_inline]] inline Quad oddLanes(Quad a, Quad b) {
    return _mm256_unpackhi_pd(a, b);
}
[[gnu::always_inline]] inline Pair lowHalf(Quad four) {
    return _mm256_castpd256_pd128(four);
}
[[gnu::always_inline]] inline Pair highHalf(Quad four) {
    return _mm256_extractf128_pd(four, 1);
}
[[gnu::always_inline]] inline void store(Quad four, double * to) {
    _mm256_storeu_pd(to, four);
}
[[gnu::always_inline]] inline Quad absolute(Quad four) {
    return _mm256_andnot_pd(_mm256_set1_pd(-0.0), four);
}
// Of a number and one that is none, the second operand.
[[gnu::always_inline]] inline Quad lesser(Quad a, Quad b) {
    return _mm256_min_pd(a, b);
}
[[gnu::always_inline]] inline Quad greater(Quad a, Quad b) {
    return _mm256_max_pd(a, b);
}
/// Bit i is set where lane i of a is greater than, or not less than, that of b.
[[gnu::always_inline]] inline unsigned whereGreater(Quad a, Quad b) {
    return static_cast<unsigned>(_mm256_movemask_pd(_mm256_cmp_pd(a, b, _CMP_GT_OQ)));
}
[[gnu::always_inline]] inline unsigned whereAtLeast(Quad a, Quad b) {
    return static_cast<unsigned>(_mm256_movemask_pd(_mm256_cmp_pd(a, b, _CMP_GE_OQ)));
}

#else

struct Quad {
    Pair low, high;
};

[[gnu::always_inline]] inline Quad operator+(Quad a, Quad b) {
    return {a.low + b.low, a.high + b.high};
}
[[gnu::always_inline]] inline Quad operator-(Quad a, Quad b) {
    return {a.low - b.low, a.high - b.high};
}
[[gnu::always_inline]] inline Quad operator*(Quad a, Quad b) {
    return {a.low * b.low, a.high * b.high};
}
[[gnu::always_inline]] inline Quad operator/(Quad a, Quad b) {
    return {a.low / b.low, a.high / b.high};
}
[[gnu::always_inline]] inline Quad quadOf(Pair low, Pair high) {
    return {low, high};
}
[[gnu::always_inline]] inline Quad quadOf(double a, double b, double c, double d) {
    return {Pair{a, b}, Pair{c, d}};
}
#ifdef __SSE2__
[[gnu::always_inline]] inline Quad widen(Floats four) {
    return {_mm_cvtps_pd(four), _mm_cvtps_pd(_mm_movehl_ps(four, four))};
}
[[gnu::always_inline]] inline Floats narrow(Quad four) {
    return _mm_movelh_ps(_mm_cvtpd_ps(four.low), _mm_cvtpd_ps(four.high));
}
[[gnu::always_inline]] inline Quad absolute(Quad four) {
    return {_mm_andnot_pd(_mm_set1_pd(-0.0), four.low), _mm_andnot_pd(_mm_set1_pd(-0.0), four.high)};
}
[[gnu::always_inline]] inline Quad lesser(Quad a, Quad b) {
    return {_mm_min_pd(a.low, b.low), _mm_min_pd(a.high, b.high)};
}
[[gnu::always_inline]] inline Quad greater(Quad a, Quad b) {
    return {_mm_max_pd(a.low, b.low), _mm_max_pd(a.high, b.high)};
}
[[gnu::always_inline]] inline unsigned whereGreater(Quad a, Quad b) {
    return static_cast<unsigned>(_mm_movemask_pd(_mm_cmpgt_pd(a.low, b.low)) |
                                 _mm_movemask_pd(_mm_cmpgt_pd(a.high, b.high)) << 2);
}
[[gnu::always_inline]] inline unsigned whereAtLeast(Quad a, Quad b) {
    return static_cast<unsigned>(_mm_movemask_pd(_mm_cmpge_pd(a.low, b.low)) |
                                 _mm_movemask_pd(_mm_cmpge_pd(a.high, b.high)) << 2);
}
#else
[[gnu::always_inline]] inline Quad widen(Floats four) {
    return {Pair{four[0], four[1]}, Pair{four[2], four[3]}};
}
[[gnu::always_inline]] inline Floats narrow(Quad four) {
    return Floats{static_cast<float>(four.low[0]), static_cast<float>(four.low[1]), static_cast<float>(four.high[0]),
                  static_cast<float>(four.high[1])};
}
[[gnu::always_inline]] inline Quad absolute(Quad four) {
    return {Pair{__builtin_fabs(four.low[0]), __builtin_fabs(four.low[1])},
            Pair{__builtin_fabs(four.high[0]), __builtin_fabs(four.high[1])}};
}
[[gnu::always_inline]] inline Quad lesser(Quad a, Quad b) {
    return {a.low < b.low ? a.low : b.low, a.high < b.high ? a.high : b.high};
}
[[gnu::always_inline]] inline Quad greater(Quad a, Quad b) {
    return {a.low > b.low ? a.low : b.low, a.high > b.high ? a.high : b.high};
}
[[gnu::always_inline]] inline unsigned whereGreater(Quad a, Quad b) {
    return (a.low[0] > b.low[0] ? 1u : 0) | (a.low[1] > b.low[1] ? 2u : 0) | (a.high[0] > b.high[0] ? 4u : 0) |
           (a.high[1] > b.high[1] ? 8u : 0);
}
[[gnu::always_inline]] inline unsigned whereAtLeast(Quad a, Quad b) {
    return (a.low[0] >= b.low[0] ? 1u : 0) | (a.low[1] >= b.low[1] ? 2u : 0) | (a.high[0] >= b.high[0] ? 4u : 0) |
           (a.high[1] >= b.high[1] ? 8u : 0);
}
#endif
[[gnu::always_inline]] inline double lane(Quad four, int i) {
    return i < 2 ? four.low[i] : four.high[i - 2];
}
[[gnu::always_inline]] inline Quad first(Quad four) {
    return quadOf(four.low[0], four.low[0], four.low[0], four.low[0]);
}
[[gnu::always_inline]] inline Quad turned(Quad four) {
    return {__builtin_shufflevector(four.low, four.high, 0, 2), __builtin_shufflevector(four.low, four.high, 3, 1)};
}
[[gnu::always_inline]] inline Quad evenLanes(Quad a, Quad b) {
    return {__builtin_shufflevector(a.low, b.low, 0, 2), __builtin_shufflevector(a.high, b.high, 0, 2)};
}
[[gnu::always_inline]] inline Quad oddLanes(Quad a, Quad b) {
    return {__builtin_shufflevector(a.low, b.low, 1, 3), __builtin_shufflevector(a.high, b.high, 1, 3)};
}
[[gnu::always_inline]] inline Pair lowHalf(Quad four) {
    return four.low;
}
[[gnu::always_inline]] inline Pair highHalf(Quad four) {
    return four.high;
}
[[gnu::always_inline]] inline void store(Quad four, double * to) {
    __builtin_memcpy(to, &four, sizeof four);
}

#endif

[[gnu::always_inline]] inline void store(Floats four, float * to) {
    __builtin_memcpy(to, &four, sizeof four);
}
/// Lanes of x and y together.
[[gnu::always_inline]] inline void storePairs(Quad x, Quad y, Pair * to) {
    Quad const even = evenLanes(x, y), odd = oddLanes(x, y);
    to[0] = lowHalf(even);
    to[1] = lowHalf(odd);
    to[2] = highHalf(even);
    to[3] = highHalf(odd);
}
/// Four doubles from any address.
[[gnu::always_inline]] inline Quad loadFour(void const * from) {
    Quad four;
    __builtin_memcpy(&four, from, sizeof four);
    return four;
}
[[gnu::always_inline]] inline Quad allOf(double x) {
    return quadOf(x, x, x, x);
}
[[gnu::always_inline]] inline double greatestLane(Quad four) {
    double const a = lane(four, 0) > lane(four, 2) ? lane(four, 0) : lane(four, 2);
    double const b = lane(four, 1) > lane(four, 3) ? lane(four, 1) : lane(four, 3);
    return a > b ? a : b;
}

} // namespace

#endif
