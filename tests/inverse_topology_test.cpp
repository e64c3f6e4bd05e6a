// The inverse tables of every label against a second derivation from the topology, which begins with physical edges
// (sets of two corners) where the library begins with edge uses.
#include "omi_BtreeIterator.h"
#include "shp_KeyBit.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <map>
#include <numeric>
#include <random>
#include <set>
#include <utility>
#include <vector>

namespace {

using Masks = std::vector<std::pair<unsigned int, unsigned int>>;
using Uses = std::vector<int>; ///< numbers: 4 * face + edge

/// An element as its edges describe it.
struct Element {
    int nodes = 0;
    int faces = 0;
    std::map<int, std::vector<int>> nodesOfUse;
    std::map<std::set<int>, Uses> usesOfEdge;
    std::vector<int> corners;
    std::map<int, std::vector<int>> cornersOfFace; ///< in the order of the face

    explicit Element(shp_Topology const & t)
        : nodes(t.BaseNodesPerElem()), faces(t.NumGeometryDimensions() == 3 ? t.NumFacesPerElem() : 1) {
        std::vector<int> identity(static_cast<std::size_t>(t.NumNodesPerElem()));
        std::iota(identity.begin(), identity.end(), 0);
        std::vector<int> list(256);
        for (int f = 0; f < faces; ++f)
            for (int e = 0; e < t.NumEdgesPerFace(f); ++e) {
                t.EdgeConnectivity(identity.data(), f, e, list.data());
                addUse(4 * f + e, {list.begin(), list.begin() + t.BaseNodesPerEdge(f, e)});
            }
        for (int f = 0; f < faces && t.NumGeometryDimensions() == 3; ++f) {
            t.FaceConnectivity(identity.data(), f, list.data());
            std::copy_if(list.begin(), list.begin() + t.BaseNodesPerFace(f), std::back_inserter(cornersOfFace[f]),
                         [this](int node) { return isCorner(node); });
        }
    }

    void addUse(int number, std::vector<int> const & along) {
        nodesOfUse[number] = along;
        usesOfEdge[{along.front(), along.back()}].push_back(number);
        for (int const end : {along.front(), along.back()})
            if (!isCorner(end))
                corners.push_back(end);
    }

    bool isCorner(int node) const { return std::find(corners.begin(), corners.end(), node) != corners.end(); }
    int largestCorner() const { return *std::max_element(corners.begin(), corners.end()); }
    bool runsFrom(int use, int node) const { return nodesOfUse.at(use).front() == node; }

    Uses usesBetween(int a, int b) const {
        auto const found = usesOfEdge.find({a, b});
        return a != b && found != usesOfEdge.end() ? found->second : Uses();
    }
    Uses usesAt(int node) const {
        Uses uses;
        for (auto const & [use, along] : nodesOfUse)
            if (std::find(along.begin(), along.end(), node) != along.end())
                uses.push_back(use);
        return uses;
    }
    int firstFaceWith(std::set<int> const & three) const {
        for (auto const & [face, list] : cornersOfFace) {
            std::set<int> const own(list.begin(), list.end());
            if (std::includes(own.begin(), own.end(), three.begin(), three.end()))
                return face;
        }
        return 6;
    }
};

unsigned int maskOf(Uses const & uses) {
    unsigned int mask = 0;
    for (int const use : uses)
        mask |= 1u << use;
    return mask;
}

Masks masks(shp_InverseTopoTable::MaskPair const * pairs, int count) {
    Masks list;
    for (int i = 0; i < count; ++i)
        list.emplace_back(pairs[i].first, pairs[i].second);
    return list;
}

int number(shp_InverseTopoTable::EdgeUse const & use) {
    return 4 * use.face + use.edge;
}

constexpr int none = 4 * 6 + 4;

Uses asked(shp_Shape const & shape, int node1, int node2) {
    int count = -1;
    int faces[24];
    int edges[24];
    shape.EdgesFromNodes(node1, node2, count, faces, edges);
    Uses uses;
    for (int i = 0; i < count; ++i)
        uses.push_back(4 * faces[i] + edges[i]);
    return uses;
}

Uses asked(shp_Shape const & shape, int node) {
    int count = -1;
    int faces[24];
    int edges[24];
    shape.EdgesFromNode(node, count, faces, edges);
    Uses uses;
    for (int i = 0; i < count; ++i)
        uses.push_back(4 * faces[i] + edges[i]);
    return uses;
}

void expectPoint(shp_InverseTopoTable const & t) {
    EXPECT_EQ(t.nCorner, 1);
    EXPECT_EQ(t.nEdge + t.nUniqueEdge, 0);
    EXPECT_EQ(t.edgesMask | t.facesMask, 0u);
    EXPECT_EQ(t.faceFromNodesSize, 1);
    EXPECT_EQ(t.faceFromNodesTable[0], 6);
    EXPECT_EQ(t.edgeTableSize, 1);
    EXPECT_EQ(t.edgesFromNodesTable[0].count, 0);
    EXPECT_EQ(t.edgesFromNodesTable[0].uses, t.edgeFromNodesTable);
    EXPECT_EQ(number(t.edgeFromNodesTable[0]), none);
    EXPECT_EQ(t.faceNodeMaskTable[0] | t.edgeNodeMaskTable[0], 0u);
    EXPECT_EQ(t.faceEdgeMaskTable[0] & t.edgeFaceMaskTable[0], 1u);
}

/// What all elements with edges have in common.
void expectEdges(shp_Shape const & s, Element const & element) {
    EXPECT_EQ(s.nEdge, static_cast<int>(element.nodesOfUse.size()));
    EXPECT_EQ(s.nUniqueEdge, static_cast<int>(element.usesOfEdge.size()));
    EXPECT_EQ(s.nCorner, static_cast<int>(element.corners.size()));
    for (auto const & [use, along] : element.nodesOfUse) {
        int ends[2];
        s.EdgeEnds(use / 4, use % 4, ends);
        EXPECT_EQ(ends[0], along.front());
        EXPECT_EQ(ends[1], along.back());
        EXPECT_TRUE(s.edgesMask & 1u << use);
    }
    EXPECT_EQ(std::popcount(s.edgesMask), s.nEdge);

    EXPECT_EQ(s.edgeTableSize, element.largestCorner() * 17 + 1);
    EXPECT_EQ(s.faceFromNodesSize, element.largestCorner() * 273 + 1);
    for (int key = 0; key < s.edgeTableSize; ++key) {
        int const a = key % 16;
        int const b = key / 16;
        Uses const uses = element.usesBetween(a, b);
        EXPECT_EQ(asked(s, a, b), uses);
        EXPECT_EQ(s.edgesFromNodesTable[key].count, static_cast<int>(uses.size()));
        // Faces that list an edge in opposite directions leave the first use at both keys. Where they list it in the
        // same direction the last one stands at that direction's key, and none at the other.
        int standing = none;
        if (!uses.empty()) {
            bool const hasBoth = element.runsFrom(uses.front(), a) != element.runsFrom(uses.back(), a);
            if (uses.size() == 1 ? s.NumGeometryDimensions() < 3 || element.runsFrom(uses[0], a) : hasBoth)
                standing = uses.front();
            else if (element.runsFrom(uses.back(), a))
                standing = uses.back();
        }
        EXPECT_EQ(number(s.edgeFromNodesTable[key]), standing) << a << ' ' << b;
    }
    for (int node = 0; node < element.nodes; ++node) {
        EXPECT_EQ(asked(s, node), element.usesAt(node));
        EXPECT_EQ(s.edgeNodeMaskTable[node], maskOf(element.usesAt(node)));
    }
    for (int node = element.nodes; node < s.edgeTableSize; ++node)
        EXPECT_TRUE(asked(s, node).empty());
}

void expectFlat(shp_Shape const & s, Element const & element) {
    EXPECT_EQ(s.UniqueEdgeMasks, nullptr);
    EXPECT_EQ(s.NonUniqueEdgeMasks, nullptr);
    EXPECT_EQ(s.edgesFromNodesPool, nullptr);
    bool const isLine = s.NumGeometryDimensions() == 1;
    EXPECT_EQ(s.facesMask, isLine ? 0u : 1u);
    for (int key = 0; key < s.faceFromNodesSize; ++key)
        EXPECT_EQ(s.faceFromNodesTable[key], isLine ? 6 : 0);
    for (int node = 0; node < element.nodes; ++node)
        EXPECT_EQ(s.faceNodeMaskTable[node], isLine ? 0u : 1u);
    EXPECT_EQ(s.faceEdgeMaskTable[0], s.edgesMask);
    EXPECT_EQ(s.faceCornerCounts[0], isLine ? 0 : s.nCorner);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(s.faceCornersTable[i], i < s.faceCornerCounts[0] ? element.corners[static_cast<std::size_t>(i)] : 0);
        if (!isLine) {
            EXPECT_EQ(s.edgeFaceMaskTable[i], i < s.nEdge ? 1u : 0u);
        }
    }
}

void expectSolid(shp_Shape const & s, Element const & element) {
    Masks unique;
    Masks twins;
    unsigned int faces = 0;
    for (auto const & [use, along] : element.nodesOfUse) {
        Uses const & both = element.usesBetween(along.front(), along.back());
        ASSERT_EQ(both.size(), 2u) << "the faces leave a gap";
        if (both[0] == use)
            unique.emplace_back(maskOf(both), ~(1u << both[1]));
        twins.emplace_back(1u << use, maskOf(both) & ~(1u << use));
        faces |= 1u << use / 4;
        EXPECT_EQ(s.edgeFaceMaskTable[use], 1u << both[0] / 4 | 1u << both[1] / 4);
    }
    EXPECT_EQ(masks(s.UniqueEdgeMasks, s.numUniqueEdgeMasks), unique);
    EXPECT_EQ(masks(s.NonUniqueEdgeMasks, s.numNonUniqueEdgeMasks), twins);
    EXPECT_EQ(s.facesMask, faces);

    for (int face = 0; face < element.faces; ++face) {
        EXPECT_EQ(s.faceEdgeMaskTable[face], s.edgesMask & 0xfu << 4 * face);
        std::vector<int> corners = element.cornersOfFace.at(face);
        EXPECT_EQ(s.faceCornerCounts[face], static_cast<int>(corners.size()));
        corners.resize(4);
        EXPECT_TRUE(std::equal(corners.begin(), corners.end(), s.faceCornersTable + 4 * face));
    }
    for (int node = 0; node < element.nodes; ++node)
        for (int face = 0; face < element.faces; ++face) {
            bool holds = false;
            for (int i = 0; i < s.NumNodesPerFace(face); ++i)
                holds |= s.FaceNodeIndex(face, i) == node;
            EXPECT_EQ((s.faceNodeMaskTable[node] >> face & 1u) != 0, holds);
        }
    for (int key = 0; key < s.faceFromNodesSize; ++key) {
        std::set<int> const three = {key % 16, key / 16 % 16, key / 256};
        EXPECT_EQ(s.faceFromNodesTable[key], three.size() == 3 ? element.firstFaceWith(three) : 6) << key;
    }
}

/// UniqueEdge keeps each physical edge once, NonUniqueEdge gives it with all its uses; neither adds nor loses an edge.
void expectMaskLaws(shp_Shape const & s, Element const & element) {
    std::mt19937 random(20);
    for (int trial = 0; trial < 20; ++trial) {
        unsigned int const mask = trial == 0 ? s.edgesMask : static_cast<unsigned int>(random()) & s.edgesMask;
        unsigned int once = mask;
        unsigned int all = mask;
        s.UniqueEdge(once);
        s.NonUniqueEdge(all);
        EXPECT_EQ(once & mask, once);
        for (auto const & [ends, uses] : element.usesOfEdge) {
            bool const isIn = (mask & maskOf(uses)) != 0;
            EXPECT_EQ(std::popcount(once & maskOf(uses)), isIn ? 1 : 0);
            EXPECT_EQ(all & maskOf(uses), isIn ? maskOf(uses) : 0u);
        }
        if (trial == 0) {
            EXPECT_EQ(std::popcount(once), s.nUniqueEdge);
        }
    }
}

TEST(InverseTopology, EveryLabelAgreesWithASecondDerivation) {
    shp_ShapeDictionary const & dictionary = omi_Singleton<shp_ShapeDictionary>::Instance();
    omi_BtreeIterator<cow_String, void *> it(dictionary.Keys());
    for (bool isEntry = it.First(); isEntry; isEntry = it.Next()) {
        SCOPED_TRACE(it.CurrentKey().CStr());
        shp_Shape const & shape = *dictionary.GetShape(it.CurrentKey());
        if (shape.BaseNodesPerElem() < 2) {
            expectPoint(shape);
        } else {
            Element const element(shape);
            expectEdges(shape, element);
            expectMaskLaws(shape, element);
            if (shape.NumGeometryDimensions() == 3)
                expectSolid(shape, element);
            else
                expectFlat(shape, element);
        }
        for (int const node : {-1, -16, 0x7fffffff, shape.edgeTableSize}) {
            EXPECT_TRUE(asked(shape, node).empty());
            EXPECT_TRUE(asked(shape, 0, node).empty());
            EXPECT_TRUE(asked(shape, node, node).empty());
        }
        EXPECT_TRUE(asked(shape, 1, 0x10000000).empty()); // in 32 bits 16 times this is node 0
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

TEST(InverseTopology, KnownElements) {
    shp_ShapeDictionary const & dictionary = omi_Singleton<shp_ShapeDictionary>::Instance();
    shp_Shape const & brick = *dictionary.GetShape("C3D8");
    EXPECT_EQ(brick.nEdge, 24);
    EXPECT_EQ(brick.nUniqueEdge, 12);
    EXPECT_EQ(brick.nCorner, 8);
    EXPECT_EQ(brick.edgesMask, 0xffffffu);
    EXPECT_EQ(brick.facesMask, 0x3fu);
    EXPECT_EQ(asked(brick, 0, 1), (Uses{3, 8})); // the last edge of face 0, the first of face 2
    EXPECT_TRUE(asked(brick, 0, 2).empty());     // a diagonal

    shp_Shape const & tetra = *dictionary.GetShape("C3D4");
    EXPECT_EQ(tetra.edgesMask, 0x7777u);
    EXPECT_EQ(tetra.nUniqueEdge, 6);
    EXPECT_EQ(tetra.nCorner, 4);

    EXPECT_EQ(dictionary.GetShape("CIN3D8")->facesMask, 0x1fu); // the far face has no edges
    EXPECT_EQ(dictionary.GetShape("CAXA43")->nEdge, 4);         // the section's
    int ends[2];
    dictionary.GetShape("ACIN2D3")->EdgeEnds(0, 0, ends);
    EXPECT_EQ(ends[1], 1); // its third node stands in the middle
}

/// Keys that no label has: tables that are missing, or that belong to different elements.
TEST(InverseTopology, KeysThatFitNoElementGetTheTableOfAPoint) {
    std::vector<std::vector<unsigned int>> const keys = {
        {},
        {shp_keyHex, shp_key3D},
        {shp_keyHex, shp_keyNodes5, shp_key3D},
        {shp_keyHex, shp_keyNodes12, shp_key3D},
        {shp_keyHex, shp_keyNodes12, shp_keyInfinite, shp_keyCylindrical, shp_key3D},
        {shp_keyHex, shp_keyNodes18, shp_key3D},
        {shp_keyQuad, shp_keyNodes5, shp_key2D},
        {shp_keyPrism, shp_keyNodes8, shp_key3D},
    };
    for (auto const & bits : keys) {
        LongKey key;
        key.setBits(static_cast<unsigned int>(bits.size()), bits.data());
        shp_Shape const shape("BY HAND", key);
        expectPoint(shape);
        unsigned int mask = 0xffffffffu;
        shape.UniqueEdge(mask);
        shape.NonUniqueEdge(mask);
        EXPECT_EQ(mask, 0xffffffffu);
    }
}

TEST(InverseTopology, AnEmptyTableAnswersNothing) {
    shp_InverseTopoTable const table;
    int count = -1;
    table.EdgesFromNode(0, count, nullptr, nullptr);
    EXPECT_EQ(count, 0);
    table.EdgesFromNodes(0, 0, count, nullptr, nullptr);
    EXPECT_EQ(count, 0);
}

} // namespace
