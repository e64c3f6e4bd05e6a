#include "placement.h"

#include "element_kind.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double halfOpening = 35 * std::numbers::pi / 180;
constexpr double flattening = 0.6;

} // namespace

Placement::Placement(shp_Topology const & shape) {
    int const family = shape.options.Shape();
    if (family == shp_keyTri || family == shp_keyPrism)
        factor = {2, 2, 1};
    if (family == shp_keyTetra)
        factor = {2, 2, 2};
    if (isInterlayer(shape) && shape.numGeometryDimensions > 1)
        (shape.numGeometryDimensions == 2 ? factor.y : factor.z) *= flattening;
    if (shape.isCylindrical) {
        bend = shape.numGeometryDimensions == 2 ? surface : solid;
        radius = shape.numGeometryDimensions == 2 ? 1.8 : family == shp_keyPrism ? 2 : 3;
    }
}

Vec3 Placement::at(double g, double h, double r) const {
    Vec3 const flat = {factor.x * g, factor.y * h, factor.z * r};
    switch (bend) {
    case none: break;
    case surface: {
        double const angle = halfOpening * h;
        return {flat.x, radius * std::sin(angle), radius * (std::cos(angle) - 1)};
    }
    case solid: {
        double const angle = halfOpening * r;
        double const distance = radius + flat.x;
        return {distance * std::cos(angle) - radius, flat.y, distance * std::sin(angle)};
    }
    }
    return flat;
}

Vec3 Placement::axisEnd(double end) const {
    return bend == surface ? Vec3{1.3 * end, 0, -radius} : Vec3{-radius, 1.3 * end + (factor.y - 1), 0};
}
