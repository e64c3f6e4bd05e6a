#ifndef bench_vtk_cells_h
#define bench_vtk_cells_h

// The elements of a set as VTK's cells, which have another node order, and parametric coordinates from 0 to 1.

#include "elements.h"

#include <vtkCell.h>
#include <vtkSmartPointer.h>

#include <memory>
#include <vector>

namespace bench {

struct VtkCells {
    explicit VtkCells(SharedSet elements);

    /// A point's parametric coordinates.
    hand::Point toParametric(hand::Point const & iso) const;
    /// A point's isoparametric coordinates.
    hand::Point toIso(double const * parametric) const;
    /// Factor on a derivative by the parametric coordinate c.
    double slopeFactor(int c) const { return set->type.isCentred[c] ? 0.5 : 1; }

    SharedSet set;
    std::vector<int> nodeThere;                  ///< VTK's number of each node
    std::vector<vtkSmartPointer<vtkCell>> cells; ///< by element
    std::vector<hand::Point> parametric;         ///< by element, the point inside
};

using SharedCells = std::shared_ptr<VtkCells const>;

} // namespace bench

#endif
