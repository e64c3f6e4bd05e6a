#include "visible_results.h"

#include "aio_ostream.h"
#include "catalogued_shapes.h"
#include "table_digests.h"

#include <numeric>
#include <sstream>
#include <vector>

namespace {

void addFunctions(Digest & digest, shp_Shape const & s) {
    auto const add = [&](auto * function) { digest.add(reinterpret_cast<std::uintptr_t>(function)); };
    auto const addAll = [&](shp_ShapeFunction const * functions, int count) {
        for (int i = 0; functions && i < count; ++i)
            add(functions[i]);
    };
    addAll(s.shapeFunctions, s.numShapeFunctions);
    addAll(s.dUdGFunctions, s.numDerivatives);
    addAll(s.dUdHFunctions, s.numDerivatives);
    addAll(s.dUdRFunctions, s.numDerivatives);
    add(s.bodyOp);
    add(s.lineWorker);
    add(s.prepareCoords);
    add(s.reverseFaceWorker);
    add(s.evaluateFunctions);
    add(s.evaluateDerivatives);
    digest.add(s.intPointNodeWeights, s.baseNodesPerElem * s.baseIntPtsPerElem);
    bool const hasEdgeCentres = s.numSpatialDimensions == 2 && s.numGeometryDimensions == 2;
    digest.add(s.faceCenterNodeWeights,
               (hasEdgeCentres ? s.edgesPerFaceTbl[0] : s.numFacesPerElem) * s.baseNodesPerElem);
}

/// What follows from the tables by an operation: on the element bent by a smooth function.
void addOperations(Digest & digest, shp_Shape const & s) {
    int const nodes = s.numNodesPerElem;
    uti_CoordCont3D coords, points;
    coords.Grow(nodes);
    for (int node = 0; node < nodes; ++node) {
        float const x = static_cast<float>(node % 5), y = static_cast<float>(node % 7),
                    z = static_cast<float>(node % 3);
        coords.SetCoord(node, x + 0.1f * y * y, y + 0.3f * z * x, z - 0.2f * x * x);
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
}

/// All reports but PrintTopology, which shows an address.
void addReports(Digest & digest, shp_Shape const & s) {
    std::ostringstream text;
    aio_ostream stream(text);
    s.PrintTopologyTable(stream);
    s.PrintConnectivityTable(stream);
    s.PrintWeights(stream);
    static_cast<shp_InverseTopoTable const &>(s).PrintInverse(s, stream);
    for (char const letter : text.str())
        digest.add(letter);
}

} // namespace

std::uint64_t visibleResults() {
    Digest digest;
    TableDigests tables;
    digest.add(dictionary().Keys().Length());
    forEachShape([&](shp_Shape const & shape) {
        addTables(tables, shape);
        addFunctions(digest, shape);
        addOperations(digest, shape);
        addReports(digest, shape);
    });
    for (auto const & [kind, table] : tables)
        digest.add(table.value());
    return digest.value();
}
