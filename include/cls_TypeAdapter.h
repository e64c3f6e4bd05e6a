#ifndef cls_TypeAdapter_h
#define cls_TypeAdapter_h

#include "cls_AbsTypeAdapter.h"

/// The description of a class `T` that can be written and be constructed from a `cls_ReadVisitor const &`.
template <class T> class QVRSHPCORE_API cls_TypeAdapter : public cls_AbsTypeAdapter<T> {
public:
    using cls_AbsTypeAdapter<T>::cls_AbsTypeAdapter;

    void * Ctor(cls_ReadVisitor & reader) const override { return new T(reader); }
};

#endif
