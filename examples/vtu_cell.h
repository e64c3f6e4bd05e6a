#ifndef vtu_cell_h
#define vtu_cell_h

#include <shp_Topology.h>

#include <vector>

/// How an element type is written into an unstructured-grid file.
struct VtuCell {
    int type = 0;                 ///< the file format's number of the cell type
    std::vector<int> fromLibrary; ///< node i of the cell is node `fromLibrary[i]` of this library's element
};

/// Finds the cell type with the shape and node count of `shape`, and its node order by comparing where both sides'
/// nodes stand. Raises std::runtime_error if there is no such cell, or if a node has no counterpart.
VtuCell vtuCellOf(shp_Topology const & shape);

#endif
