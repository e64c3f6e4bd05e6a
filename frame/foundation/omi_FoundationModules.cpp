#include "QVRShpCore_Module.h"
#include "omi_StartCount.h"

// The services of the foundation come into being at their first use and are freed at unload (omi_AtExit.h); what is
// left of its modules is their place in the order of start and stop, and in the level.

namespace {

constinit int geomStartCount = 0;
constinit int basicUtilsStartCount = 0;
constinit int sharedStartCount = 0;
constinit int coreUtilsStartCount = 0;
constinit int allocStartCount = 0;

} // namespace

void QVRKelGeom_initialize(int & level) {
    omi_countStart(geomStartCount, level);
}
void QVRKelGeom_finalize(int & level) {
    omi_countStop(geomStartCount, level);
}

void QVRKelBasicUtils_initialize(int & level) {
    omi_countStart(basicUtilsStartCount, level);
}
void QVRKelBasicUtils_finalize(int & level) {
    omi_countStop(basicUtilsStartCount, level);
}

void QVRBasShared_initialize(int & level) {
    omi_countStart(sharedStartCount, level);
}
void QVRBasShared_finalize(int & level) {
    omi_countStop(sharedStartCount, level);
}

void QVRBasCoreUtils_initialize(int & level) {
    omi_countStart(coreUtilsStartCount, level);
}
void QVRBasCoreUtils_finalize(int & level) {
    omi_countStop(coreUtilsStartCount, level);
}

void QVRBasAlloc_initialize(int & level) {
    omi_countStart(allocStartCount, level);
}
void QVRBasAlloc_finalize(int & level) {
    omi_countStop(allocStartCount, level);
}
