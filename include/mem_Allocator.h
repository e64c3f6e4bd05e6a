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
    using value_type = T;

    constexpr mem_Allocator() noexcept = default;
    template <class U> constexpr mem_Allocator(mem_Allocator<U> const &) noexcept {}

    T * allocate(std::size_t count) {
        constexpr std::size_t most = std::numeric_limits<std::size_t>::max();
        return static_cast<T *>(mem_OperatorNewThrow(count <= most / sizeof(T) ? count * sizeof(T) : most));
    }
    void deallocate(T * block, std::size_t) noexcept { mem_Free(block); }

    template <class U> friend constexpr bool operator==(mem_Allocator const &, mem_Allocator<U> const &) noexcept {
        return true;
    }
};

#endif
