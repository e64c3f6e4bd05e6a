#ifndef element_search_h
#define element_search_h

#include "box_grid.h"
#include "cylinder_mesh.h"

#include <optional>

/// A point of a mesh: an element, and the isoparametric coordinates in it.
struct MeshPoint {
    int element = 0;
    std::array<float, 3> iso{};
};

/// A box for each element. It holds the element's curved edges too, which may leave the box of the nodes by an eighth
/// of its size (a parabola through three nodes).
std::vector<Box> elementBoxes(Mesh const & mesh);

/// Moves `iso` into the domain of a triangle, quadrilateral, tetrahedron, hexahedron or prism: the corners of those
/// whose coordinates make a simplex too (g + h and g + h + r at most 1), not just its box. Points inside stay.
void moveIntoDomain(int shapeFamily, std::array<float, 3> & iso);

/// Finds elements by points of space. Refers to `shape` and `mesh`.
class ElementSearch {
public:
    ElementSearch(shp_Topology const & elementType, Mesh const & elements);

    /// The first element that comes to `point` within 1e-5 of its size; on a face that two share, one of them. Empty
    /// when there is none, or when the location gave up in all of them, as it does inside an 18-node prism.
    std::optional<MeshPoint> find(g3d_Storage const & point) const;

private:
    shp_Topology const & shape;
    Mesh const & mesh;
    BoxGrid grid;
};

#endif
