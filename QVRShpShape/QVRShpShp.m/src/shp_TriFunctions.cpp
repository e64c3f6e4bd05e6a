#include "shp_TriInterpTables.h"

#include "shp_BodyOperators.h"
#include "shp_DecisionList.h"
#include "shp_FamilySets.h"
#include "shp_ShapeSets.h"

using namespace shp_shape;

namespace {

constexpr shp_Choice<shp_SetPair> triSets[] = {
    {.nodes = 3, .result = {&setOf<Tri3>, &setOf<Tri3>}},
    {.result = {&setOf<Tri6>, &setOf<Tri6>}},
};

constexpr shp_Choice<shp_BodyOperator> triBodyOperators[] = {
    {.nodes = 3, .with = shp_keyAxisymmetric, .result = TriAxiBodyOp},
    {.nodes = 3, .result = TriBodyOp},
};

} // namespace

shp_SetPair shp_triSets(shp_Options const & options) {
    return shp_firstFit(triSets, options);
}

shp_ShapeFunction const * shp_TriInterpTables::getNdFuncPtrTblPtr(shp_Options const & options) {
    return shp_functionsOf(shp_triSets(options).values);
}

shp_ShapeFunction const * shp_TriInterpTables::getdUdGHRFuncPtrTblPtr(shp_Options const & options, int direction) {
    return shp_derivativesOf(shp_triSets(options).derivatives, direction);
}

shp_BodyOperator shp_TriInterpTables::getBodyOpPtr(shp_Options const & options) {
    return shp_firstFit(triBodyOperators, options);
}
