#include "cls_WriteVisitor.h"

#include "cls_ClassNumbers.h"
#include "cls_Failure.h"
#include "cls_MemoryStore.h"
#include "cls_WriteRequestListObj.h"

#include <functional>
#include <map>
#include <utility>

namespace {

constexpr char const * file = "frame/foundation/cls_WriteVisitor";

} // namespace

/// The archive that is written, and what has been written into it.
class cls_WriteVisitor::Pass : public mem_AllocationOperators {
public:
    explicit Pass(cls_MemoryStore & written) : store(written) {}

    using Identity = std::pair<unsigned int, cls_Uid>;

    cls_MemoryStore & store;
    std::map<Identity, int, std::less<>, mem_Allocator<std::pair<Identity const, int>>> objects;
};

cls_WriteVisitor::cls_WriteVisitor(cls_MemoryStore & store)
    : pass(new Pass(store)), whole(nullptr), place(asRoot), fieldName(""), depth(0) {}

cls_WriteVisitor::cls_WriteVisitor(cls_WriteVisitor const & wholeWriter, cls_FieldHandle const & field)
    : pass(wholeWriter.pass), whole(&wholeWriter), place(asAttribute), fieldName(field.Name()),
      depth(wholeWriter.depth + 1) {}

cls_WriteVisitor::cls_WriteVisitor(cls_WriteVisitor const & derived, unsigned int baseTypeNumber)
    : pass(derived.pass), whole(&derived), place(asBase), fieldName(""), baseNumber(baseTypeNumber),
      depth(derived.depth + 1) {}

cls_WriteVisitor::cls_WriteVisitor(cls_WriteRequestListObj const & request)
    : pass(request.List().pass), whole(&request.List()), place(asElement), fieldName(""), depth(whole->depth + 1) {}

cls_WriteVisitor::~cls_WriteVisitor() {
    if (place == asRoot)
        delete pass;
}

int cls_WriteVisitor::StartWrite(unsigned int classNumber, cls_Uid const & uid) const {
    started = -1;
    if (depth > cls_maxDepth)
        cls_raise(file, __LINE__, "An object of class %s lies too deep in others to be written.",
                  cls_nameOfClass(classNumber));
    if (place == asBase && classNumber != baseNumber)
        cls_raise(file, __LINE__, "The part from class %s is written as one from class %s.",
                  cls_nameOfClass(baseNumber), cls_nameOfClass(classNumber));

    auto const written = uid.IsNull() ? pass->objects.end() : pass->objects.find(Pass::Identity(classNumber, uid));
    if (written != pass->objects.end()) {
        for (cls_WriteVisitor const * around = whole; around != nullptr; around = around->whole)
            if (around->started == written->second)
                cls_raise(file, __LINE__, "An object of class %s is written as a part of itself.",
                          cls_nameOfClass(classNumber));
        attach(written->second);
        return 0;
    }

    int const object = pass->store.addObject(classNumber, uid);
    attach(object);
    if (!uid.IsNull())
        pass->objects.emplace(Pass::Identity(classNumber, uid), object);
    started = object;
    return 1;
}

/// Puts an object, or a reference to it, in this visitor's place.
void cls_WriteVisitor::attach(int object) const {
    if (place == asElement)
        whole->CheckCollectionType(1);
    if (place == asRoot)
        pass->store.roots.push_back(object);
    else
        pass->store.addAttribute(whole->startedObject(), fieldName, cls_MemoryStore::ObjectIndex{object});
}

int cls_WriteVisitor::startedObject() const {
    if (started < 0)
        cls_raise(file, __LINE__, "An attribute is written before its object.");
    return started;
}

void cls_WriteVisitor::Write(cls_FieldHandle const & field, int value) const {
    pass->store.addAttribute(startedObject(), field.Name(), value);
}

void cls_WriteVisitor::Write(cls_FieldHandle const & field, double value) const {
    pass->store.addAttribute(startedObject(), field.Name(), value);
}

void cls_WriteVisitor::Write(cls_FieldHandle const & field, atr_StringBase const & value) const {
    pass->store.addAttribute(startedObject(), field.Name(), cow_String(value));
}

void cls_WriteVisitor::WriteEnumAsInt(cls_FieldHandle const & field, int value) const {
    Write(field, value);
}

void cls_WriteVisitor::CheckCollectionType(int kind) const {
    bool const isList = started >= 0 && pass->store.At({started}).classNumber == cls_ClassNumber_LIST;
    if (!isList || kind != 1)
        cls_raise(file, __LINE__, "What is written is no collection of kind %d.", kind);
}
