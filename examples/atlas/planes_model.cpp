// Elements in several planes around an axis: sections at equal angles of half a turn, with N + 1 planes of nodes and
// 2N + 2 planes of integration points for the mode N.

#include "element_model.h"

#include "element_kind.h"

#include <cmath>
#include <cstdio>
#include <numbers>

namespace {

// The picture's choice, so that up to 90 numbers stand apart.
constexpr double sectionRadius = 3; ///< from the axis to the middle of the section
constexpr double stretch = 2.5;     ///< of the section along the axis
constexpr double pixelsPerUnit = 85;

class PlanesBuilder {
public:
    explicit PlanesBuilder(shp_Topology const & topology) : shape(topology), mode(topology.options.Mode()) {}

    ElementModel build() {
        model.isFlat = false;
        model.isInPlanes = true;
        addPlanes(mode + 1, Feature::ofNodes);
        addPlanes(2 * mode + 2, Feature::ofPoints);
        model.view = farthestApart(model.nodes, model.points, {-94, -76}, {26, 56}, pixelsPerUnit);
        constexpr double height = 1.3 * stretch;
        model.features.push_back({Feature::line, "axis", {{0, 0, -height}, {0, 0, height}}});
        addArcs();
        if (shape.numGeometryDimensions == 2)
            addCoordinates();
        return std::move(model);
    }

private:
    /// A place of the section: g away from the axis and h along it; of a line, g along the axis.
    Vec3 place(float const * iso, double degrees) const {
        bool const isLine = shape.numGeometryDimensions == 1;
        double const radius = sectionRadius + (isLine ? 0 : double(iso[0]));
        double const angle = degrees * std::numbers::pi / 180;
        return {radius * std::cos(angle), radius * std::sin(angle), stretch * double(iso[isLine ? 0 : 1])};
    }

    float const * nodeIso(int node) const { return shape.nodeLocationTable + 3 * node; }

    void addPlanes(int count, Feature::Picture picture) {
        bool const ofNodes = picture == Feature::ofNodes;
        for (int plane = 0; plane < count; ++plane) {
            double const degrees = 180.0 * plane / (count - 1);
            addSection(degrees, picture);
            int const perPlane = ofNodes ? shape.baseNodesPerElem : shape.baseIntPtsPerElem;
            for (int i = 0; i < perPlane; ++i) {
                float const * const iso = (ofNodes ? shape.nodeLocationTable : shape.intPtLocationTable) + 3 * i;
                (ofNodes ? model.nodes : model.points)
                    .push_back({plane * perPlane + i, place(iso, degrees),
                                coordinatesText(shape, iso) + " at " + degreesText(degrees)});
            }
        }
    }

    static std::string degreesText(double degrees) {
        char text[32];
        std::snprintf(text, sizeof text, "%.4g°", degrees);
        return text;
    }

    void addSection(double degrees, Feature::Picture picture) {
        std::vector<Vec3> outline;
        for (std::vector<int> const & edge : distinctEdges(shape)) {
            std::vector<Vec3> line;
            for (int node : edge)
                line.push_back(place(nodeIso(node), degrees));
            outline.push_back(line[0]);
            model.features.push_back({Feature::line, "section", line, {}, picture});
        }
        if (outline.size() > 2)
            model.features.push_back({Feature::area, "plane", outline, {}, picture});
        float const beside[] = {1, 1.15f, 0}, above[] = {1.25f, 0, 0};
        model.features.push_back({Feature::text,
                                  "angle",
                                  {place(shape.numGeometryDimensions == 2 ? beside : above, degrees)},
                                  degreesText(degrees),
                                  picture});
        if (picture == Feature::ofPoints)
            for (auto const & [a, b] : pointLattice(shape))
                model.features.push_back({Feature::line,
                                          "lattice",
                                          {place(shape.intPtLocationTable + 3 * a, degrees),
                                           place(shape.intPtLocationTable + 3 * b, degrees)},
                                          {},
                                          picture});
    }

    void addArcs() {
        for (std::vector<int> const & edge : distinctEdges(shape)) {
            std::vector<int> ends = {edge.front()};
            if (shape.numGeometryDimensions == 1)
                ends.push_back(edge.back());
            for (int node : ends) {
                std::vector<Vec3> arc;
                for (int degrees = 0; degrees <= 180; degrees += 5)
                    arc.push_back(place(nodeIso(node), degrees));
                model.features.push_back({Feature::line, "arc", arc});
            }
        }
    }

    /// Arrows below and beside the first section.
    void addCoordinates() {
        constexpr float low = -1.16f, outside = 1.3f;
        struct Arrow {
            float from[3], to[3], name[3];
        };
        Arrow const arrows[] = {{{-1, low, 0}, {0, low, 0}, {0.2f, low, 0}},
                                {{outside, -1, 0}, {outside, -0.5f, 0}, {outside, -0.4f, 0}}};
        for (int c = 0; c < 2; ++c) {
            model.features.push_back(
                {Feature::arrow, "coordinate", {place(arrows[c].from, 0), place(arrows[c].to, 0)}});
            model.features.push_back({Feature::text, "coordinate", {place(arrows[c].name, 0)}, coordinateName(c)});
        }
    }

    shp_Topology const & shape;
    int mode;
    ElementModel model;
};

} // namespace

ElementModel planesModelOf(shp_Topology const & shape) {
    return PlanesBuilder(shape).build();
}
