// The inverse tables of every label against a second derivation from the topology, which begins with physical edges
// (sets of two corners) where the library begins with edge uses.

#include "catalogued_shapes.h"
#include "shp_KeyBit.h"

#include <algorithm>
#include <bit>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace {

using Mask = unsigned int; ///< of edge uses, bit 4 * face + edge

/// An element as its edges describe it.
struct Element {
    bool isSolid;
    std::vector<int> corners; ///< in the order in which the edges name them
    std::map<int, std::pair<int, int>> endsOfUse;
    std::map<std::set<int>, Mask> usesOfEdge;
    std::map<int, Mask> usesAtNode;

    explicit Element(shp_Topology const & t) : isSolid(t.NumGeometryDimensions() == 3) {
        for (int face = 0; face < (isSolid ? t.NumFacesPerElem() : 1); ++face)
            for (int edge = 0; edge < t.NumEdgesPerFace(face); ++edge) {
                int const use = 4 * face + edge;
                int const nodes = t.BaseNodesPerEdge(face, edge);
                for (int i = 0; i < nodes; ++i)
                    usesAtNode[t.EdgeNodeIndex(face, edge, i)] |= 1u << use;
                int const first = t.EdgeNodeIndex(face, edge, 0), last = t.EdgeNodeIndex(face, edge, nodes - 1);
                endsOfUse[use] = {first, last};
                usesOfEdge[{first, last}] |= 1u << use;
                for (int const end : {first, last})
                    if (!isCorner(end))
                        corners.push_back(end);
            }
    }

    bool isCorner(int node) const { return std::count(corners.begin(), corners.end(), node) != 0; }
};

/// The answer to a question for the edges at one node, or between two: in ascending order.
template <class... Node> Mask asked(shp_InverseTopoTable const & table, Node... nodes) {
    int count = -1, faces[24], edges[24];
    if constexpr (sizeof...(nodes) == 1)
        table.EdgesFromNode(nodes..., count, faces, edges);
    else
        table.EdgesFromNodes(nodes..., count, faces, edges);
    EXPECT_GE(count, 0);
    Mask uses = 0;
    for (int i = 0; i < count; ++i) {
        EXPECT_EQ(uses >> (4 * faces[i] + edges[i]), 0u) << "not ascending";
        uses |= 1u << (4 * faces[i] + edges[i]);
    }
    return uses;
}

/// Of a use in `edgeFromNodesTable`; 28 is none.
int number(shp_InverseTopoTable::EdgeUse const & use) {
    return 4 * use.face + use.edge;
}

Mask facesOf(Mask uses) {
    Mask faces = 0;
    for (int use = 0; use < 24; ++use)
        faces |= (uses >> use & 1) << use / 4;
    return faces;
}

void expectPoint(shp_InverseTopoTable const & t) {
    EXPECT_TRUE(t.nCorner == 1 && t.nEdge == 0 && t.nUniqueEdge == 0);
    EXPECT_EQ(t.edgesMask | t.facesMask | t.faceNodeMaskTable[0] | t.edgeNodeMaskTable[0], 0u);
    EXPECT_TRUE(t.faceFromNodesSize == 1 && t.faceFromNodesTable[0] == 6);
    EXPECT_TRUE(t.edgeTableSize == 1 && number(t.edgeFromNodesTable[0]) == 28);
    EXPECT_TRUE(t.edgesFromNodesTable[0].count == 0 && t.edgesFromNodesTable[0].uses == t.edgeFromNodesTable);
    EXPECT_EQ(t.faceEdgeMaskTable[0] & t.edgeFaceMaskTable[0], 1u);
}

void expectEdges(shp_Shape const & s, Element element) {
    EXPECT_EQ(s.nUniqueEdge, static_cast<int>(element.usesOfEdge.size()));
    EXPECT_EQ(s.nEdge, element.isSolid ? 2 * s.nUniqueEdge : s.nUniqueEdge) << "the faces leave a gap";
    EXPECT_EQ(s.nCorner, static_cast<int>(element.corners.size()));
    Mask all = 0;
    for (auto const & [use, ends] : element.endsOfUse) {
        int found[2];
        s.EdgeEnds(use / 4, use % 4, found);
        EXPECT_EQ(std::pair(found[0], found[1]), ends);
        if (element.isSolid) {
            EXPECT_EQ(s.NonUniqueEdgeMasks[std::popcount(all)].first, 1u << use);
        }
        all |= 1u << use;
    }
    EXPECT_EQ(s.edgesMask, all);
    for (int node = 0; node < std::max(s.BaseNodesPerElem(), s.edgeTableSize); ++node) {
        EXPECT_EQ(s.edgeNodeMaskTable[node], element.usesAtNode[node]);
        EXPECT_EQ(asked(s, node), node < s.edgeTableSize ? element.usesAtNode[node] : 0);
    }
    EXPECT_EQ(s.edgeTableSize, *std::max_element(element.corners.begin(), element.corners.end()) * 17 + 1);
    for (int key = 0; key < s.edgeTableSize; ++key) {
        Mask const uses = element.usesOfEdge[{key % 16, key / 16}];
        EXPECT_EQ(asked(s, key % 16, key / 16), uses);
        EXPECT_EQ(number(s.edgeFromNodesTable[key]), uses == 0 ? 28 : std::countr_zero(uses)) << key;
    }
}

/// UniqueEdge keeps each physical edge once, NonUniqueEdge gives it with all its uses; neither adds nor loses an edge.
void expectMaskLaws(shp_Shape const & s, Element const & element) {
    for (int use = 0; use < 32; ++use)
        for (Mask const mask : {s.edgesMask & 1u << use, s.edgesMask & ~(1u << use)}) {
            Mask once = mask, all = mask, expectedOnce = mask, expectedAll = mask;
            s.UniqueEdge(once);
            s.NonUniqueEdge(all);
            for (auto const & [ends, uses] : element.usesOfEdge) {
                if ((mask & uses) == uses)
                    expectedOnce &= ~uses | 1u << std::countr_zero(uses);
                if ((mask & uses) != 0)
                    expectedAll |= uses;
            }
            EXPECT_EQ(once, expectedOnce);
            EXPECT_EQ(all, expectedAll);
        }
}

// What the report of the inverse tables shows of faces is held by its digest; this is what it leaves out.
void expectFaces(shp_Shape const & s, Element const & element) {
    bool const isLine = s.NumGeometryDimensions() == 1;
    std::map<std::set<int>, int> faceOfThree;
    for (int face = 0; face < s.NumFacesPerElem() && element.isSolid; ++face) {
        std::vector<int> corners;
        for (int i = 0; i < s.BaseNodesPerFace(face); ++i)
            if (int const node = s.FaceNodeIndex(face, i); element.isCorner(node))
                corners.push_back(node);
        for (int const a : corners)
            for (int const b : corners)
                for (int const c : corners)
                    faceOfThree.insert({{a, b, c}, face});
    }
    EXPECT_EQ(s.facesMask, isLine ? 0 : facesOf(s.edgesMask));
    EXPECT_EQ(s.faceFromNodesSize, s.edgeTableSize / 17 * 273 + 1);
    for (int key = 0; key < s.faceFromNodesSize; ++key) {
        std::set<int> const three = {key % 16, key / 16 % 16, key / 256};
        bool const isOnFace = three.size() == 3 && faceOfThree.count(three) != 0;
        bool const isPlanar = !element.isSolid && !isLine; // its one face answers to any key
        EXPECT_EQ(s.faceFromNodesTable[key], isPlanar ? 0 : isOnFace ? faceOfThree[three] : 6) << key;
    }
}

TEST(InverseTopology, EveryLabelAgreesWithASecondDerivation) {
    forEachShape([](shp_Shape const & shape) {
        if (shape.BaseNodesPerElem() < 2) {
            expectPoint(shape);
        } else {
            Element const element(shape);
            expectEdges(shape, element);
            expectMaskLaws(shape, element);
            expectFaces(shape, element);
        }
        for (int const node : {-1, -16, 0x7fffffff, shape.edgeTableSize})
            EXPECT_EQ(asked(shape, node) | asked(shape, 0, node) | asked(shape, node, node), 0u) << node;
        EXPECT_EQ(asked(shape, 1, 0x10000000),
                  0u); // in 32 bits 16 times this is node 0
        ASSERT_FALSE(testing::Test::HasFailure());
    });
}

TEST(InverseTopology, KnownElements) {
    EXPECT_EQ(asked(shapeOf("C3D8"), 0, 1),
              1u << 3 | 1u << 8);                  // the last edge of face 0, the first of face 2
    EXPECT_EQ(shapeOf("CIN3D8").facesMask, 0x1fu); // the far face has no edges
    EXPECT_EQ(shapeOf("CAXA43").nEdge, 4);         // the section's
    int ends[2];
    shapeOf("ACIN2D3").EdgeEnds(0, 0, ends);
    EXPECT_EQ(ends[1], 1); // its third node stands in the middle
}

// Keys that no label has: tables that are missing, or that belong to different elements.
TEST(InverseTopology, KeysThatFitNoElementGetTheTableOfAPoint) {
    for (LongKey const & key :
         {LongKey(), keyOf({shp_keyHex, shp_key3D}), keyOf({shp_keyHex, shp_keyNodes5, shp_key3D}),
          keyOf({shp_keyHex, shp_keyNodes18, shp_key3D}),
          keyOf({shp_keyHex, shp_keyNodes12, shp_keyInfinite, shp_keyCylindrical, shp_key3D}),
          keyOf({shp_keyQuad, shp_keyNodes5, shp_key2D}), keyOf({shp_keyPrism, shp_keyNodes8, shp_key3D})})
        expectPoint(shp_Shape("BY HAND", key));
    shp_InverseTopoTable const empty;
    EXPECT_EQ(asked(empty, 0) | asked(empty, 0, 0), 0u);
}

} // namespace
