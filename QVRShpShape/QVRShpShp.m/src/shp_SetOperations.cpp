#include "shp_SetOperationsKernel.h"

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

shp_SetOperations const * chosenOperations() {
    static bool const areWide = shp_wideSetOperations.operations && hasWideVectors();
    return areWide ? shp_wideSetOperations.operations : operations;
}

} // namespace

shp_SetOperations shp_operationsOf(shp_FunctionSet const * set) {
    shp_FunctionSetList const all = shp_allFunctionSets();
    shp_FunctionSet const * const * const found = std::find(all.sets, all.sets + all.count, set);
    return found != all.sets + all.count ? chosenOperations()[found - all.sets] : shp_SetOperations{};
}
