#include "element_search.h"

#include <shp_KeyBit.h>

#include <algorithm>
#include <limits>

namespace {

/// How many of the coordinates g, h, r span a triangle or tetrahedron; the others run from -1 to 1.
std::size_t simplexCoordinates(int shapeFamily) {
    switch (shapeFamily) {
    case shp_keyTri:
    case shp_keyPrism: return 2;
    case shp_keyTetra: return 3;
    default: return 0;
    }
}

double diagonal(Box const & box) {
    return std::hypot(box.high[0] - box.low[0], box.high[1] - box.low[1], box.high[2] - box.low[2]);
}

} // namespace

std::vector<Box> elementBoxes(Mesh const & mesh) {
    std::vector<Box> boxes;
    for (int e = 0; e < mesh.numElements(); ++e) {
        constexpr double infinite = std::numeric_limits<double>::infinity();
        Box box{{infinite, infinite, infinite}, {-infinite, -infinite, -infinite}};
        for (int i = 0; i < mesh.nodesPerElement; ++i) {
            uti_Coord3D const node = mesh.coords[mesh.element(e)[i]];
            for (int d = 0; d < 3; ++d) {
                auto const axis = static_cast<std::size_t>(d);
                box.low[axis] = std::min<double>(box.low[axis], node[d]);
                box.high[axis] = std::max<double>(box.high[axis], node[d]);
            }
        }
        for (std::size_t d = 0; d < 3; ++d) {
            double const margin = (box.high[d] - box.low[d]) / 8;
            box.low[d] -= margin;
            box.high[d] += margin;
        }
        boxes.push_back(box);
    }
    return boxes;
}

void moveIntoDomain(int shapeFamily, std::array<float, 3> & iso) {
    std::size_t const inSimplex = simplexCoordinates(shapeFamily);
    float sum = 0;
    for (std::size_t d = 0; d < iso.size(); ++d) {
        iso[d] = std::clamp(iso[d], d < inSimplex ? 0.0f : -1.0f, 1.0f);
        if (d < inSimplex)
            sum += iso[d];
    }
    if (sum > 1)
        for (std::size_t d = 0; d < inSimplex; ++d)
            iso[d] /= sum;
}

ElementSearch::ElementSearch(shp_Topology const & elementType, Mesh const & elements)
    : shape(elementType), mesh(elements), grid(elementBoxes(elements)) {}

std::optional<MeshPoint> ElementSearch::find(g3d_Storage const & point) const {
    constexpr double slack = 1e-5; // of the element's size: float positions are good to a hundredth of it
    for (int element : grid.at(point)) {
        std::vector<g3d_Storage> const coords = elementCoords(mesh, element);
        MeshPoint candidate{.element = element};
        if (!shape.FindIsoPointLocation(point, coords.data(), candidate.iso.data()))
            continue;
        // The location accepts the whole box around the node locations, and points that it has moved by up to 0.0005.
        moveIntoDomain(shape.options.Shape(), candidate.iso);
        g3d_Storage difference = shape.InterpolatePointFromNodes(coords.data(), candidate.iso.data());
        difference -= point;
        if (g3d_Magnitude(difference) <= slack * diagonal(grid.boxes()[static_cast<std::size_t>(element)]))
            return candidate;
    }
    return {};
}
