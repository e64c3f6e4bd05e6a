#include "shp_VectorKernels.h"

#include "shp_SetOperationsKernel.h"
#include "shp_SurfaceLineKernel.h"

#include <algorithm>

namespace {

bool hasWideVectors() {
#ifdef __x86_64__
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2");
#else
    return false;
#endif
}

/// Usable before any constructor of a static object has run; replaced once, when the library is loaded.
constinit shp_VectorKernels chosen = {setOperations, surfaceLineWorker};

struct Choice {
    Choice() {
        if (shp_wideVectorKernels.setOperations && hasWideVectors())
            chosen = shp_wideVectorKernels;
    }
} const choice;

} // namespace

shp_VectorKernels const & shp_vectorKernels() {
    return chosen;
}

shp_SetOperations shp_operationsOf(shp_FunctionSet const * set) {
    shp_FunctionSetList const all = shp_allFunctionSets();
    shp_FunctionSet const * const * const found = std::find(all.sets, all.sets + all.count, set);
    return found != all.sets + all.count ? chosen.setOperations[found - all.sets] : shp_SetOperations{};
}
