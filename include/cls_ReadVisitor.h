#ifndef cls_ReadVisitor_h
#define cls_ReadVisitor_h

#include "atr_String.h"
#include "cls_FieldHandle.h"
#include "cls_Uid.h"
#include "cow_String.h"

class cls_MemoryStore;

/// Reads one object of an archive by the names of its attributes. An object's constructor from it mirrors its DBWrite:
///
///     Circle::Circle(cls_ReadVisitor const & reader)
///         : Base(cls_ReadVisitor(reader, Base::TypeId())),                // where there is a base class
///           radius(reader.Read("radius", 1.0)), centre(cls_ReadVisitor(reader, "centre")), uid(reader.GetUid()) {
///         reader.Read(name, "name", atr_String());
///     }
///
/// What the archive does not have reads as its default; an object that it does not have, or that a visitor is made for
/// beneath such an object, has no attribute, no element and a null identity. What it has in another type than the one
/// that is asked for raises nex_PrimException<atr_String, 1> with a message that names class, attribute and both types.
///
/// References are followed: each place where an object was written reads as that object, and gives an object of its
/// own. A visitor is a light value; it must not outlive the archive, and the archive is not written meanwhile.
class QVRSHPCORE_API cls_ReadVisitor {
public:
    /// On an object of the archive: the one with this index among those that were written as objects of their own.
    /// Raises nex_PrimException<atr_String, 1> when there is none.
    explicit cls_ReadVisitor(cls_MemoryStore const & store, int index = 0);
    /// On an embedded object or list. This and the next two raise nex_PrimException<atr_String, 1> for an object that
    /// lies more than 200 objects deep.
    cls_ReadVisitor(cls_ReadVisitor const & whole, cls_FieldHandle const & field);
    /// On the part that an object has from its base class.
    cls_ReadVisitor(cls_ReadVisitor const & derived, unsigned int baseTypeNumber);
    /// On an element of a list, 0 to NumElements() - 1. Other indexes give an object that the archive does not have.
    cls_ReadVisitor Element(int index) const;

    /// Whether the archive has the object.
    bool HasObject() const noexcept { return object >= 0; }
    /// The class number under which the object was written; 0 where there is none. cls_MetadataRegistrar::Construct
    /// makes the object from it.
    unsigned int GetTypeNumber() const noexcept;
    /// The identity with which the object was written.
    cls_Uid GetUid() const noexcept;

    /// Raises nex_PrimException<atr_String, 1> when there is an object and it was written under another class number.
    void StartRead(unsigned int classNumber) const;

    /// The attribute of that name; `fallback` where the archive does not have it.
    int Read(cls_FieldHandle const & field, int fallback) const;
    double Read(cls_FieldHandle const & field, double fallback) const;
    cow_String Read(cls_FieldHandle const & field, cow_String const & fallback) const;
    /// The same into `target`, which stays as it was when they raise.
    void Read(cow_String & target, cls_FieldHandle const & field, cow_String const & fallback) const;
    void Read(atr_String & target, cls_FieldHandle const & field, atr_String const & fallback) const;
    /// The number of an enumeration's value.
    int ReadEnumAsInt(cls_FieldHandle const & field, int fallback = 0) const;

    /// The elements of the list on which the visitor stands.
    int NumElements() const noexcept;

private:
    struct Place {
        char const * name;
    };

    cls_ReadVisitor(cls_ReadVisitor const & whole, Place place);

    template <class Value> Value const * find(cls_FieldHandle const & field) const;

    cls_MemoryStore const * store;
    int object;               ///< index in the archive, or -1
    int depth;                ///< objects around this one
    unsigned int wholeNumber; ///< class number of the object around this one; 0 when there is none
    Place place;              ///< in that object, for messages
};

#endif
