// The derivatives of all shape functions at a point, summed up to the Jacobian; and the point itself.

#include "elements.h"
#include "harness.h"
#include "subjects.h"
#if BENCH_VTK
#include "vtk_cells.h"

#include <vtkDoubleArray.h>
#include <vtkPoints.h>
#endif

#include <algorithm>
#include <cmath>

namespace bench {

namespace {

#if BENCH_VTK
/// The matrix by VTK's parametric coordinates.
void vtkJacobian(VtkCells const & cells, int i, int nodes, int dimensions, double (&matrix)[3][3]) {
    double slopes[81];
    vtkCell * const cell = cells.cells[i];
    cell->InterpolateDerivs(cells.parametric[i].data(), slopes);
    double const * const points = static_cast<vtkDoubleArray *>(cell->GetPoints()->GetData())->GetPointer(0);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < dimensions; ++column) {
            double sum = 0;
            for (int n = 0; n < nodes; ++n)
                sum += slopes[column * nodes + n] * points[3 * n + row];
            matrix[row][column] = sum;
        }
}
#endif

void timeJacobian(ElementType const & type) {
    constexpr char item[] = "Jacobian with derivatives";
    auto const set = std::make_shared<ElementSet>(type, Distortion::moderate);
    int const dimensions = set->shape->NumGeometryDimensions();

    double worst = 0;
    for (int i = 0; i < setSize; ++i) {
        g3d_XForm const jacobian = set->shape->ShapeFunctionJacobian(set->coords(i), set->iso[i].data());
        double byHand[3][3];
        type.byHand->jacobian(set->isoPoint[i], set->nodes(i), byHand);
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < dimensions; ++column)
                worst = std::max(worst, std::fabs(jacobian.GetM(row, column) - byHand[row][column]));
    }
    mustAgree(item, type.name, handWritten, worst, 1e-5);

    timeEach(item, type.name, ours, setSize, [set](int i) {
        g3d_XForm jacobian = set->shape->ShapeFunctionJacobian(set->coords(i), set->iso[i].data());
        benchmark::DoNotOptimize(jacobian);
    });
    timeEach(item, type.name, handWritten, setSize, [set](int i) {
        double matrix[3][3];
        set->type.byHand->jacobian(set->isoPoint[i], set->nodes(i), matrix);
        benchmark::DoNotOptimize(matrix);
    });

#if BENCH_VTK
    auto const cells = std::make_shared<VtkCells const>(set);
    worst = 0;
    for (int i = 0; i < setSize; ++i) {
        double byHand[3][3], there[3][3];
        type.byHand->jacobian(set->isoPoint[i], set->nodes(i), byHand);
        vtkJacobian(*cells, i, set->nodeCount(), dimensions, there);
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < dimensions; ++column)
                worst =
                    std::max(worst, std::fabs(there[row][column] * cells->slopeFactor(column) - byHand[row][column]));
    }
    mustAgree(item, type.name, vtk, worst, 1e-12);
    timeEach(item, type.name, vtk, setSize, [cells, nodes = set->nodeCount(), dimensions](int i) {
        double matrix[3][3];
        vtkJacobian(*cells, i, nodes, dimensions, matrix);
        benchmark::DoNotOptimize(matrix);
    });
#else
    notInstalled(item, type.name, vtk);
#endif
}

void timePoint(ElementType const & type) {
    constexpr char item[] = "isoparametric to space";
    auto const set = std::make_shared<ElementSet const>(type, Distortion::moderate);

    double worst = 0;
    for (int i = 0; i < setSize; ++i) {
        g3d_Storage const p = set->shape->InterpolatePointFromNodes(set->coords(i), set->iso[i].data());
        worst = std::max(worst, distance({p.X(), p.Y(), p.Z()}, set->point[i]));
    }
    mustAgree(item, type.name, handWritten, worst, 3e-6);

    timeEach(item, type.name, ours, setSize, [set](int i) {
        g3d_Storage p = set->shape->InterpolatePointFromNodes(set->coords(i), set->iso[i].data());
        benchmark::DoNotOptimize(p);
    });
    timeEach(item, type.name, handWritten, setSize, [set](int i) {
        hand::Point p = set->type.byHand->toSpace(set->isoPoint[i], set->nodes(i));
        benchmark::DoNotOptimize(p);
    });

#if BENCH_VTK
    auto const cells = std::make_shared<VtkCells const>(set);
    auto const locate = [cells](int i) {
        hand::Point p;
        int subId = 0;
        double weights[27];
        cells->cells[i]->EvaluateLocation(subId, cells->parametric[i].data(), p.data(), weights);
        return p;
    };
    worst = 0;
    for (int i = 0; i < setSize; ++i)
        worst = std::max(worst, distance(locate(i), set->point[i]));
    mustAgree(item, type.name, vtk, worst, 1e-12);
    timeEach(item, type.name, vtk, setSize, [locate](int i) {
        hand::Point p = locate(i);
        benchmark::DoNotOptimize(p);
    });
#else
    notInstalled(item, type.name, vtk);
#endif
}

} // namespace

void timeJacobians() {
    for (ElementType const & type : elementTypes)
        timeJacobian(type);
}

void timeToSpace() {
    for (ElementType const & type : elementTypes)
        timePoint(type);
}

} // namespace bench
