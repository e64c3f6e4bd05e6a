#ifndef cylinder_mesh_h
#define cylinder_mesh_h

#include "cylinder.h"

#include <g3d_Storage.h>
#include <shp_Topology.h>
#include <uti_CoordCont3D.h>

#include <cstddef>
#include <vector>

/// A mesh of one element type.
struct Mesh {
    Model model = Model::solid;
    int numNodes = 0;
    uti_CoordCont3D coords; ///< `numNodes` positions
    int nodesPerElement = 0;
    std::vector<int> connectivity; ///< `[elements][nodesPerElement]`, in this library's node order

    int numElements() const { return static_cast<int>(connectivity.size()) / nodesPerElement; }
    int const * element(int e) const {
        return connectivity.data() + static_cast<std::size_t>(e) * static_cast<std::size_t>(nodesPerElement);
    }
};

/// The positions of an element's nodes in its node order, with room for the ninth that the library's line operations
/// add to an 8-node quadrilateral.
std::vector<g3d_Storage> elementCoords(Mesh const & mesh, int element);

/// The model that a volume or section element stands for.
Model modelOf(shp_Topology const & shape);

/// Meshes the cylinder in `cells` by `cells` (by `cells`) cells along radius, angle and axis. A cell is one
/// quadrilateral or hexahedron, two triangles or prisms, or six tetrahedra; the nodes go where the element's own table
/// of node locations has them, and are shared between neighbours. `shape` is one that reasonAgainst()
/// (element_choice.h) has nothing against. Raises std::runtime_error if its nodes do not fit together.
Mesh meshCylinder(Cylinder const & cylinder, shp_Topology const & shape, int cells);

#endif
