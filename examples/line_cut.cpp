#include "line_cut.h"

#include <algorithm>
#include <numbers>

namespace {

/// The parameters at which a + b t + c t t is zero.
std::vector<double> roots(double a, double b, double c) {
    if (c == 0)
        return b == 0 ? std::vector<double>{} : std::vector<double>{-a / b};
    double const discriminant = b * b - 4 * a * c;
    if (discriminant < 0)
        return {};
    double const root = std::sqrt(discriminant);
    return {(-b - root) / (2 * c), (-b + root) / (2 * c)};
}

} // namespace

double Line::length() const {
    g3d_Storage difference = end;
    difference -= start;
    return g3d_Magnitude(difference);
}

g3d_Storage Line::at(double parameter) const {
    return {std::lerp(start.X(), end.X(), parameter), std::lerp(start.Y(), end.Y(), parameter),
            std::lerp(start.Z(), end.Z(), parameter)};
}

Line Fan::line(std::size_t i) const {
    double const angle = directions[i] * std::numbers::pi / 180;
    return {apex, {apex.X() + length * std::cos(angle), apex.Y() + length * std::sin(angle), apex.Z()}};
}

Fan fanThrough(Cylinder const & cylinder, Model model) {
    double const outer = cylinder.outerRadius;
    if (model == Model::axisymmetric)
        return {{0.6 * cylinder.innerRadius, -0.2 * cylinder.height, 0}, {15, 23, 31, 39, 47, 55, 63}, 2 * outer};
    double const height = model == Model::solid ? 0.37 * cylinder.height : 0;
    return {{1.1 * outer, 0, height}, {170, 162, 154, 146, 138, 130, 122}, 1.6 * outer};
}

std::vector<Crossing> cutMesh(shp_Topology const & shape, Mesh const & mesh, BoxGrid const & grid,
                              NodalStress const & stress, Line const & line) {
    constexpr double shortest = 1e-9; // as parameter: below it a line only touches an edge or a corner
    std::vector<Crossing> path;
    for (int element : grid.along(line.start, line.end)) {
        std::vector<g3d_Storage> coords = elementCoords(mesh, element);
        double parameters[3];
        float iso[3][3];
        g3d_Storage points[3];
        int numHits = 0;
        bool const isHit =
            shape.LineShapeIntersection(line.start, line.end, coords.data(), parameters, iso, numHits, true, points);
        if (!isHit || numHits < 2 || parameters[1] - parameters[0] < shortest)
            continue;
        auto const hit = [&](int i) {
            return Hit{parameters[i],
                       points[i],
                       {iso[i][0], iso[i][1], iso[i][2]},
                       interpolateStress(shape, mesh, stress, element, iso[i])};
        };
        path.push_back({element, hit(0), hit(1)});
    }
    std::stable_sort(path.begin(), path.end(),
                     [](Crossing const & a, Crossing const & b) { return a.entry.parameter < b.entry.parameter; });
    return path;
}

double lengthInWall(Cylinder const & cylinder, Model model, Line const & line) {
    double const x = line.start.X();
    double const y = line.start.Y();
    double const z = line.start.Z();
    double const dx = line.end.X() - x;
    double const dy = line.end.Y() - y;
    double const dz = line.end.Z() - z;
    std::vector<double> ends = {0, 1};
    auto const add = [&](std::vector<double> const & parameters) {
        std::copy_if(parameters.begin(), parameters.end(), std::back_inserter(ends),
                     [](double t) { return t > 0 && t < 1; });
    };
    bool const isAxial = model == Model::axisymmetric;
    for (double radius : {cylinder.innerRadius, cylinder.outerRadius})
        add(isAxial ? roots(x - radius, dx, 0)
                    : roots(x * x + y * y - radius * radius, 2 * (x * dx + y * dy), dx * dx + dy * dy));
    for (double along : {0.0, cylinder.height})
        add(isAxial ? roots(y - along, dy, 0) : roots(z - along, dz, 0));
    if (!isAxial) {
        add(roots(x, dx, 0));
        add(roots(y, dy, 0));
    }

    std::sort(ends.begin(), ends.end());
    double inWall = 0;
    for (std::size_t i = 1; i < ends.size(); ++i) {
        g3d_Storage const middle = line.at((ends[i - 1] + ends[i]) / 2);
        if (isInWall(cylinder, model, middle.X(), middle.Y(), middle.Z()))
            inWall += ends[i] - ends[i - 1];
    }
    return inWall * line.length();
}
