#include "shp_HexInterpTables.h"

#include "shp_BodyOperators.h"
#include "shp_DecisionList.h"
#include "shp_FamilySets.h"
#include "shp_ShapeSets.h"

using namespace shp_shape;

namespace {

constexpr shp_Choice<shp_SetPair> hexSets[] = {
    {.nodes = 8, .with = shp_keyInfinite, .result = {&setOf<HexInfinite8>, &setOf<HexInfinite8>}},
    {.nodes = 12, .with = shp_keyInfinite, .result = {&setOf<HexInfinite12>, &setOf<HexInfinite12>}},
    {.with = shp_keyInfinite, .result = {&setOf<HexInfinite18>, &setOf<HexInfinite18>}},
    {.nodes = 18, .with = shp_keyGasket, .result = {&setOf<HexGasket18>, &setOf<HexGasket18>}},
    {.nodes = 8, .with = shp_keyCohesive, .result = {&setOf<Hex8>, &setOf<Hex8>}},
    {.with = shp_keyCohesive, .result = {&setOf<Hex12>, nullptr}},
    {.nodes = 12, .with = shp_keyCylindrical, .result = {&setOf<Hex12>, &setOf<Hex12>}},
    {.with = shp_keyCylindrical, .result = {&setOf<Hex24>, &setOf<Hex24>}},
    {.nodes = 8, .result = {&setOf<Hex8>, &setOf<Hex8>}},
    {.nodes = 20, .result = {&setOf<Hex20>, &setOf<Hex20>}},
    {.result = {&setOf<Hex27>, &setOf<Hex27>}},
};

constexpr shp_Choice<shp_BodyOperator> hexBodyOperators[] = {
    {.nodes = 8, .result = HexBodyOp},
};

} // namespace

shp_SetPair shp_hexSets(shp_Options const & options) {
    return shp_firstFit(hexSets, options);
}

shp_ShapeFunction const * shp_HexInterpTables::getNdFuncPtrTblPtr(shp_Options const & options) {
    return shp_functionsOf(shp_hexSets(options).values);
}

shp_ShapeFunction const * shp_HexInterpTables::getdUdGHRFuncPtrTblPtr(shp_Options const & options, int direction) {
    return shp_derivativesOf(shp_hexSets(options).derivatives, direction);
}

shp_BodyOperator shp_HexInterpTables::getBodyOpPtr(shp_Options const & options) {
    return shp_firstFit(hexBodyOperators, options);
}
