#ifndef block_mesh_h
#define block_mesh_h

#include "cylinder.h"

#include <shp_Topology.h>

#include <array>
#include <cstddef>
#include <vector>

/// A cube of `cells` by `cells` by `cells` 8-node hexahedra, edges 1 long. Nodes and elements are numbered along x,
/// then y, then z.
struct BlockMesh {
    static constexpr int nodesPerElement = 8;

    int cells;

    int numElements() const { return cells * cells * cells; }
    int numNodes() const { return (cells + 1) * (cells + 1) * (cells + 1); }
    int nodeAt(int i, int j, int k) const { return (k * (cells + 1) + j) * (cells + 1) + i; }
};

/// Some layers of elements, and the nodes that belong to the part: those that no earlier part has. Elements and nodes
/// are consecutive.
struct MeshPart {
    int firstElement, endElement;
    int firstNode, endNode;

    std::size_t numElements() const { return static_cast<std::size_t>(endElement - firstElement); }
    std::size_t numNodes() const { return static_cast<std::size_t>(endNode - firstNode); }
};

/// Part `number` of `count` parts of about the same size, not more than there are layers.
MeshPart partOf(BlockMesh const & mesh, int number, int count);

/// What a part of an analysis leaves behind: its elements' nodes, and the stresses at their integration points.
struct PartResults {
    PartResults(BlockMesh const & mesh, MeshPart const & meshPart, shp_Topology const & shape);

    MeshPart part;
    std::vector<std::array<int, BlockMesh::nodesPerElement>> connectivity; ///< by element
    std::vector<float> values;                                             ///< `[elements][points][6]`
};

/// The stress of a cantilever under bending, torsion and a pressure that grows along it: linear along each edge of an
/// element, so that extrapolation carries it exactly but for rounding.
Stress blockStress(double x, double y, double z);

#endif
