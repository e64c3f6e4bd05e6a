// Counts, flags and tables of shp_Topology, and the tables that it makes for itself.

#include "omi_BtreeIterator.h"
#include "shp_InterpolationTables.h"
#include "shp_KeyBit.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"
#include "uti_CoordCont3D.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <map>
#include <numeric>
#include <string>
#include <vector>

namespace {

shp_ShapeDictionary & dictionary() {
    return omi_Singleton<shp_ShapeDictionary>::Instance();
}

shp_Shape const & shapeOf(char const * label) {
    return *dictionary().GetShape(label);
}

template <class Check> void forEachLabel(Check check) {
    omi_BtreeIterator<cow_String, void *> labels(dictionary().Keys());
    for (bool isLabel = labels.First(); isLabel; isLabel = labels.Next()) {
        SCOPED_TRACE(labels.CurrentKey().CStr());
        check(*dictionary().GetShape(labels.CurrentKey()));
    }
}

LongKey keyOf(std::initializer_list<unsigned int> bits) {
    LongKey key;
    key.setBits(static_cast<unsigned int>(bits.size()), bits.begin());
    return key;
}

std::vector<float> rowOf(float const * table, int row, int width) {
    return {table + row * width, table + (row + 1) * width};
}

std::vector<float> functionsAt(shp_Topology const & t, float const * iso) {
    std::vector<float> values;
    for (int i = 0; i < t.BaseNodesPerElem(); ++i)
        values.push_back(t.shapeFuncValue(i, iso[0], iso[1], iso[2]));
    return values;
}

std::vector<int> identity(int length) {
    std::vector<int> list(static_cast<std::size_t>(length));
    std::iota(list.begin(), list.end(), 0);
    return list;
}

std::vector<int> edgeOf(shp_Topology const & t, int edge) {
    std::vector<int> nodes(static_cast<std::size_t>(t.NumNodesPerEdge(0, edge)));
    t.EdgeConnectivity(identity(t.NumNodesPerElem()).data(), 0, edge, nodes.data());
    return nodes;
}

/// The same element type in one plane: its key without the bit for several planes and without a mode.
shp_Topology onePlaneOf(shp_Topology const & caxa) {
    LongKey key;
    for (unsigned int bit = 0; bit < LongKey::numBits; ++bit)
        if (bit != shp_keyCaxa && (bit < shp_keyMode1 || bit > shp_keyMode4) &&
            caxa.options.IsType(static_cast<int>(bit)))
            key.setBits(1, &bit);
    return shp_Topology(key);
}

} // namespace

TEST(TopologyNumbers, GoTogether) {
    forEachLabel([](shp_Topology const & t) {
        int const planes = t.isCaxaElement ? t.options.Mode() + 1 : 1;
        int const pointsPerPlane = t.isCaxaElement ? 2 * planes : 1;
        int const pipeNodes = t.isFluidpipeAnnulusThermal ? 8 : t.isFluidpipeThermal ? 6 : 0;
        EXPECT_EQ(t.NumNodesPerElem(), pipeNodes ? pipeNodes : t.BaseNodesPerElem() * planes);
        EXPECT_EQ(t.numIntPtsPerElem, t.BaseIntPtsPerElem() * pointsPerPlane);
        EXPECT_EQ(t.NumSpatialDimensions(), t.options.IsType(shp_key3D) ? 3 : 2);
        EXPECT_EQ(t.Is3DShell(), t.options.IsType(shp_key3D) && (t.options.Shape() == 3 || t.options.Shape() == 4));
        EXPECT_FALSE(t.isSweepable && t.isExtrudable);
        EXPECT_EQ(t.hasDerivatives, t.dUdGFunctions != nullptr);
        EXPECT_EQ(t.dUdHFunctions != nullptr, t.hasDerivatives && t.NumGeometryDimensions() >= 2);
        EXPECT_EQ(t.dUdRFunctions != nullptr, t.hasDerivatives && t.NumGeometryDimensions() == 3);
        EXPECT_NE(t.evaluateFunctions, nullptr);
        EXPECT_EQ(t.evaluateDerivatives != nullptr, t.hasDerivatives);
        for (int face = 0; face < t.NumFacesPerElem(); ++face) {
            EXPECT_LE(t.NumNodesPerFace(face), t.maxNodesPerFace);
            EXPECT_LE(t.NumEdgesPerFace(face), t.maxEdgesPerFace);
            for (int edge = 0; edge < t.NumEdgesPerFace(face); ++edge)
                EXPECT_LE(t.NumNodesPerEdge(face, edge), t.maxNodesPerEdge);
        }
    });
}

TEST(TopologyNumbers, OfNodalIntegrationCountNodesNotPoints) {
    EXPECT_EQ(shapeOf("ISL31").BaseIntPtsPerElem(), 2); // its key says 3 points
    EXPECT_EQ(shapeOf("ISL31").options.NumIntPnts(), 3);
    EXPECT_EQ(shapeOf("DC3D6").BaseIntPtsPerElem(), 6);
}

TEST(TopologyNumbers, OfTheLargestIntegrationPointCountFollowTheModelNotTheTable) {
    EXPECT_EQ(shapeOf("CPS4").maxIntPtsPerFace, 2);
    EXPECT_EQ(shapeOf("S4").maxIntPtsPerFace, 4);
    EXPECT_EQ(shapeOf("STRI3").maxIntPtsPerFace, 1);
    EXPECT_EQ(shapeOf("CINPS4").maxEdgesPerFace, 3);
    EXPECT_EQ(shapeOf("CCL24").interpolationOrder, 3);
    EXPECT_EQ(shapeOf("MCL6").interpolationOrder, 3);
    EXPECT_EQ(shapeOf("CCL18").interpolationOrder, 3);
    EXPECT_EQ(shapeOf("C3D15V").interpolationOrder, 2);
}

// Midside nodes make an element second-order, and third-order where it is cylindrical or a cohesive solid.
TEST(TopologyNumbers, OrderFollowsTheEdgesAndClassShapeAndOrder) {
    std::map<int, std::vector<int>> const classes = {
        // shape: first order, second and third
        {shp_keyPoint, {0}},  {shp_keyARS, {0}},        {shp_keyLine, {1, 2}},
        {shp_keyTri, {3, 4}}, {shp_keyQuad, {5, 6}},    {shp_keyTetra, {12, 13}},
        {shp_keyHex, {8, 9}}, {shp_keyPrism, {10, 11}}, {shp_keyPyramid, {14}},
    };
    forEachLabel([&](shp_Topology const & t) {
        bool hasMidsides = false;
        for (int face = 0; face < t.NumFacesPerElem(); ++face)
            for (int edge = 0; edge < t.NumEdgesPerFace(face); ++edge)
                hasMidsides |= t.BaseNodesPerEdge(face, edge) > 2;
        bool const isThird = t.isCylindrical || (t.isCohesive && t.NumGeometryDimensions() == 3);
        EXPECT_EQ(t.interpolationOrder, !hasMidsides ? 1 : isThird ? 3 : 2);
        bool const isNineNodeQuad = t.options.Shape() == shp_keyQuad && t.BaseNodesPerElem() == 9;
        EXPECT_EQ(t.interpolationClass, isNineNodeQuad ? 7 : classes.at(t.options.Shape())[hasMidsides ? 1u : 0u]);
    });
}

TEST(TopologyFlags, GoWithTheLabel) {
    omi_BtreeIterator<cow_String, void *> labels(dictionary().Keys());
    for (bool isLabel = labels.First(); isLabel; isLabel = labels.Next()) {
        std::string const label = labels.CurrentKey().CStr();
        SCOPED_TRACE(label);
        shp_Topology const & t = shapeOf(label.c_str());
        auto const beginsWith = [&](char const * text) { return label.starts_with(text); };
        auto const contains = [&](char const * text) { return label.find(text) != std::string::npos; };
        bool const isThermalPipe = beginsWith("FP") && (label.ends_with('T') || label.ends_with('Q'));
        EXPECT_EQ(t.isTwistedElement, contains("GAX"));
        EXPECT_EQ(t.isContinuumShell, beginsWith("SC"));
        EXPECT_EQ(t.isGasket, beginsWith("GK") || label == "LS6" || label == "USI6O");
        EXPECT_EQ(t.isCohesive, beginsWith("COH") || beginsWith("COD"));
        EXPECT_EQ(t.isCylindrical,
                  beginsWith("CCL") || beginsWith("MCL") || beginsWith("SFMCL") || label == "CYLSURF1");
        EXPECT_EQ(t.isRigid, beginsWith("R") && label != "ROTARYI");
        EXPECT_EQ(t.hasResults, !t.isRigid);
        EXPECT_EQ(t.isAnalyticalRigidSurface, beginsWith("ARS"));
        EXPECT_EQ(t.isFluidpipeThermal, isThermalPipe && !contains("A"));
        EXPECT_EQ(t.isFluidpipeAnnulusThermal, isThermalPipe && contains("A"));
        EXPECT_FALSE(t.isUnassigned73);
    }
    EXPECT_TRUE(shapeOf("SPRING2").isInteraction && shapeOf("R3D4").isInteraction);
    EXPECT_FALSE(shapeOf("ALE3D").isInteraction || shapeOf("ARSR").isInteraction);
    EXPECT_TRUE(shapeOf("DC3D8").isNodalWeighted && shapeOf("DC3D6").isNodalWeighted);
    EXPECT_FALSE(shapeOf("C3D8").isNodalWeighted);
}

TEST(TopologyFlags, TellHowASectionIsExpanded) {
    EXPECT_TRUE(shapeOf("CAX4").isSweepable);
    EXPECT_TRUE(shapeOf("CAXA42").isSweepable);
    EXPECT_TRUE(shapeOf("CPS4").isExtrudable);
    EXPECT_TRUE(shapeOf("LSURF1").isExtrudable); // a surface of a coupling keeps what other internal surfaces lose
    EXPECT_TRUE(shapeOf("ARSR").isSweepable);
    EXPECT_TRUE(shapeOf("ALEAXI").isSweepable); // internal, but no surface
    for (char const * label : {"S4", "C3D8", "AXIINT2"}) {
        EXPECT_FALSE(shapeOf(label).isSweepable) << label;
        EXPECT_FALSE(shapeOf(label).isExtrudable) << label;
    }
    EXPECT_TRUE(shapeOf("AXIINT2").isAxiSymmetric);
}

TEST(TopologyTables, AtFaceCentresAndIntegrationPointsHoldTheShapeFunctions) {
    shp_Topology const & twentyNodes = shapeOf("C3D20");
    forEachLabel([&](shp_Topology const & t) {
        int const nodes = t.BaseNodesPerElem();
        int const points = t.BaseIntPtsPerElem();
        int const faces = t.NumSpatialDimensions() == 2 ? t.maxEdgesPerFace : t.NumFacesPerElem();
        for (int face = 0; face < faces; ++face)
            EXPECT_EQ(rowOf(t.GetFcCenterNodeWeights(face), 0, nodes),
                      functionsAt(t, t.faceCenterLocationTable + 3 * face));
        if (points == 1) {
            EXPECT_EQ(rowOf(t.intPointNodeWeights, 0, nodes),
                      std::vector<float>(static_cast<std::size_t>(nodes), static_cast<float>(1.0 / nodes)));
            return;
        }
        shp_Topology const & functions = nodes == 27 ? twentyNodes : t;
        int const width = functions.BaseNodesPerElem();
        for (int point = 0; point < points; ++point)
            EXPECT_EQ(rowOf(t.intPointNodeWeights, point, width),
                      functionsAt(functions, t.intPtLocationTable + 3 * point));
        EXPECT_TRUE(std::all_of(t.intPointNodeWeights + points * width, t.intPointNodeWeights + points * nodes,
                                [](float rest) { return rest == 0; }));
    });
}

TEST(CaxaTables, RepeatOnePlaneUnderShiftedNodeNumbers) {
    int labels = 0;
    forEachLabel([&](shp_Topology const & t) {
        if (!t.isCaxaElement)
            return;
        ++labels;
        shp_Topology const plane = onePlaneOf(t);
        for (int edge = 0; edge < plane.NumEdgesPerFace(0); ++edge) {
            std::vector<int> expected;
            for (int k = 0; k <= t.options.Mode(); ++k)
                for (int node : edgeOf(plane, edge))
                    expected.push_back(node + k * plane.NumNodesPerElem());
            EXPECT_EQ(edgeOf(t, edge), expected) << "edge " << edge;
            EXPECT_EQ(t.BaseNodesPerEdge(0, edge), plane.NumNodesPerEdge(0, edge));
        }
        EXPECT_EQ(t.NumNodesPerFace(0), t.NumNodesPerElem());
        EXPECT_EQ(t.BaseNodesPerFace(0), plane.NumNodesPerFace(0));
        std::vector<int> const all = identity(t.NumNodesPerElem());
        std::vector<int> face(all.size());
        t.FaceConnectivity(all.data(), 0, face.data());
        EXPECT_EQ(face, all);
        EXPECT_EQ(t.nodeWeights, plane.nodeWeights);
        EXPECT_EQ(t.BaseNodesPerElem(), plane.NumNodesPerElem());
        EXPECT_EQ(t.BaseIntPtsPerElem(), plane.BaseIntPtsPerElem());
    });
    EXPECT_GT(labels, 0);
    EXPECT_EQ(shapeOf("CAXA42").NumNodesPerElem(), 12);
    EXPECT_EQ(shapeOf("CAXA42").numIntPtsPerElem, 24);
}

namespace {

/// A layered solid against its cross-section, by where the nodes and face centres lie.
struct LayeredSolid {
    shp_Topology const & solid;
    shp_Topology section;
    int stackAxis;
    std::vector<int> sides; ///< faces around the stacking direction, in the order in which they take node rows

    explicit LayeredSolid(shp_Topology const & t)
        : solid(t), section(sectionKey(t)), stackAxis(t.options.Shape() == shp_keyPrism ? 2 : t.options.Mode() - 1) {
        int const orderOfSides[3][4] = {{0, 4, 1, 2}, {0, 3, 1, 5}, {2, 3, 4, 5}};
        sides.assign(orderOfSides[stackAxis], orderOfSides[stackAxis] + (t.NumFacesPerElem() - 2));
    }

    static LongKey sectionKey(shp_Topology const & t) {
        bool const isPrism = t.options.Shape() == shp_keyPrism;
        unsigned int nodeBit = shp_keyNodes6;
        switch (t.NumNodesPerElem()) {
        case 6: nodeBit = shp_keyNodes3; break;
        case 8: nodeBit = shp_keyNodes4; break;
        case 20: nodeBit = shp_keyNodes8; break;
        case 27: nodeBit = shp_keyNodes9; break;
        default: break;
        }
        LongKey key = keyOf({isPrism ? unsigned{shp_keyTri} : unsigned{shp_keyQuad}, nodeBit, shp_key3D});
        for (unsigned int bit = shp_keyIntPts1; bit <= shp_keyIntPts11; ++bit)
            if (t.options.IsType(static_cast<int>(bit)))
                key.setBits(1, &bit);
        return key;
    }

    /// The section's node under a point of the solid: the first two of the other axes are the section's g and h.
    int sectionNodeUnder(float const * iso) const {
        float inPlane[2] = {};
        int numFound = 0;
        for (int axis = 0; axis < 3; ++axis)
            if (axis != stackAxis)
                inPlane[numFound++] = iso[axis];
        for (int node = 0; node < section.NumNodesPerElem(); ++node)
            if (std::equal(inPlane, inPlane + 2, section.nodeLocationTable + 3 * node))
                return node;
        return -1;
    }

    std::vector<float> nodeRow(int node) const { return rowOf(solid.nodeWeights, node, solid.numIntPtsPerElem); }
    std::vector<float> faceRow(int face) const { return rowOf(solid.faceWeights, face, solid.numIntPtsPerElem); }
    std::vector<float> sectionRow(int node) const { return rowOf(section.nodeWeights, node, solid.numIntPtsPerElem); }
    bool isCap(int face) const { return std::abs(solid.faceCenterLocationTable[3 * face + stackAxis]) == 1; }
};

std::vector<float> meanOf(std::vector<float> a, std::vector<float> const & b) {
    std::transform(a.begin(), a.end(), b.begin(), a.begin(), [](float x, float y) { return 0.5f * (x + y); });
    return a;
}

} // namespace

TEST(LayeredTables, CarryTheCrossSectionAlongTheStackingDirection) {
    int labels = 0;
    forEachLabel([&](shp_Topology const & t) {
        if (!t.isLayeredSolid)
            return;
        ++labels;
        LayeredSolid const layered(t);
        for (int node = 0; node < t.NumNodesPerElem(); ++node)
            EXPECT_EQ(layered.nodeRow(node),
                      layered.sectionRow(layered.sectionNodeUnder(t.nodeLocationTable + 3 * node)))
                << "node " << node;
        for (int point = 0; point < t.numIntPtsPerElem; ++point) {
            std::vector<float> location = rowOf(layered.section.intPtLocationTable, point, 3);
            std::rotate(location.begin() + layered.stackAxis, location.begin() + 2, location.end());
            EXPECT_EQ(rowOf(t.intPtLocationTable, point, 3), location) << "point " << point;
        }
        for (int face = 0; face < t.NumFacesPerElem(); ++face) {
            EXPECT_EQ(layered.isCap(face), !std::count(layered.sides.begin(), layered.sides.end(), face));
            if (layered.isCap(face)) {
                EXPECT_EQ(layered.faceRow(face),
                          rowOf(shp_InterpolationTables::getFcWghtTblPtr(t.options), 0, t.numIntPtsPerElem));
            }
        }
    });
    EXPECT_GT(labels, 0);
}

// The sides take rows of nodes 0, 1, ... of the solid wherever these lie. That is the mean over the side's own two
// corners for first-order solids stacked along r alone; the others keep rows that belong elsewhere.
TEST(LayeredTables, TakeSideRowsByNodeNumber) {
    forEachLabel([&](shp_Topology const & t) {
        if (!t.isLayeredSolid)
            return;
        LayeredSolid const layered(t);
        bool const isFirstOrder = t.NumNodesPerElem() == 6 || t.NumNodesPerElem() == 8;
        int const numSides = static_cast<int>(layered.sides.size());
        bool allOnTheSide = true;
        for (int side = 0; side < numSides; ++side) {
            int const face = layered.sides[static_cast<std::size_t>(side)];
            int const next = (side + 1) % numSides;
            EXPECT_EQ(layered.faceRow(face), isFirstOrder ? meanOf(layered.nodeRow(side), layered.nodeRow(next))
                                                          : layered.nodeRow(numSides + side));
            int const * const faceNodes = t.faceConnTbl + face * t.maxNodesPerFace;
            for (int node : {side, next})
                allOnTheSide &= isFirstOrder && std::count(faceNodes, faceNodes + t.NumNodesPerFace(face), node) == 1;
        }
        EXPECT_EQ(allOnTheSide, isFirstOrder && layered.stackAxis == 2);
    });
}

TEST(Reversal, OfAnElementUndoesItself) {
    forEachLabel([](shp_Topology const & t) {
        std::vector<int> const before = identity(t.BaseNodesPerElem());
        std::vector<int> conn = before;
        t.ReverseElemConnectivity(conn.data());
        std::vector<int> const reversed = conn;
        EXPECT_TRUE(std::is_permutation(reversed.begin(), reversed.end(), before.begin()));
        t.ReverseElemConnectivity(conn.data());
        EXPECT_EQ(conn, before);
        if (t.interpolationOrder != 1 && !(t.isGasket && t.options.NumNodes() == 6)) {
            t.ReverseFaceConnectivity(conn.data(), 0);
            EXPECT_EQ(conn, reversed);
        }
    });
}

TEST(Reversal, OfFacesAndEdgesFollowsTheElementType) {
    std::vector<int> face = {10, 11, 12, 13};
    shapeOf("C3D8").ReverseFaceConnectivity(face.data(), 2);
    EXPECT_EQ(face, (std::vector<int>{13, 12, 11, 10}));

    std::vector<int> prismFace = {10, 11, 12, 13};
    shapeOf("C3D6").ReverseFaceConnectivity(prismFace.data(), 0); // a triangle
    EXPECT_EQ(prismFace, (std::vector<int>{12, 11, 10, 13}));

    std::vector<int> gasket = {1, 2, 3, 4, 5, 6};
    shapeOf("GK3D6").ReverseFaceConnectivity(gasket.data(), 0);
    EXPECT_EQ(gasket, (std::vector<int>{2, 1, 4, 3, 5, 6}));

    std::vector<int> edge = {7, 8, 9};
    shapeOf("C3D20").ReverseEdgeConnectivity(edge.data(), 0, 0);
    EXPECT_EQ(edge, (std::vector<int>{9, 8, 7}));
    shapeOf("C3D6").ReverseEdgeConnectivity(edge.data(), 0, 3); // a triangle has no fourth edge
    EXPECT_EQ(edge, (std::vector<int>{9, 8, 7}));
}

TEST(HandMadeKeys, WithoutAShapeGiveAnEmptyTopology) {
    shp_Topology const t{LongKey()};
    EXPECT_EQ(t.NumGeometryDimensions(), 0);
    EXPECT_EQ(t.NumFacesPerElem(), 0);
    EXPECT_EQ(t.FaceTriangles(), nullptr);
    EXPECT_EQ(t.shapeFuncValue(3, 0, 0, 0), 0);
    g3d_Storage const corner(1, 2, 3);
    float iso[3] = {};
    EXPECT_EQ(t.InterpolatePointFromNodes(&corner, iso).X(), 0);
    EXPECT_EQ(t.ShapeFunctionJacobian(&corner, iso).GetM(0, 0), 1);
}

// Sets of functions with more or fewer functions than the element has nodes: as many as both have, and nothing is
// written past the nodes.
TEST(HandMadeKeys, WithAForeignSetOfFunctionsWriteNoMoreThanTheirNodes) {
    shp_Topology const & full = shapeOf("C3D27");
    float const iso[3] = {0.25f, -0.5f, 0.125f};
    for (unsigned int nodeBit : {unsigned{shp_keyNodes5}, unsigned{shp_keyNodes12}, unsigned{shp_keyNodes18}}) {
        shp_Topology const t(keyOf({shp_keyHex, nodeBit, shp_keyIntPts8, shp_key3D}));
        auto const nodes = static_cast<std::size_t>(t.BaseNodesPerElem());
        std::vector<float> weights(nodes + 1, 99.0f);
        t.CalculateNodesShapeWeight(iso, weights.data());
        EXPECT_EQ(weights.back(), 99.0f);
        std::vector<float> const expected = functionsAt(full, iso);
        EXPECT_TRUE(std::equal(weights.begin(), weights.end() - 1, expected.begin()));
        EXPECT_TRUE(std::equal(t.intPointNodeWeights, t.intPointNodeWeights + nodes,
                               functionsAt(full, t.intPtLocationTable).begin()));
    }
    shp_Topology const crowdedPoint(keyOf({shp_keyPoint, shp_keyNodes3, shp_key3D}));
    std::vector<float> weights(3, 99.0f);
    crowdedPoint.CalculateNodesShapeWeight(iso, weights.data());
    EXPECT_EQ(weights, (std::vector<float>{1, 0, 0}));
}

TEST(HandMadeKeys, WithALayerDirectionThatDoesNotExistKeepZeroWeights) {
    for (unsigned int mode : {unsigned{shp_keyZero}, unsigned{shp_keyMode4}}) {
        shp_Topology const t(keyOf({shp_keyHex, shp_keyNodes8, shp_keyIntPts4, shp_key3D, shp_keyLayeredSolid, mode}));
        EXPECT_EQ(t.nodeWeights, t.layeredNodeWeights);
        EXPECT_TRUE(std::all_of(t.nodeWeights, t.nodeWeights + 8 * 4, [](float w) { return w == 0; }));
    }
}
