// The text reports of every label, against a second writer.

#include "table_laws.h"

#include "aio_ostream.h"
#include "catalogued_shapes.h"

#include <cstdio>
#include <numeric>
#include <sstream>
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

void expectSame(std::string const & actual, std::string const & expected) {
    auto const at = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end()).first;
    EXPECT_TRUE(actual == expected) << "they part behind: "
                                    << std::string(at - std::min<std::ptrdiff_t>(200, at - actual.begin()), at);
}

/// A text that grows by formatted pieces.
struct Text {
    std::string text;

    template <class... Value> void operator()(char const * pattern, Value... values) {
        char piece[256];
        // No pattern reads the 0; without any value compilers take a pattern for a text.
        std::snprintf(piece, sizeof piece, pattern, values..., 0);
        text += piece;
    }
    /// Items with a separator behind each, a line end behind every `length` of them and behind the last.
    template <class Write> void rows(int numItems, int length, char const * separator, Write write) {
        for (int i = 0; i < numItems; ++i) {
            write(i);
            (*this)((i + 1) % length == 0 ? "\n" : separator);
        }
        if (numItems % length != 0)
            (*this)("\n");
    }
    void masks(char const * heading, unsigned int const * masks, int numMasks) {
        (*this)(heading);
        rows(numMasks, 8, " ", [&](int i) { (*this)("%08x", masks[i]); });
    }
};

char flag(bool value) {
    return value ? 'T' : 'F';
}

void members(Text & out, shp_Shape const & s) {
    out("-----------\nGeometry dimensions, Spatial dimensions: %d, %d\nNodes, Integration points and faces per elem: "
        "%d, %d, %d\n",
        s.numGeometryDimensions, s.numSpatialDimensions, s.numNodesPerElem, s.numIntPtsPerElem, s.numFacesPerElem);
    for (int face = 0; face < s.NumFacesPerElem(); ++face)
        out("Nodes, edges on face %d: %d, %d\n", face, s.NumNodesPerFace(face), s.NumEdgesPerFace(face));
    out("Nodes per edge: %p\nMax edges, nodes per face, max nodes per edge: %d, %d, %d\n",
        static_cast<void const *>(s.nodesPerEdgeTbl), s.maxEdgesPerFace, s.maxNodesPerFace, s.maxNodesPerEdge);
    out("Max integration points per face: %d\n", s.maxIntPtsPerFace);
    out("isAxiSymmetric, isInteraction, isInternal: %c, %c, %c\nisSurface, isRigid, hasResults: %c, %c, %c\n",
        flag(s.isAxiSymmetric), flag(s.isInteraction), flag(s.isInternal), flag(s.isSurface), flag(s.isRigid),
        flag(s.hasResults));
    out("isSweepable, isExtrudable, isShrinkable: T, T, T\nisAnalyticalRigidSurface, hasBoundingBoxSize: %c, T\n",
        flag(s.isAnalyticalRigidSurface));
    out("draw1DNormal: T\ninterpolationOrder: %d\nisTwistedElement: %c\nisCaxaElement: %c\n", s.interpolationOrder,
        flag(s.isTwistedElement), flag(s.isCaxaElement));
    out("--------------------------------------\n");
}

/// The names of the table's columns in its heading: counts, flags, the order, flags. A row has one flag more, before
/// the last two.
constexpr char const * columns =
    "Version 5 Type,Number of geometry dimensions,Number of spatial dimensions,Number of nodes per "
    "element,Number of integration points per element,Number of faces per element,Maximum edges per "
    "face,Maximum nodes per face,Maximum nodes per edge,Maximum integration points per "
    "face,isAxiSymmetric flag,isInteraction flag,isInternal flag,isSurface flag,isRigid "
    "flag,hasResults flag,isSweepable flag,isExtrudable flag,isAnalyticalRigidSurface "
    "flag,interpOrder,isTwistedElement flag,isCaxaElement flag,isFluidpipeThermal "
    "flag,isFluidpipeAnnulusThermal flag";

void tableRow(Text & out, shp_Shape const & s) {
    out("%d %d %2d %2d %d %d %d %d %d ", s.numGeometryDimensions, s.numSpatialDimensions, s.numNodesPerElem,
        s.numIntPtsPerElem, s.numFacesPerElem, s.maxEdgesPerFace, s.maxNodesPerFace, s.maxNodesPerEdge,
        s.maxIntPtsPerFace);
    for (bool value : {s.isAxiSymmetric, s.isInteraction, s.isInternal, s.isSurface, s.isRigid, s.hasResults,
                       s.isSweepable, s.isExtrudable, s.isAnalyticalRigidSurface})
        out("%c ", flag(value));
    out("%d %c %c %c %c %c \n", s.interpolationOrder, flag(s.isTwistedElement), flag(s.isCaxaElement),
        flag(s.isUnassigned73), flag(s.isFluidpipeThermal), flag(s.isFluidpipeAnnulusThermal));
}

void connectivity(Text & out, shp_Shape const & s) {
    Text nodeCounts, edgeCounts, faceNodes, edgeNodes;
    for (int face = 0; face < s.NumFacesPerElem(); ++face) {
        out("%d ", s.NumEdgesPerFace(face));
        nodeCounts("%d ", s.NumNodesPerFace(face));
        for (int i = 0; i < s.NumNodesPerFace(face); ++i)
            faceNodes("%d ", s.FaceNodeIndex(face, i));
        for (int edge = 0; edge < s.NumEdgesPerFace(face); ++edge) {
            edgeCounts("%d ", s.NumNodesPerEdge(face, edge));
            for (int i = 0; i < s.NumNodesPerEdge(face, edge); ++i)
                edgeNodes("%d ", s.EdgeNodeIndex(face, edge, i));
            edgeNodes("  ");
        }
        edgeCounts("  ");
        faceNodes("\n");
        edgeNodes("\n");
    }
    for (Text const & part : {nodeCounts, edgeCounts, faceNodes, edgeNodes})
        out.text += "\n" + part.text;
    out("\n");
}

/// The mean of the nodes, for each of several rows of weights.
template <class Real>
void places(Text & out, char const * indent, shp_Topology const & s, float const * weights, int numRows, int length,
            Real factor = 1) {
    for (int row = 0; row < numRows; ++row, weights += length) {
        Real sum[3] = {};
        for (int i = 0; i < 3 * length; ++i)
            sum[i % 3] += Real{weights[i / 3]} * Real{s.IsoNodeLocationTable()[i]};
        out("%s%.7g %.7g %.7g\n", indent, double{sum[0] * factor}, double{sum[1] * factor}, double{sum[2] * factor});
    }
}

/// An empty line follows a full last row, and one more a block of several rows.
void blocks(Text & out, char const * indent, float const * weights, int numBlocks, int length) {
    for (int block = 0; block < numBlocks; ++block, weights += length) {
        out(indent);
        out.rows(length, 8, "", [&](int i) { out("%.7g ", double{weights[i]}); });
        out.text.append((length > 8) + (length % 8 == 0), '\n');
    }
}

void weights(Text & out, shp_Shape const & s) {
    if (s.isCaxaElement)
        return;
    int const nodes = s.BaseNodesPerElem(), points = s.BaseIntPtsPerElem(), faces = s.NumFacesPerElem();
    out("  Centroid, Node and Int. Point Isoparametric Locations\n");
    std::vector<Place> const all = nodesOf(s);
    std::vector<float> shares;
    for (std::size_t i = 0; i < all.size(); ++i)
        shares.push_back(i > 0 && all[i] == all[i - 1] ? 0 : 1);
    places<float>(out, "", s, shares.data(), 1, nodes, 1 / std::accumulate(shares.begin(), shares.end(), 0.0f));
    for (Place const & p : all)
        out("%.7g %.7g %.7g\n", p[0], p[1], p[2]);
    places<float>(out, "", s, s.intPointNodeWeights, points, nodes == 27 ? 20 : nodes);
    out("   Face Centroid Isoparametric locations\n");
    places<double>(out, "     ", s, s.faceCenterNodeWeights,
                   s.NumSpatialDimensions() == 2 ? s.NumEdgesPerFace(0) : faces, nodes);
    out("   Integration Point Weights\n");
    blocks(out, "", s.intPointNodeWeights, points, nodes);
    out(points == 1 ? "  No Weights Available\n" : "   Node Weights\n");
    if (points > 1) {
        blocks(out, "    ", s.nodeWeights, nodes, points);
        out("   Face Weights\n");
        blocks(out, "    ", s.faceWeights, faces, points);
    }
}

void inverse(Text & out, shp_Shape const & s) {
    int const nodes = s.BaseNodesPerElem(), faces = s.NumFacesPerElem(), dimensions = s.NumGeometryDimensions();
    auto const use = [&](shp_InverseTopoTable::EdgeUse u) { out("%d.%d", u.face, u.edge); };
    auto const maskPairs = [&](char const * heading, shp_InverseTopoTable::MaskPair const * pairs, int numPairs) {
        out(heading);
        out.rows(numPairs, 4, " ", [&](int i) { out("%08x %08x", pairs[i].first, pairs[i].second); });
    };
    out("nEdge=%2d, nUniqueEdge=%2d, nCorner=%2d, edgesMask=%08x, facesMask=%08x\n", s.nEdge, s.nUniqueEdge, s.nCorner,
        s.edgesMask, s.facesMask);
    if (dimensions == 3) {
        maskPairs("UniqueEdgeMasks: \n", s.UniqueEdgeMasks, s.numUniqueEdgeMasks);
        maskPairs("NonUniqueEdgeMasks: \n", s.NonUniqueEdgeMasks, s.numNonUniqueEdgeMasks);
    }
    if (dimensions > 1) {
        Text edgeMasks;
        out("faceCornersTable:\n");
        for (int face = 0; face < faces; ++face) {
            out(face > 0 ? "| " : "");
            for (int i = 0; i < s.faceCornerCounts[face]; ++i)
                out("%d ", s.faceCornersTable[4 * face + i]);
            edgeMasks(face > 0 ? " %08x" : "%08x", s.faceEdgeMaskTable[face]);
        }
        out("\n");
        if (dimensions == 3) {
            out("faceFromNodesTable: \n");
            out.rows(s.faceFromNodesSize, 32, " ", [&](int i) { out("%d", s.faceFromNodesTable[i]); });
        }
        out.masks("faceNodeMaskTable: \n", s.faceNodeMaskTable, nodes);
        out.text += "faceEdgeMaskTable: \n" + edgeMasks.text + "\n";
    }
    if (nodes > 1) {
        std::vector<unsigned int> masks;
        out("edgeEndsTable: \n");
        for (int face = 0; face < faces; ++face)
            for (int edge = 0; edge < s.NumEdgesPerFace(face); ++edge) {
                int ends[2];
                s.EdgeEnds(face, edge, ends);
                out(face > 0 && edge == 0 ? "| %d,%d " : "%d,%d ", ends[0], ends[1]);
                masks.push_back(s.edgeFaceMaskTable[4 * face + edge]);
                out(masks.size() == 12 ? "\n" : "");
            }
        out(masks.size() == 12 ? "" : "\n");
        out("edgeFromNodesTable: \n");
        out.rows(s.edgeTableSize, 16, " ", [&](int i) { use(s.edgeFromNodesTable[i]); });
        out("edgesFromNodesTable: \n");
        out.rows(s.edgeTableSize, 8, "| ", [&](int i) {
            auto const & list = s.edgesFromNodesTable[i];
            out(list.count == 0 ? "%d" : "%d:", list.count);
            for (int u = 0; u < list.count; ++u, out(" "))
                use(list.uses[u]);
        });
        out.masks("edgeNodeMaskTable: \n", s.edgeNodeMaskTable, nodes);
        out.masks("edgeFaceMaskTable: \n", masks.data(), static_cast<int>(masks.size()));
        out(masks.size() % 8 == 0 ? "\n" : "");
    }
    out("----------------------------------------------------------------------\n");
}

} // namespace

TEST(Reports, ListHasEveryLabelInOrder) {
    Text expected;
    forEachShape([&](shp_Shape const & s) {
        expected("Version 5 Type: %s\n", s.label.CStr());
        members(expected, s);
    });
    std::string const text = reported(dictionary(), &shp_ShapeDictionary::PrintShape);
    expectSame(text, expected.text);
    EXPECT_EQ(count(text, "Version 5 Type: "), numLabels);
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
    Text expected;
    auto const section = [&](char const * heading, char const * pattern, void (*report)(Text &, shp_Shape const &)) {
        expected(heading);
        forEachShape([&](shp_Shape const & s) {
            expected(pattern, s.label.CStr());
            report(expected, s);
        });
    };
    expected("------------------\nShape descriptors:\n------------------\n");
    int number = 0;
    std::istringstream names(columns);
    for (std::string name; std::getline(names, name, ',');)
        expected("Column %2d: %s\n", ++number, name.c_str());
    section("---------------------------------------------------\n", "%18s ", tableRow);
    std::string const line = "-------------------------------\n";
    section((line + "   Shape Connectivity Tables:\n" + line).c_str(), "             ---- %s ----\n", connectivity);
    section((line + "   Shape Weight Tables:\n" + line).c_str(), "             ---- %s ----\n", weights);
    section((line + "Shape Inverse Topology Tables:\n" + line).c_str(), "%18s\n", inverse);
    expected("7  |\n");
    tableRow(expected, shapeOf("C3D8"));
    expected("  7|\n");
    expectSame(text, expected.text);
}

TEST(Reports, ScriptHasOneLineForEachLabel) {
    Text expected;
    forEachShape(
        [&](shp_Shape const & s) { expected("    shapeMap[\"%s\"] = %d\n", s.label.CStr(), s.NumNodesPerElem()); });
    std::string const text = reported(dictionary(), &shp_ShapeDictionary::PrintLabelToNodecountTable);
    auto const first = text.find("    shapeMap[\"");
    EXPECT_EQ(count(text, "shapeMap[\""), numLabels + 1);
    expectSame(text.substr(first, expected.text.size()), expected.text);
    EXPECT_EQ(count(text, "\"CAXA42\"] = 12\n") + count(text, "\"FP2D2T\"] = 6\n"), 2);
    std::string const box(66, '*');
    EXPECT_EQ(text.substr(0, first), "# A mapping of element label to the number of nodes\n#" + box + R"(
#****                                                          ****
#****DO NOT HAND EDIT GENERATED USING                          ****
#****znb -test module/shp/test/impl/shpT_UpgradeTest           ****
#****                                                          ****
#)" + box + "\n#\ndef shp_GenerateShapeMap():\n    shapeMap = {}\n");
    EXPECT_EQ(text.substr(first + expected.text.size()),
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
