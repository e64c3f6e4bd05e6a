#ifndef cow_COW_h
#define cow_COW_h

#include "cow_CountedHld.h"

/// A value of class `T`, or none, that is copied in constant time: copies share the object until one of them writes to
/// it. `Policy` says how the object is copied then: cow_Direct or cow_Virtual.
///
/// Threads: as cow_CountedHld.
template <class T, class Policy> class QVRSHPCORE_API cow_COW : public cow_CountedHld<T> {
public:
    /// Takes over an object from `new`, or null.
    cow_COW(T * object = nullptr) : cow_CountedHld<T>(object) {}

    using cow_CountedHld<T>::operator=;

    /// The object, to be read; null when there is none.
    T const * ConstGet() const noexcept { return this->referent; }
    /// The object, to be written: this holder's alone, copied first if it is shared. Null when there is none.
    T * Get() {
        if (this->referent != nullptr && !this->Exclusive())
            *this = Policy::Copy(*this->referent);
        return this->referent;
    }

    /// Whether there is an object, and whether there is none.
    bool HasValue() const noexcept { return this->referent != nullptr; }
    bool IsNull() const noexcept { return this->referent == nullptr; }
};

#endif
