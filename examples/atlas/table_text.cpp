#include "table_text.h"

#include "element_kind.h"

#include <algorithm>
#include <charconv>
#include <functional>

namespace {

std::string padded(std::string text, std::size_t width) {
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

std::string bothBases(char const * element, int number, std::size_t width) {
    auto const one = [&](char const * style, int shown) {
        return std::string("<") + element + " class=\"" + style + "\">" + padded(std::to_string(shown), width) + "</" +
               element + ">";
    };
    return one("b0", number) + one("b1", number + 1);
}

constexpr int numberWidth = 4;

std::string joined(std::vector<int> const & numbers) {
    std::string text;
    for (int number : numbers)
        text += numberHtml(number, numberWidth);
    return text;
}

/// Rows of floats under column heads.
struct FloatTable {
    std::string corner; ///< what the rows are: "node"
    int rows, columns;
    std::function<float(int, int)> value;

    /// `columnHead(column, width)` is aligned to the right.
    std::string text(std::string (*columnHead)(int, std::size_t)) const {
        std::size_t width = 6;
        for (int i = 0; i < rows; ++i)
            for (int k = 0; k < columns; ++k)
                width = std::max(width, floatText(value(i, k)).size() + 2);
        std::string lines = corner;
        for (int k = 0; k < columns; ++k)
            lines += columnHead(k, width);
        lines += '\n';
        for (int i = 0; i < rows; ++i) {
            lines += numberHtml(i, static_cast<int>(corner.size()));
            for (int k = 0; k < columns; ++k)
                lines += padded(floatText(value(i, k)), width);
            lines += '\n';
        }
        return lines;
    }
};

std::string coordinateHead(int column, std::size_t width) {
    return padded(coordinateName(column), width);
}

std::string numberHead(int column, std::size_t width) {
    return numberHtml(column, static_cast<int>(width));
}

TextTable locations(shp_Shape const & shape, char const * title, char const * what, int rows, float const * table) {
    int const columns = shape.numGeometryDimensions;
    FloatTable const floats{what, rows, columns, [table](int row, int column) { return table[3 * row + column]; }};
    return {title, std::string("One row for each ") + what + ": isoparametric coordinates.",
            floats.text(coordinateHead)};
}

TextTable weights(char const * title, char const * row, char const * column, int rows, int columns,
                  float const * table) {
    FloatTable const floats{row, rows, columns, [=](int i, int k) { return table[i * columns + k]; }};
    return {title, std::string("One row for each ") + row + ", one column for each " + column + ".",
            floats.text(numberHead)};
}

} // namespace

std::string floatText(float value) {
    char text[32];
    auto const end = std::to_chars(text, text + sizeof text, value == 0 ? 0 : value).ptr;
    return {text, end};
}

std::string numberHtml(int number, int width) {
    return bothBases("span", number, static_cast<std::size_t>(width));
}

std::string numberSvg(int number) {
    return bothBases("tspan", number, 0);
}

std::vector<TextTable> connectivityTables(shp_Shape const & shape) {
    std::string faces = "face  nodes\n", edges = "face  edge  nodes\n", triangles;
    for (int face = 0; face < shape.numFacesPerElem; ++face) {
        std::vector<int> nodes;
        for (int i = 0; i < shape.NumNodesPerFace(face); ++i)
            nodes.push_back(shape.FaceNodeIndex(face, i));
        faces += numberHtml(face, 4) + "  " + joined(nodes) + '\n';
        for (int edge = 0; edge < shape.NumEdgesPerFace(face); ++edge) {
            nodes.clear();
            for (int i = 0; i < shape.NumNodesPerEdge(face, edge); ++i)
                nodes.push_back(shape.EdgeNodeIndex(face, edge, i));
            edges += numberHtml(face, 4) + "  " + numberHtml(edge, 4) + "  " + joined(nodes) + '\n';
        }
    }
    std::vector<TextTable> tables = {
        {"Nodes of the faces", "Corners in order around the face, then midsides, then the centre node.", faces},
        {"Nodes of the edges", "Each edge as its face uses it: from end to end, a middle node between.", edges}};
    for (int i = 0; i < shape.numFaceTriangles && shape.faceTriTbl; ++i)
        triangles += joined({shape.faceTriTbl + 3 * i, shape.faceTriTbl + 3 * i + 3}) + '\n';
    if (!triangles.empty())
        tables.push_back({"Surface triangles", "One row for each triangle: its nodes.", triangles});
    if (shape.reverseConnTbl)
        tables.push_back({"Turned inside out", "The old place of each node in the new order.",
                          joined({shape.reverseConnTbl, shape.reverseConnTbl + shape.baseNodesPerElem}) + '\n'});
    return tables;
}

std::vector<TextTable> locationTables(shp_Shape const & shape) {
    std::vector<TextTable> tables = {
        locations(shape, "Nodes", "node", shape.baseNodesPerElem, shape.nodeLocationTable),
        locations(shape, "Integration points", "point", shape.baseIntPtsPerElem, shape.intPtLocationTable)};
    if (shape.numGeometryDimensions == 2 && shape.numSpatialDimensions == 2)
        tables.push_back(
            locations(shape, "Edge centres", "edge", shape.NumEdgesPerFace(0), shape.faceCenterLocationTable));
    else
        tables.push_back(
            locations(shape, "Face centres", "face", shape.numFacesPerElem, shape.faceCenterLocationTable));
    return tables;
}

std::vector<TextTable> weightTables(shp_Shape const & shape) {
    int const points = shape.baseIntPtsPerElem;
    std::vector<TextTable> tables;
    if (shape.nodeWeights)
        tables.push_back(weights("From integration points to nodes", "node", "integration point",
                                 shape.baseNodesPerElem, points, shape.nodeWeights));
    if (shape.faceWeights)
        tables.push_back(weights("From integration points to faces", "face", "integration point", shape.numFacesPerElem,
                                 points, shape.faceWeights));
    if (shape.cylCentroidWeights)
        tables.push_back(
            weights("To the centroid", "row", "entry", 1, shape.numIntPtsPerElem, shape.cylCentroidWeights));
    return tables;
}
