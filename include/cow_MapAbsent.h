#ifndef cow_MapAbsent_h
#define cow_MapAbsent_h

#include "QVRShpCore_Export.h"
#include "mem_Alloc.h"

#include <new>

/// The values that a cow_Map refers to where it has none. Made when they are first asked for, destroyed at unload.
template <class V> class QVRSHPCORE_API cow_MapAbsent {
public:
    /// A default-constructed value.
    static V const & Value() { return value.Get(); }
    /// A value to be written to. Each call gives it its default again.
    static V & Scratch() { return scratch.Get() = V(); }

private:
    class Lazy {
    public:
        constexpr Lazy() = default;
        ~Lazy() {
            if (made != nullptr) {
                made->~V();
                mem_Free(made);
            }
            made = nullptr;
        }
        Lazy(Lazy const &) = delete;
        Lazy & operator=(Lazy const &) = delete;

        V & Get() {
            if (made == nullptr) {
                void * const block = mem_OperatorNewThrow(sizeof(V));
                try {
                    made = ::new (block) V();
                } catch (...) {
                    mem_Free(block);
                    throw;
                }
            }
            return *made;
        }

    private:
        V * made = nullptr;
    };

    static Lazy value;
    static Lazy scratch;
};

template <class V> constinit typename cow_MapAbsent<V>::Lazy cow_MapAbsent<V>::value;

template <class V> constinit typename cow_MapAbsent<V>::Lazy cow_MapAbsent<V>::scratch;

extern template class cow_MapAbsent<unsigned int>;

#endif
