#ifndef shp_SetOperations_h
#define shp_SetOperations_h

#include "shp_FunctionSets.h"
#include "shp_Topology.h"

/// What one set of functions does with the positions of its nodes, made for this set alone, so that nothing is called
/// for a single node. The same bits as the functions one by one, but for what `locate` leaves to the caller.
struct shp_SetOperations {
    shp_FunctionEvaluator row; ///< all values
    shp_PointEvaluator point;
    shp_JacobianEvaluator jacobian; ///< null with derivatives in fewer than two directions
    shp_Locator locate;             ///< the same
};

/// Those of a set of the library; all null where `set` is.
shp_SetOperations shp_operationsOf(shp_FunctionSet const * set);

#endif
