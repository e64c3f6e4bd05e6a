#ifndef table_digests_h
#define table_digests_h

// All that a label's shape holds in tables, a number for each kind of table: to see whether any entry has changed.

#include "shp_InterpolationTables.h"
#include "shp_Shape.h"
#include "uti_CoordCont3D.h"

#include <algorithm>
#include <bit>
#include <concepts>
#include <cstdint>
#include <map>
#include <string>

/// A number made of the bits of others, in their order.
class Digest {
public:
    template <std::integral Number> void add(Number number) { mix(static_cast<std::uint64_t>(number)); }
    void add(float number) { mix(std::bit_cast<std::uint32_t>(number)); }
    template <class Number> void add(Number const * table, int count) {
        mix(table ? 1 : 0);
        for (int i = 0; table && i < count; ++i)
            add(table[i]);
    }
    std::uint64_t value() const { return state; }

private:
    void mix(std::uint64_t word) { state = std::rotl((state ^ word) * 0x9e3779b97f4a7c15u, 29); }

    std::uint64_t state = 0;
};

using TableDigests = std::map<std::string, Digest>;

/// Every slot of every constant table, as far as the table's shape says, filler included.
inline void addTables(TableDigests & digests, shp_Shape const & s) {
    int const faces = s.numFacesPerElem, nodes = s.baseNodesPerElem, points = s.baseIntPtsPerElem;
    int const edgeSlots = faces * s.maxEdgesPerFace;
    bool const hasEdgeCentres = s.numSpatialDimensions == 2 && s.numGeometryDimensions == 2;
    int const centres = hasEdgeCentres ? s.edgesPerFaceTbl[0] : faces;
    constexpr int edgesOfFamily[] = {0, 4, 4, 4, 4, 6, 12, 9, 4, 8};

    for (int number :
         {s.numGeometryDimensions, s.numSpatialDimensions, s.numNodesPerElem, s.numIntPtsPerElem, s.numFacesPerElem,
          s.numFaceTriangles, s.maxEdgesPerFace, s.maxNodesPerFace, s.maxNodesPerEdge, s.maxIntPtsPerFace,
          s.interpolationOrder, s.interpolationClass, s.numShapeFunctions, s.numDerivatives, s.options.Shape(),
          s.options.NumNodes(), s.options.NumIntPnts(), s.options.Mode()})
        digests["numbers"].add(number);
    for (bool flag : {s.isTwistedElement,   s.isContinuumShell,
                      s.isGasket,           s.isCohesive,
                      s.isCylindrical,      s.isRigid,
                      s.hasResults,         s.isAnalyticalRigidSurface,
                      s.isFluidpipeThermal, s.isFluidpipeAnnulusThermal,
                      s.isUnassigned73,     s.isInteraction,
                      s.isNodalWeighted,    s.isAxiSymmetric,
                      s.isSweepable,        s.isExtrudable,
                      s.isCaxaElement,      s.isLayeredSolid,
                      s.hasDerivatives,     s.Is3DShell()})
        digests["flags"].add(flag);
    for (int i = 0; i < s.label.Length(); ++i)
        digests["keys"].add(s.label.CStr()[i]);
    for (int bit = 0; bit < 128; ++bit)
        digests["keys"].add(s.options.IsType(bit));
    digests["nodes of edges"].add(s.baseNodesPerEdgeTbl, edgeSlots);
    digests["nodes of edges"].add(s.nodesPerEdgeTbl, edgeSlots);
    digests["edges of faces"].add(s.edgesPerFaceTbl, faces);
    digests["nodes of faces"].add(s.baseNodesPerFaceTbl, faces);
    digests["nodes of faces"].add(s.nodesPerFaceTbl, faces);
    digests["points of faces"].add(s.intPtsPerFaceTbl, faces);
    digests["face connectivity"].add(s.faceConnTbl, faces * s.maxNodesPerFace);
    digests["edge connectivity"].add(s.edgeConnTbl, edgeSlots * s.maxNodesPerEdge);
    digests["triangles"].add(s.faceTriTbl, 3 * s.numFaceTriangles);
    digests["reversal"].add(s.reverseConnTbl, nodes);
    digests["edge map"].add(s.edgeMapTbl, 2 * edgesOfFamily[s.options.Shape()]);
    digests["node weights"].add(s.nodeWeights, nodes * points);
    digests["face weights"].add(s.faceWeights, (s.numGeometryDimensions < 3 ? 1 : faces) * points);
    digests["centroid weights"].add(s.cylCentroidWeights, s.cylCentroidWeights ? s.numIntPtsPerElem : 0);
    digests["integration points"].add(s.intPtLocationTable, 3 * points);
    digests["centres"].add(s.centerLocation, 3);
    digests["node locations"].add(s.nodeLocationTable, 3 * nodes);
    digests["face centres"].add(s.faceCenterLocationTable, 3 * centres);

    uti_CoordCont3D coords;
    for (int i = 0; i < 12; ++i)
        coords.SetCoord(i, static_cast<float>(i * i), static_cast<float>(3 * i * i % 17), static_cast<float>(i % 5));
    for (int face = 0; face < faces; ++face) {
        digests["face node weights"].add(shp_InterpolationTables::getFacialNdWghtTblPtr(s.options, face),
                                         s.BaseNodesPerFace(face) * s.intPtsPerFaceTbl[face]);
        float first[3] = {}, second[3] = {};
        s.faceTangents(coords, static_cast<unsigned int>(face), first, second);
        digests["tangents"].add(first, 3);
        digests["tangents"].add(second, 3);
    }
}

#endif
