#ifndef element_kind_h
#define element_kind_h

#include <shp_KeyBit.h>
#include <shp_Topology.h>

#include <span>
#include <string>

/// A property of an element type that the atlas names and can filter by.
struct ElementFlag {
    char const * id;   ///< one word, for attributes
    char const * text; ///< for readers
    bool (*holds)(shp_Topology const & shape);
};

std::span<ElementFlag const> elementFlags();

/// What makes an element type more than its nodes, where the pictures show it.
inline bool isInfinite(shp_Topology const & shape) {
    return shape.options.IsType(shp_keyInfinite);
}
/// A layer between two sides, with its points between them.
inline bool isInterlayer(shp_Topology const & shape) {
    return shape.isGasket || shape.isCohesive;
}

/// A shape family in the order of the start page.
struct ElementFamily {
    int shape; ///< shp_keyPoint to shp_keyPyramid
    char const * id;
    char const * one;  ///< "hexahedron"
    char const * many; ///< "Hexahedra"
};

std::span<ElementFamily const> elementFamilies();
ElementFamily const & familyOf(shp_Topology const & shape);

/// "1 node", "20 nodes".
std::string countOf(int count, char const * noun);
/// "Hexahedron, 20 nodes, 8 integration points", with the number of planes and what is special.
std::string describe(shp_Topology const & shape);

/// The name of coordinate 0, 1 or 2: g, h or r.
char const * coordinateName(int coordinate);

#endif
