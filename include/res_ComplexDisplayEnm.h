#ifndef res_ComplexDisplayEnm_h
#define res_ComplexDisplayEnm_h

#include "QVRShpCore_Export.h"

/// Which real number is shown of a complex result.
enum QVRSHPCORE_API res_ComplexDisplayEnm : int {
    res_ComplexDisplay_REAL = 0,
    res_ComplexDisplay_IMAGINARY = 1,
    res_ComplexDisplay_COMPLEX_MAGNITUDE = 2,
    res_ComplexDisplay_COMPLEX_PHASE = 3,
    res_ComplexDisplay_COMPLEX_VAL_AT_ANGLE = 4,
    res_ComplexDisplay_COMPLEX_ENVELOPE_MIN = 5,
    res_ComplexDisplay_COMPLEX_ENVELOPE_MAX = 6,
    res_ComplexDisplay_COMPLEX_ENVELOPE_MAX_ABS = 7
};

#endif
