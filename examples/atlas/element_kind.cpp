#include "element_kind.h"

#include <cctype>

namespace {

using Shape = shp_Topology const &;

/// The flags that readers look for; first those that the pictures show.
constexpr ElementFlag flags[] = {
    {"infinite", "infinite", [](Shape s) { return isInfinite(s); }},
    {"gasket", "gasket", [](Shape s) { return s.isGasket; }},
    {"cohesive", "cohesive", [](Shape s) { return s.isCohesive; }},
    {"cylindrical", "cylindrical", [](Shape s) { return s.isCylindrical; }},
    {"planes", "several planes around an axis", [](Shape s) { return s.isCaxaElement; }},
    {"layered", "layered solid", [](Shape s) { return s.isLayeredSolid; }},
    {"continuumshell", "continuum shell", [](Shape s) { return s.isContinuumShell; }},
    {"shell", "shell or membrane", [](Shape s) { return s.Is3DShell(); }},
    {"axisymmetric", "axisymmetric", [](Shape s) { return s.isAxiSymmetric; }},
    {"twisted", "twisted", [](Shape s) { return s.isTwistedElement; }},
    {"modified", "modified", [](Shape s) { return s.options.IsType(shp_keyModified); }},
    {"nodal", "points at the nodes", [](Shape s) { return s.options.IsType(shp_keyNodalIntegration); }},
    {"nodalweighted", "weighted by nodes", [](Shape s) { return s.isNodalWeighted; }},
    {"lumped", "corner-lumped", [](Shape s) { return s.options.IsType(shp_keyCornerLumped); }},
    {"pipesoil", "pipe-soil", [](Shape s) { return s.options.IsType(shp_keyPipeSoil); }},
    {"frame", "frame", [](Shape s) { return s.options.IsType(shp_keyFrame); }},
    {"fluidpipe", "thermal fluid pipe", [](Shape s) { return s.isFluidpipeThermal; }},
    {"annulus", "thermal fluid pipe with annulus", [](Shape s) { return s.isFluidpipeAnnulusThermal; }},
    {"rigid", "rigid", [](Shape s) { return s.isRigid; }},
    {"surface", "surface", [](Shape s) { return s.isSurface; }},
    {"analytical", "analytical rigid surface", [](Shape s) { return s.isAnalyticalRigidSurface; }},
    {"internal", "internal", [](Shape s) { return s.isInternal; }},
    {"interaction", "interaction", [](Shape s) { return s.isInteraction; }},
    {"noresults", "without results", [](Shape s) { return !s.hasResults; }},
    {"sweepable", "can be swept around an axis", [](Shape s) { return s.isSweepable; }},
    {"extrudable", "can be given a thickness", [](Shape s) { return s.isExtrudable; }},
};

constexpr ElementFamily families[] = {
    {shp_keyHex, "hexahedron", "hexahedron", "Hexahedra"},
    {shp_keyPrism, "prism", "prism", "Prisms"},
    {shp_keyPyramid, "pyramid", "pyramid", "Pyramids"},
    {shp_keyTetra, "tetrahedron", "tetrahedron", "Tetrahedra"},
    {shp_keyQuad, "quadrilateral", "quadrilateral", "Quadrilaterals"},
    {shp_keyTri, "triangle", "triangle", "Triangles"},
    {shp_keyLine, "line", "line", "Lines"},
    {shp_keyPoint, "point", "point", "Points"},
    {shp_keyARS, "rigidsurface", "analytic rigid surface", "Analytic rigid surfaces"},
};

constexpr std::size_t numPicturedFlags = 7;

} // namespace

std::span<ElementFlag const> elementFlags() {
    return flags;
}

std::span<ElementFamily const> elementFamilies() {
    return families;
}

ElementFamily const & familyOf(shp_Topology const & shape) {
    for (ElementFamily const & family : families)
        if (family.shape == shape.options.Shape())
            return family;
    return families[0];
}

std::string countOf(int count, char const * noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string describe(shp_Topology const & shape) {
    std::string text = familyOf(shape).one;
    text[0] = static_cast<char>(std::toupper(text[0]));
    if (shape.isCaxaElement)
        text += " in " + countOf(shape.options.Mode() + 1, "plane");
    text += ", " + countOf(shape.numNodesPerElem, "node") + ", " + countOf(shape.numIntPtsPerElem, "integration point");
    for (ElementFlag const & flag : elementFlags().first(numPicturedFlags))
        if (flag.holds(shape) && !shape.isCaxaElement)
            text += std::string(", ") + flag.text;
    if (shape.isLayeredSolid)
        text += std::string(" stacked along ") + coordinateName(shape.options.Mode() - 1);
    return text;
}

char const * coordinateName(int coordinate) {
    constexpr char const * names[] = {"g", "h", "r"};
    return names[coordinate];
}
