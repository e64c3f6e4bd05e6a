#include "QVRShpCore_State.h"
#include "cls_MetadataRegistrar.h"
#include "omi_StartCount.h"
#include "shp_AnalyticRigidSurfaceData.h"
#include "shp_AnalyticSurface.h"
#include "shp_ArchEntry.h"
#include "shp_ShapeDictionary.h"
#include "typ_ArchCompTable.h"

void QVRShpShp_initialize(int & level) {
    if (!omi_countStart(QVRShpCore_state.shpStartCount, level))
        return;
    typ_ArchCompTable::InsertEntry(831, shp_ArchEntry());
    cls_MetadataRegistrar & registrar = omi_Singleton<cls_MetadataRegistrar>::Instance();
    registrar.initClassMetadata(shp_AnalyticRigidSurfaceData::InitializeMetadata, 4);
    registrar.initClassMetadata(shp_SuppDataPair::InitializeMetadata, 4);
    registrar.initClassMetadata(shp_AnalyticSurface::InitializeMetadata, 4);
    registrar.initClassMetadata(shp_AnalyticSurfaceSegment::InitializeMetadata, 4);
}

void QVRShpShp_finalize(int & level) {
    if (omi_countStop(QVRShpCore_state.shpStartCount, level))
        omi_SingletonBase<shp_ShapeDictionary>::Finalize();
}
