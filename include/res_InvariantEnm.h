#ifndef res_InvariantEnm_h
#define res_InvariantEnm_h

#include "QVRShpCore_Export.h"

/// An invariant: a number made from a vector or tensor that does not depend on the coordinate system, or not on its
/// turning in the plane.
enum QVRSHPCORE_API res_InvariantEnm : int {
    res_Invariant_MAX_PRINCIPAL = 0,
    res_Invariant_MID_PRINCIPAL = 1,
    res_Invariant_MIN_PRINCIPAL = 2,
    res_Invariant_MAXIMUM_IN_PLANE_PRINCIPAL = 3,
    res_Invariant_MINIMUM_IN_PLANE_PRINCIPAL = 4,
    res_Invariant_OUT_OF_PLANE_PRINCIPAL = 5,
    res_Invariant_MISES = 6,
    res_Invariant_TRESCA = 7,
    res_Invariant_PRESS = 8,
    res_Invariant_INV3 = 9,
    res_Invariant_MAGNITUDE = 10,
    res_Invariant_MAX_PRINCIPAL_ABS = 11,
    res_Invariant_MAX_IN_PLANE_PRINCIPAL_ABS = 12
};

#endif
