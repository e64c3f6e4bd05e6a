#ifndef res_FieldCompletenessEnm_h
#define res_FieldCompletenessEnm_h

#include "QVRShpCore_Export.h"

/// How much of a model a field of results covers.
enum QVRSHPCORE_API res_FieldCompletenessEnm : int {
    res_FieldCompleteness_FULL_FIELD = 0,
    res_FieldCompleteness_PARTIAL_FIELD = 1,
    res_FieldCompleteness_EMPTY_FIELD = 2
};

#endif
