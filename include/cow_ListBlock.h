#ifndef cow_ListBlock_h
#define cow_ListBlock_h

#include "mem_AllocationOperatorsTiny.h"

#include <cstddef>

template <class T> class QVRSHPCORE_API cow_List;

/// Storage of a cow_List for a fixed number of neighbouring elements, shared by the lists that point at it. The
/// storage is raw: a slot may hold no live element, and the block neither builds nor destroys any.
template <class T> class QVRSHPCORE_API cow_ListBlock : public mem_AllocationOperatorsTiny {
public:
    /// Storage for `size` elements, none of them alive.
    explicit cow_ListBlock(int size) : items(static_cast<T *>(mem_Malloc(sizeof(T) * static_cast<std::size_t>(size)))) {
        static_assert(alignof(T) <= alignof(std::max_align_t), "blocks are aligned for fundamental types only");
    }
    ~cow_ListBlock() { mem_Free(items); }
    cow_ListBlock(cow_ListBlock const &) = delete;
    cow_ListBlock & operator=(cow_ListBlock const &) = delete;

    /// The element in slot `i`, which must hold one (not checked).
    T & Get(int i) noexcept { return items[i]; }
    T const & ConstGet(int i) const noexcept { return items[i]; }

    int count = 1; ///< distinct arrays of block pointers that point at this block
    T * items;     ///< room for `size` elements
};

#endif
