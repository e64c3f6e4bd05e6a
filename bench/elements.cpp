#include "elements.h"

#include <omi_BtreeIterator.h>
#include <shp_ShapeDictionary.h>

#include <cmath>
#include <random>
#include <stdexcept>

namespace bench {

ElementType const elementTypes[12] = {
    {"hexahedron 8", "C3D8", 12, {true, true, true}, 0, &hand::hexahedron8},
    {"hexahedron 20", "C3D20", 25, {true, true, true}, 0, &hand::hexahedron20},
    {"hexahedron 27", "C3D27", 29, {true, true, true}, 0, &hand::hexahedron27},
    {"tetrahedron 4", "C3D4", 10, {false, false, false}, 3, &hand::tetrahedron4},
    {"tetrahedron 10", "C3D10", 24, {false, false, false}, 3, &hand::tetrahedron10},
    {"prism 6", "C3D6", 13, {false, false, true}, 2, &hand::prism6},
    {"prism 15", "C3D15", 26, {false, false, true}, 2, &hand::prism15},
    {"pyramid 5", "C3D5", 14, {true, true, true}, 0, &hand::pyramid5},
    {"quadrilateral 4", "S4", 9, {true, true, false}, 0, &hand::quadrilateral4},
    {"quadrilateral 8", "S8R", 23, {true, true, false}, 0, &hand::quadrilateral8},
    {"triangle 3", "S3", 5, {false, false, false}, 2, &hand::triangle3},
    {"triangle 6", "STRI65", 22, {false, false, false}, 2, &hand::triangle6},
};

std::shared_ptr<shp_Shape const> makeShape(char const * label) {
    omi_BtreeIterator<cow_String, void *> labels(omi_Singleton<shp_ShapeDictionary>::Instance().Keys());
    for (bool isLabel = labels.First(); isLabel; isLabel = labels.Next())
        if (labels.CurrentKey().Compare(label) == 0)
            return std::make_shared<shp_Shape>(cow_String(label), *static_cast<LongKey const *>(labels.CurrentValue()));
    throw std::invalid_argument(std::string(label) + " is not in the catalogue");
}

double distance(hand::Point const & a, hand::Point const & b) {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

namespace {

using hand::Point;
using Random = std::mt19937;

double between(Random & random, double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
}

/// Well inside; in a pyramid not too near the apex.
std::array<float, 3> pointInside(ElementType const & type, int dimensions, Random & random) {
    std::array<float, 3> iso = {};
    float sum;
    do {
        sum = 0;
        for (std::size_t c = 0; c < 3; ++c) {
            if (static_cast<int>(c) < dimensions)
                iso[c] =
                    static_cast<float>(type.isCentred[c] ? between(random, -0.9, 0.9) : between(random, 0.05, 0.9));
            if (static_cast<int>(c) < type.isoSum)
                sum += iso[c];
        }
    } while (sum > 0.95f || (type.byHand == &hand::pyramid5 && iso[2] > 0.5f));
    return iso;
}

/// A sheared, stretched parallelepiped whose nodes are moved; plane elements stay in the plane z = 0.
Point place(float const * iso, int dimensions, double most, Random & random) {
    double const g = iso[0], h = iso[1], r = iso[2];
    auto const moved = [&](double x) { return x + between(random, -most, most); };
    Point const p = {moved(1.1 * g + 0.2 * h - 0.1 * r), moved(0.9 * h - 0.15 * g + 0.1 * r),
                     moved(1.05 * r + 0.1 * g)};
    return dimensions == 2 ? Point{p[0], p[1], 0} : p;
}

} // namespace

ElementSet::ElementSet(ElementType const & elementType, Distortion distortion)
    : type(elementType), shape(makeShape(elementType.label)) {
    Random random(20240911);
    int const dimensions = shape->NumGeometryDimensions();
    double const most = distortion == Distortion::none ? 0 : distortion == Distortion::moderate ? 0.05 : 0.15;
    for (int i = 0; i < setSize; ++i) {
        for (int n = 0; n < nodeCount(); ++n) {
            nodePoints.push_back(place(shape->IsoNodeLocationTable() + 3 * n, dimensions, most, random));
            positions.push_back(storageOf(nodePoints.back()));
        }
        positions.emplace_back();

        iso.push_back(pointInside(type, dimensions, random));
        isoPoint.push_back({iso.back()[0], iso.back()[1], iso.back()[2]});
    }
    for (int i = 0; i < setSize; ++i) {
        point.push_back(type.byHand->toSpace(isoPoint[static_cast<std::size_t>(i)], nodes(i)));
        position.push_back(storageOf(point.back()));
        Point const along = {between(random, -4, 4), between(random, -4, 4), between(random, 3, 5)};
        Point start = point.back(), end = point.back();
        for (std::size_t c = 0; c < 3; ++c) {
            start[c] -= along[c];
            end[c] += along[c];
        }
        lineStart.push_back(start);
        lineEnd.push_back(end);
    }
}

} // namespace bench
