#ifndef cls_xoList_h
#define cls_xoList_h

#include "cls_ClassNumbers.h"
#include "cls_ReadVisitor.h"
#include "cls_Uid.h"
#include "cls_WriteRequestListObj.h"
#include "cls_WriteVisitor.h"
#include "cow_List.h"

/// A cow_List that is a persistent object: it has an identity and can be stored. `T` has a
/// `DBWrite(cls_WriteVisitor const &) const` and a constructor from `cls_ReadVisitor const &`. A copy shares the
/// elements and keeps the identity.
template <class T> class QVRSHPCORE_API cls_xoList : public cow_List<T> {
public:
    cls_xoList() = default; ///< empty, with a null identity
    /// Shares the elements of `list`.
    cls_xoList(cow_List<T> const & list, cls_Uid const & identity) : cow_List<T>(list), uid(identity) {}
    explicit cls_xoList(cls_ReadVisitor const & reader);

    static unsigned int TypeId() { return cls_ClassNumber_LIST; }
    unsigned int DynTypeId() const { return TypeId(); }
    void DBWrite(cls_WriteVisitor const & writer) const;

    cls_Uid uid; ///< persistent identity
};

/// A cls_xoList with a fresh identity that shares the elements of `list`.
template <class T> QVRSHPCORE_API cls_xoList<T> cls_xoListFromCow(cow_List<T> const & list) {
    return cls_xoList<T>(list, cls_Uid::AllocateUid());
}

template <class T> cls_xoList<T>::cls_xoList(cls_ReadVisitor const & reader) : uid(reader.GetUid()) {
    reader.StartRead(TypeId());
    int const count = reader.NumElements();
    for (int i = 0; i < count; ++i)
        this->Append(T(reader.Element(i)));
}

template <class T> void cls_xoList<T>::DBWrite(cls_WriteVisitor const & writer) const {
    if (writer.StartWrite(TypeId(), uid) == 0)
        return;
    writer.CheckCollectionType(1);
    for (int i = 0; i < this->Length(); ++i) {
        cls_WriteRequestListObj const request(writer);
        this->ConstGet(i).DBWrite(cls_WriteVisitor(request));
    }
}

extern template class cls_xoList<g3d_Point>;
extern template class cls_xoList<g3d_Vector>;

extern template QVRSHPCORE_API cls_xoList<g3d_Point> cls_xoListFromCow(cow_List<g3d_Point> const &);
extern template QVRSHPCORE_API cls_xoList<g3d_Vector> cls_xoListFromCow(cow_List<g3d_Vector> const &);

#endif
