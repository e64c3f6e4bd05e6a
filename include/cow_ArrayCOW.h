#ifndef cow_ArrayCOW_h
#define cow_ArrayCOW_h

#include "cow_COW.h"

/// The cow_COW that stands in arrays: the elements of persistent lists.
template <class T, class Policy> class QVRSHPCORE_API cow_ArrayCOW : public cow_COW<T, Policy> {
public:
    /// Takes over an object from `new`, or null.
    cow_ArrayCOW(T * object = nullptr) : cow_COW<T, Policy>(object) {}

    using cow_COW<T, Policy>::operator=;
};

#endif
