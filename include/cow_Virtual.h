#ifndef cow_Virtual_h
#define cow_Virtual_h

#include "QVRShpCore_Export.h"

/// How a cow_COW copies an object of any class derived from `T`: by its virtual `T * Copy() const`, which gives an
/// object from `new`.
template <class T> class QVRSHPCORE_API cow_Virtual {
public:
    /// A copy of the same class; the caller owns it.
    static T * Copy(T const & source) { return source.Copy(); }
};

#endif
