#ifndef odiC_Conversions_h
#define odiC_Conversions_h

#include "QVRShpCore_Export.h"
#include "odm_DataTypeEnm.h"
#include "odm_PositionEnm.h"
#include "res_DataTypeEnm.h"
#include "res_OutputPositionEnm.h"

/// Between the codes that output databases store and the library's own. Neither pair of conversions is an inverse: the
/// database tells fewer cases apart.

/// NUM_DATA_TYPE for every code without a type.
QVRSHPCORE_API res_DataTypeEnm odiC_ConvertOdmToRes(odm_DataTypeEnm stored);
/// UNDEFINED_POSITION for every code without a position. 2048 and 4096 give 13 and 14, which have no name.
QVRSHPCORE_API res_OutputPositionEnm odiC_ConvertOdmToRes(odm_PositionEnm stored);
/// 0 for every type without a code.
QVRSHPCORE_API odm_DataTypeEnm odiC_ConvertResToOdm(res_DataTypeEnm type);
/// 16 for every position without a code.
QVRSHPCORE_API odm_PositionEnm odiC_ConvertResToOdm(res_OutputPositionEnm position);

#endif
