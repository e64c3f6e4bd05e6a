#ifndef operation_digests_h
#define operation_digests_h

// What the operations of a label's shape give on an element that is bent by a smooth function, as one number.

#include "table_digests.h"

#include <numeric>
#include <vector>

inline void addOperations(Digest & digest, shp_Shape const & s) {
    // An order of integration points may name nodes of larger elements.
    int const nodes = std::max(27, s.numNodesPerElem);
    uti_CoordCont3D coords, points;
    coords.Grow(nodes);
    std::vector<g3d_Storage> positions;
    for (int node = 0; node < nodes; ++node) {
        float const x = static_cast<float>(node % 5), y = static_cast<float>(node % 7),
                    z = static_cast<float>(node % 3);
        coords.SetCoord(node, x + 0.1f * y * y, y + 0.3f * z * x, z - 0.2f * x * x);
        positions.emplace_back(coords[node][0], coords[node][1], coords[node][2]);
    }
    std::vector<int> conn(static_cast<std::size_t>(nodes));
    std::iota(conn.begin(), conn.end(), 0);
    for (int face = 0; face < s.numFacesPerElem; ++face) {
        float normal[3] = {};
        digest.add(s.ComputeFaceNormal(conn.data(), face, coords, normal));
        digest.add(normal, 3);
        for (int i = 0; i < s.NumNodesPerFace(face); ++i) {
            digest.add(s.ComputeFaceNormal(conn.data(), face, i, coords, normal));
            digest.add(normal, 3);
        }
        auto turned = conn;
        s.ReverseFaceConnectivity(turned.data(), face);
        digest.add(turned.data(), nodes);
    }
    for (int order = 0; order < 6 && s.intPointNodeWeights; ++order) {
        s.IntPtCoord(coords, conn.data(), points, order);
        for (int i = 0; i < s.baseIntPtsPerElem; ++i)
            for (int axis = 0; axis < 3; ++axis)
                digest.add(points[i][axis]);
    }

    float iso[3] = {0.25f, 0.125f, -0.5f}, weights[27] = {};
    s.CalculateNodesShapeWeight(iso, weights);
    digest.add(weights, s.baseNodesPerElem);
    digest.add(static_cast<float>(s.InterpolatePointFromNodes(positions.data(), iso).X()));
    digest.add(s.ShapeFunctionJacobian(positions.data(), iso).GetM(0, 0));
    std::vector<float> values(static_cast<std::size_t>(2 * s.numIntPtsPerElem)),
        results(static_cast<std::size_t>(2 * nodes));
    std::iota(values.begin(), values.end(), 1.0f);
    s.StdExtrapToNodes(values.data(), res_OutputPosition_INTEGRATION_POINT, results.data(), 2);
    digest.add(results.data(), 2 * s.baseNodesPerElem);
    s.ExtrapolateToFaces(values.data(), res_OutputPosition_INTEGRATION_POINT, results.data(), 2);
    digest.add(results.data(), 2 * s.numFacesPerElem);
    int count = 0, faces[24], edges[24];
    s.EdgesFromNode(0, count, faces, edges);
    digest.add(faces, count);
}

#endif
