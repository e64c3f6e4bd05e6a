#ifndef shp_FunctionSets_h
#define shp_FunctionSets_h

#include "shp_Options.h"
#include "shp_ShapeFunction.h"

/// All that one set of shape functions offers; every array and evaluator comes out of the same list of node
/// functions, so that they cannot disagree.
struct shp_FunctionSet {
    /// Writes one float per function: the same bits as calling the functions one by one.
    using RowEvaluator = void (*)(float g, float h, float r, float * out);

    char const * name;                     ///< "Hex20"
    int count;                             ///< functions in the set
    int directions;                        ///< derivative arrays: 0 when the set has none, else 1, 2 or 3
    shp_ShapeFunction const * functions;   ///< `[count]`
    shp_ShapeFunction const * derivatives; ///< `[directions][count]` in the order d/dg, d/dh, d/dr; null without
    RowEvaluator row;                      ///< all values: `out[count]`
    RowEvaluator gradient;                 ///< all derivatives: `out[directions][count]`; null without
};

/// The set of values for an element type, and the set whose derivatives go with it (another one, or null, for some
/// types). Null where no set exists.
shp_FunctionSet const * shp_valueSet(shp_Options const & options);
shp_FunctionSet const * shp_derivativeSet(shp_Options const & options);

/// Every set of the library, for checks over all of them.
struct shp_FunctionSetList {
    shp_FunctionSet const * const * sets;
    int count;
};
shp_FunctionSetList shp_allFunctionSets();

#endif
