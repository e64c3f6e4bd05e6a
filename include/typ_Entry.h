#ifndef typ_Entry_h
#define typ_Entry_h

#include <cstdint>

/// One row of a component's table of persistent types.
struct typ_Entry {
    std::uint32_t kind;      ///< 7 for a class; 0 in the header row
    std::uint32_t reference; ///< as typ_reference packs it
    char const * name;       ///< the class; null in the header row
};

/// The reference to a row of a component: the component number in the upper half, the row in the lower one. The number
/// of a persistent class has the same form.
constexpr std::uint32_t typ_reference(std::uint16_t component, std::uint16_t row) {
    return std::uint32_t{component} << 16 | row;
}

#endif
