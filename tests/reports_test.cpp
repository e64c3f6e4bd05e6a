// The text reports: of one label as they stand, of all labels by the digests of what was once compared with a second
// writer.

#include "aio_ostream.h"
#include "catalogued_shapes.h"
#include "table_digests.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>

namespace {

constexpr int numLabels = 862;

/// Counts how often it is flushed.
struct CountingBuffer : std::stringbuf {
    std::ptrdiff_t flushes = 0;
    int sync() override { return ++flushes, 0; }
};

/// What `print` writes to a stream: complete lines, each of them flushed.
template <class Print> std::string written(Print print) {
    CountingBuffer buffer;
    std::ostream target(&buffer);
    aio_ostream stream(target);
    print(stream);
    std::string const text = buffer.str();
    EXPECT_TRUE(text.empty() || text.back() == '\n');
    EXPECT_EQ(buffer.flushes, std::count(text.begin(), text.end(), '\n'));
    return text;
}

/// The same of a report of one shape.
template <class Element> std::string reported(Element const & element, void (Element::*print)(aio_ostream &) const) {
    return written([&](aio_ostream & stream) { (element.*print)(stream); });
}

int count(std::string const & text, std::string const & part) {
    int found = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

std::uint64_t digestOf(std::string const & text) {
    Digest digest;
    for (char const letter : text)
        digest.add(letter);
    return digest.value();
}

/// The text with "@" for each address.
std::string withoutAddresses(std::string text) {
    for (auto at = text.find("0x"); at != std::string::npos; at = text.find("0x", at))
        text.replace(at, text.find('\n', at) - at, "@");
    return text;
}

} // namespace

TEST(Reports, OfATriangle) {
    shp_Shape const & s = shapeOf("CPS3");
    std::ostringstream address;
    address << "Nodes per edge: " << static_cast<void const *>(s.nodesPerEdgeTbl) << '\n';
    std::string const members = reported(s, &shp_Shape::PrintMembers);
    EXPECT_EQ(count(members, address.str()), 1);
    EXPECT_EQ(reported(s, &shp_Shape::PrintMembersInTable) + withoutAddresses(members),
              R"(2 2  3  1 1 3 3 2 2 F F F F F T F T F 1 F F F F F 
-----------
Geometry dimensions, Spatial dimensions: 2, 2
Nodes, Integration points and faces per elem: 3, 1, 1
Nodes, edges on face 0: 3, 3
Nodes per edge: @
Max edges, nodes per face, max nodes per edge: 3, 3, 2
Max integration points per face: 2
isAxiSymmetric, isInteraction, isInternal: F, F, F
isSurface, isRigid, hasResults: F, F, T
isSweepable, isExtrudable, isShrinkable: T, T, T
isAnalyticalRigidSurface, hasBoundingBoxSize: F, T
draw1DNormal: T
interpolationOrder: 1
isTwistedElement: F
isCaxaElement: F
--------------------------------------
)");
    EXPECT_EQ(reported<shp_Topology>(s, &shp_Topology::PrintConnectivityTable) +
                  reported<shp_Topology>(s, &shp_Topology::PrintWeights),
              R"(3 
3 
2 2 2   
0 1 2 

0 1   1 2   2 0   

  Centroid, Node and Int. Point Isoparametric Locations
0.3333333 0.3333333 0
0 0 0
1 0 0
0 1 0
0.3333333 0.3333333 0
   Face Centroid Isoparametric locations
     0.5 0 0
     0.5 0.5 0
     0 0.5 0
   Integration Point Weights
0.3333333 0.3333333 0.3333333 
  No Weights Available
)");
    EXPECT_EQ(reported(s, &shp_Shape::PrintInverseTable),
              R"(nEdge= 3, nUniqueEdge= 3, nCorner= 3, edgesMask=00000007, facesMask=00000001
faceCornersTable:
0 1 2 
faceNodeMaskTable: 
00000001 00000001 00000001 
faceEdgeMaskTable: 
00000007
edgeEndsTable: 
0,1 1,2 2,0 
edgeFromNodesTable: 
6.4 0.0 0.2 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4
0.0 6.4 0.1 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4 6.4
0.2 0.1 6.4 
edgesFromNodesTable: 
0| 1:0.0 | 1:0.2 | 0| 0| 0| 0| 0
0| 0| 0| 0| 0| 0| 0| 0
1:0.0 | 0| 1:0.1 | 0| 0| 0| 0| 0
0| 0| 0| 0| 0| 0| 0| 0
1:0.2 | 1:0.1 | 0| 
edgeNodeMaskTable: 
00000005 00000003 00000006 
edgeFaceMaskTable: 
00000001 00000001 00000001 
----------------------------------------------------------------------
)");
}

TEST(Reports, ListHasEveryLabelInOrder) {
    std::string const text = reported(dictionary(), &shp_ShapeDictionary::PrintShape);
    std::string expected;
    forEachShape([&](shp_Shape const & s) {
        expected += "Version 5 Type: " + std::string(s.label.CStr()) + '\n' + reported(s, &shp_Shape::PrintMembers);
    });
    EXPECT_TRUE(text == expected);
    EXPECT_EQ(count(text, "Version 5 Type: "), numLabels);
    EXPECT_EQ(digestOf(withoutAddresses(text)), 0x2e3ef50593371c2cu);
}

// Of a fresh dictionary, which numbers its shapes in label order. The stream stays as the last step set it: left behind
// the table, right behind a row.
TEST(Reports, TableHasFourSectionsOverAllLabels) {
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
    std::string const text = written([](aio_ostream & stream) {
        dictionary().PrintShapeTable(stream);
        stream << aio_setwidth(3) << 7 << "|" << aio_endl;
        shapeOf("C3D8").PrintMembersInTable(stream);
        stream << aio_setwidth(3) << 7 << "|" << aio_endl;
    });
    unsigned int next = 0;
    forEachShape([&](shp_Shape const & s) { EXPECT_EQ(s.shapeRef, next++); });
    EXPECT_EQ(count(text, "---- "), 2 * numLabels);
    EXPECT_EQ(count(text, "\n7  |\n") + count(text, "\n  7|\n"), 2);
    EXPECT_EQ(digestOf(text), 0x708b8af5efd662e1u);
}

TEST(Reports, ScriptHasOneLineForEachLabel) {
    std::ostringstream expected;
    forEachShape([&](shp_Shape const & s) {
        expected << "    shapeMap[\"" << s.label.CStr() << "\"] = " << s.NumNodesPerElem() << '\n';
    });
    std::string const text = reported(dictionary(), &shp_ShapeDictionary::PrintLabelToNodecountTable);
    auto const first = text.find("    shapeMap[\"");
    EXPECT_EQ(count(text, "shapeMap[\""), numLabels + 1);
    EXPECT_TRUE(text.substr(first, expected.str().size()) == expected.str());
    EXPECT_EQ(count(text, "\"CAXA42\"] = 12\n") + count(text, "\"FP2D2T\"] = 6\n"), 2);
    std::string const box(66, '*');
    EXPECT_EQ(text.substr(0, first), "# A mapping of element label to the number of nodes\n#" + box + R"(
#****                                                          ****
#****DO NOT HAND EDIT GENERATED USING                          ****
#****znb -test module/shp/test/impl/shpT_UpgradeTest           ****
#****                                                          ****
#)" + box + "\n#\ndef shp_GenerateShapeMap():\n    shapeMap = {}\n");
    EXPECT_EQ(text.substr(first + expected.str().size()),
              "# unsupported elements\n    shapeMap[\"unsupported\"] = 0\n    return shapeMap\n"
              "shp_NodesPerElement = shp_GenerateShapeMap()\n");
}

// What no label lacks, and a count of edge uses that none has: seven masks in the last row share it with what follows.
TEST(Reports, SayOrLeaveOutWhatAnElementLacks) {
    constexpr int edgesOfFaces[] = {4, 3, 4, 4};
    shp_Topology bare(*static_cast<LongKey const *>(dictionary().Keys().ConstGet("C3D8")));
    bare.edgesPerFaceTbl = edgesOfFaces;
    for (int faces = 2; faces <= 4; ++faces) {
        bare.numFacesPerElem = faces;
        std::string const text = written([&](aio_ostream & stream) { shapeOf("C3D8").PrintInverse(bare, stream); });
        EXPECT_EQ(count(text, " ---"), faces == 3 ? 0 : 1);
    }
    bare.intPtLocationTable = bare.faceWeights = nullptr;
    float * const owned = std::exchange(bare.intPointNodeWeights, nullptr);
    std::string const text = reported(bare, &shp_Topology::PrintWeights);
    bare.intPointNodeWeights = owned;
    EXPECT_EQ(count(text, "-1 1 1\n   Face Centroid"), 1);
    EXPECT_EQ(count(text, "Weights\n No Integration Point Weights\n   Node Weights\n"), 1);
    EXPECT_EQ(count(text, "Face Weights"), 0);
    EXPECT_EQ(reported(shp_Topology(LongKey()), &shp_Topology::PrintConnectivityTable), "\n\n\n\n\n");
    bare.edgesPerFaceTbl = nullptr;
    EXPECT_EQ(count(reported(bare, &shp_Topology::PrintTopology), "\n"), 15);
}
