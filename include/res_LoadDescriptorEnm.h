#ifndef res_LoadDescriptorEnm_h
#define res_LoadDescriptorEnm_h

#include "QVRShpCore_Export.h"

/// What a load acts as. There is no value 14.
enum QVRSHPCORE_API res_LoadDescriptorEnm : int {
    res_LoadDescriptor_NONE = 0,
    res_LoadDescriptor_BODY_FORCE_X = 1,
    res_LoadDescriptor_BODY_FORCE_Y = 2,
    res_LoadDescriptor_BODY_FORCE_Z = 3,
    res_LoadDescriptor_BODY_FORCE_X_USER = 4,
    res_LoadDescriptor_BODY_FORCE_Y_USER = 5,
    res_LoadDescriptor_BODY_FORCE_Z_USER = 6,
    res_LoadDescriptor_CENT = 7,
    res_LoadDescriptor_CENTRIF = 8,
    res_LoadDescriptor_CORIOLIS = 9,
    res_LoadDescriptor_GRAVITY = 10,
    res_LoadDescriptor_HYDROSTATIC_PRESSURE = 11,
    res_LoadDescriptor_PRESSURE = 12,
    res_LoadDescriptor_PRESSURE_USER = 13,
    res_LoadDescriptor_FOUNDATION = 15,
    res_LoadDescriptor_BODY_FLUX = 16,
    res_LoadDescriptor_BODY_FLUX_USER = 17,
    res_LoadDescriptor_FLUX = 18,
    res_LoadDescriptor_FLUX_USER = 19,
    res_LoadDescriptor_FILM = 20,
    res_LoadDescriptor_FILM_USER = 21,
    res_LoadDescriptor_RADIATION = 22,
    res_LoadDescriptor_SEEPAGE = 23,
    res_LoadDescriptor_DRAIN_ONLY_SEEPAGE = 24,
    res_LoadDescriptor_SEEPAGE_USER = 25,
    res_LoadDescriptor_PORE = 26,
    res_LoadDescriptor_PORE_USER = 27,
    res_LoadDescriptor_ELECTRIC_BODY_FLUX = 28,
    res_LoadDescriptor_SURFACE_CHARGE = 29,
    res_LoadDescriptor_VOLUMETRIC_SOURCE_DENSITY = 30,
    res_LoadDescriptor_DENSITY = 31,
    res_LoadDescriptor_BODY_CONCENTRATION_FLUX = 32,
    res_LoadDescriptor_BODY_CONCENTRATION_FLUX_USER = 33,
    res_LoadDescriptor_CONCENTRATION_FLUX = 34,
    res_LoadDescriptor_CONCENTRATION_FLUX_USER = 35,
    res_LoadDescriptor_PRESSURE_PENETRATION = 36
};

#endif
