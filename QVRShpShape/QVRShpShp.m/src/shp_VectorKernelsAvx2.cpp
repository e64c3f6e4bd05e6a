// Compiled for machines with 256-bit vectors, where the compiler has an option for them (see
// cmake/QVRShpCoreLibrary.cmake). Without optimisation, small functions would not be inlined, but shared with other
// source files.

#include "shp_VectorKernels.h"

#if defined(__AVX2__) && defined(__OPTIMIZE__) && !defined(__OPTIMIZE_SIZE__) && !defined(__NO_INLINE__)
#include "shp_SetOperationsKernel.h"
#include "shp_SurfaceLineKernel.h"

shp_VectorKernels const shp_wideVectorKernels = {setOperations, surfaceLineWorker};
#else
shp_VectorKernels const shp_wideVectorKernels = {nullptr, nullptr};
#endif
