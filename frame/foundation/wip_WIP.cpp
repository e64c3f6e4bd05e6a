#include "wip_WIP.h"

#include "omi_AtExit.h"

#include <cstdio>

namespace {

/// One message, one line, whatever line feeds stand in it.
void writeLine(atr_String const & message, QVRBasStringMode mode) {
    atr_String text = message;
    if (!mode.IsLocale())
        text.UTF8ToLocale();
    atr_String line;
    char const * const bytes = text.CStr();
    for (int start = 0, end = 0; start <= text.Length(); start = end + 1) {
        end = text.Find("\n", start);
        line.append(bytes + start, end - start, 0, 0).Append(end < text.Length() ? " " : "\n");
    }
    std::fputs(line.CStr(), stderr);
}

} // namespace

void wip_WIPBase::Error(atr_String const & message, wip_errorLevelEnm level, QVRBasStringMode mode) {
    if (handler)
        handler(message, level, mode, context);
    else
        writeLine(message, mode);
}

void wip_WIPBase::SetHandler(Handler newHandler, void * newContext) {
    handler = newHandler;
    context = newContext;
}

template <> wip_WIP & omi_Singleton<wip_WIP>::Instance() {
    if (omi_SingletonBase<wip_WIP>::instance == nullptr) {
        void * block = mem_OperatorNewThrow(sizeof(wip_WIP));
        try {
            new (block) wip_WIP;
        } catch (...) {
            mem_Free(block);
            omi_SingletonBase<wip_WIP>::isAbandoned = true;
            omi_SingletonBase<wip_WIP>::Finalize();
            throw;
        }
        omi_freeAtUnload(omi_SingletonBase<wip_WIP>::Finalize);
    }
    return static_cast<wip_WIP &>(*omi_SingletonBase<wip_WIP>::instance);
}

template class omi_SingletonBase<wip_WIP>;
template class omi_Singleton<wip_WIP>;
