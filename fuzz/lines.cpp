// Where a line meets an element, and whether a point lies in it by that: lines through, along, beside, without length
// or without numbers, with sound and collapsed elements.

#include "element_input.h"

namespace {

struct Line {
    g3d_Storage start, end;
    bool isSegment;

    double length() const { return g3d_Magnitude({end.X() - start.X(), end.Y() - start.Y(), end.Z() - start.Z()}); }
};

/// What LineShapeIntersection answers.
struct Answer {
    bool isMet;
    int numHits = -1;
    double params[3] = {};
    float iso[3][3] = {};
    g3d_Storage points[3];

    Answer(Element const & element, Line const & line, bool withPoints) {
        isMet = element.shape.LineShapeIntersection(line.start, line.end, element.coords, params, iso, numHits,
                                                    line.isSegment, withPoints ? points : nullptr);
    }
};

Line anyLine(Element const & element, Input & input) {
    Line line = {element.point(input), {}, input.byte() % 2 == 0};
    line.end = input.byte() % 16 == 0 ? line.start : element.point(input);
    return line;
}

void checkHits(Element const & element, Answer const & answer) {
    char const * const label = element.shape.label.CStr();
    bool const isSurface = element.shape.NumFaceTriangles() > 0;
    require(answer.isMet == (answer.numHits > 0) && answer.numHits >= 0 && answer.numHits <= (isSurface ? 2 : 3),
            "a line that meets the element has hits", label);
    // The ends of a line element's segments are widened by a length: far, where they are short.
    IsoBounds const bounds(element.shape);
    for (int i = 0; i < answer.numHits && (isSurface || element.isGentle); ++i)
        require(bounds.hold(answer.iso[i], isSurface ? 1e-5 : 1e-3), "hits are on the element", label);
}

/// Asks again in other words; hits are compared bit by bit, so that not-a-number equals itself.
void checkConsistency(Element const & element, Line const & line, Answer const & answer) {
    char const * const label = element.shape.label.CStr();
    Answer const bare(element, line, false);
    require(bare.isMet == answer.isMet && bare.numHits == answer.numHits, "hits do not depend on their points", label);
    for (int i = 0; i < answer.numHits; ++i)
        require(std::memcmp(&bare.params[i], &answer.params[i], sizeof bare.params[i]) == 0 &&
                    std::memcmp(bare.iso[i], answer.iso[i], sizeof bare.iso[i]) == 0,
                "nor do their parameters", label);

    // Tolerances of length make a short segment meet what the endless line meets too far away.
    if (answer.isMet && line.isSegment && element.isGentle && line.length() > 0.01 * element.size)
        require(Answer(element, {line.start, line.end, false}, false).isMet, "a line meets what its segment meets",
                label);
}

/// The surfaces whose triangles close around the element (of a planar element, fill its plane).
bool hasClosedSurface(shp_Topology const & shape) {
    for (int bit : {shp_keyInfinite, shp_keyGasket, shp_keyCohesive, shp_keyPipeSoil, shp_keyCylindrical})
        if (shape.options.IsType(bit))
            return false;
    return shape.NumFaceTriangles() > 0;
}

/// In an undisturbed element every line in its space finds a point between its hits, and linear interpolation is exact.
void checkInside(Element const & element, Input & input) {
    std::array<double, 3> const iso = element.isoInside(input);
    double toward[3] = {iso[0] + input.fraction(), iso[1] + input.fraction(), iso[2] + input.fraction()};
    if (element.shape.NumGeometryDimensions() == 2)
        toward[2] = 0;
    double const way =
        std::max({std::fabs(toward[0] - iso[0]), std::fabs(toward[1] - iso[1]), std::fabs(toward[2] - iso[2])});
    if (way < 0.05)
        return;
    float found[3];
    char const * const label = element.shape.label.CStr();
    require(element.shape.FindPointInShape(element.positionOf(iso.data()), element.positionOf(toward), element.coords,
                                           found),
            "a point inside is found inside", label);
    for (std::size_t c = 0; c < 3; ++c)
        require(std::fabs(double{found[c]} - iso[c]) < 1e-3, "and where it is", label);
}

void checkPointInShape(Element const & element, Line const & line) {
    char const * const label = element.shape.label.CStr();
    float iso[3] = {};
    bool const isInside = element.shape.FindPointInShape(line.start, line.end, element.coords, iso);
    require(isInside == element.shape.FindPointInShape(line.start, line.end, element.coords, nullptr),
            "being inside does not depend on asking where", label);
    if (isInside && element.isGentle)
        // Two hits a little before the point are carried on to it, by less than the way between them.
        require(IsoBounds(element.shape).hold(iso, 2.001), "what is inside is near the element", label);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    Input input(data, size);
    Element const element(input);
    Line const line = anyLine(element, input);
    char const * const label = element.shape.label.CStr();
    std::vector<g3d_Storage> const before(element.coords, element.coords + element.numNodes);

    Answer const answer(element, line, true);
    checkHits(element, answer);
    require(!answer.isMet || (isFinite(line.start) && isFinite(line.end) && line.length() > 0),
            "what is no line meets nothing", label);
    if (input.byte() % 4 == 0)
        checkConsistency(element, line, answer);
    checkPointInShape(element, line);
    if (element.isAffine && hasClosedSurface(element.shape))
        checkInside(element, input);
    require(std::equal(before.begin(), before.end(), element.coords, haveSameBits), "nodes stay where they are", label);
    return 0;
}
