#include "vtk_cells.h"

#include <vtkGenericCell.h>
#include <vtkPoints.h>

#include <cmath>
#include <stdexcept>

namespace bench {

namespace {

vtkSmartPointer<vtkCell> makeCell(int cellType) {
    return vtkSmartPointer<vtkCell>::Take(vtkGenericCell::InstantiateCell(cellType));
}

} // namespace

hand::Point VtkCells::toParametric(hand::Point const & iso) const {
    hand::Point result;
    for (std::size_t c = 0; c < 3; ++c)
        result[c] = set->type.isCentred[c] ? (1 + iso[c]) / 2 : iso[c];
    return result;
}

hand::Point VtkCells::toIso(double const * parametricPoint) const {
    hand::Point result;
    for (std::size_t c = 0; c < 3; ++c)
        result[c] = set->type.isCentred[c] ? 2 * parametricPoint[c] - 1 : parametricPoint[c];
    return result;
}

VtkCells::VtkCells(SharedSet elements) : set(std::move(elements)) {
    int const count = set->nodeCount();
    // A node's counterpart is the one whose function is 1 there.
    vtkSmartPointer<vtkCell> const cell = makeCell(set->type.vtkType);
    for (int n = 0; n < count; ++n) {
        float const * const iso = set->shape->IsoNodeLocationTable() + 3 * n;
        hand::Point const p = toParametric({iso[0], iso[1], iso[2]});
        double weights[27];
        cell->InterpolateFunctions(p.data(), weights);
        for (int k = 0; k < count; ++k)
            if (std::fabs(weights[k] - 1) < 1e-12)
                nodeThere.push_back(k);
        if (static_cast<int>(nodeThere.size()) != n + 1)
            throw std::logic_error(std::string(set->type.name) + " is another element in VTK");
    }
    for (int i = 0; i < setSize; ++i) {
        vtkSmartPointer<vtkCell> const element = makeCell(set->type.vtkType);
        for (int n = 0; n < count; ++n) {
            element->GetPointIds()->SetId(nodeThere[static_cast<std::size_t>(n)],
                                          nodeThere[static_cast<std::size_t>(n)]);
            element->GetPoints()->SetPoint(nodeThere[static_cast<std::size_t>(n)], set->nodes(i)[n].data());
        }
        cells.push_back(element);
        parametric.push_back(toParametric(set->isoPoint[static_cast<std::size_t>(i)]));
    }
}

} // namespace bench
