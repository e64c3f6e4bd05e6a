#include "omu_PrimEnumBase.h"

#include "atr.h"
#include "cls_ReadVisitor.h"
#include "cls_WriteVisitor.h"
#include "cow_ConstMapIterator.h"
#include "nex_CmdException.h"

#include <cstring>

namespace {

constexpr cls_FieldHandle nameField("name", 0);

[[noreturn]] void raise(atr_String const & message, int line) {
    nex_CmdException<atr_String, 2>(message).Throw("QVRKelOvantaUtilities/ProtectedInterfaces/omu_PrimEnum", line);
}

} // namespace

omu_PrimEnumBase::~omu_PrimEnumBase() = default;

omu_PrimEnumBase::omu_PrimEnumBase(cls_ReadVisitor const & reader)
    : omu_Primitive(cls_ReadVisitor(reader, omu_Primitive::TypeId())) {
    reader.StartRead(TypeId());
    reader.Read(name, nameField, cow_String());
}

unsigned int omu_PrimEnumBase::DynTypeId() const {
    return TypeId();
}

void omu_PrimEnumBase::DBWrite(cls_WriteVisitor const & writer) const {
    writer.StartWrite(TypeId(), cls_Uid());
    omu_Primitive::DBWrite(cls_WriteVisitor(writer, omu_Primitive::TypeId()));
    writer.Write(nameField, name);
}

cow_String omu_PrimEnumBase::TypeString() const {
    return "enumeration";
}

cow_String omu_PrimEnumBase::AsString(int) const {
    return name;
}

cow_String omu_PrimEnumBase::AsRepr() const {
    return name;
}

bool omu_PrimEnumBase::operator==(omu_Primitive const & other) const {
    auto const * const enumeration = dynamic_cast<omu_PrimEnumBase const *>(&other);
    return enumeration != nullptr && name == enumeration->name;
}

bool omu_PrimEnumBase::operator==(omu_PrimEnumBase const & other) const {
    return *this == static_cast<omu_Primitive const &>(other);
}

cow_String omu_PrimEnumBase::PermissibleValuesAsString() const {
    cow_String names;
    cow_ConstMapIterator<cow_String, unsigned int> permissible(PermissibleValues());
    for (permissible.First(); !permissible.IsDone(); permissible.Next()) {
        if (!names.Empty())
            names.Append(", ");
        names.Append(permissible.CurrentKey());
    }
    return names;
}

omu_PrimEnumRow const * omu_PrimEnumBase::rowOf(omu_PrimEnumRow const * rows, int value) {
    for (; rows->name != nullptr; ++rows)
        if (rows->value == value)
            return rows;
    return nullptr;
}

omu_PrimEnumRow const * omu_PrimEnumBase::rowOf(omu_PrimEnumRow const * rows, char const * text) {
    if (text == nullptr)
        return nullptr;
    for (; rows->name != nullptr; ++rows)
        if (std::strcmp(rows->name, text) == 0)
            return rows;
    return nullptr;
}

cow_Map<cow_String, unsigned int> omu_PrimEnumBase::mapOf(omu_PrimEnumRow const * rows) {
    cow_Map<cow_String, unsigned int> values;
    for (; rows->name != nullptr; ++rows)
        values.Insert(rows->name, static_cast<unsigned int>(rows->value));
    return values;
}

void omu_PrimEnumBase::refuse(int value) const {
    raise(atr<int, cow_String>("omu_PrimEnum(Enum) - Enum value not allowed: %d  Permissible: %s", value,
                               PermissibleValuesAsString(), QVRBasStringMode()),
          76);
}

void omu_PrimEnumBase::refuse(omu_PrimEnumBase const & other) {
    raise(
        atr<cow_String>("omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: %s", other.name, QVRBasStringMode()),
        89);
}

void omu_PrimEnumBase::refuse(cow_String const & text) const {
    raise(atr<cow_String, cow_String>("omu_PrimEnum(const cow_String&) - str not allowed: %s  Permissible: %s", text,
                                      PermissibleValuesAsString(), QVRBasStringMode()),
          103);
}

void omu_PrimEnumBase::refuseStoredName() const {
    raise(atr<cow_String, cow_String>("omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: %s  Permissible: %s",
                                      name, PermissibleValuesAsString(), QVRBasStringMode()),
          117);
}
