#ifndef omu_Primitive_h
#define omu_Primitive_h

#include "QVRShpCore_Export.h"
#include "cls_ClassNumbers.h"
#include "cow_ArrayCOW.h"
#include "cow_ListIter.h"
#include "cow_String.h"
#include "cow_Virtual.h"
#include "mem_AllocationOperators.h"

class cls_ReadVisitor;
class cls_WriteVisitor;
class omu_PrimVisitor;

/// Root of the values that travel between the library and the scripting layer.
class QVRSHPCORE_API omu_Primitive : public mem_AllocationOperators {
public:
    virtual ~omu_Primitive();

    /// What kind of value this is, in a word that messages use.
    virtual cow_String TypeString() const = 0;
    /// The value as text. The number chooses among several forms where a class has them; otherwise it is ignored.
    virtual cow_String AsString(int form) const = 0;
    /// The value as a script would write it.
    virtual cow_String AsRepr() const = 0;
    /// Whether `other` is of the same kind and has the same value.
    virtual bool operator==(omu_Primitive const & other) const = 0;
    /// Calls the visitor, which must not be null, with this primitive.
    virtual void Accept(omu_PrimVisitor * visitor);
    /// A deep copy under the object's own type. The caller owns it.
    virtual omu_Primitive * Copy() const = 0;

    static unsigned int TypeId() { return cls_ClassNumber_omu_Primitive; }
    /// The class number under which DBWrite stores the value. Primitives have no identity: each is stored wherever it
    /// is met.
    virtual unsigned int DynTypeId() const;
    /// Here: no attribute. A class that adds something writes it after this part.
    virtual void DBWrite(cls_WriteVisitor const & writer) const;

protected:
    omu_Primitive() = default;
    explicit omu_Primitive(cls_ReadVisitor const & reader);
    omu_Primitive(omu_Primitive const &) = default;
    omu_Primitive & operator=(omu_Primitive const &) = default;
};

extern template class cow_List<cow_ArrayCOW<omu_Primitive, cow_Virtual<omu_Primitive>>>;
extern template class cow_ListIter<cow_ArrayCOW<omu_Primitive, cow_Virtual<omu_Primitive>>>;

#endif
