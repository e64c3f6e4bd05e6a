// Keys of the catalogue with bits toggled that choose no table: the shape that they build is the label's own.

#include "input.h"

#include "shp_KeyBit.h"

#include <algorithm>
#include <iterator>

namespace {

struct BitRange {
    unsigned int first;
    unsigned int last;
};

/// Bits that no table choice and no count looks at.
constexpr BitRange freeBits[] = {
    {shp_keyZero, shp_keyZero},
    {24, 29}, // unused
    {45, 49}, // unused
    {shp_keyLineInPlane, shp_keyLineInPlane},
    {shp_keyArsSegments, shp_keyArsCylinder},
    {shp_keyTwisted, shp_keyInteraction}, // with rigid, internal, surface, without results
    {shp_keyPlane, shp_keyPlane},
    {shp_keyContinuumShell, shp_keyContinuumShell},
    {shp_keyUnassigned73, shp_keyUnassigned73},
    {77, 79},                    // unused
    {82, 89},                    // unused
    {94, 99},                    // unused
    {100, 112},                  // element class
    {113, LongKey::numBits - 1}, // unused
};

/// Groups of which the lowest bit counts: the ones above it are free.
constexpr BitRange countedBits[] = {
    {shp_keyPoint, shp_keyPyramid},
    {shp_keyIntPts1, shp_keyIntPts11},
    {shp_keyNodes1, shp_keyNodes27},
    {shp_keyMode1, shp_keyMode4},
};

bool isInside(BitRange const & range, unsigned int bit) {
    return range.first <= bit && bit <= range.last;
}

bool isFree(LongKey const & key, unsigned int bit) {
    if (std::any_of(std::begin(freeBits), std::end(freeBits),
                    [=](BitRange const & range) { return isInside(range, bit); }))
        return true;
    // Modes count for elements in several planes and for layered solids alone.
    if (isInside({shp_keyMode1, shp_keyMode4}, bit) && !key.hasBit(shp_keyCaxa) && !key.hasBit(shp_keyLayeredSolid))
        return true;
    for (BitRange const & group : countedBits)
        if (isInside(group, bit))
            for (unsigned int lower = group.first; lower < bit; ++lower)
                if (key.hasBit(lower))
                    return true;
    return false;
}

LongKey toggled(LongKey const & key, unsigned int bit) {
    LongKey other;
    for (unsigned int i = 0; i < LongKey::numBits; ++i)
        if (key.hasBit(i) != (i == bit))
            other.setBits(1, &i);
    return other;
}

constexpr int shp_Topology::*numbers[] = {
    &shp_Topology::numGeometryDimensions, &shp_Topology::numSpatialDimensions, &shp_Topology::numNodesPerElem,
    &shp_Topology::numIntPtsPerElem,      &shp_Topology::numFacesPerElem,      &shp_Topology::numFaceTriangles,
    &shp_Topology::maxEdgesPerFace,       &shp_Topology::maxNodesPerFace,      &shp_Topology::maxNodesPerEdge,
    &shp_Topology::maxIntPtsPerFace,      &shp_Topology::baseNodesPerElem,     &shp_Topology::baseIntPtsPerElem,
    &shp_Topology::interpolationOrder,    &shp_Topology::interpolationClass,   &shp_Topology::numShapeFunctions,
    &shp_Topology::numDerivatives,
};

struct Flag {
    bool shp_Topology::*field;
    unsigned int bit;
};

/// What a toggled bit may change, and must.
constexpr Flag flags[] = {
    {&shp_Topology::isInteraction, shp_keyInteraction},
    {&shp_Topology::isInternal, shp_keyInternal},
    {&shp_Topology::isSurface, shp_keySurface},
    {&shp_Topology::isRigid, shp_keyRigid},
    {&shp_Topology::isAnalyticalRigidSurface, shp_keyARS},
    {&shp_Topology::isUnassigned73, shp_keyUnassigned73},
    {&shp_Topology::isTwistedElement, shp_keyTwisted},
    {&shp_Topology::isContinuumShell, shp_keyContinuumShell},
};

/// Constant tables are the same ones; own tables have the same contents.
bool sameTables(shp_Topology const & a, shp_Topology const & b) {
    bool const sameConstants =
        a.edgesPerFaceTbl == b.edgesPerFaceTbl && a.intPtsPerFaceTbl == b.intPtsPerFaceTbl &&
        a.baseNodesPerEdgeTbl == b.baseNodesPerEdgeTbl && a.baseNodesPerFaceTbl == b.baseNodesPerFaceTbl &&
        a.faceTriTbl == b.faceTriTbl && a.reverseConnTbl == b.reverseConnTbl && a.edgeMapTbl == b.edgeMapTbl &&
        a.cylCentroidWeights == b.cylCentroidWeights && a.centerLocation == b.centerLocation &&
        a.nodeLocationTable == b.nodeLocationTable && a.faceCenterLocationTable == b.faceCenterLocationTable &&
        a.shapeFunctions == b.shapeFunctions && a.dUdGFunctions == b.dUdGFunctions &&
        a.dUdHFunctions == b.dUdHFunctions && a.dUdRFunctions == b.dUdRFunctions;
    bool const sameWorkers = a.bodyOp == b.bodyOp && a.faceTangents == b.faceTangents &&
                             a.reverseFaceWorker == b.reverseFaceWorker && a.lineWorker == b.lineWorker &&
                             a.prepareCoords == b.prepareCoords && a.evaluateFunctions == b.evaluateFunctions &&
                             a.evaluateDerivatives == b.evaluateDerivatives;
    return sameConstants && sameWorkers;
}

template <class Number> bool sameTable(Number const * a, Number const * b, int entries) {
    return a == b || (a != nullptr && b != nullptr && std::equal(a, a + entries, b));
}

bool sameOwnTables(shp_Topology const & a, shp_Topology const & b) {
    int const nodes = a.baseNodesPerElem;
    int const points = a.baseIntPtsPerElem;
    int const centres = a.numSpatialDimensions == 2 ? a.maxEdgesPerFace : a.numFacesPerElem;
    bool const samePlanes = a.isCaxaElement
                                ? sameTable(a.edgeConnTbl, b.edgeConnTbl, a.maxEdgesPerFace * a.maxNodesPerEdge) &&
                                      sameTable(a.nodesPerEdgeTbl, b.nodesPerEdgeTbl, a.maxEdgesPerFace) &&
                                      sameTable(a.nodesPerFaceTbl, b.nodesPerFaceTbl, 1) &&
                                      sameTable(a.faceConnTbl, b.faceConnTbl, a.maxNodesPerFace)
                                : a.edgeConnTbl == b.edgeConnTbl && a.nodesPerEdgeTbl == b.nodesPerEdgeTbl &&
                                      a.nodesPerFaceTbl == b.nodesPerFaceTbl && a.faceConnTbl == b.faceConnTbl;
    bool const sameLayers = a.isLayeredSolid
                                ? sameTable(a.nodeWeights, b.nodeWeights, nodes * points) &&
                                      sameTable(a.faceWeights, b.faceWeights, a.numFacesPerElem * points) &&
                                      sameTable(a.intPtLocationTable, b.intPtLocationTable, 3 * points)
                                : a.nodeWeights == b.nodeWeights && a.faceWeights == b.faceWeights &&
                                      a.intPtLocationTable == b.intPtLocationTable;
    return samePlanes && sameLayers && sameTable(a.intPointNodeWeights, b.intPointNodeWeights, nodes * points) &&
           sameTable(a.faceCenterNodeWeights, b.faceCenterNodeWeights, nodes * centres);
}

bool sameInverse(shp_InverseTopoTable const & a, shp_InverseTopoTable const & b) {
    return a.nEdge == b.nEdge && a.nUniqueEdge == b.nUniqueEdge && a.nCorner == b.nCorner &&
           a.edgesMask == b.edgesMask && a.facesMask == b.facesMask && a.edgeTableSize == b.edgeTableSize &&
           sameTable(a.faceFromNodesTable, b.faceFromNodesTable, a.faceFromNodesSize);
}

void checkTopology(shp_Topology const & built, shp_Shape const & known, LongKey const & key) {
    char const * const label = known.label.CStr();
    require(std::all_of(std::begin(numbers), std::end(numbers),
                        [&](int shp_Topology::*number) { return built.*number == known.*number; }),
            "free bits change no count", label);
    require(sameTables(built, known), "free bits choose no table", label);
    require(sameOwnTables(built, known), "own tables have the same contents", label);
    require(std::all_of(std::begin(flags), std::end(flags),
                        [&](Flag const & flag) { return built.*flag.field == key.hasBit(flag.bit); }),
            "a flag says what its bit says", label);
    require(!built.isSweepable || !built.isExtrudable, "a section is swept or extruded", label);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    Input input(data, size);
    shp_Shape const & known = *allShapes()[input.below(allShapes().size())];
    char const * const label = known.label.CStr();
    LongKey key = *static_cast<LongKey const *>(dictionary().Keys().ConstGet(label));
    for (int count = input.byte() % 16; count > 0; --count) {
        unsigned int const bit = input.byte() % LongKey::numBits;
        if (isFree(key, bit))
            key = toggled(key, bit);
    }

    checkTopology(shp_Topology(key), known, key);
    // The inverse tables take most of the time.
    if (input.byte() % 64 == 0)
        require(sameInverse(shp_Shape(label, key), known), "inverse tables are the same", label);
    return 0;
}
