#include "cls_ReadVisitor.h"
#include "cls_WriteVisitor.h"
#include "nex_CmdException.h"
#include "nex_PrimException.h"

#include <utility>

namespace {

constexpr cls_FieldHandle tracebackField("m_Traceback", 0);

} // namespace

nex_Exception::nex_Exception(cls_ReadVisitor const & reader) : uid(reader.GetUid()) {
    reader.StartRead(TypeId());
}

nex_Exception::~nex_Exception() = default;

int nex_Exception::GetCode() const {
    return 0;
}

unsigned int nex_Exception::DynTypeId() const {
    return TypeId();
}

void nex_Exception::DBWrite(cls_WriteVisitor const & writer) const {
    writer.StartWrite(TypeId(), uid);
}

nex_CommandException::nex_CommandException(cls_ReadVisitor const & reader)
    : nex_Exception(cls_ReadVisitor(reader, nex_Exception::TypeId())) {
    reader.StartRead(TypeId());
    reader.Read(traceback, tracebackField, cow_String());
    uid = reader.GetUid();
}

nex_CommandException::~nex_CommandException() = default;

atr_String nex_CommandException::AsString(QVRBasStringMode mode) const {
    return JournalMessage(mode);
}

void nex_CommandException::Propagate() const {
    throw *this;
}

QVRBasException * nex_CommandException::Clone() const {
    return new nex_CommandException(*this);
}

nex_Exception * nex_CommandException::Copy() const {
    return new nex_CommandException(*this);
}

unsigned int nex_CommandException::DynTypeId() const {
    return TypeId();
}

void nex_CommandException::DBWrite(cls_WriteVisitor const & writer) const {
    if (writer.StartWrite(TypeId(), uid) == 0)
        return;
    nex_Exception::DBWrite(cls_WriteVisitor(writer, nex_Exception::TypeId()));
    writer.Write(tracebackField, traceback);
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

atr_String nex_CommandException::JournalMessage(QVRBasStringMode) const {
    return atr_String();
}

cow_String nex_CommandException::PythonType() const {
    return cow_String();
}

template class nex_PrimException<atr_String, 1>;
template class nex_CmdException<atr_String, 2>;
