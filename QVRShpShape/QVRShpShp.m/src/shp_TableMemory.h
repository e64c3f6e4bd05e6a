#ifndef shp_TableMemory_h
#define shp_TableMemory_h

#include "mem_Alloc.h"

#include <algorithm>
#include <cstddef>
#include <memory>

/// A table of zeros from the foundation's allocator, `[rows][columns]`; mem_Free releases it.
template <class Number> Number * shp_newTable(int rows, int columns) {
    std::size_t const size = static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
    auto * const table = static_cast<Number *>(mem_OperatorNewThrowBuiltin(size * sizeof(Number)));
    std::fill_n(table, size, Number{});
    return table;
}

struct shp_FreeTable {
    void operator()(void * table) const { mem_Free(table); }
};

/// A table for the time of one call.
template <class Number> using shp_ScratchTable = std::unique_ptr<Number[], shp_FreeTable>;

#endif
