#ifndef shp_LabelIndex_h
#define shp_LabelIndex_h

#include "cow_String.h"
#include "mem_AllocationOperators.h"

#include <bit>
#include <cstdint>
#include <cstring>

class shp_Shape;

/// From a label, in upper or lower case, to its shape: a flat table of labels that are packed into one number each.
///
/// It is a short cut and promises nothing: labels that cannot be packed, and labels beyond those that it has room for,
/// are not in it.
class shp_LabelIndex : public mem_AllocationOperators {
public:
    /// The bytes of a label in upper case as one number; 0 when it has more than nine, none, or one beyond ASCII. Two
    /// labels that differ otherwise than in case have different numbers.
    static std::uint64_t Packed(cow_String const & label) noexcept;

    /// The shape that was added with this number, or null; null for 0.
    shp_Shape const * Find(std::uint64_t packed) const noexcept {
        Slot const & slot = slots[slotOf(packed)];
        return slot.packed == packed ? slot.shape : nullptr;
    }

    /// Adds a shape. Nothing happens for the number 0, and when the table is full. The number must be new.
    void Add(std::uint64_t packed, shp_Shape const & shape) noexcept {
        if (packed == 0 || count == mostShapes)
            return;
        slots[slotOf(packed)] = {packed, &shape};
        ++count;
    }

private:
    struct Slot {
        std::uint64_t packed = 0; ///< 0: free
        shp_Shape const * shape = nullptr;
    };
    static constexpr int slotBits = 11;
    static constexpr std::size_t slotCount = std::size_t{1} << slotBits;
    static constexpr std::size_t mostShapes = slotCount * 3 / 4; ///< the catalogue and many more; searches stay short

    /// Where a number is, or else would be added.
    std::size_t slotOf(std::uint64_t packed) const noexcept {
        std::size_t slot = static_cast<std::size_t>(packed * 0x9e3779b97f4a7c15u >> (64 - slotBits));
        while (slots[slot].packed != packed && slots[slot].packed != 0)
            slot = (slot + 1) % slotCount;
        return slot;
    }

    std::size_t count = 0;
    Slot slots[slotCount];
};

inline std::uint64_t shp_LabelIndex::Packed(cow_String const & label) noexcept {
    if constexpr (std::endian::native != std::endian::little)
        return 0; // the pieces below would not fit together

    constexpr std::uint64_t eachByte = 0x0101010101010101u;
    constexpr std::uint64_t topBits = 0x80 * eachByte;

    char const * const text = label.CStr();
    unsigned const length = static_cast<unsigned>(label.Length());
    auto const byte = [text](unsigned i) { return std::uint64_t{static_cast<unsigned char>(text[i])}; };
    auto const four = [text](unsigned from) {
        std::uint32_t bytes;
        std::memcpy(&bytes, text + from, sizeof bytes);
        return std::uint64_t{bytes};
    };

    // The first eight bytes, in pieces that may overlap, and the ninth.
    std::uint64_t first = 0, ninth = 0;
    if (length - 4 <= 5) {
        unsigned const inFirst = length < 8 ? length : 8;
        first = four(0) | four(inFirst - 4) << 8 * (inFirst - 4);
        ninth = byte(inFirst); // of a shorter label this is the zero at its end
    } else if (length - 1 <= 2) {
        first = byte(0) | byte(length / 2) << 8 * (length / 2) | byte(length - 1) << 8 * (length - 1);
    }
    if (((first | ninth) & topBits) != 0)
        return 0;

    // The top bit of a byte is free, so that it can carry what is compared: no sum reaches the next byte.
    auto const upper = [](std::uint64_t bytes) {
        std::uint64_t const fromA = bytes + (0x80 - 'a') * eachByte;
        std::uint64_t const behindZ = bytes + (0x80 - 'z' - 1) * eachByte;
        return bytes ^ ((fromA & ~behindZ & topBits) >> 2); // 'a' - 'A' is 0x20
    };
    // The ninth's seven bits go to the top bits of the first seven bytes.
    std::uint64_t const spread = upper(ninth) * 0x0002040810204081u & eachByte;
    return upper(first) | spread << 7;
}

#endif
