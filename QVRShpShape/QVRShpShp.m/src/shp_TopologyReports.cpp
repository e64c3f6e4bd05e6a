// The text reports of one element type. Their text is a format: reports on file are compared with it line by line, so
// that fixed values and blanks at the ends of lines are kept as they are.

#include "aio_ostream.h"
#include "shp_Topology.h"
#include "uti_CoordCont3D.h"

#include <numeric>

namespace {

/// The most nodes of one plane.
constexpr int maxNodes = 27;

/// Values of a weight table on one line.
constexpr int blockRow = 8;

/// Significant digits of locations and weights.
constexpr int weightDigits = 7;

void write(aio_ostream & stream, int number) {
    stream << number;
}

void write(aio_ostream & stream, bool flag) {
    stream << (flag ? "T" : "F");
}

void write(aio_ostream & stream, char const * text) {
    stream << text;
}

/// What a report says of an element, or of every element alike.
constexpr char const * always = "T";

/// A line of a labelled dump: "heading: first, second".
template <class First, class... Rest>
void writeLine(aio_ostream & stream, char const * heading, First first, Rest... rest) {
    stream << heading;
    write(stream, first);
    ((stream << ", ", write(stream, rest)), ...);
    stream << aio_endl;
}

void writeLine(aio_ostream & stream, char const * text) {
    stream << text << aio_endl;
}

/// Cells of a table: each is followed by a blank.
template <class... Value> void writeCells(aio_ostream & stream, Value... values) {
    ((write(stream, values), stream.put(' ')), ...);
}

void writeNumbers(aio_ostream & stream, int const * numbers, int count) {
    for (int i = 0; i < count; ++i)
        writeCells(stream, numbers[i]);
}

void writeGroup(aio_ostream & stream, int const * numbers, int count) {
    writeNumbers(stream, numbers, count);
    stream << "  ";
}

void writePosition(aio_ostream & stream, double x, double y, double z) {
    stream << x << " " << y << " " << z << aio_endl;
}

void writePositions(aio_ostream & stream, uti_CoordCont3D const & positions, int count) {
    for (int i = 0; i < count; ++i) {
        float x, y, z;
        positions.GetCoord(i, x, y, z);
        writePosition(stream, x, y, z);
    }
}

/// Rows of eight values. One line end more follows than a reader would expect: a block whose last row is full ends
/// with an empty line, and one of more than eight values with another.
void writeBlock(aio_ostream & stream, float const * values, int count) {
    for (int i = 0; i < count; ++i) {
        stream << static_cast<double>(values[i]) << " ";
        if ((i + 1) % blockRow == 0)
            stream << aio_endl;
    }
    if (count > blockRow)
        stream << aio_endl;
    stream << aio_endl;
}

void writeBlocks(aio_ostream & stream, char const * indent, float const * values, int numBlocks, int blockLength) {
    for (int block = 0; block < numBlocks; ++block) {
        stream << indent;
        writeBlock(stream, values + block * blockLength, blockLength);
    }
}

/// An element that stands where its isoparametric coordinates say.
struct ReferenceElement {
    explicit ReferenceElement(shp_Topology const & topology) {
        std::iota(conn, conn + maxNodes, 0);
        coords.Grow(maxNodes);
        for (int node = 0; node < topology.BaseNodesPerElem(); ++node) {
            float iso[3];
            topology.GetNodeIsoCoords(node, iso);
            coords.SetCoord(node, iso[0], iso[1], iso[2]);
            points[node].Set(iso[0], iso[1], iso[2]);
        }
    }

    int conn[maxNodes];
    uti_CoordCont3D coords;
    g3d_Storage points[maxNodes];
};

void writeLocations(aio_ostream & stream, shp_Topology const & topology, ReferenceElement const & element) {
    writeLine(stream, "  Centroid, Node and Int. Point Isoparametric Locations");
    uti_CoordCont3D centroid;
    centroid.Grow(1);
    topology.Centroid(element.conn, element.coords, centroid, true);
    writePositions(stream, centroid, 1);
    writePositions(stream, element.coords, topology.BaseNodesPerElem());
    if (!topology.intPtLocationTable)
        return;
    uti_CoordCont3D intPoints;
    topology.IntPtCoord(element.coords, element.conn, intPoints, 3);
    writePositions(stream, intPoints, topology.BaseIntPtsPerElem());
}

/// In a two-dimensional model the edges of the one face count as faces.
int numFacesWithCentroid(shp_Topology const & topology) {
    if (topology.NumSpatialDimensions() != 2)
        return topology.NumFacesPerElem();
    return topology.edgesPerFaceTbl ? topology.NumEdgesPerFace(0) : 0;
}

void writeFaceCentroids(aio_ostream & stream, shp_Topology const & topology, ReferenceElement const & element) {
    writeLine(stream, "   Face Centroid Isoparametric locations");
    for (int face = 0; face < numFacesWithCentroid(topology); ++face) {
        g3d_Storage const centroid = topology.GetFaceCentroid(face, element.points, element.conn);
        stream << "     ";
        writePosition(stream, centroid.X(), centroid.Y(), centroid.Z());
    }
}

} // namespace

void shp_Topology::PrintTopology(aio_ostream & stream) const {
    writeLine(stream, "-----------");
    writeLine(stream, "Geometry dimensions, Spatial dimensions: ", numGeometryDimensions, numSpatialDimensions);
    writeLine(stream, "Nodes, Integration points and faces per elem: ", numNodesPerElem, numIntPtsPerElem,
              numFacesPerElem);
    for (int face = 0; edgesPerFaceTbl && face < numFacesPerElem; ++face) {
        stream << "Nodes, edges on face " << face;
        writeLine(stream, ": ", nodesPerFaceTbl[face], edgesPerFaceTbl[face]);
    }
    // The table's address, not its contents: readers of this report count on one value.
    stream << "Nodes per edge: " << static_cast<void const *>(nodesPerEdgeTbl) << aio_endl;
    writeLine(stream, "Max edges, nodes per face, max nodes per edge: ", maxEdgesPerFace, maxNodesPerFace,
              maxNodesPerEdge);
    writeLine(stream, "Max integration points per face: ", maxIntPtsPerFace);
    writeLine(stream, "isAxiSymmetric, isInteraction, isInternal: ", isAxiSymmetric, isInteraction, isInternal);
    writeLine(stream, "isSurface, isRigid, hasResults: ", isSurface, isRigid, hasResults);
    // Whatever the element is: the table row has the flags as they are.
    writeLine(stream, "isSweepable, isExtrudable, isShrinkable: ", always, always, always);
    writeLine(stream, "isAnalyticalRigidSurface, hasBoundingBoxSize: ", isAnalyticalRigidSurface, always);
    writeLine(stream, "draw1DNormal: ", always);
    writeLine(stream, "interpolationOrder: ", interpolationOrder);
    writeLine(stream, "isTwistedElement: ", isTwistedElement);
    writeLine(stream, "isCaxaElement: ", isCaxaElement);
    writeLine(stream, "--------------------------------------");
}

void shp_Topology::PrintTopologyTable(aio_ostream & stream) const {
    stream.setf(aio_iosFlag_RIGHT, aio_iosFlag_ADJUST);
    writeCells(stream, numGeometryDimensions, numSpatialDimensions);
    stream << aio_setwidth(2);
    writeCells(stream, numNodesPerElem);
    stream << aio_setwidth(2);
    writeCells(stream, numIntPtsPerElem, numFacesPerElem, maxEdgesPerFace, maxNodesPerFace, maxNodesPerEdge,
               maxIntPtsPerFace);
    writeCells(stream, isAxiSymmetric, isInteraction, isInternal, isSurface, isRigid, hasResults, isSweepable,
               isExtrudable, isAnalyticalRigidSurface);
    writeCells(stream, interpolationOrder);
    writeCells(stream, isTwistedElement, isCaxaElement, isUnassigned73, isFluidpipeThermal, isFluidpipeAnnulusThermal);
    stream << aio_endl;
}

void shp_Topology::PrintConnectivityTable(aio_ostream & stream) const {
    stream.setf(aio_iosFlag_LEFT, aio_iosFlag_ADJUST);
    writeNumbers(stream, edgesPerFaceTbl, numFacesPerElem);
    stream << aio_endl;
    writeNumbers(stream, nodesPerFaceTbl, numFacesPerElem);
    stream << aio_endl;

    for (int face = 0; face < numFacesPerElem; ++face)
        writeGroup(stream, nodesPerEdgeTbl + face * maxEdgesPerFace, edgesPerFaceTbl[face]);
    stream << aio_endl;

    for (int face = 0; face < numFacesPerElem; ++face) {
        writeNumbers(stream, faceConnTbl + face * maxNodesPerFace, nodesPerFaceTbl[face]);
        stream << aio_endl;
    }
    stream << aio_endl;

    for (int face = 0; face < numFacesPerElem; ++face) {
        for (int edge = 0; edge < edgesPerFaceTbl[face]; ++edge)
            writeGroup(stream, edgeConnTbl + (face * maxEdgesPerFace + edge) * maxNodesPerEdge,
                       NumNodesPerEdge(face, edge));
        stream << aio_endl;
    }
    stream << aio_endl;
}

void shp_Topology::PrintWeights(aio_ostream & stream) const {
    if (isCaxaElement)
        return;
    stream.precision(weightDigits);
    ReferenceElement const element(*this);
    writeLocations(stream, *this, element);
    writeFaceCentroids(stream, *this, element);

    writeLine(stream, "   Integration Point Weights");
    if (intPointNodeWeights)
        writeBlocks(stream, "", intPointNodeWeights, baseIntPtsPerElem, baseNodesPerElem);
    else
        writeLine(stream, " No Integration Point Weights");

    bool const hasSeveralPoints = baseIntPtsPerElem >= 2;
    if (hasSeveralPoints && nodeWeights) {
        writeLine(stream, "   Node Weights");
        writeBlocks(stream, "    ", nodeWeights, baseNodesPerElem, baseIntPtsPerElem);
    } else {
        writeLine(stream, "  No Weights Available");
    }
    if (hasSeveralPoints && faceWeights) {
        writeLine(stream, "   Face Weights");
        writeBlocks(stream, "    ", faceWeights, numFacesPerElem, baseIntPtsPerElem);
    }
}
