#ifndef memory_refusals_h
#define memory_refusals_h

// Memory that runs out at a chosen allocation of the library.

#include "mem_Alloc.h"
#include "mem_OutOfMemoryException.h"

/// Refuses the allocation with the number `failing` (from 1), or each one, while it lives.
class MemoryRefusal {
public:
    static constexpr int each = -1;

    explicit MemoryRefusal(int failing = each) {
        toGo = failing;
        mem_SetFailureHook([](std::size_t) { return toGo == each || --toGo == 0; });
    }
    ~MemoryRefusal() { mem_SetFailureHook(nullptr); }
    MemoryRefusal(MemoryRefusal const &) = delete;
    MemoryRefusal & operator=(MemoryRefusal const &) = delete;

private:
    static inline int toGo = each;
};

/// Does `work` with its first allocation refused, then with its second, and so on until it succeeds, and calls
/// `afterRefusal` after each but the last. Returns the number of refusals.
template <class Work, class Check> int refuseEachAllocation(Work work, Check afterRefusal) {
    for (int refusals = 0;; ++refusals) {
        try {
            MemoryRefusal const refusal(refusals + 1);
            work();
            return refusals;
        } catch (mem_OutOfMemoryException const &) {
        }
        afterRefusal();
    }
}

#endif
