// A built shape is read by any number of threads: run under ThreadSanitizer, and compared with a single reader.

#include "catalogued_shapes.h"
#include "uti_CoordCont3D.h"

#include <bit>
#include <cstdint>
#include <numeric>
#include <thread>
#include <vector>

namespace {

constexpr int numReaders = 8;
constexpr int numComps = 2;

using Results = std::vector<std::uint32_t>; ///< bits of floats

void append(Results & results, float const * values, int count) {
    for (int i = 0; i < count; ++i)
        results.push_back(std::bit_cast<std::uint32_t>(values[i]));
}

/// All that the operations of one shape give for a fixed input: a bent element, whose nodes are moved by a smooth
/// function.
void appendResultsOf(shp_Shape const & shape, Results & results) {
    int const nodes = shape.BaseNodesPerElem();
    std::vector<g3d_Storage> coords;
    uti_CoordCont3D positions, intPoints;
    positions.Grow(nodes);
    for (int node = 0; node < nodes; ++node) {
        float iso[3] = {0, 0, 0};
        if (shape.IsoNodeLocationTable())
            shape.GetNodeIsoCoords(node, iso);
        coords.emplace_back(iso[0] + 0.1 * iso[1] * iso[1], iso[1] + 0.05 * iso[2], iso[2] + 0.1 * iso[0]);
        positions.SetCoord(node, static_cast<float>(coords.back().GetX()), 1.0f, 2.0f);
    }
    float iso[3] = {0.25f, 0.125f, -0.5f};
    float weights[27] = {};
    shape.CalculateNodesShapeWeight(iso, weights);
    append(results, weights, nodes);
    shape.GetCenterNodeWeights(weights);
    append(results, weights, nodes);
    float const scalars[] = {static_cast<float>(shape.InterpolatePointFromNodes(coords.data(), iso).GetX()),
                             shape.ShapeFunctionJacobian(coords.data(), iso).GetM(0, 0)};
    append(results, scalars, 2);

    std::vector<int> conn(static_cast<std::size_t>(shape.NumNodesPerElem()));
    std::iota(conn.begin(), conn.end(), 0);
    shape.IntPtCoord(positions, conn.data(), intPoints, 3);
    for (int i = 0; i < shape.BaseIntPtsPerElem(); ++i) {
        float const x = intPoints[i][0];
        append(results, &x, 1);
    }
    if (shape.nodeWeights && shape.faceWeights) {
        std::vector<float> values(static_cast<std::size_t>(numComps * shape.numIntPtsPerElem));
        std::iota(values.begin(), values.end(), 1.0f);
        std::vector<float> nodal(static_cast<std::size_t>(numComps * shape.NumNodesPerElem()));
        shape.StdExtrapToNodes(values.data(), res_OutputPosition_INTEGRATION_POINT, nodal.data(), numComps);
        append(results, nodal.data(), numComps * nodes);
        std::vector<float> faces(static_cast<std::size_t>(numComps * shape.NumFacesPerElem()));
        shape.ExtrapolateToFaces(values.data(), res_OutputPosition_INTEGRATION_POINT, faces.data(), numComps);
        append(results, faces.data(), numComps * shape.NumFacesPerElem());
    }
    int count = 0, faces[24], edges[24];
    shape.EdgesFromNode(0, count, faces, edges);
    results.push_back(static_cast<std::uint32_t>(count));
}

Results readAll(std::vector<shp_Shape const *> const & shapes) {
    Results results;
    for (shp_Shape const * shape : shapes)
        appendResultsOf(*shape, results);
    return results;
}

} // namespace

TEST(ConcurrentReaders, OfAllLabelsSeeWhatASingleReaderSees) {
    std::vector<shp_Shape const *> shapes;
    forEachShape([&](shp_Shape const & shape) { shapes.push_back(&shape); });
    std::vector<Results> seen(numReaders);
    std::vector<std::thread> readers;
    for (Results & results : seen)
        readers.emplace_back([&] { results = readAll(shapes); });
    for (std::thread & reader : readers)
        reader.join();
    Results const expected = readAll(shapes);
    for (Results const & results : seen)
        EXPECT_TRUE(results == expected);
}
