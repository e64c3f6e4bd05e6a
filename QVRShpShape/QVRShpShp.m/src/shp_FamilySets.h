#ifndef shp_FamilySets_h
#define shp_FamilySets_h

#include "shp_FunctionSets.h"

/// What an element type gets: the set of its shape functions, and the set whose derivatives go with them. That is the
/// same set, another one with equal derivatives, or null where an element type has no derivatives.
struct shp_SetPair {
    shp_FunctionSet const * values;
    shp_FunctionSet const * derivatives;
};

shp_SetPair shp_pointSets(shp_Options const & options);
shp_SetPair shp_lineSets(shp_Options const & options);
shp_SetPair shp_triSets(shp_Options const & options);
shp_SetPair shp_quadSets(shp_Options const & options);
shp_SetPair shp_tetraSets(shp_Options const & options);
shp_SetPair shp_hexSets(shp_Options const & options);
shp_SetPair shp_prismSets(shp_Options const & options);
shp_SetPair shp_pyramidSets(shp_Options const & options);

/// The arrays of a set that may be null.
shp_ShapeFunction const * shp_functionsOf(shp_FunctionSet const * set);
shp_ShapeFunction const * shp_derivativesOf(shp_FunctionSet const * set, int direction);

#endif
