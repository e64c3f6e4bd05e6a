#include "shp_assert.h"

#include "atr_translate.h"
#include "nex_PrimException.h"

void shp_assert(bool condition, shp_ErrorEnm code) {
    if (condition)
        return;
    atr_String message;
    if (code == shp_Error_Surface_Sketch_is_not_valid_)
        message = atr_raw("Surface Sketch is not valid.");
    nex_PrimException<atr_String, 1>(message).Throw("QVRShpShape/QVRShpShp.m/src/shp_assert", 28);
}
