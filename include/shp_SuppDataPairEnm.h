#ifndef shp_SuppDataPairEnm_h
#define shp_SuppDataPairEnm_h

#include "QVRShpCore_Export.h"

/// What a point means in the profile of an analytic rigid surface.
enum QVRSHPCORE_API shp_SuppDataPairEnm : int {
    shp_SuppDataPair_Start = 0,
    shp_SuppDataPair_Line = 1,
    shp_SuppDataPair_Circl = 2,
    shp_SuppDataPair_Parab = 3
};

#endif
