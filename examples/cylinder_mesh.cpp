#include "cylinder_mesh.h"

#include <shp_KeyBit.h>
#include <uti_Coord3D.h>

#include <algorithm>
#include <numbers>
#include <span>
#include <stdexcept>

namespace {

/// Where an element lies in its cell, which measures 2 by 2 by 2 half cells: the isoparametric point (g, h, r) stands
/// at origin + g * axis[0] + h * axis[1] + r * axis[2]. The axes are right-handed.
struct Placement {
    int origin[3];
    int axis[3][3];
};

constexpr Placement quadsOfCell[] = {{{1, 1, 0}, {{1, 0, 0}, {0, 1, 0}, {0, 0, 0}}}};
constexpr Placement hexesOfCell[] = {{{1, 1, 1}, {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}};
constexpr Placement trianglesOfCell[] = {{{0, 0, 0}, {{2, 0, 0}, {2, 2, 0}, {0, 0, 0}}},
                                         {{0, 0, 0}, {{2, 2, 0}, {0, 2, 0}, {0, 0, 0}}}};
constexpr Placement prismsOfCell[] = {{{0, 0, 1}, {{2, 0, 0}, {2, 2, 0}, {0, 0, 1}}},
                                      {{0, 0, 1}, {{2, 2, 0}, {0, 2, 0}, {0, 0, 1}}}};
// One for each way along the edges from the low corner to the high one, so that neighbouring cells fit (Kuhn, 1960).
constexpr Placement tetrasOfCell[] = {
    {{0, 0, 0}, {{2, 0, 0}, {2, 2, 0}, {2, 2, 2}}}, {{0, 0, 0}, {{0, 2, 0}, {0, 2, 2}, {2, 2, 2}}},
    {{0, 0, 0}, {{0, 0, 2}, {2, 0, 2}, {2, 2, 2}}}, {{0, 0, 0}, {{2, 2, 0}, {0, 2, 0}, {2, 2, 2}}},
    {{0, 0, 0}, {{2, 0, 2}, {2, 0, 0}, {2, 2, 2}}}, {{0, 0, 0}, {{0, 2, 2}, {0, 0, 2}, {2, 2, 2}}}};

std::span<Placement const> elementsOfCell(int shapeFamily) {
    switch (shapeFamily) {
    case shp_keyTri: return trianglesOfCell;
    case shp_keyQuad: return quadsOfCell;
    case shp_keyTetra: return tetrasOfCell;
    case shp_keyHex: return hexesOfCell;
    case shp_keyPrism: return prismsOfCell;
    default: throw std::runtime_error("no way to divide a cell into elements of this shape");
    }
}

/// The points half a cell apart where nodes can stand, and the numbers of those where nodes do stand.
class Lattice {
public:
    Lattice(int cells, bool isFlat)
        : counts{2 * cells + 1, 2 * cells + 1, isFlat ? 1 : 2 * cells + 1},
          numbers(static_cast<std::size_t>(counts[0]) * static_cast<std::size_t>(counts[1]) *
                      static_cast<std::size_t>(counts[2]),
                  none) {}

    /// The node at lattice point (i, j, k); the first one to ask for a point gives it the next number.
    int nodeAt(int const (&point)[3]) {
        int & number = numbers[indexOf(point)];
        if (number == none)
            number = numNodes++;
        return number;
    }

    int count() const { return numNodes; }

    template <class Visit> void forEachNode(Visit visit) const {
        int point[3];
        for (point[2] = 0; point[2] < counts[2]; ++point[2])
            for (point[1] = 0; point[1] < counts[1]; ++point[1])
                for (point[0] = 0; point[0] < counts[0]; ++point[0])
                    if (int const number = numbers[indexOf(point)]; number != none)
                        visit(number, point);
    }

private:
    static constexpr int none = -1;

    std::size_t indexOf(int const (&point)[3]) const {
        for (int d = 0; d < 3; ++d)
            if (point[d] < 0 || point[d] >= counts[d])
                throw std::runtime_error("a node lies outside its cell");
        return (static_cast<std::size_t>(point[2]) * static_cast<std::size_t>(counts[1]) +
                static_cast<std::size_t>(point[1])) *
                   static_cast<std::size_t>(counts[0]) +
               static_cast<std::size_t>(point[0]);
    }

    int counts[3];
    int numNodes = 0;
    std::vector<int> numbers;
};

void addElement(Mesh & mesh, Lattice & lattice, shp_Topology const & shape, Placement const & placement,
                int const (&cell)[3]) {
    for (int node = 0; node < shape.BaseNodesPerElem(); ++node) {
        float iso[3];
        shape.GetNodeIsoCoords(node, iso);
        int point[3];
        for (int d = 0; d < 3; ++d) {
            float const inCell =
                static_cast<float>(placement.origin[d]) + iso[0] * static_cast<float>(placement.axis[0][d]) +
                iso[1] * static_cast<float>(placement.axis[1][d]) + iso[2] * static_cast<float>(placement.axis[2][d]);
            if (inCell != std::round(inCell))
                throw std::runtime_error("a node stands neither at a corner nor midway between corners");
            point[d] = 2 * cell[d] + static_cast<int>(inCell);
        }
        mesh.connectivity.push_back(lattice.nodeAt(point));
    }
}

/// Coordinates of a point at the fractions u, v, w of the wall's radius, angle and axis (of its radius and axis, u and
/// v, in an axial section).
uti_Coord3D position(Cylinder const & cylinder, Model model, double u, double v, double w) {
    double const radius = std::lerp(cylinder.innerRadius, cylinder.outerRadius, u);
    if (model == Model::axisymmetric)
        return uti_Coord3D(static_cast<float>(radius), static_cast<float>(v * cylinder.height), 0);
    double const angle = v * std::numbers::pi / 2;
    return uti_Coord3D(static_cast<float>(radius * std::cos(angle)), static_cast<float>(radius * std::sin(angle)),
                       static_cast<float>(w * cylinder.height));
}

} // namespace

std::vector<g3d_Storage> elementCoords(Mesh const & mesh, int element) {
    std::vector<g3d_Storage> coords(static_cast<std::size_t>(std::max(mesh.nodesPerElement, 9)));
    for (int i = 0; i < mesh.nodesPerElement; ++i) {
        uti_Coord3D const node = mesh.coords[mesh.element(element)[i]];
        coords[static_cast<std::size_t>(i)].Set(node[0], node[1], node[2]);
    }
    return coords;
}

Model modelOf(shp_Topology const & shape) {
    if (shape.NumSpatialDimensions() == 3)
        return Model::solid;
    return shape.isAxiSymmetric ? Model::axisymmetric : Model::plane;
}

Mesh meshCylinder(Cylinder const & cylinder, shp_Topology const & shape, int cells) {
    Mesh mesh;
    mesh.model = modelOf(shape);
    mesh.nodesPerElement = shape.BaseNodesPerElem();
    bool const isFlat = mesh.model != Model::solid;
    Lattice lattice(cells, isFlat);

    int cell[3];
    for (cell[2] = 0; cell[2] < (isFlat ? 1 : cells); ++cell[2])
        for (cell[1] = 0; cell[1] < cells; ++cell[1])
            for (cell[0] = 0; cell[0] < cells; ++cell[0])
                for (Placement const & placement : elementsOfCell(shape.options.Shape()))
                    addElement(mesh, lattice, shape, placement, cell);

    mesh.numNodes = lattice.count();
    mesh.coords.Grow(mesh.numNodes);
    double const spacing = 0.5 / cells;
    lattice.forEachNode([&](int node, int const(&point)[3]) {
        mesh.coords.SetCoord(
            node, position(cylinder, mesh.model, point[0] * spacing, point[1] * spacing, point[2] * spacing));
    });
    return mesh;
}
