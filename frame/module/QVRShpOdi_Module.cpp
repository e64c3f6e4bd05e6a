#include "QVRShpCore_State.h"
#include "cls_MetadataRegistrar.h"
#include "odiC_ArchEntry.h"
#include "odiC_Exception.h"
#include "omi_StartCount.h"
#include "typ_ArchCompTable.h"

void QVRShpOdi_initialize(int & level) {
    if (!omi_countStart(QVRShpCore_state.odiStartCount, level))
        return;
    typ_ArchCompTable::InsertEntry(676, odiC_ArchEntry());
    omi_Singleton<cls_MetadataRegistrar>::Instance().initClassMetadata(odiC_Exception::InitializeMetadata, 2);
}

// What was registered stays: objects that were stored can still be read.
void QVRShpOdi_finalize(int & level) {
    omi_countStop(QVRShpCore_state.odiStartCount, level);
}
