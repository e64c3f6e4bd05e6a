#include "mem_Alloc.h"

#include "mem_OutOfMemoryException.h"

#include <cstdint>
#include <cstdlib>

namespace {

using FailureHook = bool (*)(std::size_t);
constinit FailureHook failureHook = nullptr;

/// Sizes above PTRDIFF_MAX are never to be had; asking for them would only upset a checking allocator.
bool isRefused(std::size_t size) {
    return size > static_cast<std::size_t>(PTRDIFF_MAX) || (failureHook != nullptr && failureHook(size));
}

void * allocate(std::size_t size) {
    if (!isRefused(size))
        if (void * block = std::malloc(size != 0 ? size : 1))
            return block;
    mem_raiseOutOfMemory();
}

} // namespace

void * mem_OperatorNewThrow(std::size_t size) {
    return allocate(size);
}

void * mem_OperatorNewThrowBuiltin(std::size_t size) {
    return allocate(size);
}

void * mem_OperatorNewTinyThrow(std::size_t size) {
    return allocate(size);
}

void * mem_Malloc(std::size_t size) {
    return allocate(size);
}

void * mem_Realloc(void * block, std::size_t size) {
    if (size == 0) {
        std::free(block);
        return nullptr;
    }
    if (!isRefused(size))
        if (void * moved = std::realloc(block, size))
            return moved;
    mem_raiseOutOfMemory();
}

void mem_Free(void * block) noexcept {
    std::free(block);
}

void mem_SetFailureHook(bool (*hook)(std::size_t)) noexcept {
    failureHook = hook;
}
