#ifndef cls_MemoryStore_h
#define cls_MemoryStore_h

#include "QVRShpCore_Export.h"
#include "cls_AttributeType.h"
#include "cls_Uid.h"
#include "cow_String.h"
#include "mem_AllocationOperators.h"
#include "mem_Allocator.h"

#include <cstddef>
#include <set>
#include <variant>
#include <vector>

/// An archive in memory. A cls_WriteVisitor writes objects into it, a cls_ReadVisitor reads them; Bytes hands its
/// content out, for a host to keep wherever it likes, and the constructor from bytes takes it back:
///
///     cls_MemoryStore store;
///     surface.DBWrite(cls_WriteVisitor(store));
///     cls_MemoryStore::ByteArray const bytes = store.Bytes();
///     ...
///     cls_MemoryStore const kept(bytes.data(), bytes.size());
///     shp_AnalyticSurface const same{cls_ReadVisitor(kept)};
///
/// It is a value. Archives and what was read from them share texts: they stay on one thread.
class QVRSHPCORE_API cls_MemoryStore : public mem_AllocationOperators {
public:
    /// Where an object stands in the archive. Attributes with the same index share one object.
    struct ObjectIndex {
        int index; ///< from 0
        friend bool operator==(ObjectIndex, ObjectIndex) = default;
    };

    /// An attribute as it was written.
    struct Attribute {
        cow_String name; ///< empty for an element of a list, and for the part that an object has from its base class
        std::variant<int, double, cow_String, ObjectIndex> value; ///< a number, a text or an object

        /// INT, DOUBLE, STRING or OBJECT: an enumeration is stored as its name or as its number.
        cls_AttributeType Type() const noexcept;
    };

    /// An object as it was written; a list is an object with the number cls_ClassNumber_LIST, whose attributes are
    /// its elements.
    struct Object {
        unsigned int classNumber;                                    ///< of its class
        cls_Uid uid;                                                 ///< its identity; null for none
        std::vector<Attribute, mem_Allocator<Attribute>> attributes; ///< in the order of writing
    };

    /// The content of an archive as bytes.
    using ByteArray = std::vector<unsigned char, mem_Allocator<unsigned char>>;

    /// An empty archive.
    cls_MemoryStore() = default;
    /// The archive whose content Bytes has handed out. Raises nex_PrimException<atr_String, 1> for bytes that are
    /// damaged, incomplete or of a later version, whatever they are, and then takes time and memory in proportion to
    /// their number.
    cls_MemoryStore(void const * bytes, std::size_t count);

    /// The content as bytes, the same on every machine: see cls_MemoryStore.cpp for their order. Raises
    /// nex_PrimException<atr_String, 1> for a content that could not be read back: an object that is a part of itself
    /// or lies more than 200 objects deep, or references by which more than a thousand times of what is stored would
    /// be read.
    ByteArray Bytes() const;

    /// How many objects have been written as objects of their own, and each of them, 0 to Length() - 1 (not checked).
    /// One that a pass has written twice stands there twice, and is the same object.
    int Length() const noexcept { return static_cast<int>(roots.size()); }
    Object const & operator[](int index) const { return At({roots[static_cast<std::size_t>(index)]}); }

    /// How many objects there are in all, embedded ones and lists counted, each once.
    int NumObjects() const noexcept { return static_cast<int>(objects.size()); }
    /// The object that an attribute holds.
    Object const & At(ObjectIndex object) const { return objects[static_cast<std::size_t>(object.index)]; }

private:
    friend class cls_ReadVisitor;
    friend class cls_WriteVisitor;

    template <class T> using Vector = std::vector<T, mem_Allocator<T>>;
    class Measure;
    class Output;
    class Input;

    int addObject(unsigned int classNumber, cls_Uid const & uid);
    void addAttribute(int object, char const * name, decltype(Attribute::value) && value);

    Vector<Object> objects;
    Vector<int> roots; ///< indexes of those that were written as objects of their own
    std::set<cow_String, std::less<>, mem_Allocator<cow_String>> names; ///< whose text attributes share
};

#endif
