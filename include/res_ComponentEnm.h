#ifndef res_ComponentEnm_h
#define res_ComponentEnm_h

#include "QVRShpCore_Export.h"

/// A component of a tensor, or of a vector (its first three).
enum QVRSHPCORE_API res_ComponentEnm : int {
    res_Component_XX_COMPONENT = 0,
    res_Component_YY_COMPONENT = 1,
    res_Component_ZZ_COMPONENT = 2,
    res_Component_XY_COMPONENT = 3,
    res_Component_XZ_COMPONENT = 4,
    res_Component_YZ_COMPONENT = 5,
    res_Component_YX_COMPONENT = 6,
    res_Component_ZX_COMPONENT = 7,
    res_Component_ZY_COMPONENT = 8,
    res_Component_UNDEFINED = 9
};

#endif
