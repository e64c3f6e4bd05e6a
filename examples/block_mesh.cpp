#include "block_mesh.h"

MeshPart partOf(BlockMesh const & mesh, int number, int count) {
    auto const firstLayerOf = [&](int part) { return mesh.cells * part / count; };
    auto const firstNodeOf = [&](int layer) { return mesh.nodeAt(0, 0, layer > 0 ? layer + 1 : 0); };
    int const first = firstLayerOf(number), end = firstLayerOf(number + 1);
    return {first * mesh.cells * mesh.cells, end * mesh.cells * mesh.cells, firstNodeOf(first), firstNodeOf(end)};
}

PartResults::PartResults(BlockMesh const & mesh, MeshPart const & meshPart, shp_Topology const & shape)
    : part(meshPart), connectivity(part.numElements()) {
    values.reserve(part.numElements() * static_cast<std::size_t>(shape.BaseIntPtsPerElem()) * 6);
    double const size = 1.0 / mesh.cells;
    for (std::size_t e = 0; e < part.numElements(); ++e) {
        int const element = part.firstElement + static_cast<int>(e);
        int const cell[] = {element % mesh.cells, element / mesh.cells % mesh.cells, element / mesh.cells / mesh.cells};
        for (int n = 0; n < BlockMesh::nodesPerElement; ++n) {
            float const * const iso = shape.IsoNodeLocationTable() + 3 * n;
            connectivity[e][static_cast<std::size_t>(n)] =
                mesh.nodeAt(cell[0] + (iso[0] > 0), cell[1] + (iso[1] > 0), cell[2] + (iso[2] > 0));
        }
        for (int p = 0; p < shape.BaseIntPtsPerElem(); ++p) {
            float const * const iso = shape.intPtLocationTable + 3 * p;
            double position[3];
            for (int d = 0; d < 3; ++d)
                position[d] = (cell[d] + (1 + double{iso[d]}) / 2) * size;
            for (double component : blockStress(position[0], position[1], position[2]))
                values.push_back(static_cast<float>(component));
        }
    }
}

Stress blockStress(double x, double y, double z) {
    double const pressure = -10 * (1 + z), bending = 120 * (1 - z) * (y - 0.5), twist = 40;
    return {pressure, pressure, pressure + bending, 0.3 * pressure * x * y, twist * (x - 0.5), -twist * (y - 0.5)};
}
