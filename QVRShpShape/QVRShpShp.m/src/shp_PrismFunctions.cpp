#include "shp_PrismInterpTables.h"

#include "shp_BodyOperators.h"
#include "shp_DecisionList.h"
#include "shp_FamilySets.h"
#include "shp_ShapeSets.h"

using namespace shp_shape;

namespace {

constexpr shp_Choice<shp_SetPair> prismSets[] = {
    {.nodes = 6, .result = {&setOf<Prism6>, &setOf<Prism6>}},
    {.nodes = 9, .with = shp_keyCylindrical, .result = {&setOf<Prism9>, &setOf<Prism9>}},
    {.nodes = 9, .result = {&setOf<Prism9>, nullptr}},
    {.nodes = 12, .result = {&setOf<Prism12>, &setOf<Prism12>}},
    {.nodes = 15, .result = {&setOf<Prism15>, &setOf<Prism15>}},
    {.nodes = 18, .with = shp_keyCylindrical, .result = {&setOf<Prism18Cyl>, &setOf<Prism18Cyl>}},
    {.nodes = 18, .result = {&setOf<Prism18>, &setOf<Prism18>}},
};

constexpr shp_Choice<shp_BodyOperator> prismBodyOperators[] = {
    {.nodes = 6, .result = PrismBodyOp},
};

} // namespace

shp_SetPair shp_prismSets(shp_Options const & options) {
    return shp_firstFit(prismSets, options);
}

shp_ShapeFunction const * shp_PrismInterpTables::getNdFuncPtrTblPtr(shp_Options const & options) {
    return shp_functionsOf(shp_prismSets(options).values);
}

shp_ShapeFunction const * shp_PrismInterpTables::getdUdGHRFuncPtrTblPtr(shp_Options const & options, int direction) {
    return shp_derivativesOf(shp_prismSets(options).derivatives, direction);
}

shp_BodyOperator shp_PrismInterpTables::getBodyOpPtr(shp_Options const & options) {
    return shp_firstFit(prismBodyOperators, options);
}
