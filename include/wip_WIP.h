#ifndef wip_WIP_h
#define wip_WIP_h

#include "QVRBasStringMode.h"
#include "QVRShpCore_Export.h"
#include "atr_String.h"
#include "omi_Singleton.h"

/// The weight of a message. The library itself reports at the level ERROR alone.
enum wip_errorLevelEnm : int {
    wip_errorLevel_NOTE = 0,
    wip_errorLevel_WARNING = 1,
    wip_errorLevel_ERROR = 2,
};

/// A sink of messages to the user. By default each message becomes one line on standard error; a host that shows
/// messages in its own way redirects the sink.
class QVRSHPCORE_API wip_WIPBase {
public:
    /// Takes a message, encoded as `mode` says, and the pointer that was given along with the handler.
    using Handler = void (*)(atr_String const & message, wip_errorLevelEnm level, QVRBasStringMode mode,
                             void * context);

    /// Reports a message; the caller goes on. What the handler raises passes through.
    void Error(atr_String const & message, wip_errorLevelEnm level, QVRBasStringMode mode = QVRBasStringMode());

    /// Redirects all further messages to `handler`; null brings the default back.
    void SetHandler(Handler newHandler, void * newContext = nullptr);

private:
    Handler handler = nullptr;
    void * context = nullptr;
};

/// The process's message sink, `omi_Singleton<wip_WIP>::Instance()`. It is made by the first call, which callers on
/// several threads serialise, and lives until the library is unloaded.
class QVRSHPCORE_API wip_WIP : public omi_Singleton<wip_WIP>, public wip_WIPBase {
private:
    friend class omi_SingletonBase<wip_WIP>;
    friend class omi_Singleton<wip_WIP>;

    wip_WIP() = default;
    ~wip_WIP() = default;
};

/// Other than that of other singletons, this one can be called again after it has failed.
template <> QVRSHPCORE_API wip_WIP & omi_Singleton<wip_WIP>::Instance();

extern template class omi_SingletonBase<wip_WIP>;
extern template class omi_Singleton<wip_WIP>;

#endif
