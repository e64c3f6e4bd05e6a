#ifndef cls_ClassMetadata_h
#define cls_ClassMetadata_h

#include "QVRShpCore_Export.h"
#include "cls_AttributeType.h"
#include "cls_FieldHandle.h"
#include "cow_String.h"
#include "mem_AllocationOperators.h"
#include "mem_Allocator.h"

#include <vector>

class cls_ReadVisitor;
class cls_WriteVisitor;
template <class T> class cow_Direct;
template <class T, class Policy> class cow_COW;

/// An attribute in the description of a persistent class.
struct cls_AttributeMetadata {
    cow_String name;         ///< under which it is stored
    int number;              ///< its position among the attributes, or -1 where the class does not number them
    cls_AttributeType type;  ///< how it is stored
    unsigned int typeNumber; ///< class number of an embedded object or list; otherwise 1
    int flag;                ///< 1 for a list; otherwise 0
};

/// The description of a persistent class: its number, its attributes in the order of writing, and how objects are made
/// and deleted by somebody who knows nothing but the number. cls_MetadataRegistrar keeps one for each class;
/// cls_TypeAdapter makes it.
class QVRSHPCORE_API cls_ClassMetadata : public mem_AllocationOperators {
public:
    /// Makes an object from what a visitor reads. The caller owns it.
    using Constructor = void * (*)(cls_ReadVisitor & reader);
    /// Deletes a holder together with its share of the object. The holder is really a `cow_COW` of the class.
    using CowDestructor = void (*)(cow_COW<int, cow_Direct<int>> * holder);

    /// `version` is the release of the suite that brought the class, `base` the number of its persistent base class, 1
    /// when it has none.
    cls_ClassMetadata(char const * name, unsigned int typeNumber, int version, Constructor constructor,
                      unsigned int base);
    virtual ~cls_ClassMetadata();
    cls_ClassMetadata(cls_ClassMetadata const &) = delete;
    cls_ClassMetadata & operator=(cls_ClassMetadata const &) = delete;

    /// Each returns the description, for the next call.
    cls_ClassMetadata & AddAttribute(cls_FieldHandle const & field, cls_AttributeType type, unsigned int typeNumber,
                                     int flag);
    cls_ClassMetadata & AddDtor(CowDestructor destructor) noexcept;

    /// What the constructor took, and how many attributes were added.
    cow_String const & Name() const noexcept { return className; }
    unsigned int TypeNumber() const noexcept { return number; }
    int Version() const noexcept { return classVersion; }
    unsigned int Base() const noexcept { return baseNumber; }
    int NumAttributes() const noexcept { return static_cast<int>(attributes.size()); }
    /// 0 to NumAttributes() - 1 (not checked).
    cls_AttributeMetadata const & GetAttribute(int index) const { return attributes[static_cast<std::size_t>(index)]; }

    /// A new object from what `reader` reads; Delete takes it. What a description has no means for raises
    /// nex_PrimException<atr_String, 1>, here and in the other three.
    virtual void * Ctor(cls_ReadVisitor & reader) const;
    /// Writes an object of the class.
    virtual void DBWrite(void const * object, cls_WriteVisitor const & writer) const;
    /// Deletes an object of the class; null is left alone.
    virtual void Delete(void * object) const;
    /// Deletes a holder of an object of the class.
    virtual void DeleteCow(cow_COW<int, cow_Direct<int>> * holder) const;

private:
    [[noreturn]] void refuse(char const * why) const;

    cow_String className;
    unsigned int number;
    int classVersion;
    Constructor constructor;
    unsigned int baseNumber;
    CowDestructor cowDestructor = nullptr;
    std::vector<cls_AttributeMetadata, mem_Allocator<cls_AttributeMetadata>> attributes;
};

#endif
