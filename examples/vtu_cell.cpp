#include "vtu_cell.h"

#include <shp_KeyBit.h>

#include <algorithm>
#include <array>
#include <span>
#include <stdexcept>

namespace {

using Location = std::array<float, 3>;

// Parametric coordinates of the cells' nodes as the file format documents them, each from 0 to 1, nodes in order.
// Cells of lower order have the leading nodes.
// clang-format off

constexpr Location triangleNodes[] = {
    {0, 0, 0}, {1, 0, 0}, {0, 1, 0},                                      // corners
    {0.5f, 0, 0}, {0.5f, 0.5f, 0}, {0, 0.5f, 0}};                         // midsides

constexpr Location quadNodes[] = {
    {0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},                           // corners
    {0.5f, 0, 0}, {1, 0.5f, 0}, {0.5f, 1, 0}, {0, 0.5f, 0},               // midsides
    {0.5f, 0.5f, 0}};                                                     // centre

constexpr Location tetraNodes[] = {
    {0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1},                           // corners
    {0.5f, 0, 0}, {0.5f, 0.5f, 0}, {0, 0.5f, 0},                          // midsides of the base
    {0, 0, 0.5f}, {0.5f, 0, 0.5f}, {0, 0.5f, 0.5f}};                      // midsides to the apex

constexpr Location hexNodes[] = {
    {0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},                           // corners of the lower face
    {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1},                           // of the upper face
    {0.5f, 0, 0}, {1, 0.5f, 0}, {0.5f, 1, 0}, {0, 0.5f, 0},               // midsides of the lower face
    {0.5f, 0, 1}, {1, 0.5f, 1}, {0.5f, 1, 1}, {0, 0.5f, 1},               // of the upper face
    {0, 0, 0.5f}, {1, 0, 0.5f}, {1, 1, 0.5f}, {0, 1, 0.5f},               // of the edges between them
    {0, 0.5f, 0.5f}, {1, 0.5f, 0.5f}, {0.5f, 0, 0.5f}, {0.5f, 1, 0.5f},   // centres of the sides
    {0.5f, 0.5f, 0}, {0.5f, 0.5f, 1},                                     // of the lower and upper face
    {0.5f, 0.5f, 0.5f}};                                                  // centre

constexpr Location wedgeNodes[] = {
    {0, 0, 0}, {1, 0, 0}, {0, 1, 0},                                      // corners of the lower triangle
    {0, 0, 1}, {1, 0, 1}, {0, 1, 1},                                      // of the upper triangle
    {0.5f, 0, 0}, {0.5f, 0.5f, 0}, {0, 0.5f, 0},                          // midsides of the lower triangle
    {0.5f, 0, 1}, {0.5f, 0.5f, 1}, {0, 0.5f, 1},                          // of the upper triangle
    {0, 0, 0.5f}, {1, 0, 0.5f}, {0, 1, 0.5f},                             // of the edges between them
    {0.5f, 0, 0.5f}, {0.5f, 0.5f, 0.5f}, {0, 0.5f, 0.5f}};                // centres of the sides

// clang-format on

/// A family's cells: node count and type number of each, and the table for all of them.
struct CellFamily {
    int shape;
    std::array<std::array<int, 2>, 3> nodesAndType;
    std::span<Location const> nodes;
    std::array<bool, 3> isCentred; ///< this library's coordinate runs from -1 to 1, not from 0 to 1
};

constexpr CellFamily families[] = {{shp_keyTri, {{{3, 5}, {6, 22}}}, triangleNodes, {false, false, false}},
                                   {shp_keyQuad, {{{4, 9}, {8, 23}, {9, 28}}}, quadNodes, {true, true, false}},
                                   {shp_keyTetra, {{{4, 10}, {10, 24}}}, tetraNodes, {false, false, false}},
                                   {shp_keyHex, {{{8, 12}, {20, 25}, {27, 29}}}, hexNodes, {true, true, true}},
                                   {shp_keyPrism, {{{6, 13}, {15, 26}, {18, 32}}}, wedgeNodes, {false, false, true}}};

Location parametricLocation(shp_Topology const & shape, int node, CellFamily const & family) {
    Location location;
    shape.GetNodeIsoCoords(node, location.data());
    for (std::size_t d = 0; d < location.size(); ++d)
        if (family.isCentred[d])
            location[d] = (location[d] + 1) / 2;
    return location;
}

/// The element's node at each of the cell's node locations; each node exactly once.
std::vector<int> matchNodes(shp_Topology const & shape, CellFamily const & family) {
    std::vector<Location> ours;
    for (int node = 0; node < shape.BaseNodesPerElem(); ++node)
        ours.push_back(parametricLocation(shape, node, family));

    std::vector<int> fromLibrary;
    for (Location const & wanted : family.nodes.first(ours.size())) {
        if (std::count(ours.begin(), ours.end(), wanted) != 1)
            throw std::runtime_error("a node of the file's cell is not exactly one node of the element");
        fromLibrary.push_back(static_cast<int>(std::find(ours.begin(), ours.end(), wanted) - ours.begin()));
    }
    return fromLibrary;
}

} // namespace

VtuCell vtuCellOf(shp_Topology const & shape) {
    for (CellFamily const & family : families)
        if (family.shape == shape.options.Shape())
            for (auto const & [nodes, type] : family.nodesAndType)
                if (nodes == shape.BaseNodesPerElem())
                    return {type, matchNodes(shape, family)};
    throw std::runtime_error("the file format has no cell with this shape and node count");
}
