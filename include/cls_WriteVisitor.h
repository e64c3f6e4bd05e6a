#ifndef cls_WriteVisitor_h
#define cls_WriteVisitor_h

#include "atr_StringBase.h"
#include "cls_FieldHandle.h"
#include "cls_Uid.h"

class cls_MemoryStore;
class cls_WriteRequestListObj;

/// Writes one object, attribute by attribute, to a place of an archive: as an object of its own, as an attribute of
/// another, as the part that another has from its base class, or as an element of a list. The place is given at
/// construction; StartWrite puts the object there. An object's DBWrite looks like this:
///
///     if (writer.StartWrite(TypeId(), uid) == 0)
///         return;                                                  // the archive has it already
///     Base::DBWrite(cls_WriteVisitor(writer, Base::TypeId()));     // where there is a base class
///     writer.Write("radius", radius);
///     writer.Write("name", name);
///     centre.DBWrite(cls_WriteVisitor(writer, "centre"));          // an embedded object or list
///
/// A pass is all that is written through one visitor on an archive and the visitors made from it. Within it, an object
/// with an identity is stored once; where it is met again, only a reference is. Identities count per class number: a
/// list and an object of another class never stand for each other.
///
/// A visitor must not outlive what it was made from. When something raises, what was written until then stays in the
/// archive, which is then best dropped.
class QVRSHPCORE_API cls_WriteVisitor {
public:
    /// Begins a pass. Each object that is written through this visitor becomes one more object of the archive.
    explicit cls_WriteVisitor(cls_MemoryStore & store);
    /// For an embedded object or list: the attribute `field` of the object that `whole` has started.
    cls_WriteVisitor(cls_WriteVisitor const & whole, cls_FieldHandle const & field);
    /// For the part that the object which `derived` has started has from its base class.
    cls_WriteVisitor(cls_WriteVisitor const & derived, unsigned int baseTypeNumber);
    /// For one more element of a list.
    explicit cls_WriteVisitor(cls_WriteRequestListObj const & request);
    ~cls_WriteVisitor();
    cls_WriteVisitor(cls_WriteVisitor const &) = delete;
    cls_WriteVisitor & operator=(cls_WriteVisitor const &) = delete;

    /// Puts an object of this class and identity in its place; what is written next are its attributes. 0 when the pass
    /// has written the object already: then a reference to it is put there, and nothing of the object may be written.
    /// Otherwise 1. Raises nex_PrimException<atr_String, 1> for an object that would become a part of itself, for one
    /// that lies more than 200 objects deep, and for a base part of another class than was announced.
    int StartWrite(unsigned int classNumber, cls_Uid const & uid) const;

    /// Each adds an attribute to the object that has been started; without one, and behind a StartWrite that gave 0,
    /// each raises nex_PrimException<atr_String, 1>. A name is written once per object (not checked): of two attributes
    /// with one name, the first is read.
    void Write(cls_FieldHandle const & field, int value) const;
    void Write(cls_FieldHandle const & field, double value) const;
    void Write(cls_FieldHandle const & field, atr_StringBase const & value) const;
    /// An enumeration's value by its number. By its name, it is written as a text.
    void WriteEnumAsInt(cls_FieldHandle const & field, int value) const;

    /// Raises nex_PrimException<atr_String, 1> unless the object that has been started is a list and `kind` is 1, the
    /// one kind of collection that there is.
    void CheckCollectionType(int kind) const;

private:
    class Pass;

    /// How an object gets into its place.
    enum Place { asRoot, asAttribute, asBase, asElement };

    int startedObject() const;
    void attach(int object) const;

    Pass * pass;                    ///< owned by the visitor on the archive
    cls_WriteVisitor const * whole; ///< null in the visitor on the archive
    Place place;
    char const * fieldName;      ///< of an attribute; otherwise empty
    unsigned int baseNumber = 0; ///< of a base part
    int depth;                   ///< objects around this one
    mutable int started = -1;    ///< the object that is being written, or -1
};

#endif
