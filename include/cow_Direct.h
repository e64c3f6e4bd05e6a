#ifndef cow_Direct_h
#define cow_Direct_h

#include "QVRShpCore_Export.h"

/// How a cow_COW copies an object whose class is known: by its copy constructor.
template <class T> class QVRSHPCORE_API cow_Direct {
public:
    /// A copy from `new`; the caller owns it.
    static T * Copy(T const & source) { return new T(source); }
};

#endif
