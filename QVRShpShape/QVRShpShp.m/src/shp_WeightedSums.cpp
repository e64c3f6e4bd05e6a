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

void shp_sumInDouble(float const * values, float const * weights, float * out, int numRows, int numPoints,
                     int numComps) {
    chosen.inDouble(values, weights, out, numRows, numPoints, numComps);
}

void shp_sumInFloat(float const * values, float const * weights, float * out, int numRows, int numPoints,
                    int numComps) {
    chosen.inFloat(values, weights, out, numRows, numPoints, numComps);
}
