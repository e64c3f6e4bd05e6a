#include "nodal_average.h"

#include <res_OutputPositionEnm.h>

#include <algorithm>
#include <bit>
#include <cmath>

NodalStresses::NodalStresses(MeshPart const & meshPart)
    : own(meshPart), sums(meshPart.numNodes(), Stress{}), counts(meshPart.numNodes(), 0) {}

std::vector<SeamStress> NodalStresses::addElements(shp_Topology const & shape, PartResults const & results) {
    std::vector<SeamStress> listed;
    auto const stride = static_cast<std::size_t>(shape.BaseIntPtsPerElem()) * 6;
    float const * values = results.values.data();
    for (auto const & nodes : results.connectivity) {
        float atNodes[BlockMesh::nodesPerElement * 6];
        shape.StdExtrapToNodes(values, res_OutputPosition_INTEGRATION_POINT, atNodes, 6);
        values += stride;
        float const * stress = atNodes;
        for (int node : nodes) {
            if (node >= own.firstNode)
                add(node, stress);
            else
                std::copy_n(stress, 6, listed.emplace_back(SeamStress{node, {}}).stress.begin());
            stress += 6;
        }
    }
    return listed;
}

void NodalStresses::addListed(std::vector<SeamStress> const & entries) {
    for (SeamStress const & entry : entries)
        if (entry.node >= own.firstNode && entry.node < own.endNode)
            add(entry.node, entry.stress.data());
}

void NodalStresses::divide() {
    for (std::size_t n = 0; n < sums.size(); ++n)
        for (double & component : sums[n])
            component /= counts[n];
}

double largestError(BlockMesh const & mesh, NodalStresses const & result) {
    double worst = 0;
    int const nodes = mesh.cells + 1;
    for (int node = result.part().firstNode; node < result.part().endNode; ++node) {
        Stress const exact = blockStress(static_cast<double>(node % nodes) / mesh.cells,
                                         static_cast<double>(node / nodes % nodes) / mesh.cells,
                                         static_cast<double>(node / nodes / nodes) / mesh.cells);
        Stress const & found = result.stresses()[static_cast<std::size_t>(node - result.part().firstNode)];
        for (std::size_t c = 0; c < exact.size(); ++c)
            worst = std::max(worst, std::fabs(found[c] - exact[c]));
    }
    return worst;
}

// FNV-1a, by words.
std::uint64_t fingerprint(NodalStresses const & result, std::uint64_t before) {
    std::uint64_t hash = before == 0 ? 0xcbf29ce484222325u : before;
    for (Stress const & stress : result.stresses())
        for (double component : stress)
            hash = (hash ^ std::bit_cast<std::uint64_t>(component)) * 0x100000001b3u;
    return hash;
}
