#ifndef nex_CommandException_h
#define nex_CommandException_h

#include "cow_String.h"
#include "nex_Exception.h"

/// An exception that reaches the user of a command, with the traceback of the script that gave it.
class QVRSHPCORE_API nex_CommandException : public nex_Exception {
public:
    ~nex_CommandException() override;

    /// The journal message.
    atr_String AsString(QVRBasStringMode mode) const override;

    virtual void SetTraceback(cow_String text);
    /// The traceback, open for additions.
    virtual cow_String & GetTraceback();
    virtual cow_String GetTracebackStr() const;

    /// The message as the journal records it, in the encoding that `mode` names.
    virtual atr_String JournalMessage(QVRBasStringMode mode) const = 0;

protected:
    explicit nex_CommandException(int code = 0) noexcept : nex_Exception(code) {}
    nex_CommandException(nex_CommandException const &) noexcept = default;
    nex_CommandException & operator=(nex_CommandException const &) noexcept = default;

private:
    cow_String traceback;
};

#endif
