#ifndef cls_AbsTypeAdapter_h
#define cls_AbsTypeAdapter_h

#include "cls_ClassMetadata.h"

/// The description of a class `T` that has a DBWrite, and of which no object can be made: an abstract one. A `T` that
/// is not final and has virtual operations has a virtual destructor.
template <class T> class QVRSHPCORE_API cls_AbsTypeAdapter : public cls_ClassMetadata {
public:
    using cls_ClassMetadata::cls_ClassMetadata;

    void DBWrite(void const * object, cls_WriteVisitor const & writer) const override {
        static_cast<T const *>(object)->DBWrite(writer);
    }
    void Delete(void * object) const override { delete static_cast<T *>(object); }
};

#endif
