#ifndef cow_Counter_h
#define cow_Counter_h

#include "mem_AllocationOperatorsTiny.h"

/// The number of sharers of something, 1 at creation. A plain number, not an atomic one.
class QVRSHPCORE_API cow_Counter : public mem_AllocationOperatorsTiny {
public:
    /// One sharer more.
    void Increment() noexcept { ++count; }
    /// One sharer less. True when that was the last.
    bool Decrement() noexcept { return --count == 0; }
    /// The number of sharers.
    int Count() const noexcept { return count; }

private:
    int count = 1;
};

#endif
