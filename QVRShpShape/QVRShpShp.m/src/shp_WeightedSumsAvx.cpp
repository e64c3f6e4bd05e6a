// Compiled for machines with 256-bit vectors, where the compiler has an option for them (see
// cmake/QVRShpCoreLibrary.cmake).

#include "shp_WeightedSumsKernel.h"

#ifdef __AVX__
shp_SumKernels const shp_wideSumKernels = kernels;
#else
shp_SumKernels const shp_wideSumKernels = {nullptr, nullptr};
#endif
