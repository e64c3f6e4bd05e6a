#include "view.h"

#include <algorithm>
#include <limits>
#include <numbers>
#include <vector>

View::View(double azimuth, double elevation, double pixelsPerUnit) : scale(pixelsPerUnit) {
    double const a = azimuth * std::numbers::pi / 180;
    double const e = elevation * std::numbers::pi / 180;
    right = {-std::sin(a), std::cos(a), 0};
    up = {-std::sin(e) * std::cos(a), -std::sin(e) * std::sin(a), std::cos(e)};
    towardsEye = {std::cos(e) * std::cos(a), std::cos(e) * std::sin(a), std::sin(e)};
}

double smallestGap(View const & view, std::span<Vec3 const> places) {
    std::vector<Point2> projected;
    for (Vec3 const & place : places)
        projected.push_back(view.project(place));
    double gap = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < projected.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            Point2 const apart = projected[i] - projected[j];
            gap = std::min(gap, std::max(std::abs(apart.x), std::abs(apart.y)));
        }
    return gap;
}
