#ifndef catalogued_shapes_h
#define catalogued_shapes_h

// The shapes of the catalogue, for laws over all of them, and keys that it does not have.

#include "omi_BtreeIterator.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <stdexcept>
#include <string>

inline shp_ShapeDictionary & dictionary() {
    return omi_Singleton<shp_ShapeDictionary>::Instance();
}

/// The shape of a label that the catalogue has.
inline shp_Shape const & shapeOf(char const * label) {
    shp_Shape const * const shape = dictionary().GetShape(label);
    if (!shape)
        throw std::invalid_argument(std::string(label) + " is not in the catalogue");
    return *shape;
}

/// Calls `visit(shape)` for all labels in ascending order; a failure inside names the label.
template <class Visit> void forEachShape(Visit visit) {
    omi_BtreeIterator<cow_String, void *> labels(dictionary().Keys());
    for (bool isLabel = labels.First(); isLabel; isLabel = labels.Next()) {
        SCOPED_TRACE(labels.CurrentKey().CStr());
        visit(*dictionary().GetShape(labels.CurrentKey()));
    }
}

/// The key of a list of bits.
inline LongKey keyOf(std::initializer_list<unsigned int> bits) {
    LongKey key;
    key.setBits(static_cast<unsigned int>(bits.size()), bits.begin());
    return key;
}

#endif
