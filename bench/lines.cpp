// A line through an element: its hits with the triangles that stand for the surface.

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

constexpr char item[] = "line through the element";

/// The triangles and node locations of an element for the loop over them, and its nodes, with the centre that some
/// elements' triangles meet in.
struct Surface {
    explicit Surface(SharedSet elements) : set(std::move(elements)), count(set->shape->NumFaceTriangles()) {
        int const nodes = set->nodeCount();
        int const * const table = set->shape->FaceTriangles();
        triangles = reinterpret_cast<int const(*)[3]>(table);
        stride = 1 + *std::max_element(table, table + 3 * count);
        bool const hasCentre = stride > nodes;
        stride = std::max(stride, nodes);
        for (int n = 0; n < nodes; ++n) {
            float const * const iso = set->shape->IsoNodeLocationTable() + 3 * n;
            nodeIso.push_back({iso[0], iso[1], iso[2]});
        }
        if (hasCentre)
            nodeIso.push_back({0, 0, 0});
        for (int i = 0; i < setSize; ++i) {
            points.insert(points.end(), set->nodes(i), set->nodes(i) + nodes);
            if (hasCentre)
                points.push_back(set->type.byHand->toSpace({0, 0, 0}, set->nodes(i)));
        }
    }

    void meet(int i, hand::Hits & hits) const {
        hand::meetLine(set->lineStart[i], set->lineEnd[i], points.data() + i * stride, nodeIso.data(), triangles, count,
                       hits);
    }

    SharedSet set;
    int count, stride;
    int const (*triangles)[3];
    std::vector<hand::Point> nodeIso, points;
};

struct OurHits {
    double parameters[3];
    float iso[3][3];
    g3d_Storage points[3];
    int count = 0;
};

bool meet(ElementSet const & set, int i, OurHits & hits) {
    return set.shape->LineShapeIntersection(storageOf(set.lineStart[i]), storageOf(set.lineEnd[i]), set.coords(i),
                                            hits.parameters, hits.iso, hits.count, false, hits.points);
}

double difference(OurHits const & ours, hand::Hits const & theirs) {
    if (ours.count != theirs.count)
        return HUGE_VAL;
    double worst = 0;
    for (int k = 0; k < ours.count; ++k) {
        g3d_Storage const & p = ours.points[k];
        float const(&iso)[3] = ours.iso[k];
        worst = std::max({worst, distance({p.X(), p.Y(), p.Z()}, theirs.points[k]),
                          distance({iso[0], iso[1], iso[2]}, theirs.iso[k])});
    }
    return worst;
}

#if BENCH_VTK
/// The foremost hit; false when there is none.
bool meet(VtkCells const & cells, int i, hand::Point & hit) {
    double parameter;
    hand::Point parametric;
    int subId = 0;
    return cells.cells[i]->IntersectWithLine(cells.set->lineStart[i].data(), cells.set->lineEnd[i].data(), 1e-6,
                                             parameter, hit.data(), parametric.data(), subId) != 0;
}

/// How many of the foremost hits are within `allowed` of ours.
int agreeing(VtkCells const & cells, double allowed) {
    int count = 0;
    for (int i = 0; i < setSize; ++i) {
        OurHits hits;
        hand::Point hit;
        bool const isHit = meet(*cells.set, i, hits);
        if (meet(cells, i, hit) == isHit &&
            distance({hits.points[0].X(), hits.points[0].Y(), hits.points[0].Z()}, hit) < allowed)
            ++count;
    }
    return count;
}
#endif

void timeElement(ElementType const & type) {
    auto const set = std::make_shared<ElementSet const>(type, Distortion::moderate);
    auto const surface = std::make_shared<Surface const>(set);
    double worst = 0;
    for (int i = 0; i < setSize; ++i) {
        OurHits hits;
        hand::Hits byHand;
        meet(*set, i, hits);
        surface->meet(i, byHand);
        worst = std::max(worst, difference(hits, byHand));
    }
    mustAgree(item, type.name, handWritten, worst, 1e-6);

    timeEach(item, type.name, ours, setSize, [set](int i) {
        OurHits hits;
        bool isHit = meet(*set, i, hits);
        benchmark::DoNotOptimize(isHit);
        benchmark::DoNotOptimize(hits);
    });
    timeEach(item, type.name, handWritten, setSize, [surface](int i) {
        hand::Hits hits;
        surface->meet(i, hits);
        benchmark::DoNotOptimize(hits);
    });

#if BENCH_VTK
    // Curved faces are cut into other pieces there, and only the foremost hit is given: all must agree on flat faces,
    // and most nearly on others.
    VtkCells const flat(std::make_shared<ElementSet const>(type, Distortion::none));
    mustAgree(item, type.name, vtk, setSize - agreeing(flat, 1e-5), 0);
    auto const cells = std::make_shared<VtkCells const>(set);
    mustAgree(item, type.name, vtk, setSize - agreeing(*cells, 0.1), setSize / 5);
    timeEach(item, type.name, vtk, setSize, [cells](int i) {
        hand::Point hit;
        bool isHit = meet(*cells, i, hit);
        benchmark::DoNotOptimize(isHit);
    });
#else
    notInstalled(item, type.name, vtk);
#endif
}

} // namespace

void timeLines() {
    for (ElementType const & type : elementTypes)
        timeElement(type);
}

} // namespace bench
