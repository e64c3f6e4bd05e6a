#ifndef res_MatrixTypeEnm_h
#define res_MatrixTypeEnm_h

#include "QVRShpCore_Export.h"

/// The symmetry of a matrix result.
enum QVRSHPCORE_API res_MatrixTypeEnm : int { res_MatrixType_GENERIC_MATRIX = 0, res_MatrixType_SYMMETRIC_MATRIX = 1 };

#endif
