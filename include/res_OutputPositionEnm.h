#ifndef res_OutputPositionEnm_h
#define res_OutputPositionEnm_h

#include "QVRShpCore_Export.h"

/// Where a result stands. Values without an enumerator (11, 13 to 15 among them) are legal. The numbers are stored in
/// output databases.
enum QVRSHPCORE_API res_OutputPositionEnm : int {
    res_OutputPosition_UNDEFINED_POSITION = 0,
    res_OutputPosition_NODAL = 1,
    res_OutputPosition_SURFACE_NODAL = 12,
    res_OutputPosition_INTEGRATION_POINT = 2,
    res_OutputPosition_ELEMENT_FACE = 3,
    res_OutputPosition_ELEMENT_FACE_INTEGRATION_POINT = 16,
    res_OutputPosition_SURFACE_INTEGRATION_POINT = 17,
    res_OutputPosition_ELEMENT_NODAL = 4,
    res_OutputPosition_WHOLE_ELEMENT = 5,
    res_OutputPosition_ELEMENT_CENTROID = 6,
    res_OutputPosition_WHOLE_REGION = 7,
    res_OutputPosition_WHOLE_PART_INSTANCE = 8,
    res_OutputPosition_WHOLE_MODEL = 9,
    res_OutputPosition_GENERAL_PARTICLE = 10
};

#endif
