#include "stress_recovery.h"

#include <res_OutputPositionEnm.h>

#include <algorithm>
#include <limits>

namespace {

constexpr int numComps = std::tuple_size_v<Stress>;

Stress exactStressAt(Cylinder const & cylinder, Model model, uti_CoordCont3D const & points, int i) {
    float x, y, z;
    points.GetCoord(i, x, y, z);
    return exactStress(cylinder, model, x, y);
}

/// Sums of the elements' nodal stresses, divided by their number.
std::vector<Stress> averageNodalStress(Cylinder const & cylinder, shp_Topology const & shape, Mesh const & mesh) {
    std::vector<Stress> sums(static_cast<std::size_t>(mesh.numNodes), Stress{});
    std::vector<int> counts(static_cast<std::size_t>(mesh.numNodes), 0);
    uti_CoordCont3D intPoints;
    std::vector<float> atIntPoints(static_cast<std::size_t>(shape.BaseIntPtsPerElem() * numComps));
    std::vector<float> atNodes(static_cast<std::size_t>(shape.BaseNodesPerElem() * numComps));

    for (int e = 0; e < mesh.numElements(); ++e) {
        int const * const nodes = mesh.element(e);
        shape.IntPtCoord(mesh.coords, nodes, intPoints, 3);
        for (int p = 0; p < shape.BaseIntPtsPerElem(); ++p) {
            Stress const exact = exactStressAt(cylinder, mesh.model, intPoints, p);
            std::transform(exact.begin(), exact.end(), atIntPoints.begin() + p * numComps,
                           [](double component) { return static_cast<float>(component); });
        }
        shape.StdExtrapToNodes(atIntPoints.data(), res_OutputPosition_INTEGRATION_POINT, atNodes.data(), numComps);

        for (int i = 0; i < mesh.nodesPerElement; ++i) {
            auto const node = static_cast<std::size_t>(nodes[i]);
            for (int c = 0; c < numComps; ++c)
                sums[node][static_cast<std::size_t>(c)] += atNodes[static_cast<std::size_t>(i * numComps + c)];
            ++counts[node];
        }
    }
    for (std::size_t node = 0; node < sums.size(); ++node)
        for (double & component : sums[node])
            component /= counts[node];
    return sums;
}

double tensorNorm(Stress const & s) {
    return std::sqrt(s[0] * s[0] + s[1] * s[1] + s[2] * s[2] + 2 * (s[3] * s[3] + s[4] * s[4] + s[5] * s[5]));
}

} // namespace

NodalStress recoverStress(Cylinder const & cylinder, shp_Topology const & shape, Mesh const & mesh) {
    NodalStress result;
    result.stress = averageNodalStress(cylinder, shape, mesh);
    result.error = result.stress;
    double sumOfSquares = 0;
    for (int node = 0; node < mesh.numNodes; ++node) {
        Stress & error = result.error[static_cast<std::size_t>(node)];
        Stress const exact = exactStressAt(cylinder, mesh.model, mesh.coords, node);
        for (std::size_t c = 0; c < error.size(); ++c)
            error[c] -= exact[c];
        double const norm = tensorNorm(error);
        result.errorNorm.push_back(norm);
        result.largestError = std::max(result.largestError, norm);
        sumOfSquares += norm * norm;
    }
    result.rmsError = std::sqrt(sumOfSquares / mesh.numNodes);
    return result;
}

Stress interpolateStress(shp_Topology const & shape, Mesh const & mesh, NodalStress const & result, int element,
                         float const * iso) {
    Stress stress{};
    std::vector<float> atNodes(static_cast<std::size_t>(mesh.nodesPerElement));
    for (std::size_t c = 0; c < stress.size(); ++c) {
        std::transform(mesh.element(element), mesh.element(element) + mesh.nodesPerElement, atNodes.begin(),
                       [&](int node) { return static_cast<float>(result.stress[static_cast<std::size_t>(node)][c]); });
        // Every node has a stress: not-a-number equals no value, and so marks none as undefined.
        stress[c] = shape.InterpolateResultFromNodes(atNodes.data(), iso, std::numeric_limits<float>::quiet_NaN());
    }
    return stress;
}
