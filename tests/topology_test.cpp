// Counts, flags and tables of shp_Topology, and the tables that it makes for itself.

#include "catalogued_shapes.h"
#include "shp_ConnectivityTables.h"
#include "shp_KeyBit.h"

#include <cstddef>
#include <numeric>
#include <string>
#include <vector>

namespace {

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

} // namespace

TEST(TopologyNumbers, GoTogether) {
    forEachShape([](shp_Topology const & t) {
        int const planes = t.isCaxaElement ? t.options.Mode() + 1 : 1;
        int const pointsPerPlane = t.isCaxaElement ? 2 * planes : 1;
        int const pipeNodes = t.isFluidpipeAnnulusThermal ? 8 : t.isFluidpipeThermal ? 6 : 0;
        EXPECT_EQ(t.NumNodesPerElem(), pipeNodes ? pipeNodes : t.BaseNodesPerElem() * planes);
        EXPECT_EQ(t.numIntPtsPerElem, t.BaseIntPtsPerElem() * pointsPerPlane);
        EXPECT_EQ(t.Is3DShell(), t.options.IsType(shp_key3D) && (t.options.Shape() == 3 || t.options.Shape() == 4));
        EXPECT_EQ(t.dUdHFunctions != nullptr, t.hasDerivatives && t.NumGeometryDimensions() >= 2);
        EXPECT_EQ(t.dUdRFunctions != nullptr, t.hasDerivatives && t.NumGeometryDimensions() == 3);
        EXPECT_NE(t.evaluateFunctions, nullptr);
        EXPECT_EQ(t.evaluateDerivatives != nullptr, t.hasDerivatives);

        // Midside nodes make an element second-order, and third-order where it is cylindrical or a cohesive solid.
        bool hasMidsides = false;
        for (int face = 0; face < t.NumFacesPerElem(); ++face)
            for (int edge = 0; edge < t.NumEdgesPerFace(face); ++edge)
                hasMidsides |= t.BaseNodesPerEdge(face, edge) > 2;
        bool const isThird = t.isCylindrical || (t.isCohesive && t.NumGeometryDimensions() == 3);
        EXPECT_EQ(t.interpolationOrder, !hasMidsides ? 1 : isThird ? 3 : 2);

        // By shape, with midsides one more: point, line, triangle, quadrilateral, tetrahedron, hexahedron, prism, ARS,
        // pyramid.
        constexpr int classes[] = {0, 1, 3, 5, 12, 8, 10, 0, 14};
        bool const isNineNodeQuad = t.options.Shape() == shp_keyQuad && t.BaseNodesPerElem() == 9;
        EXPECT_EQ(t.interpolationClass, isNineNodeQuad ? 7 : classes[t.options.Shape() - 1] + hasMidsides);
    });
    // Nodal integration has as many points as nodes, whatever the key says.
    EXPECT_EQ(shapeOf("ISL31").BaseIntPtsPerElem(), 2);
    EXPECT_EQ(shapeOf("DC3D6").BaseIntPtsPerElem(), 6);
    EXPECT_EQ(shapeOf("CINPS4").maxEdgesPerFace, 3);
}

TEST(TopologyFlags, GoWithTheLabel) {
    forEachShape([](shp_Shape const & t) {
        std::string const label = t.label.CStr();
        auto const beginsWith = [&](char const * text) { return label.starts_with(text); };
        bool const hasA = label.find('A') != std::string::npos;
        bool const isThermalPipe = beginsWith("FP") && (label.ends_with('T') || label.ends_with('Q'));
        EXPECT_EQ(t.isTwistedElement, label.find("GAX") != std::string::npos);
        EXPECT_EQ(t.isContinuumShell, beginsWith("SC"));
        EXPECT_EQ(t.isGasket, beginsWith("GK") || label == "LS6" || label == "USI6O");
        EXPECT_EQ(t.isCohesive, beginsWith("COH") || beginsWith("COD"));
        EXPECT_EQ(t.isCylindrical,
                  beginsWith("CCL") || beginsWith("MCL") || beginsWith("SFMCL") || label == "CYLSURF1");
        EXPECT_EQ(t.isRigid, beginsWith("R") && label != "ROTARYI");
        EXPECT_EQ(t.hasResults, !t.isRigid);
        EXPECT_EQ(t.isAnalyticalRigidSurface, beginsWith("ARS"));
        EXPECT_EQ(t.isFluidpipeThermal, isThermalPipe && !hasA);
        EXPECT_EQ(t.isFluidpipeAnnulusThermal, isThermalPipe && hasA);
        EXPECT_FALSE(t.isUnassigned73);
    });
    EXPECT_TRUE(shapeOf("SPRING2").isInteraction && shapeOf("R3D4").isInteraction);
    EXPECT_FALSE(shapeOf("ALE3D").isInteraction || shapeOf("ARSR").isInteraction);
    EXPECT_TRUE(shapeOf("DC3D8").isNodalWeighted && shapeOf("DC3D6").isNodalWeighted);
    EXPECT_FALSE(shapeOf("C3D8").isNodalWeighted);
    EXPECT_TRUE(shapeOf("AXIINT2").isAxiSymmetric);
}

TEST(TopologyFlags, TellHowASectionIsExpanded) {
    // ALEAXI is internal, but no surface; the surface of a coupling keeps what other internal surfaces lose.
    for (char const * label : {"CAX4", "CAXA42", "ARSR", "ALEAXI", "CPS4", "LSURF1", "S4", "C3D8", "AXIINT2"}) {
        std::string const name = label;
        EXPECT_EQ(shapeOf(label).isSweepable, name.starts_with("CAX") || name == "ARSR" || name == "ALEAXI") << label;
        EXPECT_EQ(shapeOf(label).isExtrudable, name == "CPS4" || name == "LSURF1") << label;
    }
}

TEST(TopologyTables, AtFaceCentresAndIntegrationPointsHoldTheShapeFunctions) {
    forEachShape([](shp_Topology const & t) {
        int const nodes = t.BaseNodesPerElem();
        int const points = t.BaseIntPtsPerElem();
        int const faces = t.NumSpatialDimensions() == 2 ? t.maxEdgesPerFace : t.NumFacesPerElem();
        for (int face = 0; face < faces; ++face)
            EXPECT_EQ(rowOf(t.GetFcCenterNodeWeights(face), 0, nodes),
                      functionsAt(t, t.faceCenterLocationTable + 3 * face));
        std::vector<float> expected;
        for (int point = 0; point < points; ++point)
            for (float value : functionsAt(nodes == 27 ? shapeOf("C3D20") : t, t.intPtLocationTable + 3 * point))
                expected.push_back(points == 1 ? static_cast<float>(1.0 / nodes) : value);
        expected.resize(static_cast<std::size_t>(points * nodes)); // 27 nodes: zeros behind the rows of 20
        EXPECT_EQ(rowOf(t.intPointNodeWeights, 0, points * nodes), expected);
    });
}

TEST(CaxaTables, RepeatOnePlaneUnderShiftedNodeNumbers) {
    forEachShape([](shp_Topology const & t) {
        if (!t.isCaxaElement)
            return;
        int const planes = t.options.Mode() + 1;
        std::vector<int> const all = identity(t.NumNodesPerElem());
        std::vector<int> list(all.size());
        int const * planeEdge = shp_ConnectivityTables::getEdgeConnTblPtr(t.options);
        for (int edge = 0; edge < t.NumEdgesPerFace(0); ++edge, planeEdge += t.maxNodesPerEdge / planes) {
            std::vector<int> expected;
            for (int plane = 0; plane < planes; ++plane)
                for (int i = 0; i < t.BaseNodesPerEdge(0, edge); ++i)
                    expected.push_back(planeEdge[i] + plane * t.BaseNodesPerElem());
            list.resize(static_cast<std::size_t>(t.NumNodesPerEdge(0, edge)));
            t.EdgeConnectivity(all.data(), 0, edge, list.data());
            EXPECT_EQ(list, expected) << "edge " << edge;
        }
        EXPECT_EQ(t.maxNodesPerFace, t.BaseNodesPerFace(0) * planes);
        list.resize(static_cast<std::size_t>(t.NumNodesPerFace(0)));
        t.FaceConnectivity(all.data(), 0, list.data());
        EXPECT_EQ(list, all);
    });
}

// The faces around the stacking direction take rows of nodes 0, 1, ... wherever these lie.
TEST(LayeredTables, MakeFaceRowsOfNodeRows) {
    std::vector<int> const sides[] = {{0, 4, 1, 2}, {0, 3, 1, 5}, {2, 3, 4, 5}}; // in the order in which they take rows
    forEachShape([&](shp_Topology const & t) {
        if (!t.isLayeredSolid)
            return;
        bool const isPrism = t.options.Shape() == shp_keyPrism;
        bool const isFirstOrder = t.NumNodesPerElem() <= 8;
        int const numSides = isPrism ? 3 : 4;
        auto const nodeRow = [&](int node) { return rowOf(t.nodeWeights, node, t.numIntPtsPerElem); };
        for (int side = 0; side < numSides; ++side) {
            std::vector<float> expected = nodeRow(isFirstOrder ? side : numSides + side);
            std::vector<float> const next = nodeRow((side + 1) % numSides);
            for (std::size_t point = 0; isFirstOrder && point < next.size(); ++point)
                expected[point] = 0.5f * (expected[point] + next[point]);
            int const face = sides[isPrism ? 2 : t.options.Mode() - 1][static_cast<std::size_t>(side)];
            EXPECT_EQ(rowOf(t.faceWeights, face, t.numIntPtsPerElem), expected) << "face " << face;
        }
    });
}

TEST(Reversal, OfAnElementUndoesItself) {
    forEachShape([](shp_Topology const & t) {
        std::vector<int> const before = identity(t.BaseNodesPerElem());
        std::vector<int> conn = before;
        t.ReverseElemConnectivity(conn.data());
        std::vector<int> const reversed = conn;
        EXPECT_EQ(reversed != before, t.BaseNodesPerElem() > 1);
        t.ReverseElemConnectivity(conn.data());
        EXPECT_EQ(conn, before);
        if (t.interpolationOrder != 1 && !(t.isGasket && t.options.NumNodes() == 6)) {
            t.ReverseFaceConnectivity(conn.data(), 0);
            EXPECT_EQ(conn, reversed);
        }
    });
}

TEST(Reversal, OfFacesAndEdgesFollowsTheElementType) {
    auto const faceReversed = [](char const * label, int face) {
        std::vector<int> nodes = {1, 2, 3, 4, 5, 6};
        shapeOf(label).ReverseFaceConnectivity(nodes.data(), face);
        return nodes;
    };
    EXPECT_EQ(faceReversed("C3D8", 2), (std::vector<int>{4, 3, 2, 1, 5, 6}));
    EXPECT_EQ(faceReversed("C3D6", 0), (std::vector<int>{3, 2, 1, 4, 5, 6})); // a triangle
    EXPECT_EQ(faceReversed("GK3D6", 0), (std::vector<int>{2, 1, 4, 3, 5, 6}));

    auto const edgeReversed = [](char const * label, int edge) {
        std::vector<int> nodes = {7, 8, 9};
        shapeOf(label).ReverseEdgeConnectivity(nodes.data(), 0, edge);
        return nodes;
    };
    EXPECT_EQ(edgeReversed("C3D20", 0), (std::vector<int>{9, 8, 7}));
    EXPECT_EQ(edgeReversed("C3D6", 0), (std::vector<int>{8, 7, 9}));
    EXPECT_EQ(edgeReversed("C3D6", 3), (std::vector<int>{7, 8, 9})); // a triangle has no fourth edge
}

TEST(HandMadeKeys, WithoutAShapeGiveAnEmptyTopology) {
    shp_Topology const t{LongKey()};
    EXPECT_EQ(t.NumGeometryDimensions() + t.NumFacesPerElem(), 0);
    EXPECT_EQ(t.FaceTriangles(), nullptr);
    EXPECT_EQ(t.shapeFuncValue(3, 0, 0, 0), 0);
    EXPECT_EQ(t.dUdGValue(3, 0, 0, 0) + t.dUdHValue(3, 0, 0, 0) + t.dUdRValue(3, 0, 0, 0), 0);
    g3d_Storage const corner(1, 2, 3);
    float iso[3] = {};
    EXPECT_EQ(t.InterpolatePointFromNodes(&corner, iso).X(), 0);
    EXPECT_EQ(t.ShapeFunctionJacobian(&corner, iso).GetM(0, 0), 1);
    t.GetCenterNodeWeights(nullptr); // as many as there are nodes
    t.ReverseElemConnectivity(nullptr);
}

// Sets of functions with more or fewer functions than the element has nodes: as many as both have, and nothing is
// written past the nodes.
TEST(HandMadeKeys, WithAForeignSetOfFunctionsWriteNoMoreThanTheirNodes) {
    float iso[3] = {0.25f, -0.5f, 0.125f};
    struct {
        LongKey key;
        shp_Topology const & full; ///< which has the functions
    } const cases[] = {{keyOf({shp_keyHex, shp_keyNodes5, shp_keyIntPts8, shp_key3D}), shapeOf("C3D27")},
                       {keyOf({shp_keyHex, shp_keyNodes12, shp_keyIntPts8, shp_key3D}), shapeOf("C3D27")},
                       {keyOf({shp_keyHex, shp_keyNodes18, shp_keyIntPts8, shp_key3D}), shapeOf("C3D27")},
                       {keyOf({shp_keyTri, shp_keyNodes8, shp_keyIntPts3, shp_key3D}), shapeOf("STRI65")}};
    for (auto const & [key, full] : cases) {
        shp_Topology const t(key);
        auto const nodes = static_cast<std::size_t>(t.BaseNodesPerElem());
        std::vector<float> weights(nodes + 1, 99.0f);
        t.CalculateNodesShapeWeight(iso, weights.data());
        std::vector<float> expected = functionsAt(full, iso);
        expected.resize(nodes);
        expected.push_back(99.0f);
        EXPECT_EQ(weights, expected);
        expected = functionsAt(full, t.intPtLocationTable);
        expected.resize(nodes);
        EXPECT_EQ(rowOf(t.intPointNodeWeights, 0, t.BaseNodesPerElem()), expected);

        std::vector<g3d_Storage> coords;
        bool const hasSlopes = t.hasDerivatives && t.NumGeometryDimensions() > 0;
        double slopes[2] = {hasSlopes ? 0.0 : 1.0, hasSlopes ? 0.0 : 1.0};
        for (int i = 0; i < t.BaseNodesPerElem(); ++i) {
            coords.emplace_back(i * i, 7 * i % 5, 1 / (i + 1.0));
            if (hasSlopes && i < full.BaseNodesPerElem()) {
                slopes[0] += full.dUdGValue(i, iso[0], iso[1], iso[2]) * coords.back().X();
                slopes[1] += full.dUdHValue(i, iso[0], iso[1], iso[2]) * coords.back().Y();
            }
        }
        g3d_XForm const jacobian = t.ShapeFunctionJacobian(coords.data(), iso);
        EXPECT_EQ(jacobian.GetM(0, 0), static_cast<float>(slopes[0]));
        EXPECT_EQ(jacobian.GetM(1, 1), static_cast<float>(slopes[1]));
    }
    shp_Topology const crowdedPoint(keyOf({shp_keyPoint, shp_keyNodes3, shp_key3D}));
    std::vector<float> weights(3, 99.0f);
    crowdedPoint.CalculateNodesShapeWeight(iso, weights.data());
    EXPECT_EQ(weights, (std::vector<float>{1, 0, 0}));
}

TEST(HandMadeKeys, WithPlanesButWithoutEdgesHaveNodesAlone) {
    shp_Topology const t(keyOf({shp_keyHex, shp_keyNodes9, shp_keyIntPts1, shp_key2D, shp_keyCaxa, shp_keyMode2}));
    EXPECT_EQ(t.NumNodesPerElem(), 3 * 9);
    EXPECT_EQ(t.edgeConnTbl, nullptr);
}

TEST(HandMadeKeys, WithALayerDirectionThatDoesNotExistKeepZeroWeights) {
    for (unsigned int mode : {unsigned{shp_keyZero}, unsigned{shp_keyMode4}}) {
        shp_Topology const t(keyOf({shp_keyHex, shp_keyNodes8, shp_keyIntPts4, shp_key3D, shp_keyLayeredSolid, mode}));
        EXPECT_EQ(rowOf(t.nodeWeights, 0, 8 * 4), std::vector<float>(8 * 4));
        EXPECT_EQ(rowOf(t.faceWeights, 0, 6 * 4), std::vector<float>(6 * 4));
    }
}
