#ifndef shp_Catalogue_h
#define shp_Catalogue_h

#include "shp_KeyBit.h"

#include <cstddef>
#include <span>
#include <string_view>

/// The key bits of a row beyond family, counts and space.
struct shp_CatalogueFlags {
    static constexpr std::size_t capacity = 6;

    template <class... Bit> constexpr shp_CatalogueFlags(Bit... bit) : count(sizeof...(bit)), bits{bit...} {
        static_assert(sizeof...(bit) <= capacity);
    }
    constexpr shp_KeyBit const * begin() const { return bits; }
    constexpr shp_KeyBit const * end() const { return bits + count; }

    std::size_t count;
    shp_KeyBit bits[capacity];
};

/// All labels that share a key.
struct shp_CatalogueRow {
    shp_KeyBit nodes;
    shp_KeyBit points;
    shp_KeyBit space;
    shp_CatalogueFlags flags;
    std::string_view labels; ///< separated by single spaces
    int modes = 0;           ///< not 0: the labels are the bases of labels that end in a mode digit, 1 to `modes`
};

/// All rows of one shape family, in the order of generation.
struct shp_CatalogueFamily {
    shp_KeyBit shape;
    std::span<shp_CatalogueRow const> rows;
};

extern shp_CatalogueFamily const shp_catalogueARS;
extern shp_CatalogueFamily const shp_cataloguePoint;
extern shp_CatalogueFamily const shp_catalogueLine;
extern shp_CatalogueFamily const shp_catalogueTri;
extern shp_CatalogueFamily const shp_catalogueQuad;
extern shp_CatalogueFamily const shp_catalogueTetra;
extern shp_CatalogueFamily const shp_cataloguePyr;
extern shp_CatalogueFamily const shp_cataloguePrism;
extern shp_CatalogueFamily const shp_catalogueHex;

/// Room for a label, its mode digit and the terminating zero; what is longer is cut.
constexpr std::size_t shp_labelCapacity = 24;

/// Takes the next label off the front of a row's `labels`.
constexpr std::string_view shp_takeLabel(std::string_view & labels) {
    std::string_view const label = labels.substr(0, labels.find(' '));
    labels.remove_prefix(label.size() < labels.size() ? label.size() + 1 : label.size());
    return label;
}

#endif
