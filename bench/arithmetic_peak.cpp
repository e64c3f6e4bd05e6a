#include "arithmetic_peak.h"

#include <benchmark/benchmark.h>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace bench {

#if defined(__x86_64__)

void runPrescribedArithmetic(int terms) {
    __m128 value = _mm_set1_ps(1.5f), weight = _mm_set1_ps(0.25f);
    __m128d a = {}, b = {}, c = {}, d = {}, e = {}, f = {}, g = {}, h = {};
    auto const addFour = [&](__m128d & low, __m128d & high) {
        asm volatile("" : "+x"(value)); // each product is formed
        __m128 const product = _mm_mul_ps(value, weight);
        low = _mm_add_pd(low, _mm_cvtps_pd(product));
        high = _mm_add_pd(high, _mm_cvtps_pd(_mm_movehl_ps(product, product)));
    };
    for (int done = 0; done < terms; done += 16) {
        addFour(a, b);
        addFour(c, d);
        addFour(e, f);
        addFour(g, h);
    }
    asm volatile("" : : "x"(a), "x"(b), "x"(c), "x"(d), "x"(e), "x"(f), "x"(g), "x"(h));
}

bool hasWideArithmetic() {
    return __builtin_cpu_supports("avx2");
}

__attribute__((target("avx2"))) void runWideArithmetic(int terms) {
    __m256 value = _mm256_set1_ps(1.5f), weight = _mm256_set1_ps(0.25f);
    __m256d a = {}, b = {}, c = {}, d = {}, e = {}, f = {}, g = {}, h = {};
    auto const addEight = [&](__m256d & low, __m256d & high) __attribute__((target("avx2"), always_inline)) {
        asm volatile("" : "+x"(value));
        __m256 const product = _mm256_mul_ps(value, weight);
        low = _mm256_add_pd(low, _mm256_cvtps_pd(_mm256_castps256_ps128(product)));
        high = _mm256_add_pd(high, _mm256_cvtps_pd(_mm256_extractf128_ps(product, 1)));
    };
    for (int done = 0; done < terms; done += 32) {
        addEight(a, b);
        addEight(c, d);
        addEight(e, f);
        addEight(g, h);
    }
    asm volatile("" : : "x"(a), "x"(b), "x"(c), "x"(d), "x"(e), "x"(f), "x"(g), "x"(h));
}

#else

void runPrescribedArithmetic(int terms) {
    float value = 1.5f;
    double sums[4] = {};
    for (int done = 0; done < terms; done += 4)
        for (double & sum : sums) {
            benchmark::DoNotOptimize(value);
            sum += double{value * 0.25f};
        }
    benchmark::DoNotOptimize(sums);
}

bool hasWideArithmetic() {
    return false;
}

void runWideArithmetic(int) {}

#endif

} // namespace bench
