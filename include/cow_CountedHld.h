#ifndef cow_CountedHld_h
#define cow_CountedHld_h

#include "cow_Counter.h"

#include <memory>

/// Holder of one object of class `T`, or of none, that is shared by its copies. The last holder deletes the object.
///
/// The count of holders is a plain number: no holder and no copy of it is shared between threads while one of them
/// writes, copies or destroys one.
template <class T> class QVRSHPCORE_API cow_CountedHld {
public:
    /// Takes over `object`, which comes from `new` and may be null. It is deleted when there is no memory to hold it.
    cow_CountedHld(T * object = nullptr) : counter(counterFor(object)), referent(object) {}
    /// Shares the object of `other`.
    cow_CountedHld(cow_CountedHld const & other) noexcept : counter(other.counter), referent(other.referent) {
        counter->Increment();
    }
    ~cow_CountedHld() { DropReference(); }

    /// Leaves the present object to the other holders, if any, and shares that of `other`.
    cow_CountedHld & operator=(cow_CountedHld const & other) noexcept {
        other.counter->Increment(); // first: `other` may be this one, or go with the object that is left
        cow_Counter * const newCounter = other.counter;
        T * const newReferent = other.referent;
        DropReference();
        counter = newCounter;
        referent = newReferent;
        return *this;
    }
    /// Leaves the present object to the other holders, if any, and takes over `object` as the constructor does.
    cow_CountedHld & operator=(T * object) {
        if (object != nullptr && object == referent)
            return *this;
        if (Exclusive()) {
            T * const old = referent;
            referent = object;
            delete old;
        } else {
            cow_Counter * const newCounter = counterFor(object);
            counter->Decrement();
            counter = newCounter;
            referent = object;
        }
        return *this;
    }

    /// Whether this is the only holder.
    bool Exclusive() const noexcept { return counter->Count() == 1; }

    /// Gives up the share, the last holder with it the object. Only assignment of another holder revives this one.
    void DropReference() noexcept {
        if (counter != nullptr && counter->Decrement()) {
            DeleteReferent();
            delete counter;
        }
        counter = nullptr;
        referent = nullptr;
    }
    /// Deletes the object, whoever shares it; this holder then has none.
    void DeleteReferent() noexcept {
        T * const old = referent;
        referent = nullptr;
        delete old;
    }
    /// Deletes object and count, whoever shares them.
    void Delete() noexcept {
        DeleteReferent();
        delete counter;
        counter = nullptr;
    }

protected:
    cow_Counter * counter; ///< holders of `referent`
    T * referent;          ///< may be null

private:
    static cow_Counter * counterFor(T * object) {
        std::unique_ptr<T> owner(object);
        auto * const created = new cow_Counter;
        static_cast<void>(owner.release()); // it is the holder's now
        return created;
    }
};

#endif
