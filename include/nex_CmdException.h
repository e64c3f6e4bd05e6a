#ifndef nex_CmdException_h
#define nex_CmdException_h

#include "QVRBasAtrStringMode.h"
#include "nex_CommandException.h"

/// The exception that fails a command argument. Its code is the template's number.
template <class Text, int code> class QVRSHPCORE_API nex_CmdException : public nex_CommandException {
public:
    /// `text` is encoded as `mode` says.
    explicit nex_CmdException(Text const & text, QVRBasStringMode mode = QVRBasStringMode())
        : message(QVRBasAtrStringMode::ModalToUTF8(text, mode)) {}

    int GetCode() const override { return code; }
    atr_String JournalMessage(QVRBasStringMode mode) const override {
        return QVRBasAtrStringMode::Utf8ToModal(message, mode);
    }
    [[noreturn]] void Propagate() const override { throw *this; }
    QVRBasException * Clone() const override { return new nex_CmdException(*this); }
    nex_Exception * Copy() const override { return new nex_CmdException(*this); }

private:
    Text message; ///< UTF-8
};

extern template class nex_CmdException<atr_String, 2>;

#endif
