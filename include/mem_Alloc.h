#ifndef mem_Alloc_h
#define mem_Alloc_h

#include "QVRShpCore_Export.h"

#include <cstddef>

/// The allocator that everything in the library allocates through. Blocks are aligned for every fundamental type.
/// What cannot be had is reported by raising mem_OutOfMemoryException; no function here returns null where a block is
/// asked for. A block of any of them is released with mem_Free. A size of 0 gives a block of its own, too.

/// A block for an object.
QVRSHPCORE_API void * mem_OperatorNewThrow(std::size_t size);

/// A block for a plain array or a small raw block.
QVRSHPCORE_API void * mem_OperatorNewThrowBuiltin(std::size_t size);

/// A block for a very small object.
QVRSHPCORE_API void * mem_OperatorNewTinyThrow(std::size_t size);

/// A plain block.
QVRSHPCORE_API void * mem_Malloc(std::size_t size);

/// Moves `block` (may be null) into a block of `size` bytes and returns that; the common first bytes are kept. When
/// there is no memory, `block` is left as it was. A size of 0 frees the block and gives null.
QVRSHPCORE_API void * mem_Realloc(void * block, std::size_t size);

/// Releases a block; null is left alone.
QVRSHPCORE_API void mem_Free(void * block) noexcept;

/// Lets a test refuse allocations: before every allocation and reallocation `hook` is asked with the size in bytes, and
/// true refuses it, as if memory had run out. Null, the state at load, refuses nothing. The hook must not allocate
/// through the functions above; it is process-wide and changed by one thread while no other allocates.
QVRSHPCORE_API void mem_SetFailureHook(bool (*hook)(std::size_t size)) noexcept;

#endif
