#ifndef mem_AllocationOperators_h
#define mem_AllocationOperators_h

#include "QVRShpCore_Export.h"
#include "mem_Alloc.h"

#include <cstddef>

/// Class-level `operator new` and `operator delete` on one of the allocation functions. Empty; made to be derived from.
template <void * (*Allocate)(std::size_t)> class QVRSHPCORE_API mem_AllocationBase {
public:
    static void * operator new(std::size_t size) { return Allocate(size); }
    static void * operator new[](std::size_t size) { return Allocate(size); }
    static void * operator new(std::size_t, void * place) noexcept { return place; }
    static void * operator new[](std::size_t, void * place) noexcept { return place; }

    static void operator delete(void * block) noexcept { mem_Free(block); }
    static void operator delete[](void * block) noexcept { mem_Free(block); }
    static void operator delete(void *, void *) noexcept {}
    static void operator delete[](void *, void *) noexcept {}
};

/// Base of classes whose objects come from mem_OperatorNewThrow.
class QVRSHPCORE_API mem_AllocationOperators : public mem_AllocationBase<mem_OperatorNewThrow> {};

#endif
