// Where a point of space lies in an element.

#include "elements.h"
#include "harness.h"
#include "subjects.h"
#if BENCH_VTK
#include "vtk_cells.h"
#endif

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace bench {

namespace {

/// How many points one way finds, and how far the found places are from the points, at most, in space.
struct Success {
    int found = 0;
    double error = 0;

    /// An answer that leads to another point, or out of the element, is none.
    void add(ElementSet const & set, int i, bool isFound, hand::Point const & iso) {
        for (int c = 0; c < set.shape->NumGeometryDimensions(); ++c)
            isFound = isFound && iso[c] < 1.001 && iso[c] > (set.type.isCentred[c] ? -1.001 : -0.001);
        if (!isFound)
            return;
        double const off = distance(set.type.byHand->toSpace(iso, set.nodes(i)), set.point[i]);
        if (off > 0.01)
            return;
        ++found;
        error = std::max(error, off);
    }
    std::string text() const {
        char result[60];
        std::snprintf(result, sizeof result, "%.0f %%, %.0e", 100.0 * found / setSize, error);
        return result;
    }
};

void timeElement(ElementType const & type, Distortion distortion, std::string const & item) {
    auto const set = std::make_shared<ElementSet const>(type, distortion);

    Success here, byHand;
    double worst = 0;
    for (int i = 0; i < setSize; ++i) {
        float iso[3];
        hand::Point isoByHand;
        bool const isFound = set->shape->FindIsoPointLocation(set->position[i], set->coords(i), iso);
        bool const isFoundByHand = type.byHand->locate(set->point[i], set->nodes(i), isoByHand);
        here.add(*set, i, isFound, {iso[0], iso[1], iso[2]});
        byHand.add(*set, i, isFoundByHand, isoByHand);
        if (isFound && isFoundByHand)
            worst = std::max(worst, distance({iso[0], iso[1], iso[2]}, isoByHand));
    }
    // In a strongly distorted element two places may be at the same point.
    if (distortion == Distortion::moderate)
        mustAgree(item, type.name, handWritten, worst, 1e-4);
    require(item, type.name, here.found >= byHand.found);
    remark(item, type.name, "found, error: ours", here.text());
    remark(item, type.name, handWritten, byHand.text());

    timeEach(item, type.name, ours, setSize, [set](int i) {
        float iso[3];
        bool isFound = set->shape->FindIsoPointLocation(set->position[i], set->coords(i), iso);
        benchmark::DoNotOptimize(isFound);
    });
    timeEach(item, type.name, handWritten, setSize, [set](int i) {
        hand::Point iso;
        bool isFound = set->type.byHand->locate(set->point[i], set->nodes(i), iso);
        benchmark::DoNotOptimize(isFound);
    });

#if BENCH_VTK
    auto const cells = std::make_shared<VtkCells const>(set);
    auto const locate = [cells](int i, hand::Point & parametric) {
        hand::Point closest;
        int subId = 0;
        double distance2 = 0, weights[27];
        return cells->cells[i]->EvaluatePosition(cells->set->point[i].data(), closest.data(), subId, parametric.data(),
                                                 distance2, weights) == 1;
    };
    Success there;
    for (int i = 0; i < setSize; ++i) {
        hand::Point parametric;
        bool const isFound = locate(i, parametric);
        there.add(*set, i, isFound, cells->toIso(parametric.data()));
    }
    remark(item, type.name, vtk, there.text());
    timeEach(item, type.name, vtk, setSize, [locate](int i) {
        hand::Point parametric;
        bool isFound = locate(i, parametric);
        benchmark::DoNotOptimize(isFound);
    });
#else
    notInstalled(item, type.name, vtk);
#endif
}

} // namespace

void timeLocation() {
    for (ElementType const & type : elementTypes)
        timeElement(type, Distortion::moderate, "location of a point, moderate distortion");
    for (ElementType const & type : elementTypes)
        timeElement(type, Distortion::strong, "location of a point, strong distortion");
}

} // namespace bench
