#include "cls_ReadVisitor.h"

#include "cls_ClassNumbers.h"
#include "cls_Failure.h"
#include "cls_MemoryStore.h"

namespace {

constexpr char const * file = "frame/foundation/cls_ReadVisitor";

/// How messages call the places that have no name.
constexpr char const * elementPlace = "(element)";
constexpr char const * basePlace = "(base)";

constexpr char const * kindOf(int const *) {
    return "int";
}
constexpr char const * kindOf(double const *) {
    return "double";
}
constexpr char const * kindOf(cow_String const *) {
    return "string";
}
constexpr char const * kindOf(cls_MemoryStore::ObjectIndex const *) {
    return "object";
}

/// The value of an attribute, which must have this type.
template <class Value>
Value const & valueOf(cls_MemoryStore::Attribute const & attribute, char const * name, unsigned int classNumber) {
    if (Value const * const value = std::get_if<Value>(&attribute.value))
        return *value;
    char const * const held = std::visit([](auto const & value) { return kindOf(&value); }, attribute.value);
    cls_raise(file, __LINE__, "Attribute %s of class %s is of type %s, but is read as %s.", name,
              cls_nameOfClass(classNumber), held, kindOf(static_cast<Value const *>(nullptr)));
}

} // namespace

cls_ReadVisitor::cls_ReadVisitor(cls_MemoryStore const & archive, int index)
    : store(&archive), object(-1), depth(0), wholeNumber(0), place{""} {
    if (index < 0 || index >= archive.Length())
        cls_raise(file, __LINE__, "The archive has no object %d; it has %d.", index, archive.Length());
    object = archive.roots[static_cast<std::size_t>(index)];
}

/// On what `whole` has in a place: nothing, to begin with.
cls_ReadVisitor::cls_ReadVisitor(cls_ReadVisitor const & whole, Place placeInWhole)
    : store(whole.store), object(-1), depth(whole.depth + 1), wholeNumber(whole.GetTypeNumber()), place(placeInWhole) {
    if (depth > cls_maxDepth)
        cls_raise(file, __LINE__, "An object lies too deep in others to be read.");
}

cls_ReadVisitor::cls_ReadVisitor(cls_ReadVisitor const & whole, cls_FieldHandle const & field)
    : cls_ReadVisitor(whole, Place{field.Name()}) {
    if (auto const * const held = whole.find<cls_MemoryStore::ObjectIndex>(field))
        object = held->index;
}

cls_ReadVisitor::cls_ReadVisitor(cls_ReadVisitor const & derived, unsigned int baseTypeNumber)
    : cls_ReadVisitor(derived, Place{basePlace}) {
    if (!derived.HasObject())
        return;
    for (cls_MemoryStore::Attribute const & each : store->At({derived.object}).attributes) {
        auto const * const held = std::get_if<cls_MemoryStore::ObjectIndex>(&each.value);
        if (held != nullptr && each.name.Empty() && store->At(*held).classNumber == baseTypeNumber) {
            object = held->index;
            return;
        }
    }
}

cls_ReadVisitor cls_ReadVisitor::Element(int index) const {
    cls_ReadVisitor element(*this, Place{elementPlace});
    if (index >= 0 && index < NumElements()) {
        cls_MemoryStore::Attribute const & held = store->At({object}).attributes[static_cast<std::size_t>(index)];
        element.object = valueOf<cls_MemoryStore::ObjectIndex>(held, elementPlace, GetTypeNumber()).index;
    }
    return element;
}

int cls_ReadVisitor::NumElements() const noexcept {
    if (GetTypeNumber() != cls_ClassNumber_LIST)
        return 0;
    return static_cast<int>(store->At({object}).attributes.size());
}

unsigned int cls_ReadVisitor::GetTypeNumber() const noexcept {
    return HasObject() ? store->At({object}).classNumber : 0;
}

cls_Uid cls_ReadVisitor::GetUid() const noexcept {
    return HasObject() ? store->At({object}).uid : cls_Uid();
}

void cls_ReadVisitor::StartRead(unsigned int classNumber) const {
    if (!HasObject() || GetTypeNumber() == classNumber)
        return;
    cow_String const held = cls_nameOfClass(GetTypeNumber());
    cow_String const wanted = cls_nameOfClass(classNumber);
    if (wholeNumber == 0)
        cls_raise(file, __LINE__, "An object is of class %s, but is read as %s.", held, wanted);
    cls_raise(file, __LINE__, "Attribute %s of class %s is of class %s, but is read as %s.", place.name,
              cls_nameOfClass(wholeNumber), held, wanted);
}

/// The value of an attribute, which must have this type; null when there is none.
template <class Value> Value const * cls_ReadVisitor::find(cls_FieldHandle const & field) const {
    if (HasObject())
        for (cls_MemoryStore::Attribute const & each : store->At({object}).attributes)
            if (each.name == field.Name())
                return &valueOf<Value>(each, field.Name(), GetTypeNumber());
    return nullptr;
}

int cls_ReadVisitor::Read(cls_FieldHandle const & field, int fallback) const {
    int const * const value = find<int>(field);
    return value != nullptr ? *value : fallback;
}

double cls_ReadVisitor::Read(cls_FieldHandle const & field, double fallback) const {
    double const * const value = find<double>(field);
    return value != nullptr ? *value : fallback;
}

cow_String cls_ReadVisitor::Read(cls_FieldHandle const & field, cow_String const & fallback) const {
    cow_String const * const value = find<cow_String>(field);
    return value != nullptr ? *value : fallback;
}

void cls_ReadVisitor::Read(cow_String & target, cls_FieldHandle const & field, cow_String const & fallback) const {
    target = Read(field, fallback);
}

void cls_ReadVisitor::Read(atr_String & target, cls_FieldHandle const & field, atr_String const & fallback) const {
    target = atr_String(Read(field, cow_String(fallback)));
}

int cls_ReadVisitor::ReadEnumAsInt(cls_FieldHandle const & field, int fallback) const {
    return Read(field, fallback);
}
