#ifndef shp_VectorKernels_h
#define shp_VectorKernels_h

#include "shp_SetOperations.h"

/// What is compiled once for every machine, and once more for those with 256-bit vectors; both give the same bits.
struct shp_VectorKernels {
    shp_SetOperations const * setOperations; ///< in the order of shp_shape::AllSets
    shp_LineWorker surfaceLineWorker;
};

/// Those for this machine.
shp_VectorKernels const & shp_vectorKernels();

/// For a machine with 256-bit vectors; null in a library for machines that never have them.
extern shp_VectorKernels const shp_wideVectorKernels;

#endif
