// Where a point lies in an element: sound and collapsed elements, points anywhere, numbers that are none.

#include "element_input.h"

#include "g3d_GeomUtils.h"

namespace {

/// What FindIsoPointLocation answers; `iso` is filled with `before` first.
struct Answer {
    bool isFound;
    float iso[3];

    Answer(Element const & element, g3d_Storage const & point, float before) : iso{before, before, before} {
        isFound = element.shape.FindIsoPointLocation(point, element.coords, iso);
    }
};

/// The first node at the point; -1 when there is none.
int nodeAt(Element const & element, g3d_Storage const & point) {
    for (int node = 0; node < element.numNodes; ++node) {
        g3d_Storage const & p = element.coords[node];
        double const tolerance = g3d_GeomUtils::getTolerance();
        if (std::fabs(p.X() - point.X()) < tolerance && std::fabs(p.Y() - point.Y()) < tolerance &&
            std::fabs(p.Z() - point.Z()) < tolerance)
            return node;
    }
    return -1;
}

/// Infinite elements and the plain 18-node prism are differentiated by other functions than they are interpolated with.
bool hasOwnDerivatives(shp_Topology const & shape) {
    bool const isPlainPrism = shape.options.Shape() == shp_keyPrism && !shape.options.IsType(shp_keyCylindrical);
    return !shape.options.IsType(shp_keyInfinite) && !(isPlainPrism && shape.BaseNodesPerElem() == 18);
}

/// Solids in which no point may be missed: those whose derivatives belong to their functions, as long as the shape is
/// close to that of the undisturbed element.
bool isReliable(shp_Topology const & shape) {
    if (shape.options.IsType(shp_keyInfinite) || shape.options.IsType(shp_keyGasket) ||
        shape.options.IsType(shp_keyCohesive) || shape.options.IsType(shp_keyCylindrical))
        return false;
    int const nodes = shape.BaseNodesPerElem();
    switch (shape.options.Shape()) {
    case shp_keyTetra: return nodes == 4;
    case shp_keyPrism: return nodes == 6;
    case shp_keyHex: return nodes == 8 || nodes == 20 || nodes == 27;
    default: return false;
    }
}

/// The point at known coordinates inside a gentle element is found there.
void checkInside(Element const & element, Input & input) {
    std::array<double, 3> const iso = element.isoInside(input);
    float const at[3] = {static_cast<float>(iso[0]), static_cast<float>(iso[1]), static_cast<float>(iso[2])};
    g3d_Storage const point = element.shape.InterpolatePointFromNodes(element.coords, at);
    Answer const answer(element, point, 0);
    require(answer.isFound, "points inside a sound element are found", element.shape.label.CStr());
    g3d_Storage const reached = element.shape.InterpolatePointFromNodes(element.coords, answer.iso);
    require(largestDistance(reached, point) < 2e-6 + 1e-5 * element.size, "and where they are",
            element.shape.label.CStr());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    Input input(data, size);
    Element const element(input);
    g3d_Storage const point = element.point(input);
    char const * const label = element.shape.label.CStr();

    Answer const answer(element, point, 0);
    int const node = nodeAt(element, point);
    require(!answer.isFound || element.shape.hasDerivatives, "without derivatives nothing is found", label);
    require(!answer.isFound || IsoBounds(element.shape).hold(answer.iso, 1e-5), "what is found is inside", label);
    require(!answer.isFound || node >= 0 || (isFinite(point) && element.hasFiniteCoords()),
            "what is not finite is found at nodes alone", label);
    if (answer.isFound && element.isGentle && hasOwnDerivatives(element.shape)) // its last step was short
        require(largestDistance(element.shape.InterpolatePointFromNodes(element.coords, answer.iso), point) <
                    2e-6 + 0.01 * element.size,
                "what is found is at the point", label);
    if (node >= 0 && element.shape.hasDerivatives)
        require(answer.isFound && std::equal(answer.iso, answer.iso + 3, element.shape.nodeLocationTable + 3 * node),
                "a point at a node is found there", label);

    if (input.byte() % 8 == 0) {
        Answer const again(element, point, 7);
        require(again.isFound == answer.isFound && (!again.isFound || std::equal(again.iso, again.iso + 3, answer.iso)),
                "what the result array held before does not matter", label);
    }
    if (element.isGentle && isReliable(element.shape))
        checkInside(element, input);
    return 0;
}
