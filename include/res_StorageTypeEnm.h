#ifndef res_StorageTypeEnm_h
#define res_StorageTypeEnm_h

#include "QVRShpCore_Export.h"

/// The kind of number that a result is stored as.
enum QVRSHPCORE_API res_StorageTypeEnm : int {
    res_StorageType_FLOAT = 0,
    res_StorageType_DOUBLE = 1,
    res_StorageType_INTEGER = 2,
    res_StorageType_BOOLEAN = 3
};

#endif
