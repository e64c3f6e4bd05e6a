#ifndef shp_assert_h
#define shp_assert_h

#include "QVRShpCore_Export.h"

/// What shp_assert has a text for. Every other number is legal and has an empty one.
enum shp_ErrorEnm : int {
    shp_Error_Surface_Sketch_is_not_valid_ = 0,
};

/// Raises nex_PrimException<atr_String, 1> with the text of `code` when `condition` does not hold.
QVRSHPCORE_API void shp_assert(bool condition, shp_ErrorEnm code);

#endif
