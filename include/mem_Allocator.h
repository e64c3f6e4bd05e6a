#ifndef mem_Allocator_h
#define mem_Allocator_h

#include "mem_Alloc.h"

#include <cstddef>
#include <limits>

/// Allocator of standard containers that takes its blocks from mem_OperatorNewThrow:
/// `std::vector<int, mem_Allocator<int>>`. It has no state; all of them are equal.
template <class T> class mem_Allocator {
    static_assert(alignof(T) <= alignof(std::max_align_t));

public:
    /// What it makes room for.
    using value_type = T;

    constexpr mem_Allocator() noexcept = default;
    /// The allocator of another type is as good.
    template <class U> constexpr mem_Allocator(mem_Allocator<U> const &) noexcept {}

    /// Room for `count` objects, none of them built. Raises mem_OutOfMemoryException when there is none.
    T * allocate(std::size_t count) {
        constexpr std::size_t most = std::numeric_limits<std::size_t>::max();
        return static_cast<T *>(mem_OperatorNewThrow(count <= most / sizeof(T) ? count * sizeof(T) : most));
    }
    /// Gives back what allocate gave.
    void deallocate(T * block, std::size_t) noexcept { mem_Free(block); }

    /// Always true.
    template <class U> friend constexpr bool operator==(mem_Allocator const &, mem_Allocator<U> const &) noexcept {
        return true;
    }
};

#endif
