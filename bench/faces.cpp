// Normals and centroids of a solid's faces, and its own centroid.

#include "elements.h"
#include "harness.h"
#include "subjects.h"
#if BENCH_VTK
#include "vtk_cells.h"

#include <vtkPolygon.h>
#include <vtkTriangle.h>
#endif

#include <uti_CoordCont3D.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

namespace bench {

namespace {

constexpr char normalItem[] = "face normal";
constexpr char ofFaceItem[] = "face normal, the face's nodes at hand";
constexpr char faceItem[] = "face centroid";
constexpr char elementItem[] = "element centroid";

/// The elements of a set with their positions as the library takes them for faces, and the face that is asked for of
/// each.
struct Solids {
    explicit Solids(SharedSet elements)
        : set(std::move(elements)), shape(*set->shape), numbers(static_cast<std::size_t>(set->nodeCount())),
          faces(setSize), coords(setSize), faceCoords(setSize), faceNodes(setSize) {
        std::iota(numbers.begin(), numbers.end(), 0);
        for (int i = 0; i < setSize; ++i) {
            faces[i] = i % shape.NumFacesPerElem();
            for (int n = 0; n < set->nodeCount(); ++n) {
                hand::Point const & p = set->nodes(i)[n];
                coords[i].SetCoord(n, static_cast<float>(p[0]), static_cast<float>(p[1]), static_cast<float>(p[2]));
            }
            shape.FaceConnectivity(numbers.data(), faceOf(i), faceNodes[i].data());
            for (int k = 0; k < nodesOf(i); ++k)
                faceCoords[i].SetCoord(k, coords[i][faceNodes[i][k]]);
        }
    }

    int faceOf(int i) const { return faces[i]; }
    int nodesOf(int i) const { return shape.NumNodesPerFace(faceOf(i)); }
    bool isPyramid() const { return set->type.byHand == &hand::pyramid5; }
    int cornersOf(int i) const { return shape.NumEdgesPerFace(faceOf(i)); }

    hand::Point normalOfFace(int i) const {
        float normal[3];
        shape.ComputeFaceNormal(faceNodes[i].data(), faceOf(i), faceCoords[i], normal);
        return {normal[0], normal[1], normal[2]};
    }
    /// As a caller does it who has the element: takes the face's nodes out of it first.
    hand::Point normal(int i) const {
        int face[9];
        float normal[3];
        shape.FaceConnectivity(numbers.data(), faceOf(i), face);
        for (int k = 0, count = nodesOf(i); k < count; ++k)
            gathered.SetCoord(k, coords[i][face[k]]);
        shape.ComputeFaceNormal(face, faceOf(i), gathered, normal);
        return {normal[0], normal[1], normal[2]};
    }
    hand::Point faceCentroid(int i) const {
        g3d_Storage const p = shape.GetFaceCentroid(faceOf(i), set->coords(i), numbers.data());
        return {p.X(), p.Y(), p.Z()};
    }
    hand::Point centroid(int i) const {
        shape.Centroid(numbers.data(), coords[i], centroids, false);
        return {centroids[0][0], centroids[0][1], centroids[0][2]};
    }

    SharedSet set;
    shp_Shape const & shape;
    std::vector<int> numbers;
    std::vector<int> faces;                          ///< by element
    std::vector<uti_CoordCont3D> coords, faceCoords; ///< by element
    std::vector<std::array<int, 9>> faceNodes;       ///< by element
    mutable uti_CoordCont3D gathered;
    mutable uti_CoordCont3D centroids = oneEntry();

private:
    static uti_CoordCont3D oneEntry() {
        uti_CoordCont3D result;
        result.Grow(1);
        return result;
    }
};

/// Shape functions of a face's nodes at its centre.
double const * centreWeights(int nodes) {
    static constexpr double three[] = {1. / 3, 1. / 3, 1. / 3}, four[] = {0.25, 0.25, 0.25, 0.25};
    static constexpr double six[] = {-1. / 9, -1. / 9, -1. / 9, 4. / 9, 4. / 9, 4. / 9};
    static constexpr double eight[] = {-0.25, -0.25, -0.25, -0.25, 0.5, 0.5, 0.5, 0.5};
    static constexpr double nine[] = {0, 0, 0, 0, 0, 0, 0, 0, 1};
    return nodes == 3 ? three : nodes == 4 ? four : nodes == 6 ? six : nodes == 8 ? eight : nine;
}

struct SolidsByHand {
    hand::Point normal(int i) const {
        return hand::faceNormal(solids->set->nodes(i), solids->faceNodes[i].data(), solids->cornersOf(i));
    }
    hand::Point faceCentroid(int i) const {
        // The centre of a pyramid's side lies halfway to the apex.
        if (solids->isPyramid()) {
            float const * const centre = solids->shape.faceCenterLocationTable + 3 * solids->faceOf(i);
            return solids->set->type.byHand->toSpace({centre[0], centre[1], centre[2]}, solids->set->nodes(i));
        }
        int const count = solids->nodesOf(i);
        return hand::weightedSum(solids->set->nodes(i), solids->faceNodes[i].data(), centreWeights(count), count);
    }
    hand::Point centroid(int i) const { return hand::mean(solids->set->nodes(i), solids->set->nodeCount()); }

    std::shared_ptr<Solids const> solids;
};

#if BENCH_VTK
struct SolidsOfVtk {
    explicit SolidsOfVtk(std::shared_ptr<Solids const> ours) : solids(std::move(ours)), cells(solids->set) {
        for (int i = 0; i < setSize; ++i)
            faces.push_back(faceThere(i));
    }

    hand::Point normalOfFace(vtkCell & face) const {
        static constexpr vtkIdType corners[] = {0, 1, 2, 3};
        hand::Point normal;
        if (face.GetNumberOfEdges() == 4)
            vtkPolygon::ComputeNormal(face.GetPoints(), 4, corners, normal.data());
        else
            vtkTriangle::ComputeNormal(face.GetPoints(), 3, corners, normal.data());
        return normal;
    }
    hand::Point normal(int i) const { return normalOfFace(*cells.cells[i]->GetFace(faces[i])); }
    hand::Point faceCentroid(int i) const { return centre(*cells.cells[i]->GetFace(faces[i])); }
    hand::Point centroid(int i) const { return centre(*cells.cells[i]); }

    std::shared_ptr<Solids const> solids;
    VtkCells cells;
    std::vector<int> faces; ///< by element, VTK's number of the face

private:
    static hand::Point centre(vtkCell & cell) {
        hand::Point parametric, result;
        double weights[27];
        int subId = cell.GetParametricCenter(parametric.data());
        cell.EvaluateLocation(subId, parametric.data(), result.data(), weights);
        return result;
    }
    /// The face with the same corners.
    int faceThere(int i) const {
        std::set<vtkIdType> corners;
        for (int k = 0; k < solids->cornersOf(i); ++k)
            corners.insert(cells.nodeThere[static_cast<std::size_t>(solids->faceNodes[i][k])]);
        for (int face = 0;; ++face) {
            vtkIdList * const nodes = cells.cells[i]->GetFace(face)->GetPointIds();
            vtkIdType const * const first = nodes->GetPointer(0);
            if (std::set<vtkIdType>(
                    first, first + std::min<vtkIdType>(4, cells.cells[i]->GetFace(face)->GetNumberOfEdges())) ==
                corners)
                return face;
        }
    }
};
#endif

/// The largest distance between the results of two ways, over a set.
template <class Ours, class Theirs> double worstOf(Ours ours, Theirs theirs) {
    double worst = 0;
    for (int i = 0; i < setSize; ++i)
        worst = std::max(worst, distance(ours(i), theirs(i)));
    return worst;
}

/// Times one operation of a way.
template <class Operation>
void timeIt(char const * item, ElementType const & type, char const * who, Operation operation) {
    timeEach(item, type.name, who, setSize, [operation](int i) {
        hand::Point result = operation(i);
        benchmark::DoNotOptimize(result);
    });
}

void checkNormals(ElementType const & type) {
    // Of a curved face each has a normal of its own.
    auto const solids = std::make_shared<Solids const>(std::make_shared<ElementSet const>(type, Distortion::none));
    SolidsByHand const byHand{solids};
    auto const normal = [&](int i) { return solids->normal(i); };
    mustAgree(normalItem, type.name, "ours of a face", worstOf(normal, [&](int i) { return solids->normalOfFace(i); }),
              0);
    mustAgree(normalItem, type.name, handWritten, worstOf(normal, [&](int i) { return byHand.normal(i); }), 1e-6);
#if BENCH_VTK
    SolidsOfVtk const there(solids);
    // The faces of VTK's wedges look inwards when their parametric coordinates are right-handed.
    double const sign = type.byHand == &hand::prism6 || type.byHand == &hand::prism15 ? -1 : 1;
    auto const normalThere = [&](int i) {
        hand::Point const n = there.normal(i);
        return hand::Point{sign * n[0], sign * n[1], sign * n[2]};
    };
    mustAgree(normalItem, type.name, vtk, worstOf(normal, normalThere), 1e-6);
    // The mean of the nodes is the centre of the coordinates, but in a pyramid.
    if (!solids->isPyramid())
        mustAgree(elementItem, type.name, vtk,
                  worstOf([&](int i) { return solids->centroid(i); }, [&](int i) { return there.centroid(i); }), 1e-6);
#endif
}

void timeElement(ElementType const & type) {
    checkNormals(type);
    auto const solids = std::make_shared<Solids const>(std::make_shared<ElementSet const>(type, Distortion::moderate));
    SolidsByHand const byHand{solids};
    auto const faceCentroid = [solids](int i) { return solids->faceCentroid(i); };
    auto const faceCentroidByHand = [byHand](int i) { return byHand.faceCentroid(i); };
    auto const centroid = [solids](int i) { return solids->centroid(i); };
    auto const centroidByHand = [byHand](int i) { return byHand.centroid(i); };
    mustAgree(faceItem, type.name, handWritten, worstOf(faceCentroid, faceCentroidByHand), 1e-6);
    mustAgree(elementItem, type.name, handWritten, worstOf(centroid, centroidByHand), 1e-6);

    timeIt(normalItem, type, ours, [solids](int i) { return solids->normal(i); });
    timeIt(normalItem, type, handWritten, [byHand](int i) { return byHand.normal(i); });
    timeIt(ofFaceItem, type, ours, [solids](int i) { return solids->normalOfFace(i); });
    timeIt(faceItem, type, ours, faceCentroid);
    timeIt(faceItem, type, handWritten, faceCentroidByHand);
    timeIt(elementItem, type, ours, centroid);
    timeIt(elementItem, type, handWritten, centroidByHand);

#if BENCH_VTK
    auto const there = std::make_shared<SolidsOfVtk const>(solids);
    if (!solids->isPyramid())
        mustAgree(faceItem, type.name, vtk, worstOf(faceCentroid, [there](int i) { return there->faceCentroid(i); }),
                  1e-6);
    std::vector<vtkSmartPointer<vtkCell>> faces;
    for (int i = 0; i < setSize; ++i) {
        vtkCell * const face = there->cells.cells[i]->GetFace(there->faces[i]);
        faces.push_back(vtkSmartPointer<vtkCell>::Take(face->NewInstance()));
        faces.back()->DeepCopy(face);
    }
    timeIt(normalItem, type, vtk, [there](int i) { return there->normal(i); });
    timeIt(ofFaceItem, type, vtk, [there, faces](int i) { return there->normalOfFace(*faces[i]); });
    timeIt(faceItem, type, vtk, [there](int i) { return there->faceCentroid(i); });
    timeIt(elementItem, type, vtk, [there](int i) { return there->centroid(i); });
#else
    for (char const * item : {normalItem, ofFaceItem, faceItem, elementItem})
        notInstalled(item, type.name, vtk);
#endif
}

} // namespace

void timeFacesAndCentroids() {
    for (ElementType const & type : elementTypes)
        if (type.byHand != &hand::quadrilateral4 && type.byHand != &hand::quadrilateral8 &&
            type.byHand != &hand::triangle3 && type.byHand != &hand::triangle6)
            timeElement(type);
}

} // namespace bench
