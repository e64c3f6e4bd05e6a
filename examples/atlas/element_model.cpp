#include "element_model.h"

#include "element_kind.h"
#include "placement.h"
#include "table_text.h"

#include <uti_CoordCont3D.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

namespace {

/// A view in which the 27 nodes of a brick stand as far apart as can be.
constexpr double solidAzimuth = -76, solidElevation = 27;
/// From there two edges of a pyramid would be one.
constexpr double pyramidAzimuth = -58;
constexpr double surfaceElevation = 38, bentAzimuth = -40;
constexpr double solidScale = 130, flatScale = 130, bentScale = 105, tetraScale = 200;

int numStepsOfBend(Placement const & placement) {
    return placement.isBent() ? 8 : 1;
}

/// A straight line of isoparametric space, from `from` to `to`, in drawing space.
std::vector<Vec3> placedLine(Placement const & placement, float const * from, float const * to) {
    int const steps = numStepsOfBend(placement);
    std::vector<Vec3> line;
    for (int k = 0; k <= steps; ++k) {
        double const share = double(k) / steps;
        double iso[3];
        for (int c = 0; c < 3; ++c)
            iso[c] = (1 - share) * double(from[c]) + share * double(to[c]);
        line.push_back(placement.at(iso[0], iso[1], iso[2]));
    }
    return line;
}

void append(std::vector<Vec3> & line, std::vector<Vec3> const & more) {
    line.insert(line.end(), more.begin() + (line.empty() ? 0 : 1), more.end());
}

class Builder {
public:
    explicit Builder(shp_Topology const & topology)
        : shape(topology), placement(topology), misplaced(misplacedMidsides(topology)) {}

    ElementModel build() {
        placeNodesAndPoints();
        chooseView();
        for (std::vector<int> const & nodes : distinctEdges(shape))
            model.edges.push_back(lineThrough(nodes));
        if (shape.numGeometryDimensions == 3)
            for (int face = 0; face < shape.numFacesPerElem; ++face)
                addSolidFace(face);
        else if (shape.numGeometryDimensions == 2)
            addPlanarFace();
        addFeatures();
        return std::move(model);
    }

private:
    float const * nodeIso(int node) const { return shape.nodeLocationTable + 3 * node; }

    void chooseView() {
        model.isFlat = shape.numGeometryDimensions < 2 || shape.numSpatialDimensions == 2;
        if (model.isFlat)
            model.view = View::plan(flatScale);
        else if (placement.isBent())
            model.view = shape.numGeometryDimensions == 2
                             ? View(bentAzimuth, solidElevation, bentScale)
                             : farthestApart(model.nodes, model.points, {-76, -30}, {10, 50}, bentScale);
        else if (shape.options.Shape() == shp_keyTetra)
            model.view = farthestApart(model.nodes, model.points, {-76, -50}, {15, 35}, tetraScale);
        else
            model.view = View(shape.options.Shape() == shp_keyPyramid ? pyramidAzimuth : solidAzimuth,
                              shape.numGeometryDimensions == 2 ? surfaceElevation : solidElevation, solidScale);
        Vec3 const directions[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
        bool const isPoint = shape.baseNodesPerElem < 2;
        for (int c = 0; c < shape.numGeometryDimensions && !isPoint; ++c)
            model.axes.emplace_back(coordinateName(c), directions[c]);
    }

    void placeNodesAndPoints() {
        for (int n = 0; n < shape.baseNodesPerElem; ++n)
            model.nodes.push_back({n, placement.at(nodeIso(n)), coordinatesText(shape, nodeIso(n))});
        for (int p = 0; p < shape.baseIntPtsPerElem; ++p) {
            float const * const iso = shape.intPtLocationTable + 3 * p;
            model.points.push_back({p, placement.at(iso), coordinatesText(shape, iso)});
        }
        for (auto const & [a, b] : pointLattice(shape))
            model.features.push_back(
                {Feature::line,
                 "lattice",
                 placedLine(placement, shape.intPtLocationTable + 3 * a, shape.intPtLocationTable + 3 * b),
                 {},
                 Feature::ofPoints});
    }

    /// An edge of a solid is straight even where its middle node is placed elsewhere.
    std::vector<Vec3> lineThrough(std::vector<int> nodes) const {
        if (shape.numGeometryDimensions > 1 && !misplaced.empty())
            nodes = {nodes.front(), nodes.back()};
        std::vector<Vec3> line;
        for (std::size_t i = 0; i + 1 < nodes.size(); ++i)
            append(line, placedLine(placement, nodeIso(nodes[i]), nodeIso(nodes[i + 1])));
        return line;
    }

    /// Outline and triangles between the corners, which come in order around the face.
    void addOutline(std::vector<float const *> corners) {
        std::vector<Vec3> outline;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            std::vector<Vec3> const line = placedLine(placement, corners[i], corners[(i + 1) % corners.size()]);
            outline.insert(outline.end(), line.begin(), line.end() - 1);
        }
        model.faces.push_back(outline);

        // A triangle is a quadrilateral whose last two corners are one.
        int const steps = numStepsOfBend(placement);
        if (corners.size() == 3)
            corners.push_back(corners[2]);
        auto const place = [&](int i, int j) {
            double const a = double(i) / steps, b = double(j) / steps;
            double iso[3];
            for (int c = 0; c < 3; ++c)
                iso[c] = (1 - b) * ((1 - a) * double(corners[0][c]) + a * double(corners[1][c])) +
                         b * ((1 - a) * double(corners[3][c]) + a * double(corners[2][c]));
            return placement.at(iso[0], iso[1], iso[2]);
        };
        for (int i = 0; i < steps; ++i)
            for (int j = 0; j < steps; ++j) {
                model.surface.push_back({place(i, j), place(i + 1, j), place(i + 1, j + 1)});
                model.surface.push_back({place(i, j), place(i + 1, j + 1), place(i, j + 1)});
            }
    }

    /// Where a node of a mesh would stand: a middle node on its edge, whatever its location.
    Vec3 meshPlace(int node) const {
        if (std::find(misplaced.begin(), misplaced.end(), node) != misplaced.end())
            for (std::vector<int> const & edge : distinctEdges(shape))
                if (edge.size() == 3 && edge[1] == node)
                    return blend(placement.at(nodeIso(edge[0])), placement.at(nodeIso(edge[2])), 0.5);
        return placement.at(nodeIso(node));
    }

    Vec3 faceNormal(int face) const {
        std::vector<int> identity(static_cast<std::size_t>(shape.numNodesPerElem));
        std::iota(identity.begin(), identity.end(), 0);
        uti_CoordCont3D coords;
        for (int i = 0; i < shape.NumNodesPerFace(face); ++i) {
            Vec3 const at = meshPlace(shape.FaceNodeIndex(face, i));
            coords.SetCoord(i, static_cast<float>(at.x), static_cast<float>(at.y), static_cast<float>(at.z));
        }
        float normal[3] = {};
        shape.ComputeFaceNormal(identity.data(), face, coords, normal);
        return {double(normal[0]), double(normal[1]), double(normal[2])};
    }

    void addSolidFace(int face) {
        std::vector<float const *> corners;
        for (int i = 0; i < numFaceCorners(shape, face); ++i)
            corners.push_back(nodeIso(shape.FaceNodeIndex(face, i)));
        addOutline(corners);
        model.sides.push_back({face, placement.at(shape.faceCenterLocationTable + 3 * face), faceNormal(face)});
    }

    void addPlanarFace() {
        // The corners in order around: where the edges begin, and where the last one ends if the outline is open.
        std::vector<float const *> corners;
        for (int edge = 0; edge < shape.NumEdgesPerFace(0); ++edge)
            corners.push_back(nodeIso(shape.EdgeNodeIndex(0, edge, 0)));
        if (isInfinite(shape))
            corners.insert(corners.begin() + 2, nodeIso(shape.EdgeNodeIndex(0, 1, shape.NumNodesPerEdge(0, 1) - 1)));
        addOutline(corners);
        model.sidesAreEdges = model.isFlat;
        if (!model.isFlat) {
            model.sides.push_back({0, placement.at(shape.faceCenterLocationTable), faceNormal(0)});
            return;
        }
        Vec3 middle;
        for (float const * corner : corners)
            middle = middle + (1.0 / double(corners.size())) * placement.at(corner);
        for (int edge = 0; edge < shape.NumEdgesPerFace(0); ++edge) {
            Vec3 const from = placement.at(nodeIso(shape.EdgeNodeIndex(0, edge, 0)));
            Vec3 const to = placement.at(nodeIso(shape.EdgeNodeIndex(0, edge, shape.NumNodesPerEdge(0, edge) - 1)));
            Vec3 const centre = placement.at(shape.faceCenterLocationTable + 3 * edge);
            Vec3 const across = {to.y - from.y, from.x - to.x, 0};
            double const outwards = dot(across, centre - middle) < 0 ? -1 : 1;
            model.sides.push_back({edge, centre, outwards / std::hypot(across.x, across.y) * across});
        }
    }

    void addFeatures() {
        int const last = shape.numGeometryDimensions - 1;
        if (isInfinite(shape) && last > 0)
            addInfiniteArrows(last);
        if (isInterlayer(shape)) {
            if (last > 0)
                addCut(last, 0, "middle");
            model.pointed = {last, "thickness", true};
        }
        if (shape.isContinuumShell)
            model.pointed = {last, "thickness", true};
        if (shape.isLayeredSolid) {
            int const stacked = shape.options.Mode() - 1;
            for (double const level : {-0.5, 0.5})
                addCut(stacked, level, "layer");
            addCut(stacked, 0, "middle");
            model.pointed = {stacked, "stacking", false};
        }
        if (placement.isBent())
            model.features.push_back({Feature::line, "axis", {placement.axisEnd(-1), placement.axisEnd(1)}});
    }

    /// From the nodes on the far side on, where the element has no end.
    void addInfiniteArrows(int coordinate) {
        constexpr double beyond = 0.75;
        for (int n = 0; n < shape.baseNodesPerElem; ++n) {
            float far[3] = {nodeIso(n)[0], nodeIso(n)[1], nodeIso(n)[2]};
            if (far[coordinate] < 0)
                continue;
            far[coordinate] = static_cast<float>(beyond);
            bool const isCorner = std::abs(far[0]) + std::abs(far[1]) + std::abs(far[2]) > coordinate + beyond - 0.01;
            if (!isCorner)
                continue;
            Vec3 const tip = placement.at(far);
            model.features.push_back({Feature::arrow, "beyond", {placement.at(nodeIso(n)), tip}});
            far[coordinate] += 0.13f;
            model.features.push_back({Feature::text, "beyond", {placement.at(far)}, "∞"});
        }
    }

    /// The section at one value of a coordinate: of a solid an area, of a planar element a line.
    void addCut(int coordinate, double level, char const * style) {
        std::vector<std::pair<double, double>> corners = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
        if (shape.options.Shape() == shp_keyPrism)
            corners = {{0, 0}, {1, 0}, {0, 1}};
        std::vector<Vec3> section;
        for (auto const & [a, b] : corners) {
            if (shape.numGeometryDimensions == 2 && section.size() == 2)
                break;
            double iso[3];
            iso[coordinate] = level;
            iso[coordinate == 0 ? 1 : 0] = a;
            iso[coordinate == 2 ? 1 : 2] = shape.numGeometryDimensions == 2 ? 0 : b;
            section.push_back(placement.at(iso[0], iso[1], iso[2]));
        }
        model.features.push_back({section.size() > 2 ? Feature::area : Feature::line, style, section});
    }

    shp_Topology const & shape;
    Placement placement;
    std::vector<int> misplaced;
    ElementModel model;
};

} // namespace

View farthestApart(std::vector<NumberedPlace> const & nodes, std::vector<NumberedPlace> const & points,
                   DegreeRange azimuths, DegreeRange elevations, double pixelsPerUnit) {
    constexpr double smallestPoint = 0.75; // of a node's size
    std::vector<Vec3> nodePlaces, pointPlaces;
    for (NumberedPlace const & node : nodes)
        nodePlaces.push_back(node.at);
    for (NumberedPlace const & point : points)
        pointPlaces.push_back(point.at);
    View best = View::plan(pixelsPerUnit);
    double widest = -1;
    for (int azimuth = azimuths.from; azimuth <= azimuths.to; azimuth += 2)
        for (int elevation = elevations.from; elevation <= elevations.to; elevation += 2) {
            View const view(azimuth, elevation, pixelsPerUnit);
            double const gap = std::min(smallestGap(view, nodePlaces), smallestGap(view, pointPlaces) / smallestPoint);
            if (gap > widest) {
                widest = gap;
                best = view;
            }
        }
    return best;
}

ElementModel modelOf(shp_Topology const & shape) {
    return shape.isCaxaElement ? planesModelOf(shape) : Builder(shape).build();
}

std::string coordinatesText(shp_Topology const & shape, float const * iso) {
    std::string text = "(";
    for (int c = 0; c < shape.numGeometryDimensions; ++c)
        text += (c ? ", " : "") + floatText(iso[c]);
    return text + ")";
}

std::vector<std::pair<int, int>> pointLattice(shp_Topology const & shape) {
    struct Offset {
        int coordinate = -1;
        float distance = 0;
    };
    // From point a to point b, if they differ in one coordinate.
    auto const offset = [&](int a, int b) {
        Offset found;
        for (int c = 0; c < 3; ++c) {
            float const difference = shape.intPtLocationTable[3 * b + c] - shape.intPtLocationTable[3 * a + c];
            if (std::abs(difference) < 1e-4f)
                continue;
            if (found.coordinate >= 0)
                return Offset{};
            found = {c, difference};
        }
        return found;
    };
    std::vector<std::pair<int, int>> pairs;
    for (int a = 0; a < shape.baseIntPtsPerElem; ++a)
        for (int c = 0; c < shape.numGeometryDimensions; ++c) {
            int nearest = -1;
            float distance = 0;
            for (int b = 0; b < shape.baseIntPtsPerElem; ++b) {
                Offset const to = offset(a, b);
                if (to.coordinate == c && to.distance > 0 && (nearest < 0 || to.distance < distance)) {
                    nearest = b;
                    distance = to.distance;
                }
            }
            if (nearest >= 0)
                pairs.emplace_back(a, nearest);
        }
    return pairs;
}

std::vector<std::vector<int>> distinctEdges(shp_Topology const & shape) {
    std::vector<std::vector<int>> edges;
    std::set<std::vector<int>> known;
    for (int face = 0; face < shape.numFacesPerElem; ++face)
        for (int edge = 0; edge < shape.NumEdgesPerFace(face); ++edge) {
            std::vector<int> nodes;
            for (int i = 0; i < shape.BaseNodesPerEdge(face, edge); ++i)
                nodes.push_back(shape.EdgeNodeIndex(face, edge, i));
            std::vector<int> sorted = nodes;
            std::sort(sorted.begin(), sorted.end());
            if (known.insert(sorted).second)
                edges.push_back(nodes);
        }
    return edges;
}

std::vector<int> misplacedMidsides(shp_Topology const & shape) {
    std::set<int> misplaced;
    for (std::vector<int> const & edge : distinctEdges(shape)) {
        if (edge.size() != 3)
            continue;
        auto const iso = [&](int i, int c) {
            return shape.nodeLocationTable[3 * edge[static_cast<std::size_t>(i)] + c];
        };
        for (int c = 0; c < 3; ++c)
            if (std::abs(iso(0, c) + iso(2, c) - 2 * iso(1, c)) > 1e-5f)
                misplaced.insert(edge[1]);
    }
    return {misplaced.begin(), misplaced.end()};
}

int numFaceCorners(shp_Topology const & shape, int face) {
    // The faces of an infinite element have no edge on the far side.
    return isInfinite(shape) ? 4 : shape.NumEdgesPerFace(face);
}
