// Compiled for machines with 256-bit vectors, where the compiler has an option for them (see
// cmake/QVRShpCoreLibrary.cmake). Without optimisation, functions of sets would not be inlined, but shared with other
// source files.

#if defined(__AVX2__) && defined(__OPTIMIZE__)
#include "shp_SetOperationsKernel.h"

shp_SetOperationTable const shp_wideSetOperations = {operations};
#else
#include "shp_SetOperations.h"

shp_SetOperationTable const shp_wideSetOperations = {nullptr};
#endif
