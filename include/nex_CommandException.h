#ifndef nex_CommandException_h
#define nex_CommandException_h

#include "cow_String.h"
#include "nex_Exception.h"

/// An exception that reaches the user of a command, with the traceback of the script that gave it. By itself it has no
/// message; derived classes have one. Where they write nothing of their own, the traceback alone is stored.
class QVRSHPCORE_API nex_CommandException : public nex_Exception {
public:
    nex_CommandException() noexcept = default;
    explicit nex_CommandException(cls_ReadVisitor const & reader);
    nex_CommandException(nex_CommandException const &) noexcept = default;
    nex_CommandException & operator=(nex_CommandException const &) noexcept = default;
    ~nex_CommandException() override;

    /// The journal message.
    atr_String AsString(QVRBasStringMode mode) const override;
    /// Throws a copy.
    [[noreturn]] void Propagate() const override;
    /// A copy of the same class; the caller owns it.
    QVRBasException * Clone() const override;
    nex_Exception * Copy() const override;

    static unsigned int TypeId() { return cls_ClassNumber_nex_CommandException; }
    unsigned int DynTypeId() const override;
    void DBWrite(cls_WriteVisitor const & writer) const override;

    /// Replaces the traceback.
    virtual void SetTraceback(cow_String text);
    /// The traceback, open for additions.
    virtual cow_String & GetTraceback();
    /// A copy of the traceback.
    virtual cow_String GetTracebackStr() const;

    /// The message as the journal records it, in the encoding that `mode` names. Empty here.
    virtual atr_String JournalMessage(QVRBasStringMode mode) const;
    /// The name of the exception's type in a script. Empty here: scripts have no type for it.
    virtual cow_String PythonType() const;

private:
    cls_Uid uid; ///< null, as that of the base
    cow_String traceback;
};

#endif
