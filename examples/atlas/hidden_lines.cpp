#include "hidden_lines.h"

#include <cmath>

namespace {

constexpr int piecesPerSegment = 24;
/// How far in front a triangle must be to hide a place: a place never hides behind the triangle that it lies on.
constexpr double nearness = 0.02;

double cross(Point2 a, Point2 b) {
    return a.x * b.y - a.y * b.x;
}

} // namespace

HiddenLines::HiddenLines(View const & drawn, std::vector<Triangle3> const & surface) : view(drawn) {
    for (Triangle3 const & corners : surface) {
        Point2 const origin = view.project(corners[0]);
        Shadow shadow{origin, view.project(corners[1]) - origin, view.project(corners[2]) - origin, 0, {}};
        shadow.area = cross(shadow.first, shadow.second);
        for (int i = 0; i < 3; ++i)
            shadow.depths[i] = view.depth(corners[static_cast<std::size_t>(i)]);
        if (std::abs(shadow.area) > 1e-6)
            shadows.push_back(shadow);
    }
}

bool HiddenLines::hides(Vec3 place) const {
    constexpr double edge = -1e-9;
    Point2 const at = view.project(place);
    double const depth = view.depth(place);
    for (Shadow const & shadow : shadows) {
        Point2 const offset = at - shadow.origin;
        double const a = cross(offset, shadow.second) / shadow.area;
        double const b = cross(shadow.first, offset) / shadow.area;
        if (a < edge || b < edge || a + b > 1 - edge)
            continue;
        if ((1 - a - b) * shadow.depths[0] + a * shadow.depths[1] + b * shadow.depths[2] > depth + nearness)
            return true;
    }
    return false;
}

std::vector<LinePiece> HiddenLines::split(std::vector<Vec3> const & line) const {
    std::vector<LinePiece> pieces;
    for (std::size_t i = 0; i + 1 < line.size(); ++i)
        for (int k = 0; k < piecesPerSegment; ++k) {
            auto const along = [&](double step) { return blend(line[i], line[i + 1], step / piecesPerSegment); };
            bool const hidden = hides(along(k + 0.5));
            if (pieces.empty() || pieces.back().hidden != hidden)
                pieces.push_back({hidden, {along(k)}});
            pieces.back().path.push_back(along(k + 1));
        }
    return pieces;
}
