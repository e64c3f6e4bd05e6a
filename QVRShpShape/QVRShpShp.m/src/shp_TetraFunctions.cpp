#include "shp_TetraInterpTables.h"

#include "shp_BodyOperators.h"
#include "shp_DecisionList.h"
#include "shp_FamilySets.h"
#include "shp_ShapeSets.h"

using namespace shp_shape;

namespace {

constexpr shp_Choice<shp_SetPair> tetraSets[] = {
    {.nodes = 4, .result = {&setOf<Tetra4>, &setOf<Tetra4>}},
    {.result = {&setOf<Tetra10>, &setOf<Tetra10>}},
};

constexpr shp_Choice<shp_BodyOperator> tetraBodyOperators[] = {
    {.nodes = 4, .result = TetraBodyOp},
};

} // namespace

shp_SetPair shp_tetraSets(shp_Options const & options) {
    return shp_firstFit(tetraSets, options);
}

shp_ShapeFunction const * shp_TetraInterpTables::getNdFuncPtrTblPtr(shp_Options const & options) {
    return shp_functionsOf(shp_tetraSets(options).values);
}

shp_ShapeFunction const * shp_TetraInterpTables::getdUdGHRFuncPtrTblPtr(shp_Options const & options, int direction) {
    return shp_derivativesOf(shp_tetraSets(options).derivatives, direction);
}

shp_BodyOperator shp_TetraInterpTables::getBodyOpPtr(shp_Options const & options) {
    return shp_firstFit(tetraBodyOperators, options);
}
