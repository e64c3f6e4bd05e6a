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

#ifdef __AVX2__

using Quad = double __attribute__((vector_size(32)));

[[gnu::always_inline]] inline Quad allOf(double x) {
    return Quad{x, x, x, x};
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
[[gnu::always_inline]] inline void store(Quad four, double * to) {
    _mm256_storeu_pd(to, four);
}

#else

using Pair = double __attribute__((vector_size(16)));
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
[[gnu::always_inline]] inline Quad allOf(double x) {
    return {Pair{x, x}, Pair{x, x}};
}
#ifdef __SSE2__
[[gnu::always_inline]] inline Quad widen(Floats four) {
    return {_mm_cvtps_pd(four), _mm_cvtps_pd(_mm_movehl_ps(four, four))};
}
[[gnu::always_inline]] inline Floats narrow(Quad four) {
    return _mm_movelh_ps(_mm_cvtpd_ps(four.low), _mm_cvtpd_ps(four.high));
}
#else
[[gnu::always_inline]] inline Quad widen(Floats four) {
    return {Pair{four[0], four[1]}, Pair{four[2], four[3]}};
}
[[gnu::always_inline]] inline Floats narrow(Quad four) {
    return Floats{static_cast<float>(four.low[0]), static_cast<float>(four.low[1]), static_cast<float>(four.high[0]),
                  static_cast<float>(four.high[1])};
}
#endif
[[gnu::always_inline]] inline double lane(Quad four, int i) {
    return i < 2 ? four.low[i] : four.high[i - 2];
}
[[gnu::always_inline]] inline Quad first(Quad four) {
    return allOf(four.low[0]);
}
[[gnu::always_inline]] inline Quad turned(Quad four) {
    return {__builtin_shufflevector(four.low, four.high, 0, 2), __builtin_shufflevector(four.low, four.high, 3, 1)};
}
[[gnu::always_inline]] inline void store(Quad four, double * to) {
    __builtin_memcpy(to, &four, sizeof four);
}

#endif

} // namespace

#endif
