#ifndef res_ClampTypeEnm_h
#define res_ClampTypeEnm_h

#include "QVRShpCore_Export.h"

/// Which ends of the range of a result are held at given limits. "MAXINUM" is how scripts and stored files spell it.
enum QVRSHPCORE_API res_ClampTypeEnm : int {
    res_ClampType_NO_CLAMPS = 0,
    res_ClampType_MINIMUM_CLAMP = 1,
    res_ClampType_MAXINUM_CLAMP = 2,
    res_ClampType_BOTH_CLAMPS = 3
};

#endif
