#ifndef res_PairEnm_h
#define res_PairEnm_h

#include "QVRShpCore_Export.h"

/// What the two numbers of a pair are.
enum QVRSHPCORE_API res_PairEnm : int {
    res_Pair_NONE = 0,
    res_Pair_REAL_AND_IMAGINARY = 1,
    res_Pair_MAGNITUDE_AND_PHASE = 2
};

#endif
