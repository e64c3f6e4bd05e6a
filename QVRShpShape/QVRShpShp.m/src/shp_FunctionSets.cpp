#include "shp_DecisionList.h"
#include "shp_FamilySets.h"
#include "shp_HexInterpTables.h"
#include "shp_InterpolationTables.h"
#include "shp_PrismInterpTables.h"
#include "shp_QuadInterpTables.h"
#include "shp_ShapeSets.h"
#include "shp_TetraInterpTables.h"
#include "shp_TriInterpTables.h"

#include <iterator>

using namespace shp_shape;

namespace {

using FamilySets = shp_SetPair (*)(shp_Options const &);

constexpr shp_Choice<FamilySets> setsByShape[] = {
    {.shape = {shp_keyPoint, shp_keyARS}, .result = shp_pointSets},
    {.shape = shp_keyLine, .result = shp_lineSets},
    {.shape = shp_keyTri, .result = shp_triSets},
    {.shape = shp_keyQuad, .result = shp_quadSets},
    {.shape = shp_keyTetra, .result = shp_tetraSets},
    {.shape = shp_keyHex, .result = shp_hexSets},
    {.shape = shp_keyPrism, .result = shp_prismSets},
    {.shape = shp_keyPyramid, .result = shp_pyramidSets},
};

shp_SetPair setsOfShape(shp_Options const & options) {
    FamilySets const ofFamily = shp_firstFit(setsByShape, options);
    return ofFamily != nullptr ? ofFamily(options) : shp_SetPair{};
}

using FamilyBodyOperator = shp_BodyOperator (*)(shp_Options const &);

/// Points, lines and pyramids have none.
constexpr shp_Choice<FamilyBodyOperator> bodyOperatorsByShape[] = {
    {.shape = shp_keyHex, .result = shp_HexInterpTables::getBodyOpPtr},
    {.shape = shp_keyPrism, .result = shp_PrismInterpTables::getBodyOpPtr},
    {.shape = shp_keyTetra, .result = shp_TetraInterpTables::getBodyOpPtr},
    {.shape = shp_keyQuad, .result = shp_QuadInterpTables::getBodyOpPtr},
    {.shape = shp_keyTri, .result = shp_TriInterpTables::getBodyOpPtr},
};

constexpr shp_Choice<shp_SetPair> lineSets[] = {
    {.nodes = 2, .result = {&setOf<Line2>, &setOf<Line2>}},
    {.result = {&setOf<Line3>, &setOf<Line3>}},
};

template <class Sets> struct PointersTo;
template <class... Of> struct PointersTo<SetList<Of...>> {
    static constexpr shp_FunctionSet const * all[] = {&setOf<Of>...};
};

} // namespace

shp_SetPair shp_pointSets(shp_Options const &) {
    return {&setOf<Point1>, nullptr};
}

shp_SetPair shp_lineSets(shp_Options const & options) {
    return shp_firstFit(lineSets, options);
}

shp_SetPair shp_pyramidSets(shp_Options const &) {
    return {&setOf<Pyramid5>, &setOf<Pyramid5>};
}

shp_FunctionSet const * shp_valueSet(shp_Options const & options) {
    return setsOfShape(options).values;
}

shp_FunctionSet const * shp_derivativeSet(shp_Options const & options) {
    return setsOfShape(options).derivatives;
}

shp_FunctionSetList shp_allFunctionSets() {
    using Sets = PointersTo<AllSets>;
    return {Sets::all, static_cast<int>(std::size(Sets::all))};
}

shp_ShapeFunction const * shp_functionsOf(shp_FunctionSet const * set) {
    return set != nullptr ? set->functions : nullptr;
}

shp_ShapeFunction const * shp_derivativesOf(shp_FunctionSet const * set, int direction) {
    if (set == nullptr)
        return nullptr;
    // A line has one array, and hands it out for every direction.
    return set->directions == 1 ? set->derivatives : set->derivatives + direction * set->count;
}

shp_ShapeFunction const * shp_InterpolationTables::getNdFuncPtrTblPtr(shp_Options const & options) {
    return shp_functionsOf(shp_valueSet(options));
}

shp_ShapeFunction const * shp_InterpolationTables::getdUdGHRFuncPtrTblPtr(shp_Options const & options, int direction) {
    return shp_derivativesOf(shp_derivativeSet(options), direction);
}

shp_BodyOperator shp_InterpolationTables::getBodyOpPtr(shp_Options const & options) {
    FamilyBodyOperator const ofFamily = shp_firstFit(bodyOperatorsByShape, options);
    return ofFamily != nullptr ? ofFamily(options) : nullptr;
}
