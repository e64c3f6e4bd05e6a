// All shape functions at a point.

#include "elements.h"
#include "harness.h"
#include "subjects.h"
#if BENCH_VTK
#include "vtk_cells.h"
#endif

#include <algorithm>
#include <cmath>

namespace bench {

namespace {

constexpr char item[] = "shape function row";

void timeElement(ElementType const & type) {
    auto const set = std::make_shared<ElementSet const>(type, Distortion::moderate);
    int const nodes = set->nodeCount();

    double worst = 0;
    for (int i = 0; i < setSize; ++i) {
        float row[27];
        double byHand[27];
        set->shape->CalculateNodesShapeWeight(set->iso[i].data(), row);
        type.byHand->row(set->isoPoint[i], byHand);
        for (int n = 0; n < nodes; ++n)
            worst = std::max(worst, std::fabs(row[n] - byHand[n]));
    }
    mustAgree(item, type.name, handWritten, worst, 1e-6);

    timeEach(item, type.name, ours, setSize, [set](int i) {
        float row[27];
        set->shape->CalculateNodesShapeWeight(set->iso[i].data(), row);
        benchmark::DoNotOptimize(row);
    });
    timeEach(item, type.name, handWritten, setSize, [set](int i) {
        double row[27];
        set->type.byHand->row(set->isoPoint[i], row);
        benchmark::DoNotOptimize(row);
    });

#if BENCH_VTK
    auto const cells = std::make_shared<VtkCells const>(set);
    worst = 0;
    for (int i = 0; i < setSize; ++i) {
        double byHand[27], there[27];
        type.byHand->row(set->isoPoint[i], byHand);
        cells->cells[i]->InterpolateFunctions(cells->parametric[i].data(), there);
        for (int n = 0; n < nodes; ++n)
            worst = std::max(worst, std::fabs(there[cells->nodeThere[n]] - byHand[n]));
    }
    mustAgree(item, type.name, vtk, worst, 1e-12);
    timeEach(item, type.name, vtk, setSize, [cells](int i) {
        double row[27];
        cells->cells[i]->InterpolateFunctions(cells->parametric[i].data(), row);
        benchmark::DoNotOptimize(row);
    });
#else
    notInstalled(item, type.name, vtk);
#endif
}

} // namespace

void timeShapeRows() {
    for (ElementType const & type : elementTypes)
        timeElement(type);
}

} // namespace bench
