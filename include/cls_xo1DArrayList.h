#ifndef cls_xo1DArrayList_h
#define cls_xo1DArrayList_h

#include "cls_xoList.h"

/// A cls_xoList that is a field of a persistent object, and knows the identity of the object it was read with.
template <class T> class QVRSHPCORE_API cls_xo1DArrayList : public cow_List<T> {
public:
    cls_xo1DArrayList() = default; ///< empty, with a null identity and no parent
    /// Shares the elements of `list`.
    cls_xo1DArrayList(cow_List<T> const & list, cls_Uid const & identity) : cow_List<T>(list), uid(identity) {}
    /// `parentUid` is the identity of the object that the list is read as a part of, or null.
    explicit cls_xo1DArrayList(cls_ReadVisitor const & reader, cls_Uid const * parentUid = nullptr)
        : cls_xo1DArrayList(cls_xoList<T>(reader), parentUid) {}
    /// Shares the elements and keeps the identity. A copy belongs to nobody: it has no parent.
    cls_xo1DArrayList(cls_xo1DArrayList const & other) noexcept : cow_List<T>(other), uid(other.uid) {}
    /// The parent stays as it is.
    cls_xo1DArrayList & operator=(cls_xo1DArrayList const & other) noexcept {
        cow_List<T>::operator=(other);
        uid = other.uid;
        return *this;
    }
    ~cls_xo1DArrayList() = default;

    static unsigned int TypeId() { return cls_ClassNumber_LIST; }
    unsigned int DynTypeId() const { return TypeId(); }
    void DBWrite(cls_WriteVisitor const & writer) const { cls_xoList<T>(*this, uid).DBWrite(writer); }

    /// The identity of the object that the list was read as a part of, in that object; null for every other list.
    cls_Uid const * Parent() const noexcept { return parent; }

    cls_Uid uid; ///< persistent identity

private:
    cls_xo1DArrayList(cls_xoList<T> const & list, cls_Uid const * parentUid)
        : cow_List<T>(list), uid(list.uid), parent(parentUid) {}

    cls_Uid const * parent = nullptr;
};

extern template class cls_xo1DArrayList<g3d_Point>;
extern template class cls_xo1DArrayList<g3d_Vector>;

#endif
