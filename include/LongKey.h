#ifndef LongKey_h
#define LongKey_h

#include <cstdint>

/// A set of the bit numbers 0 to 127, held by value: the one description of an element type (see shp_KeyBit.h).
class LongKey {
public:
    /// How many bit numbers there are.
    static constexpr unsigned int numBits = 128;

    constexpr LongKey() = default;

    /// Sets each of the `count` listed bit numbers; bits that are set already stay set. Numbers of 128 and up are
    /// ignored. `bitNumbers` may be null when `count` is 0.
    constexpr void setBits(unsigned int count, unsigned int const * bitNumbers) {
        for (unsigned int i = 0; i < count; ++i)
            if (bitNumbers[i] < numBits)
                words[bitNumbers[i] / bitsPerWord] |= bitOf(bitNumbers[i]);
    }

    /// True if the bit is set; false for every number of 128 and up.
    constexpr bool hasBit(unsigned int bitNumber) const {
        return bitNumber < numBits && (words[bitNumber / bitsPerWord] & bitOf(bitNumber)) != 0;
    }

private:
    static constexpr unsigned int bitsPerWord = 64;
    static constexpr std::uint64_t bitOf(unsigned int bitNumber) {
        return std::uint64_t{1} << (bitNumber % bitsPerWord);
    }

    std::uint64_t words[numBits / bitsPerWord] = {0, 0};
};

#endif
