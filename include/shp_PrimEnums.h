#ifndef shp_PrimEnums_h
#define shp_PrimEnums_h

#include "omu_PrimEnum.h"
#include "shp_AnalyticRigidSurfEnm.h"
#include "shp_AnalyticSurface.h"
#include "shp_AnalyticSurfaceSegment.h"
#include "shp_SuppDataPairEnm.h"

/// The enumerations of analytic rigid surfaces as primitives, as res_PrimEnums.h has those of results. The names are
/// what stands in stored surfaces.

/// As the functions of that name in res_PrimEnums.h.
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(shp_AnalyticSurfaceSegment::TypeEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(shp_AnalyticSurface::TypeEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(shp_AnalyticRigidSurfEnm);
QVRSHPCORE_API omu_PrimEnumRow const * omu_PrimEnumRows(shp_SuppDataPairEnm);

extern template class omu_PrimEnum<shp_AnalyticSurfaceSegment::TypeEnm, 1>;
extern template class omu_PrimEnum<shp_AnalyticSurface::TypeEnm, 1>;
extern template class omu_PrimEnum<shp_AnalyticRigidSurfEnm, 1>;
extern template class omu_PrimEnum<shp_SuppDataPairEnm, 1>;

#endif
