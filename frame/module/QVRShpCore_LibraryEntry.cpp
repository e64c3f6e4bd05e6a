#include "QVRShpCore_State.h"
#include "omi_AtExit.h"

namespace {

enum Reason : unsigned long { processDetach = 0, processAttach = 1 };

} // namespace

int QVRShpCore_libraryEntry(void *, unsigned long reason, void *) {
    if (reason == processAttach)
        QVRShpCore_initialize(QVRShpCore_state.loadLevel);
    else if (reason == processDetach)
        QVRShpCore_finalize(QVRShpCore_state.loadLevel);
    return 1;
}

#if defined(_WIN32)

extern "C" int __stdcall DllMain(void * handle, unsigned long reason, void * reserved) {
    int const result = QVRShpCore_libraryEntry(handle, reason, reserved);
    if (reason == processDetach)
        omi_freeAll();
    return result;
}

#else

namespace {

// The pyramid's computed table entries come before the start (constructors 101 and 102), the release of the
// foundation's singletons after the stop (destructor 101): constructors run from the lowest number to the highest,
// destructors the other way.
[[gnu::constructor(110)]] void onLoad() {
    QVRShpCore_libraryEntry(nullptr, processAttach, nullptr);
}
[[gnu::destructor(110)]] void onUnload() {
    QVRShpCore_libraryEntry(nullptr, processDetach, nullptr);
}

} // namespace

#endif
