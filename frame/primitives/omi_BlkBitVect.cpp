#include "omi_BlkBitVect.h"

#include <algorithm>

namespace {

/// The place of a block: the first block that does not come before it.
template <class Blocks> auto placeOf(Blocks & blocks, unsigned int number) {
    return std::lower_bound(blocks.begin(), blocks.end(), number,
                            [](omi_BlkBitVect::Block const & block, unsigned int n) { return block.number < n; });
}

constexpr unsigned int numberOf(unsigned int bit) {
    return bit / omi_BlkBitVect::bitsPerBlock;
}

constexpr unsigned int maskOf(unsigned int bit) {
    return 1u << (bit % omi_BlkBitVect::bitsPerBlock);
}

} // namespace

void omi_BlkBitVect::SetBits(unsigned int number, unsigned int bits) {
    if (bits == 0)
        return;
    auto const place = placeOf(blocks, number);
    if (place != blocks.end() && place->number == number)
        place->bits |= bits;
    else
        blocks.insert(place, {number, bits});
}

void omi_BlkBitVect::SetBit(unsigned int bit) {
    SetBits(numberOf(bit), maskOf(bit));
}

void omi_BlkBitVect::ClearBit(unsigned int bit) {
    auto const place = placeOf(blocks, numberOf(bit));
    if (place == blocks.end() || place->number != numberOf(bit))
        return;
    place->bits &= ~maskOf(bit);
    if (place->bits == 0)
        blocks.erase(place);
}

bool omi_BlkBitVect::HasBit(unsigned int bit) const {
    auto const place = placeOf(blocks, numberOf(bit));
    return place != blocks.end() && place->number == numberOf(bit) && (place->bits & maskOf(bit)) != 0;
}
