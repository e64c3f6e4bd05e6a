#include "QVRShpCore_State.h"
#include "omi_StartCount.h"
#include "shp_ShapeDictionary.h"

void QVRShpShp_initialize(int & level) {
    omi_countStart(QVRShpCore_state.shpStartCount, level);
}

void QVRShpShp_finalize(int & level) {
    if (omi_countStop(QVRShpCore_state.shpStartCount, level))
        omi_SingletonBase<shp_ShapeDictionary>::Finalize();
}
