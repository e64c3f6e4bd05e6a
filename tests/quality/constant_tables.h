#ifndef constant_tables_h
#define constant_tables_h

#include <cstddef>
#include <string>
#include <vector>

/// One number of a constant table of the library, as it lies in this process's memory.
struct TableEntry {
    enum class Kind { integer, real, flag, key };
    void * address;
    Kind kind;
    unsigned int bit = 0; ///< of a key

    /// Adds 1 to an integer or to the number of a key's bit, 1e-3 to a real number, and turns a flag. False when that
    /// changes nothing.
    bool change() const;
};

struct ConstantTable {
    std::string file, name;
    std::vector<TableEntry> entries;
};

/// All tables of numbers, found by the symbols of this program. Lists of pointers are none: these are decision lists,
/// and arrays of functions.
std::vector<ConstantTable> constantTables();

#endif
