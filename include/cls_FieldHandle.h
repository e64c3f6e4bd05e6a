#ifndef cls_FieldHandle_h
#define cls_FieldHandle_h

#include "QVRShpCore_Export.h"

/// Names an attribute of a persistent class: by the name under which it is stored, and by its position among the
/// attributes of its class, counted from 0, or -1 where a class does not number them. Writing and reading go by the
/// name alone.
class QVRSHPCORE_API cls_FieldHandle {
public:
    /// `name` is constant text, which the handle neither copies nor owns; it is not empty.
    constexpr cls_FieldHandle(char const * name, int number = -1) noexcept : fieldName(name), fieldNumber(number) {}

    /// Name and position; the name is constant text.
    constexpr char const * Name() const noexcept { return fieldName; }
    constexpr int Number() const noexcept { return fieldNumber; }

private:
    char const * fieldName;
    int fieldNumber;
};

#endif
