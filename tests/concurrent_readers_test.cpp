// A built shape is read by any number of threads: run under ThreadSanitizer, and compared with a single reader.

#include "omi_BtreeIterator.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"
#include "uti_CoordCont3D.h"

#include <gtest/gtest.h>

#include <cstring>
#include <numeric>
#include <thread>
#include <vector>

namespace {

constexpr int numReaders = 8;
constexpr int numComps = 2;

std::vector<shp_Shape const *> allShapes() {
    std::vector<shp_Shape const *> shapes;
    shp_ShapeDictionary & dictionary = omi_Singleton<shp_ShapeDictionary>::Instance();
    omi_BtreeIterator<cow_String, void *> labels(dictionary.Keys());
    for (bool more = labels.First(); more; more = labels.Next())
        shapes.push_back(dictionary.GetShape(labels.CurrentKey()));
    return shapes;
}

/// A bent element: the node locations, moved by a smooth function.
std::vector<g3d_Storage> coordinatesOf(shp_Shape const & shape) {
    std::vector<g3d_Storage> coords;
    for (int node = 0; node < shape.BaseNodesPerElem(); ++node) {
        float iso[3] = {0, 0, 0};
        if (shape.IsoNodeLocationTable() && shape.NumNodesPerElem() != 0)
            shape.GetNodeIsoCoords(node, iso);
        coords.emplace_back(iso[0] + 0.1 * iso[1] * iso[1], iso[1] + 0.05 * iso[2], iso[2] + 0.1 * iso[0]);
    }
    return coords;
}

void append(std::vector<float> & sum, float const * values, int count) {
    sum.insert(sum.end(), values, values + count);
}

/// All that the operations of one shape give for a fixed input.
std::vector<float> resultsOf(shp_Shape const & shape) {
    std::vector<float> results;
    std::vector<g3d_Storage> const coords = coordinatesOf(shape);
    int const nodes = shape.BaseNodesPerElem();
    float const iso[3] = {0.25f, 0.125f, -0.5f};

    float weights[27] = {};
    shape.CalculateNodesShapeWeight(iso, weights);
    append(results, weights, nodes);
    shape.GetCenterNodeWeights(weights);
    append(results, weights, nodes);
    results.push_back(static_cast<float>(shape.InterpolatePointFromNodes(coords.data(), iso).GetX()));
    float point[3] = {iso[0], iso[1], iso[2]};
    results.push_back(shape.ShapeFunctionJacobian(coords.data(), point).GetM(0, 0));

    std::vector<int> conn(static_cast<std::size_t>(shape.NumNodesPerElem()));
    std::iota(conn.begin(), conn.end(), 0);
    uti_CoordCont3D positions, intPoints;
    positions.Grow(nodes);
    for (int node = 0; node < nodes; ++node)
        positions.SetCoord(node, static_cast<float>(coords[static_cast<std::size_t>(node)].GetX()), 1.0f, 2.0f);
    shape.IntPtCoord(positions, conn.data(), intPoints, 3);
    for (int i = 0; i < shape.BaseIntPtsPerElem(); ++i)
        results.push_back(intPoints[i][0]);

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
    results.push_back(static_cast<float>(count));
    return results;
}

std::vector<std::vector<float>> readAll(std::vector<shp_Shape const *> const & shapes) {
    std::vector<std::vector<float>> results;
    for (shp_Shape const * shape : shapes)
        results.push_back(resultsOf(*shape));
    return results;
}

bool sameBits(std::vector<float> const & a, std::vector<float> const & b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(float)) == 0;
}

} // namespace

TEST(ConcurrentReaders, OfAllLabelsSeeWhatASingleReaderSees) {
    std::vector<shp_Shape const *> const shapes = allShapes();
    std::vector<std::vector<float>> const expected = readAll(shapes);
    std::vector<std::vector<std::vector<float>>> seen(numReaders);
    std::vector<std::thread> readers;
    for (int reader = 0; reader < numReaders; ++reader)
        readers.emplace_back([&, reader] { seen[static_cast<std::size_t>(reader)] = readAll(shapes); });
    for (std::thread & reader : readers)
        reader.join();
    for (auto const & results : seen) {
        ASSERT_EQ(results.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_TRUE(sameBits(results[i], expected[i])) << shapes[i]->label.CStr();
    }
}
