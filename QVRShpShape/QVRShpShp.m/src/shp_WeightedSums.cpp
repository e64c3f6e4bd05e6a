#include "shp_WeightedSumsKernel.h"

namespace {

bool hasWideVectors() {
#ifdef __x86_64__
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx");
#else
    return false;
#endif
}

/// Usable before any constructor of a static object has run; replaced once, when the library is loaded.
constinit shp_SumKernels chosen = kernels;

struct Choice {
    Choice() {
        if (shp_wideSumKernels.inDouble && hasWideVectors())
            chosen = shp_wideSumKernels;
    }
} const choice;

} // namespace

void shp_sumInDouble(shp_WeightedSums const & sums) {
    chosen.inDouble(sums);
}

void shp_sumInFloat(shp_WeightedSums const & sums) {
    chosen.inFloat(sums);
}
