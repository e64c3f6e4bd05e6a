#ifndef shp_Catalogue_h
#define shp_Catalogue_h

#include "LongKey.h"
#include "shp_KeyBit.h"

#include <algorithm>
#include <iterator>
#include <span>

/// A label, in upper case, its key, and its place among all labels in ascending order.
struct shp_CatalogueEntry {
    char label[10];
    short rank;
    LongKey key;
};

/// All labels of a shape family, each once, in the order of their rows.
using shp_CatalogueEntries = std::span<shp_CatalogueEntry const>;

extern shp_CatalogueEntries const shp_catalogueARS;
extern shp_CatalogueEntries const shp_cataloguePoint;
extern shp_CatalogueEntries const shp_catalogueLine;
extern shp_CatalogueEntries const shp_catalogueTri;
extern shp_CatalogueEntries const shp_catalogueQuad;
extern shp_CatalogueEntries const shp_catalogueTetra;
extern shp_CatalogueEntries const shp_cataloguePyr;
extern shp_CatalogueEntries const shp_cataloguePrism;
extern shp_CatalogueEntries const shp_catalogueHex;

/// The labels of all families.
constexpr std::size_t shp_catalogueSize = 862;

/// Calls `visit(mode, key)` for the modes 1 to `modeCount`, but at most 4, with the mode's bit beside those of `base`.
/// Layered prisms are stacked along the third coordinate alone: of them there is mode 3 only, whatever the count.
template <class Visit> constexpr void shp_forEachMode(LongKey const & base, int modeCount, Visit visit) {
    constexpr unsigned int modeBits[] = {shp_keyMode1, shp_keyMode2, shp_keyMode3, shp_keyMode4};
    bool const isLayeredPrism = base.hasBit(shp_keyLayeredSolid) && base.hasBit(shp_keyPrism);
    int const first = isLayeredPrism ? 2 : 0;
    int const last = isLayeredPrism ? 3 : std::min(modeCount, static_cast<int>(std::size(modeBits)));
    for (int i = first; i < last; ++i) {
        LongKey key(base);
        key.setBits(1, &modeBits[i]);
        visit(i + 1, key);
    }
}

#endif
