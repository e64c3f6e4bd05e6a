#include "element_choice.h"

#include <shp_KeyBit.h>

namespace {

/// A property of the key, and what is wrong with it here.
struct Objection {
    shp_KeyBit bit;
    char const * reason;
};

constexpr Objection objections[] = {
    {shp_keyNoResults, "has no results"},
    {shp_keyPoint, "is a point, and fills neither a volume nor a section"},
    {shp_keyLine, "is a line, and fills neither a volume nor a section"},
    {shp_keyARS, "is an analytic rigid surface, and fills neither a volume nor a section"},
    {shp_keyPyramid, "is a pyramid, and the cells of this mesh are not divided into pyramids"},
    {shp_keyGasket, "is a gasket, whose results stand on its middle surface alone"},
    {shp_keyInfinite, "is an infinite element, and this wall ends at its outer radius"},
    {shp_keyCylindrical, "is a cylindrical element, made to span a wide arc by itself"},
    {shp_keyCohesive, "is a cohesive element, whose results stand on its middle surface alone"},
    {shp_keyLayeredSolid, "is a layered solid, whose integration points are those of one layer"},
    {shp_keyCaxa, "stands in several planes around its axis, and this mesh has one section"},
    {shp_keyPipeSoil, "is a pipe-soil element, whose results stand along the pipe alone"},
    {shp_keyInternal, "is internal to the suite and carries no stress"},
    {shp_keyInteraction, "is an interaction and carries no stress"},
    {shp_keyRigid, "is rigid and carries no stress"}};

} // namespace

std::string reasonAgainst(shp_Topology const & shape) {
    for (Objection const & objection : objections)
        if (shape.options.IsType(objection.bit))
            return objection.reason;
    if (shape.Is3DShell())
        return "is a surface in space, and fills neither a volume nor a section";
    if (!shape.nodeWeights || !shape.nodeLocationTable || !shape.intPtLocationTable || !shape.shapeFunctions)
        return "has no weights that carry values from its integration points to its nodes";
    return {};
}
