// The text report of the inverse topology tables. Its text is a format, down to the blanks at the ends of lines.

#include "aio_ostream.h"
#include "shp_InverseTopoTable.h"
#include "shp_Topology.h"

#include <cstdio>
#include <initializer_list>

namespace {

constexpr int maxEdgesOfFace = 4;
constexpr int maxCornersOfFace = 4;

constexpr int maskRow = 8;        ///< masks on one line
constexpr int faceRow = 32;       ///< faces on one line
constexpr int edgeUseRow = 16;    ///< edge uses on one line
constexpr int useListRow = 8;     ///< lists of edge uses on one line
constexpr int edgeEndsBreak = 12; ///< edges on the first of two lines

/// Divides a list into rows: behind each item comes a separator, or a line end behind the last item of a row.
class Rows {
public:
    Rows(aio_ostream & target, int itemsPerRow, char const * separatorText = " ")
        : stream(target), rowLength(itemsPerRow), separator(separatorText) {}

    void endItem() {
        if (++count % rowLength == 0)
            stream << aio_endl;
        else
            stream << separator;
    }

    /// Ends the last row, if it is not full.
    void finish() {
        if (lastRow() != 0)
            stream << aio_endl;
    }

    /// Items in the last row; 0 when that is full.
    int lastRow() const { return count % rowLength; }

private:
    aio_ostream & stream;
    int const rowLength;
    char const * const separator;
    int count = 0;
};

void writeLine(aio_ostream & stream, char const * text) {
    stream << text << aio_endl;
}

void writeMask(aio_ostream & stream, unsigned int mask) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%08x", mask);
    stream << digits;
}

void writeUse(aio_ostream & stream, shp_InverseTopoTable::EdgeUse use) {
    stream << int{use.face} << "." << int{use.edge};
}

void writeMasks(aio_ostream & stream, char const * heading, unsigned int const * masks, int count) {
    writeLine(stream, heading);
    Rows rows(stream, maskRow);
    for (int i = 0; i < count; ++i) {
        writeMask(stream, masks[i]);
        rows.endItem();
    }
    rows.finish();
}

void writeMaskPairs(aio_ostream & stream, char const * heading, shp_InverseTopoTable::MaskPair const * pairs,
                    int count) {
    if (count == 0)
        return;
    writeLine(stream, heading);
    Rows rows(stream, maskRow);
    for (int i = 0; i < count; ++i)
        for (unsigned int const mask : {pairs[i].first, pairs[i].second}) {
            writeMask(stream, mask);
            rows.endItem();
        }
    rows.finish();
}

void writeCounts(aio_ostream & stream, shp_InverseTopoTable const & table) {
    char text[160];
    std::snprintf(text, sizeof text, "nEdge=%2d, nUniqueEdge=%2d, nCorner=%2d, edgesMask=%08x, facesMask=%08x",
                  table.nEdge, table.nUniqueEdge, table.nCorner, table.edgesMask, table.facesMask);
    writeLine(stream, text);
}

void writeFaceCorners(aio_ostream & stream, shp_InverseTopoTable const & table, int numFaces) {
    writeLine(stream, "faceCornersTable:");
    for (int face = 0; face < numFaces; ++face) {
        if (face > 0)
            stream << "| ";
        for (int i = 0; i < table.faceCornerCounts[face]; ++i)
            stream << table.faceCornersTable[face * maxCornersOfFace + i] << " ";
    }
    stream << aio_endl;
}

void writeFaceFromNodes(aio_ostream & stream, shp_InverseTopoTable const & table) {
    writeLine(stream, "faceFromNodesTable: ");
    Rows rows(stream, faceRow);
    for (int i = 0; i < table.faceFromNodesSize; ++i) {
        stream << table.faceFromNodesTable[i];
        rows.endItem();
    }
    rows.finish();
}

void writeFaceEdgeMasks(aio_ostream & stream, shp_InverseTopoTable const & table, int numFaces) {
    writeLine(stream, "faceEdgeMaskTable: ");
    for (int face = 0; face < numFaces; ++face) {
        if (face > 0)
            stream << " ";
        writeMask(stream, table.faceEdgeMaskTable[face]);
    }
    stream << aio_endl;
}

void writeFaces(aio_ostream & stream, shp_InverseTopoTable const & table, shp_Topology const & topology) {
    writeFaceCorners(stream, table, topology.NumFacesPerElem());
    // With the mask 1 every entry is face 0.
    if (table.facesMask > 1)
        writeFaceFromNodes(stream, table);
    writeMasks(stream, "faceNodeMaskTable: ", table.faceNodeMaskTable, topology.BaseNodesPerElem());
    writeFaceEdgeMasks(stream, table, topology.NumFacesPerElem());
}

/// The line breaks once, behind the twelfth edge, and not again.
void writeEdgeEnds(aio_ostream & stream, shp_InverseTopoTable const & table, shp_Topology const & topology) {
    writeLine(stream, "edgeEndsTable: ");
    int count = 0;
    for (int face = 0; face < topology.NumFacesPerElem(); ++face) {
        int const numEdges = topology.NumEdgesPerFace(face);
        if (face > 0 && numEdges > 0)
            stream << "| ";
        for (int edge = 0; edge < numEdges; ++edge) {
            int ends[2];
            table.EdgeEnds(face, edge, ends);
            stream << ends[0] << "," << ends[1] << " ";
            if (++count == edgeEndsBreak)
                stream << aio_endl;
        }
    }
    if (count != edgeEndsBreak)
        stream << aio_endl;
}

void writeEdgeFromNodes(aio_ostream & stream, shp_InverseTopoTable const & table) {
    writeLine(stream, "edgeFromNodesTable: ");
    Rows rows(stream, edgeUseRow);
    for (int i = 0; i < table.edgeTableSize; ++i) {
        writeUse(stream, table.edgeFromNodesTable[i]);
        rows.endItem();
    }
    rows.finish();
}

void writeUseLists(aio_ostream & stream, shp_InverseTopoTable const & table) {
    writeLine(stream, "edgesFromNodesTable: ");
    Rows rows(stream, useListRow, "| ");
    for (int i = 0; i < table.edgeTableSize; ++i) {
        auto const & list = table.edgesFromNodesTable[i];
        stream << list.count;
        if (list.count != 0)
            stream << ":";
        for (int use = 0; use < list.count; ++use) {
            writeUse(stream, list.uses[use]);
            stream << " ";
        }
        rows.endItem();
    }
    rows.finish();
}

/// Seven masks in the last row are the one case in which what follows stands on the same line; a full row is followed
/// by an empty line.
void writeEdgeFaceMasks(aio_ostream & stream, shp_InverseTopoTable const & table, shp_Topology const & topology) {
    writeLine(stream, "edgeFaceMaskTable: ");
    Rows rows(stream, maskRow);
    for (int face = 0; face < topology.NumFacesPerElem(); ++face)
        for (int edge = 0; edge < topology.NumEdgesPerFace(face); ++edge) {
            writeMask(stream, table.edgeFaceMaskTable[face * maxEdgesOfFace + edge]);
            rows.endItem();
        }
    if (rows.lastRow() != maskRow - 1)
        stream << aio_endl;
}

void writeEdges(aio_ostream & stream, shp_InverseTopoTable const & table, shp_Topology const & topology) {
    writeEdgeEnds(stream, table, topology);
    writeEdgeFromNodes(stream, table);
    writeUseLists(stream, table);
    writeMasks(stream, "edgeNodeMaskTable: ", table.edgeNodeMaskTable, topology.BaseNodesPerElem());
    writeEdgeFaceMasks(stream, table, topology);
}

} // namespace

void shp_InverseTopoTable::PrintInverse(shp_Topology const & topology, aio_ostream & stream) const {
    writeCounts(stream, *this);
    writeMaskPairs(stream, "UniqueEdgeMasks: ", UniqueEdgeMasks, numUniqueEdgeMasks);
    writeMaskPairs(stream, "NonUniqueEdgeMasks: ", NonUniqueEdgeMasks, numNonUniqueEdgeMasks);
    if (facesMask != 0)
        writeFaces(stream, *this, topology);
    if (edgesMask != 0)
        writeEdges(stream, *this, topology);
    writeLine(stream, "----------------------------------------------------------------------");
}
