#ifndef res_PrimEnums_h
#define res_PrimEnums_h

#include "omu_PrimEnum.h"
#include "res_ClampTypeEnm.h"
#include "res_ComplexDisplayEnm.h"
#include "res_ComponentEnm.h"
#include "res_CoordSystemEnm.h"
#include "res_DataTypeEnm.h"
#include "res_FieldCompletenessEnm.h"
#include "res_InvariantEnm.h"
#include "res_LoadBCTypeEnm.h"
#include "res_LoadDescriptorEnm.h"
#include "res_MatrixTypeEnm.h"
#include "res_OutputPositionEnm.h"
#include "res_PairEnm.h"
#include "res_SectionResultsEnm.h"
#include "res_StorageTypeEnm.h"

/// The result enumerations as primitives: omu_PrimEnum<res_DataTypeEnm, 1> and so on. The tables and the code are the
/// library's own; a client makes no second set.

/// The table of values and names, up to a row whose name is null. The argument only chooses among the tables.
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_OutputPositionEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_DataTypeEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_MatrixTypeEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_CoordSystemEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_ComponentEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_InvariantEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_FieldCompletenessEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_ClampTypeEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_StorageTypeEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_LoadBCTypeEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_LoadDescriptorEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_PairEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_ComplexDisplayEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(res_SectionResultsEnm);

extern template class omu_PrimEnum<res_OutputPositionEnm, 1>;
extern template class omu_PrimEnum<res_DataTypeEnm, 1>;
extern template class omu_PrimEnum<res_MatrixTypeEnm, 1>;
extern template class omu_PrimEnum<res_CoordSystemEnm, 1>;
extern template class omu_PrimEnum<res_ComponentEnm, 1>;
extern template class omu_PrimEnum<res_InvariantEnm, 1>;
extern template class omu_PrimEnum<res_FieldCompletenessEnm, 1>;
extern template class omu_PrimEnum<res_ClampTypeEnm, 1>;
extern template class omu_PrimEnum<res_StorageTypeEnm, 1>;
extern template class omu_PrimEnum<res_LoadBCTypeEnm, 1>;
extern template class omu_PrimEnum<res_LoadDescriptorEnm, 1>;
extern template class omu_PrimEnum<res_PairEnm, 1>;
extern template class omu_PrimEnum<res_ComplexDisplayEnm, 1>;
extern template class omu_PrimEnum<res_SectionResultsEnm, 1>;

#endif
