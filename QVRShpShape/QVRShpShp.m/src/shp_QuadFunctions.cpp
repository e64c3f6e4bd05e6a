#include "shp_QuadInterpTables.h"

#include "shp_BodyOperators.h"
#include "shp_DecisionList.h"
#include "shp_FamilySets.h"
#include "shp_ShapeSets.h"

using namespace shp_shape;

namespace {

constexpr shp_Choice<shp_SetPair> quadSets[] = {
    {.nodes = 4, .with = shp_keyInfinite, .result = {&setOf<QuadInfinite4>, &setOf<QuadInfinite4>}},
    {.nodes = 4, .with = shp_keyGasket, .result = {&setOf<QuadGasket4>, &setOf<QuadGasket4>}},
    {.nodes = 4, .with = shp_keyCohesive, .result = {&setOf<QuadCohesive4>, &setOf<Quad4>}},
    {.nodes = 4, .result = {&setOf<Quad4>, &setOf<Quad4>}},
    {.nodes = 5, .result = {&setOf<QuadInfinite5>, &setOf<QuadInfinite5>}},
    {.nodes = 6, .with = shp_keyGasket, .result = {&setOf<QuadGasket6>, &setOf<QuadGasket6>}},
    {.nodes = 6, .with = shp_keyPipeSoil, .result = {&setOf<QuadPipeSoil6>, nullptr}},
    {.nodes = 6, .with = shp_keyCohesive, .result = {&setOf<QuadCohesive6>, nullptr}},
    {.nodes = 6, .with = shp_keyCylindrical, .result = {&setOf<Quad6>, &setOf<Quad6>}},
    {.nodes = 6, .result = {&setOf<Quad6>, nullptr}},
    {.nodes = 8, .result = {&setOf<Quad8>, &setOf<Quad8>}},
    {.nodes = 9, .result = {&setOf<Quad9>, &setOf<Quad9>}},
};

constexpr shp_Choice<shp_BodyOperator> quadBodyOperators[] = {
    {.nodes = 4, .with = shp_keyAxisymmetric, .result = QuadAxiBodyOp},
    {.nodes = 4, .result = QuadBodyOp},
};

} // namespace

shp_SetPair shp_quadSets(shp_Options const & options) {
    return shp_firstFit(quadSets, options);
}

shp_ShapeFunction const * shp_QuadInterpTables::getNdFuncPtrTblPtr(shp_Options const & options) {
    return shp_functionsOf(shp_quadSets(options).values);
}

shp_ShapeFunction const * shp_QuadInterpTables::getdUdGHRFuncPtrTblPtr(shp_Options const & options, int direction) {
    return shp_derivativesOf(shp_quadSets(options).derivatives, direction);
}

shp_BodyOperator shp_QuadInterpTables::getBodyOpPtr(shp_Options const & options) {
    return shp_firstFit(quadBodyOperators, options);
}
