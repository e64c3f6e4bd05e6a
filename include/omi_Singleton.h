#ifndef omi_Singleton_h
#define omi_Singleton_h

#include "QVRShpCore_Export.h"
#include "mem_Alloc.h"
#include "omi_SingletonRegistry.h"

#include <cstdlib>
#include <new>
#include <typeinfo>

/// The part of a singleton `T` that knows the one object. It has no data of its own; its state is static.
///
/// A class is made a singleton by `class QVRSHPCORE_API T : public omi_Singleton<T>`. So that no other library gets a
/// second state, T's header names both templates behind the class, and one source file of T's library makes them:
///
///     extern template class omi_SingletonBase<T>;      // in T.h
///     extern template class omi_Singleton<T>;
///     template class omi_SingletonBase<T>;             // in T.cpp
///     template class omi_Singleton<T>;
///
/// T's constructor takes no argument. If it is private, T befriends both templates.
template <class T> class QVRSHPCORE_API omi_SingletonBase {
public:
    /// Takes the instance out of the registry, destroys it, frees it and forgets it; the next
    /// omi_Singleton<T>::Instance makes a new one. Does nothing when there is no instance.
    static void Finalize();

    omi_SingletonBase(omi_SingletonBase const &) = delete;
    omi_SingletonBase & operator=(omi_SingletonBase const &) = delete;

protected:
    /// Makes this object the instance and enters it in the singleton registry under the text of T's run-time type
    /// name. That precedes everything else in the construction of a T.
    omi_SingletonBase();
    ~omi_SingletonBase() = default;

    /// The one object: set by the constructor above, cleared by Finalize alone.
    static omi_SingletonBase * instance;

    /// True from a failed construction inside Instance until Finalize: `instance` then leads nowhere.
    static bool isAbandoned;
};

/// Access to the one object of a class T. Not safe for concurrent use: callers serialise the first call.
template <class T> class QVRSHPCORE_API omi_Singleton : public omi_SingletonBase<T> {
public:
    /// The instance, built by the first call; it lives until Finalize. If T's constructor raises, the memory is
    /// released and the exception passes, but the address stays set: neither this function nor the object may be used
    /// after that, until Finalize.
    static T & Instance();

protected:
    omi_Singleton() = default;
    ~omi_Singleton() = default;
};

template <class T> omi_SingletonBase<T> * omi_SingletonBase<T>::instance = nullptr;

template <class T> bool omi_SingletonBase<T>::isAbandoned = false;

template <class T> omi_SingletonBase<T>::omi_SingletonBase() {
    instance = this;
    isAbandoned = false;
    if (omi_SingletonRegistry * registry = omi_SingletonRegistry::Instance())
        registry->Add(typeid(T).name(), this);
}

template <class T> void omi_SingletonBase<T>::Finalize() {
    if (omi_SingletonRegistry * registry = omi_SingletonRegistry::Instance())
        registry->Remove(typeid(T).name());
    if (instance != nullptr && !isAbandoned) {
        T * object = static_cast<T *>(instance);
        object->~T();
        mem_Free(object);
    }
    instance = nullptr;
    isAbandoned = false;
}

template <class T> T & omi_Singleton<T>::Instance() {
    if (omi_SingletonBase<T>::instance != nullptr)
        return static_cast<T &>(*omi_SingletonBase<T>::instance);
    void * block = mem_OperatorNewThrow(sizeof(T));
    T * made = nullptr;
    try {
        made = ::new (block) T;
    } catch (...) {
        omi_SingletonBase<T>::isAbandoned = true;
        mem_Free(block);
        throw;
    }
    if (omi_SingletonBase<T>::instance != made) // the constructor has made another T
        std::abort();
    return *made;
}

#endif
