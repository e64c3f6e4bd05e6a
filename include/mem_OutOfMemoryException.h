#ifndef mem_OutOfMemoryException_h
#define mem_OutOfMemoryException_h

#include "QVRBasException.h"

/// What every failed allocation of the library raises. Making, copying and raising it takes none of the allocator's
/// memory, and its message can be had when nothing is left.
class QVRSHPCORE_API mem_OutOfMemoryException : public QVRBasException {
public:
    mem_OutOfMemoryException() noexcept = default;
    mem_OutOfMemoryException(mem_OutOfMemoryException const &) noexcept = default;
    mem_OutOfMemoryException & operator=(mem_OutOfMemoryException const &) noexcept = default;
    ~mem_OutOfMemoryException() override;

    atr_String AsString(QVRBasStringMode mode) const override;
    [[noreturn]] void Propagate() const override;
    QVRBasException * Clone() const override;
};

/// Raises mem_OutOfMemoryException.
[[noreturn]] QVRSHPCORE_API void mem_raiseOutOfMemory();

#endif
