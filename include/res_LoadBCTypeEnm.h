#ifndef res_LoadBCTypeEnm_h
#define res_LoadBCTypeEnm_h

#include "QVRShpCore_Export.h"

/// The kind of a load or boundary condition.
enum QVRSHPCORE_API res_LoadBCTypeEnm : int {
    res_LoadBCType_FIXED_DISPLACEMENT = 0,
    res_LoadBCType_FIXED_VELOCITY = 1,
    res_LoadBCType_FIXED_ACCELERATION = 2,
    res_LoadBCType_X_SYMMETRY = 3,
    res_LoadBCType_Y_SYMMETRY = 4,
    res_LoadBCType_Z_SYMMETRY = 5,
    res_LoadBCType_X_ANTISYMMETRY = 6,
    res_LoadBCType_Y_ANTISYMMETRY = 7,
    res_LoadBCType_Z_ANTISYMMETRY = 8,
    res_LoadBCType_ENCASTRE = 9,
    res_LoadBCType_PINNED = 10,
    res_LoadBCType_NO_DEFORM = 11,
    res_LoadBCType_NO_OVAL = 12,
    res_LoadBCType_NO_WARP = 13,
    res_LoadBCType_FIXED_TEMPERATURE = 14,
    res_LoadBCType_FLUID_CAVITY = 15,
    res_LoadBCType_PORE_PRESSURE = 16,
    res_LoadBCType_SHELL_TO_SOLID = 17,
    res_LoadBCType_CONCENTRATED_LOAD = 18,
    res_LoadBCType_DISTRIBUTED_LOAD = 19,
    res_LoadBCType_UNDEFINED = 20
};

#endif
