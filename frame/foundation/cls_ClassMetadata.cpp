#include "cls_ClassMetadata.h"

#include "cls_Failure.h"

cls_ClassMetadata::cls_ClassMetadata(char const * name, unsigned int typeNumber, int version,
                                     Constructor constructorFunction, unsigned int base)
    : className(name), number(typeNumber), classVersion(version), constructor(constructorFunction), baseNumber(base) {}

cls_ClassMetadata::~cls_ClassMetadata() = default;

cls_ClassMetadata & cls_ClassMetadata::AddAttribute(cls_FieldHandle const & field, cls_AttributeType type,
                                                    unsigned int typeNumber, int flag) {
    attributes.push_back({field.Name(), field.Number(), type, typeNumber, flag});
    return *this;
}

cls_ClassMetadata & cls_ClassMetadata::AddDtor(CowDestructor destructor) noexcept {
    cowDestructor = destructor;
    return *this;
}

void * cls_ClassMetadata::Ctor(cls_ReadVisitor & reader) const {
    if (constructor == nullptr)
        refuse("No object of class %s can be made by its description.");
    return constructor(reader);
}

void cls_ClassMetadata::DBWrite(void const *, cls_WriteVisitor const &) const {
    refuse("No object of class %s can be written by its description.");
}

void cls_ClassMetadata::Delete(void * object) const {
    if (object != nullptr)
        refuse("No object of class %s can be deleted by its description.");
}

void cls_ClassMetadata::DeleteCow(cow_COW<int, cow_Direct<int>> * holder) const {
    if (cowDestructor == nullptr)
        refuse("No holder of class %s can be deleted by its description.");
    cowDestructor(holder);
}

void cls_ClassMetadata::refuse(char const * why) const {
    cls_raise("frame/foundation/cls_ClassMetadata", __LINE__, why, className);
}
