#include "QVRShpCore_Module.h"

#include "QVRShpCore_State.h"
#include "omi_StartCount.h"

constinit QVRShpCore_Counters QVRShpCore_state = {};

QVRShpCore_Counters QVRShpCore_counters() {
    return QVRShpCore_state;
}

void QVRShpCore_initialize(int & level) {
    if (!omi_countStart(QVRShpCore_state.moduleStartCount, level))
        return;
    QVRKelGeom_initialize(level);
    QVRKelBasicUtils_initialize(level);
    QVRBasShared_initialize(level);
    QVRBasCoreUtils_initialize(level);
    QVRBasAlloc_initialize(level);
    QVRShpOdi_initialize(level);
    QVRShpShp_initialize(level);
    QVRShpCore_specific_initialize(level);
}

void QVRShpCore_finalize(int & level) {
    if (!omi_countStop(QVRShpCore_state.moduleStartCount, level))
        return;
    QVRShpCore_specific_finalize(level);
    QVRShpShp_finalize(level);
    QVRShpOdi_finalize(level);
    QVRBasAlloc_finalize(level);
    QVRBasCoreUtils_finalize(level);
    QVRBasShared_finalize(level);
    QVRKelBasicUtils_finalize(level);
    QVRKelGeom_finalize(level);
}

void QVRShpCore_initializeC() {
    QVRShpCore_initialize(QVRShpCore_state.cEntryLevel);
}

void QVRShpCore_finalizeC() {
    QVRShpCore_finalize(QVRShpCore_state.cEntryLevel);
}

void QVRShpCore_specific_initialize(int & level) {
    omi_countStart(QVRShpCore_state.specificStartCount, level);
}

void QVRShpCore_specific_finalize(int & level) {
    omi_countStop(QVRShpCore_state.specificStartCount, level);
}
