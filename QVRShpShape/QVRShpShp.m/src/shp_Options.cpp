#include "shp_Options.h"

#include "shp_KeyBit.h"

#include <cstddef>

namespace {

/// Counts in the order of their bits: the bits from shp_keyNodes1, from shp_keyIntPts1, from shp_keyMode1.
constexpr int nodeCounts[] = {1, 2, 3, 4, 5, 6, 8, 9, 10, 12, 15, 18, 20, 24, 27};
constexpr int intPntCounts[] = {1, 2, 3, 4, 6, 8, 9, 12, 14, 15, 18, 27, 5, 11};
constexpr int modes[] = {1, 2, 3, 4};
constexpr int shapes[] = {1, 2, 3, 4, 5, 6, 7, 8, 9};

/// The entry of the first bit that is set, counted from `firstBit`, or 0.
template <std::size_t N> int decode(LongKey const & key, unsigned int firstBit, int const (&values)[N]) {
    for (unsigned int i = 0; i < N; ++i)
        if (key.hasBit(firstBit + i))
            return values[i];
    return 0;
}

} // namespace

shp_Options::shp_Options(LongKey const & k)
    : shape(decode(k, shp_keyPoint, shapes)), numNodes(decode(k, shp_keyNodes1, nodeCounts)),
      numIntPnts(decode(k, shp_keyIntPts1, intPntCounts)), is2D(k.hasBit(shp_key2D)), key(k) {
    if (k.hasBit(shp_keyCaxa) || k.hasBit(shp_keyLayeredSolid))
        mode = decode(k, shp_keyMode1, modes);
}
