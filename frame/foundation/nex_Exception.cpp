#include "nex_CmdException.h"
#include "nex_PrimException.h"

#include <utility>

nex_Exception::~nex_Exception() = default;

int nex_Exception::GetCode() const {
    return failureCode;
}

nex_CommandException::~nex_CommandException() = default;

atr_String nex_CommandException::AsString(QVRBasStringMode mode) const {
    return JournalMessage(mode);
}

void nex_CommandException::SetTraceback(cow_String text) {
    traceback = std::move(text);
}

cow_String & nex_CommandException::GetTraceback() {
    return traceback;
}

cow_String nex_CommandException::GetTracebackStr() const {
    return traceback;
}

template class nex_PrimException<atr_String, 1>;
template class nex_CmdException<atr_String, 2>;
