#include "arithmetic_peak.h"

#include <benchmark/benchmark.h>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace bench {

#if defined(__x86_64__)

void runPrescribedArithmetic(int terms) {
    __m128 value = _mm_set1_ps(1.5f), weight = _mm_set1_ps(0.25f);
    __m128d sums[8] = {};
    for (int done = 0; done < terms; done += 16) {
        for (int k = 0; k < 4; ++k) {
            asm volatile("" : "+x"(value)); // each product is formed
            __m128 const product = _mm_mul_ps(value, weight);
            sums[2 * k] = _mm_add_pd(sums[2 * k], _mm_cvtps_pd(product));
            sums[2 * k + 1] = _mm_add_pd(sums[2 * k + 1], _mm_cvtps_pd(_mm_movehl_ps(product, product)));
        }
    }
    for (__m128d & sum : sums)
        benchmark::DoNotOptimize(sum);
}

bool hasWideArithmetic() {
    return __builtin_cpu_supports("avx2");
}

__attribute__((target("avx2"))) void runWideArithmetic(int terms) {
    __m256 value = _mm256_set1_ps(1.5f), weight = _mm256_set1_ps(0.25f);
    __m256d sums[8] = {};
    for (int done = 0; done < terms; done += 32) {
        for (int k = 0; k < 4; ++k) {
            asm volatile("" : "+x"(value));
            __m256 const product = _mm256_mul_ps(value, weight);
            sums[2 * k] = _mm256_add_pd(sums[2 * k], _mm256_cvtps_pd(_mm256_castps256_ps128(product)));
            sums[2 * k + 1] = _mm256_add_pd(sums[2 * k + 1], _mm256_cvtps_pd(_mm256_extractf128_ps(product, 1)));
        }
    }
    for (__m256d & sum : sums)
        benchmark::DoNotOptimize(sum);
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
