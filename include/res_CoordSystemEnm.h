#ifndef res_CoordSystemEnm_h
#define res_CoordSystemEnm_h

#include "QVRShpCore_Export.h"

/// The coordinate system in which the components of a result are given.
enum QVRSHPCORE_API res_CoordSystemEnm : int {
    res_CoordSystem_PRINCIPAL = 0,
    res_CoordSystem_GLOBAL = 1,
    res_CoordSystem_LOCAL = 2,
    res_CoordSystem_NOT_APPLICABLE = 3,
    res_CoordSystem_USER_SPECIFIED = 4
};

#endif
