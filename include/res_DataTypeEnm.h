#ifndef res_DataTypeEnm_h
#define res_DataTypeEnm_h

#include "QVRShpCore_Export.h"

/// The mathematical type of a result. NUM_DATA_TYPE marks a description that has no data type yet.
enum QVRSHPCORE_API res_DataTypeEnm : int {
    res_DataType_ENUMERATION = 0,
    res_DataType_BOOLEAN = 1,
    res_DataType_INTEGER = 2,
    res_DataType_SCALAR = 3,
    res_DataType_VECTOR = 4,
    res_DataType_MATRIX = 5,
    res_DataType_QUATERNION_2D = 6,
    res_DataType_QUATERNION_3D = 7,
    res_DataType_TENSOR = 8,
    res_DataType_TENSOR_3D_FULL = 9,
    res_DataType_TENSOR_3D_PLANAR = 10,
    res_DataType_TENSOR_3D_SURFACE = 11,
    res_DataType_TENSOR_2D_PLANAR = 12,
    res_DataType_TENSOR_2D_SURFACE = 13,
    res_DataType_ARRAY_1D = 14,
    res_DataType_NUM_DATA_TYPE = 15
};

#endif
