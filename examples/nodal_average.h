#ifndef nodal_average_h
#define nodal_average_h

#include "block_mesh.h"

#include <array>
#include <cstdint>
#include <vector>

// The stress at the nodes of a mesh in parts: each part is one thread's, or one process's. Whatever the parts, each
// node's sum is formed in ascending order of the elements, so that the results are the same to the last bit:
//
// 1. addElements: every part adds what its elements bring to its own nodes, and lists what they bring to nodes of
//    earlier parts.
// 2. addListed: these lists are added in the order of the parts.
// 3. divide: sums become means.
//
// Parts share nothing but the shape, which nobody writes.

/// What an element brings to a node of an earlier part.
struct SeamStress {
    int node;
    std::array<float, 6> stress;
};

/// Sums, then means, of the stresses at the nodes of a part.
class NodalStresses {
public:
    explicit NodalStresses(MeshPart const & meshPart);

    /// Carries the stresses of the part's elements to their nodes. Returns what nodes of earlier parts get.
    std::vector<SeamStress> addElements(shp_Topology const & shape, PartResults const & results);
    /// Adds those entries whose node is the part's own.
    void addListed(std::vector<SeamStress> const & entries);
    void divide();

    MeshPart const & part() const { return own; }
    std::vector<Stress> const & stresses() const { return sums; }

private:
    void add(int node, float const * stress) {
        auto const slot = static_cast<std::size_t>(node - own.firstNode);
        for (std::size_t c = 0; c < 6; ++c)
            sums[slot][c] += double{stress[c]};
        ++counts[slot];
    }

    MeshPart own;
    std::vector<Stress> sums;
    std::vector<int> counts;
};

/// The largest difference from the exact stress, over the part's nodes.
double largestError(BlockMesh const & mesh, NodalStresses const & result);

/// A number that changes when any bit of any result does. Parts are taken in order; the first starts from 0.
std::uint64_t fingerprint(NodalStresses const & result, std::uint64_t before);

#endif
