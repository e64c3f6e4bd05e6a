#include "visible_results.h"

#include "aio_ostream.h"
#include "catalogued_shapes.h"
#include "operation_digests.h"

#include <sstream>

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
