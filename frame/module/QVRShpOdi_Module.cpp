#include "QVRShpCore_State.h"
#include "omi_StartCount.h"

void QVRShpOdi_initialize(int & level) {
    omi_countStart(QVRShpCore_state.odiStartCount, level);
}

void QVRShpOdi_finalize(int & level) {
    omi_countStop(QVRShpCore_state.odiStartCount, level);
}
