// The text reports of every label, line by line, against a second writer, which puts lines together from lists of
// words.

#include "catalogued_shapes.h"

#include "aio_ostream.h"
#include "uti_CoordCont3D.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <sstream>
#include <utility>
#include <vector>

namespace {

using Words = std::vector<std::string>;
using Lines = std::vector<std::string>;

/// What `print` writes to a stream: complete lines.
template <class Print> Lines written(Print print) {
    std::ostringstream text;
    aio_ostream stream(text);
    print(stream);
    EXPECT_TRUE(text.str().empty() || text.str().back() == '\n');
    Lines lines;
    std::istringstream reader(text.str());
    for (std::string line; std::getline(reader, line);)
        lines.push_back(line);
    return lines;
}

void expectLines(Lines const & actual, Lines const & expected) {
    auto const [a, e] = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    EXPECT_TRUE(a == actual.end() && e == expected.end())
        << "line " << a - actual.begin() << "\nhas   \"" << (a == actual.end() ? "its end" : *a) << "\"\nwants \""
        << (e == expected.end() ? "its end" : *e) << "\"";
}

template <class... Value> std::string format(char const * pattern, Value... values) {
    char text[256];
    std::snprintf(text, sizeof text, pattern, values...);
    return text;
}

std::string flag(bool value) {
    return value ? "T" : "F";
}

std::string mask(unsigned int value) {
    return format("%08x", value);
}

std::string number(float value) {
    return format("%.7g", static_cast<double>(value));
}

std::string pair(shp_InverseTopoTable::EdgeUse use) {
    return format("%d.%d", use.face, use.edge);
}

void append(Lines & lines, Lines const & more) {
    lines.insert(lines.end(), more.begin(), more.end());
}

std::string join(Words const & words, std::string const & separator) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i)
        text += (i == 0 ? "" : separator) + words[i];
    return text;
}

template <class Make> Words words(int count, Make make) {
    Words result;
    for (int i = 0; i < count; ++i)
        result.push_back(make(i));
    return result;
}

/// Full rows end at their last word, the row that is not full with a separator.
Lines rows(Words const & items, std::size_t length, std::string const & separator = " ") {
    Lines lines;
    for (auto first = items.begin(); first != items.end();) {
        auto const left = static_cast<std::size_t>(items.end() - first);
        auto const last = first + static_cast<std::ptrdiff_t>(std::min(left, length));
        lines.push_back(join({first, last}, separator) + (left < length ? separator : ""));
        first = last;
    }
    return lines;
}

Lines members(shp_Topology const & s) {
    Lines lines = {
        "-----------",
        format("Geometry dimensions, Spatial dimensions: %d, %d", s.NumGeometryDimensions(), s.NumSpatialDimensions()),
        format("Nodes, Integration points and faces per elem: %d, %d, %d", s.NumNodesPerElem(), s.numIntPtsPerElem,
               s.NumFacesPerElem())};
    append(lines, words(s.NumFacesPerElem(), [&](int face) {
               return format("Nodes, edges on face %d: %d, %d", face, s.NumNodesPerFace(face), s.NumEdgesPerFace(face));
           }));
    append(lines,
           {format("Nodes per edge: %p", static_cast<void const *>(s.nodesPerEdgeTbl)),
            format("Max edges, nodes per face, max nodes per edge: %d, %d, %d", s.maxEdgesPerFace, s.maxNodesPerFace,
                   s.maxNodesPerEdge),
            format("Max integration points per face: %d", s.maxIntPtsPerFace),
            "isAxiSymmetric, isInteraction, isInternal: " +
                join({flag(s.isAxiSymmetric), flag(s.isInteraction), flag(s.isInternal)}, ", "),
            "isSurface, isRigid, hasResults: " + join({flag(s.isSurface), flag(s.isRigid), flag(s.hasResults)}, ", "),
            "isSweepable, isExtrudable, isShrinkable: T, T, T",
            "isAnalyticalRigidSurface, hasBoundingBoxSize: " + flag(s.isAnalyticalRigidSurface) + ", T",
            "draw1DNormal: T", format("interpolationOrder: %d", s.interpolationOrder),
            "isTwistedElement: " + flag(s.isTwistedElement), "isCaxaElement: " + flag(s.isCaxaElement),
            std::string(38, '-')});
    return lines;
}

/// The row's words by the names that the table's heading gives them, and the one that it does not name.
std::map<std::string, std::string> cells(shp_Topology const & s) {
    auto const text = [](int value) { return std::to_string(value); };
    return {{"Number of geometry dimensions", text(s.NumGeometryDimensions())},
            {"Number of spatial dimensions", text(s.NumSpatialDimensions())},
            {"Number of nodes per element", format("%2d", s.NumNodesPerElem())},
            {"Number of integration points per element", format("%2d", s.numIntPtsPerElem)},
            {"Number of faces per element", text(s.NumFacesPerElem())},
            {"Maximum edges per face", text(s.maxEdgesPerFace)},
            {"Maximum nodes per face", text(s.maxNodesPerFace)},
            {"Maximum nodes per edge", text(s.maxNodesPerEdge)},
            {"Maximum integration points per face", text(s.maxIntPtsPerFace)},
            {"isAxiSymmetric flag", flag(s.isAxiSymmetric)},
            {"isInteraction flag", flag(s.isInteraction)},
            {"isInternal flag", flag(s.isInternal)},
            {"isSurface flag", flag(s.isSurface)},
            {"isRigid flag", flag(s.isRigid)},
            {"hasResults flag", flag(s.hasResults)},
            {"isSweepable flag", flag(s.isSweepable)},
            {"isExtrudable flag", flag(s.isExtrudable)},
            {"isAnalyticalRigidSurface flag", flag(s.isAnalyticalRigidSurface)},
            {"interpOrder", text(s.interpolationOrder)},
            {"isTwistedElement flag", flag(s.isTwistedElement)},
            {"isCaxaElement flag", flag(s.isCaxaElement)},
            {"unnamed", flag(s.isUnassigned73)},
            {"isFluidpipeThermal flag", flag(s.isFluidpipeThermal)},
            {"isFluidpipeAnnulusThermal flag", flag(s.isFluidpipeAnnulusThermal)}};
}

std::vector<int> identity(shp_Topology const & s) {
    std::vector<int> nodes(static_cast<std::size_t>(s.NumNodesPerElem()));
    for (std::size_t i = 0; i < nodes.size(); ++i)
        nodes[i] = static_cast<int>(i);
    return nodes;
}

/// Numbers with a blank behind each.
std::string list(int const * first, int count) {
    return join(words(count, [&](int i) { return std::to_string(first[i]) + " "; }), "");
}

Lines connectivity(shp_Topology const & s) {
    std::vector<int> const local = identity(s);
    std::vector<int> out(local.size());
    Lines lines(3), edgeLines;
    for (int face = 0; face < s.NumFacesPerElem(); ++face) {
        int const edges = s.NumEdgesPerFace(face);
        lines[0] += format("%d ", edges);
        lines[1] += format("%d ", s.NumNodesPerFace(face));
        lines[2] +=
            join(words(edges, [&](int edge) { return format("%d ", s.NumNodesPerEdge(face, edge)); }), "") + "  ";
        s.FaceConnectivity(local.data(), face, out.data());
        lines.push_back(list(out.data(), s.NumNodesPerFace(face)));
        edgeLines.push_back(join(words(edges,
                                       [&](int edge) {
                                           s.EdgeConnectivity(local.data(), face, edge, out.data());
                                           return list(out.data(), s.NumNodesPerEdge(face, edge)) + "  ";
                                       }),
                                 ""));
    }
    lines.push_back("");
    append(lines, edgeLines);
    lines.push_back("");
    return lines;
}

/// An empty line follows a full last row, and one more a block of several rows.
void appendBlocks(Lines & lines, std::string const & indent, float const * weights, int blocks, int length) {
    for (int block = 0; block < blocks; ++block, weights += length) {
        Words const values = words(length, [&](int i) { return number(weights[i]) + " "; });
        Lines part = rows(values, 8, "");
        part.front().insert(0, indent);
        part.resize(part.size() + (length > 8) + (length % 8 == 0));
        append(lines, part);
    }
}

/// Sum of weights times node locations, as x y z.
template <class Real> std::string weightedLocation(shp_Topology const & s, float const * weights, int count) {
    return join(words(3,
                      [&](int axis) {
                          Real sum = 0;
                          for (int node = 0; node < count; ++node)
                              sum += Real{weights[node]} * Real{s.IsoNodeLocationTable()[3 * node + axis]};
                          return number(static_cast<float>(sum));
                      }),
                " ");
}

Lines weights(shp_Topology const & s) {
    if (s.isCaxaElement)
        return {};
    int const nodes = s.BaseNodesPerElem(), points = s.BaseIntPtsPerElem();
    float const * const iso = s.IsoNodeLocationTable();
    std::vector<float> counted(static_cast<std::size_t>(nodes), 1);
    for (int node = 1; node < nodes; ++node)
        if (std::equal(iso + 3 * node, iso + 3 * node + 3, iso + 3 * node - 3))
            counted[static_cast<std::size_t>(node)] = 0;
    float const share = 1.0f / static_cast<float>(std::count(counted.begin(), counted.end(), 1.0f));
    Words const centroid = words(3, [&](int axis) {
        float sum = 0;
        for (int node = 0; node < nodes; ++node)
            sum += counted[static_cast<std::size_t>(node)] * iso[3 * node + axis];
        return number(sum * share);
    });

    Lines lines = {"  Centroid, Node and Int. Point Isoparametric Locations", join(centroid, " ")};
    append(lines, words(nodes, [&](int node) {
               return join(words(3, [&](int axis) { return number(iso[3 * node + axis]); }), " ");
           }));
    int const rowLength = nodes == 27 ? 20 : nodes;
    append(lines, words(points, [&](int point) {
               return weightedLocation<float>(s, s.intPointNodeWeights + point * rowLength, rowLength);
           }));
    lines.push_back("   Face Centroid Isoparametric locations");
    append(lines, words(s.NumSpatialDimensions() == 2 ? s.NumEdgesPerFace(0) : s.NumFacesPerElem(), [&](int face) {
               return "     " + weightedLocation<double>(s, s.GetFcCenterNodeWeights(face), nodes);
           }));
    lines.push_back("   Integration Point Weights");
    appendBlocks(lines, "", s.intPointNodeWeights, points, nodes);
    lines.push_back(points == 1 ? "  No Weights Available" : "   Node Weights");
    if (points > 1) {
        appendBlocks(lines, "    ", s.nodeWeights, nodes, points);
        lines.push_back("   Face Weights");
        appendBlocks(lines, "    ", s.faceWeights, s.NumFacesPerElem(), points);
    }
    return lines;
}

void appendTable(Lines & lines, char const * heading, Lines const & table) {
    lines.push_back(heading);
    append(lines, table);
}

Lines maskRows(unsigned int const * masks, int count) {
    return rows(words(count, [&](int i) { return mask(masks[i]); }), 8);
}

Lines maskPairRows(shp_InverseTopoTable::MaskPair const * pairs, int count) {
    return rows(words(2 * count, [&](int i) { return mask(i % 2 == 0 ? pairs[i / 2].first : pairs[i / 2].second); }),
                8);
}

Lines edgeEnds(shp_Shape const & s) {
    Lines lines(1);
    int count = 0;
    for (int face = 0; face < s.NumFacesPerElem(); ++face)
        for (int edge = 0; edge < s.NumEdgesPerFace(face); ++edge, ++count) {
            if (count == 12)
                lines.emplace_back();
            int ends[2];
            s.EdgeEnds(face, edge, ends);
            lines.back() += format(edge == 0 && face > 0 ? "| %d,%d " : "%d,%d ", ends[0], ends[1]);
        }
    return lines;
}

Words useLists(shp_InverseTopoTable const & s) {
    return words(s.edgeTableSize, [&](int i) {
        auto const & record = s.edgesFromNodesTable[i];
        std::string const uses = join(words(record.count, [&](int u) { return pair(record.uses[u]) + " "; }), "");
        return std::to_string(record.count) + (uses.empty() ? "" : ":" + uses);
    });
}

Lines inverse(shp_Shape const & s) {
    int const nodes = s.BaseNodesPerElem(), faces = s.NumFacesPerElem();
    Lines lines = {format("nEdge=%2d, nUniqueEdge=%2d, nCorner=%2d, edgesMask=%08x, facesMask=%08x", s.nEdge,
                          s.nUniqueEdge, s.nCorner, s.edgesMask, s.facesMask)};
    if (s.NumGeometryDimensions() == 3) {
        appendTable(lines, "UniqueEdgeMasks: ", maskPairRows(s.UniqueEdgeMasks, s.numUniqueEdgeMasks));
        appendTable(lines, "NonUniqueEdgeMasks: ", maskPairRows(s.NonUniqueEdgeMasks, s.numNonUniqueEdgeMasks));
    }
    if (s.NumGeometryDimensions() >= 2) {
        Words const corners =
            words(faces, [&](int face) { return list(s.faceCornersTable + 4 * face, s.faceCornerCounts[face]); });
        appendTable(lines, "faceCornersTable:", {join(corners, "| ")});
        if (s.NumGeometryDimensions() == 3)
            appendTable(
                lines, "faceFromNodesTable: ",
                rows(words(s.faceFromNodesSize, [&](int i) { return std::to_string(s.faceFromNodesTable[i]); }), 32));
        appendTable(lines, "faceNodeMaskTable: ", maskRows(s.faceNodeMaskTable, nodes));
        appendTable(lines, "faceEdgeMaskTable: ",
                    {join(words(faces, [&](int face) { return mask(s.faceEdgeMaskTable[face]); }), " ")});
    }
    if (nodes > 1) {
        appendTable(lines, "edgeEndsTable: ", edgeEnds(s));
        appendTable(lines, "edgeFromNodesTable: ",
                    rows(words(s.edgeTableSize, [&](int i) { return pair(s.edgeFromNodesTable[i]); }), 16));
        appendTable(lines, "edgesFromNodesTable: ", rows(useLists(s), 8, "| "));
        appendTable(lines, "edgeNodeMaskTable: ", maskRows(s.edgeNodeMaskTable, nodes));
        Words masks;
        for (int face = 0; face < faces; ++face)
            append(masks, words(s.NumEdgesPerFace(face),
                                [&](int edge) { return mask(s.edgeFaceMaskTable[4 * face + edge]); }));
        appendTable(lines, "edgeFaceMaskTable: ", rows(masks, 8));
        if (masks.size() % 8 == 0)
            lines.push_back("");
    }
    lines.push_back(std::string(70, '-'));
    return lines;
}

LongKey const & keyOf(char const * label) {
    return *static_cast<LongKey const *>(dictionary().Keys().ConstGet(label));
}

bool hasLine(Lines const & lines, std::string const & start) {
    return std::any_of(lines.begin(), lines.end(), [&](std::string const & line) { return line.starts_with(start); });
}

std::ptrdiff_t countLines(Lines const & lines, std::string const & start) {
    return std::count_if(lines.begin(), lines.end(), [&](std::string const & line) { return line.starts_with(start); });
}

constexpr int numLabels = 862;

} // namespace

TEST(Reports, ListHasEveryLabelInOrder) {
    Lines expected;
    forEachShape([&](shp_Shape const & s) {
        expected.push_back(std::string("Version 5 Type: ") + s.label.CStr());
        append(expected, members(s));
    });
    Lines const lines = written([](aio_ostream & stream) { dictionary().PrintShape(stream); });
    expectLines(lines, expected);
    EXPECT_EQ(countLines(lines, "Version 5 Type: "), numLabels);
    EXPECT_EQ(countLines(lines, "isSweepable, isExtrudable, isShrinkable: T, T, T"), numLabels);
}

TEST(Reports, TableHasFourSectionsOverAllLabels) {
    Lines const lines = written([](aio_ostream & stream) { dictionary().PrintShapeTable(stream); });
    ASSERT_GT(lines.size(), 28u);

    Lines expected = {std::string(18, '-'), "Shape descriptors:", std::string(18, '-'), "Column  1: Version 5 Type"};
    Words names;
    for (std::size_t column = 2; column <= 24; ++column) {
        names.push_back(lines[column + 2].substr(std::string("Column 00: ").size()));
        expected.push_back(format("Column %2d: ", static_cast<int>(column)) + names.back());
    }
    names.insert(names.end() - 2, "unnamed");
    expected.push_back(std::string(51, '-'));
    forEachShape([&](shp_Shape const & s) {
        auto const cellOf = cells(s);
        expected.push_back(format("%18s ", s.label.CStr()));
        for (std::string const & name : names)
            expected.back() += cellOf.at(name) + " ";
    });
    auto const section = [&](char const * title, char const * labelPattern, Lines (*report)(shp_Shape const &)) {
        append(expected, {std::string(31, '-'), title, std::string(31, '-')});
        forEachShape([&](shp_Shape const & s) {
            expected.push_back(format(labelPattern, s.label.CStr()));
            append(expected, report(s));
        });
    };
    section("   Shape Connectivity Tables:", "             ---- %s ----",
            [](shp_Shape const & s) { return connectivity(s); });
    section("   Shape Weight Tables:", "             ---- %s ----", [](shp_Shape const & s) { return weights(s); });
    section("Shape Inverse Topology Tables:", "%18s", inverse);
    expectLines(lines, expected);
}

TEST(Reports, ScriptHasOneLineForEachLabel) {
    Lines const lines = written([](aio_ostream & stream) { dictionary().PrintLabelToNodecountTable(stream); });
    Lines expected;
    forEachShape([&](shp_Shape const & s) {
        expected.push_back(format("    shapeMap[\"%s\"] = %d", s.label.CStr(), s.NumNodesPerElem()));
    });
    ASSERT_EQ(lines.size(), numLabels + 14u);
    expectLines({lines.begin() + 10, lines.end() - 4}, expected);
    for (char const * line : {"    shapeMap[\"CAXA42\"] = 12", "    shapeMap[\"FP2D2T\"] = 6"})
        EXPECT_TRUE(hasLine(lines, line)) << line;
    // The banner is a box, and the script begins below it.
    for (std::size_t i = 1; i < 7; ++i)
        EXPECT_TRUE(lines[i].size() == 67 && lines[i].starts_with("#****") && lines[i].ends_with("****")) << lines[i];
    EXPECT_EQ(lines[4], "#****znb -test module/shp/test/impl/shpT_UpgradeTest           ****");
}

TEST(Reports, SmallestTextsStandAsTheyAre) {
    EXPECT_EQ(written([](aio_ostream & stream) { shapeOf("MASS").PrintInverseTable(stream); }),
              (Lines{"nEdge= 0, nUniqueEdge= 0, nCorner= 1, edgesMask=00000000, facesMask=00000000",
                     "----------------------------------------------------------------------"}));
    EXPECT_EQ(written([](aio_ostream & stream) { shapeOf("CINPE5R").PrintConnectivityTable(stream); }),
              (Lines{"3 ", "5 ", "3 2 2   ", "0 1 2 3 4 ", "", "0 4 1   1 2   3 0   ", ""}));
    EXPECT_TRUE(written([](aio_ostream & stream) { shapeOf("CAXA82").PrintWeightsInTable(stream); }).empty());
    EXPECT_FALSE(
        hasLine(written([](aio_ostream & stream) { shapeOf("S4R").PrintInverseTable(stream); }), "faceFromNodesTable"));
}

// What no label lacks.
TEST(Reports, SayOrLeaveOutWhatAnElementLacks) {
    shp_Topology bare(keyOf("C3D8"));
    bare.intPtLocationTable = bare.faceWeights = nullptr;
    bare.edgesPerFaceTbl = nullptr;
    float * const owned = std::exchange(bare.intPointNodeWeights, nullptr);
    EXPECT_EQ(written([&](aio_ostream & stream) { bare.PrintTopology(stream); }).size(), 15u);
    Lines const report = written([&](aio_ostream & stream) { bare.PrintWeights(stream); });
    bare.intPointNodeWeights = owned;
    EXPECT_EQ(report.at(2 + 8), "   Face Centroid Isoparametric locations");
    EXPECT_TRUE(hasLine(report, " No Integration Point Weights"));
    EXPECT_TRUE(hasLine(report, "   Node Weights") && !hasLine(report, "   Face Weights"));
    bare.numFacesPerElem = 0;
    EXPECT_EQ(written([&](aio_ostream & stream) { bare.PrintConnectivityTable(stream); }), Lines(5));
}

// No label has such a count of edge uses.
TEST(Reports, SevenMasksInTheLastRowShareItWithTheClosingLine) {
    constexpr int edgesOfFaces[] = {4, 3, 4, 4};
    shp_Topology part(keyOf("C3D8"));
    part.edgesPerFaceTbl = edgesOfFaces;
    for (int faces = 2; faces <= 4; ++faces) {
        part.numFacesPerElem = faces;
        Lines const lines = written([&](aio_ostream & stream) { shapeOf("C3D8").PrintInverse(part, stream); });
        EXPECT_EQ(lines.back().find("--"), faces == 3 ? 0 : 7 * std::string("0000000f ").size()) << faces << " faces";
    }
}

TEST(Reports, LeaveTheAdjustmentAsTheirLastStepSetIt) {
    Lines const lines = written([](aio_ostream & stream) {
        shapeOf("C3D8").PrintMembersInTable(stream);
        stream << aio_setwidth(3) << 7 << "|" << aio_endl;
        shapeOf("C3D8").PrintConnectivityTable(stream);
        stream << aio_setwidth(3) << 7 << "|" << aio_endl;
    });
    EXPECT_EQ(lines.at(1), "  7|");
    EXPECT_EQ(lines.back(), "7  |");
}

TEST(Reports, NumberTheShapesOfAFreshDictionaryInLabelOrder) {
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
    written([](aio_ostream & stream) { dictionary().PrintShapeTable(stream); });
    unsigned int next = 0;
    forEachShape([&](shp_Shape const & s) { EXPECT_EQ(s.shapeRef, next++); });
    EXPECT_EQ(next, static_cast<unsigned int>(numLabels));
}
