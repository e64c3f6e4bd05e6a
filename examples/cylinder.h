#ifndef cylinder_h
#define cylinder_h

#include <array>
#include <cmath>

/// A quarter of a thick-walled cylinder with closed ends under internal pressure. Its axis is the last one of the
/// model; lengths and stresses are in units of the reader's choice.
struct Cylinder {
    double innerRadius = 1;
    double outerRadius = 2;
    double height = 1;
    double pressure = 100;
};

/// How the cylinder stands in the coordinates x, y, z.
enum class Model {
    solid,       ///< the quarter itself: axis z, x and y at least 0
    plane,       ///< its cross-section: as solid, at z = 0
    axisymmetric ///< its axial section: x is the radius, y runs along the axis
};

/// True when the point belongs to the quarter of the wall, or to its section.
inline bool isInWall(Cylinder const & cylinder, Model model, double x, double y, double z) {
    bool const isAxial = model == Model::axisymmetric;
    double const radius = isAxial ? x : std::hypot(x, y);
    double const along = isAxial ? y : z;
    bool const isInQuarter = isAxial ? z == 0 : x >= 0 && y >= 0;
    bool const isInHeight = model == Model::plane ? z == 0 : along >= 0 && along <= cylinder.height;
    return isInQuarter && isInHeight && radius >= cylinder.innerRadius && radius <= cylinder.outerRadius;
}

/// Stress components in the order of the result files: xx, yy, zz, xy, yz, xz.
using Stress = std::array<double, 6>;

/// The exact stress at a point of the wall (Lamé, 1852).
inline Stress exactStress(Cylinder const & cylinder, Model model, double x, double y) {
    double const inner2 = cylinder.innerRadius * cylinder.innerRadius;
    double const outer2 = cylinder.outerRadius * cylinder.outerRadius;
    double const axial = cylinder.pressure * inner2 / (outer2 - inner2);
    double const radius = model == Model::axisymmetric ? x : std::hypot(x, y);
    double const radial = axial * (1 - outer2 / (radius * radius));
    double const hoop = axial * (1 + outer2 / (radius * radius));
    if (model == Model::axisymmetric)
        return {radial, axial, hoop, 0, 0, 0};

    double const cosine = x / radius;
    double const sine = y / radius;
    return {radial * cosine * cosine + hoop * sine * sine,
            radial * sine * sine + hoop * cosine * cosine,
            axial,
            (radial - hoop) * sine * cosine,
            0,
            0};
}

/// The equivalent stress (von Mises, 1913).
inline double equivalentStress(Stress const & s) {
    double const squares =
        (s[0] - s[1]) * (s[0] - s[1]) + (s[1] - s[2]) * (s[1] - s[2]) + (s[2] - s[0]) * (s[2] - s[0]);
    return std::sqrt(squares / 2 + 3 * (s[3] * s[3] + s[4] * s[4] + s[5] * s[5]));
}

#endif
