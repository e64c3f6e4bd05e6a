#include "shp_Shape.h"

// The label shares its text with the string that it is made of. The inverse tables come last: they read the finished
// topology.
shp_Shape::shp_Shape(cow_String const & shapeLabel, LongKey const & key) : shp_Topology(key), label(shapeLabel) {
    BuildTables(*this);
}

shp_Shape::~shp_Shape() = default;
