#include "element_picture.h"

#include "element_kind.h"
#include "svg_picture.h"
#include "table_text.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double nodeRadius = 12, pointSize = 10.5, smallPointSize = 9;
constexpr double normalLength = 0.62;
/// Between a face's number and others, from centre to centre.
constexpr double enoughRoom = 27;

class Drawing {
public:
    Drawing(ElementModel const & toDraw, Feature::Picture which)
        : model(toDraw), picture(which), lines(model.view, model.surface) {}

    void drawBody() {
        drawFaces();
        for (Feature const & feature : model.features)
            if (feature.kind == Feature::area && isShown(feature))
                svg.area(projected(feature.path), feature.style);
        for (bool const hidden : {true, false}) {
            for (Feature const & feature : model.features)
                if (feature.kind == Feature::line && isShown(feature))
                    drawLine(feature.path, feature.style, hidden);
            for (auto const & edge : model.edges)
                drawLine(edge, "edge", hidden);
        }
        for (Feature const & feature : model.features)
            if (feature.kind == Feature::arrow && isShown(feature))
                drawArrow(model.view.project(feature.path[0]), model.view.project(feature.path[1]), feature.style);
    }

    void drawWords() {
        for (Feature const & feature : model.features)
            if (feature.kind == Feature::text && isShown(feature))
                svg.text(model.view.project(feature.path[0]), feature.style, feature.words);
    }

    void drawNormals() {
        for (NumberedSide const & side : model.sides) {
            if (dot(side.normal, side.normal) == 0)
                continue;
            std::vector<Vec3> const arrow = {side.centre, normalTip(side)};
            bool lastHidden = false;
            for (LinePiece const & piece : lines.split(arrow)) {
                svg.line(projected(piece.path), piece.hidden ? "normal hidden" : "normal");
                lastHidden = piece.hidden;
            }
            svg.arrowHead(model.view.project(arrow[0]), model.view.project(arrow[1]),
                          lastHidden ? "normal hidden" : "normal");
        }
    }

    void drawSideNumbers() {
        std::vector<Point2> taken;
        for (NumberedPlace const & node : model.nodes)
            taken.push_back(model.view.project(node.at));
        for (NumberedSide const & side : model.sides) {
            Point2 const centre = model.view.project(side.centre);
            Point2 const outwards = model.view.project(normalTip(side)) - centre;
            Point2 const at = roomiest(centre, outwards, taken);
            taken.push_back(at);
            bool const hidden = !model.isFlat && lines.hides(side.centre);
            std::string const kind = model.sidesAreEdges ? "edge" : "face";
            svg.badge(SvgPicture::Shape::square, at, 11, "side" + std::string(hidden ? " hidden" : ""),
                      "data-" + kind + "=\"" + std::to_string(side.number) + "\"",
                      (model.sidesAreEdges ? "E" : "F") + numberSvg(side.number), kind + " and its outward normal");
        }
    }

    void drawNodes() {
        for (bool const hidden : {true, false})
            for (NumberedPlace const & node : model.nodes)
                if (lines.hides(node.at) == hidden)
                    svg.badge(SvgPicture::Shape::circle, model.view.project(node.at), nodeRadius,
                              hidden ? "node hidden" : "node", "data-node=\"" + std::to_string(node.number) + "\"",
                              numberSvg(node.number), "node at " + node.coordinates);
    }

    void drawNodeDots(double radius) {
        for (NumberedPlace const & node : model.nodes)
            svg.dot(model.view.project(node.at), radius, lines.hides(node.at) ? "nodedot hidden" : "nodedot");
    }

    void drawPoints() {
        std::vector<Vec3> places;
        for (NumberedPlace const & point : model.points)
            places.push_back(point.at);
        for (NumberedSide const & side : model.sides)
            svg.grow(model.view.project(normalTip(side)), 4);
        bool const small = smallestGap(model.view, places) < 2 * pointSize + 3;
        for (NumberedPlace const & point : model.points)
            svg.badge(SvgPicture::Shape::square, model.view.project(point.at), small ? smallPointSize : pointSize,
                      small ? "point small" : "point", "data-point=\"" + std::to_string(point.number) + "\"",
                      numberSvg(point.number), "integration point at " + point.coordinates);
    }

    /// Beside the element: the axis that is pointed out, and the directions of the coordinates.
    void drawAxes() {
        if (model.pointed.coordinate >= 0)
            drawPointedAxis();
        if (model.axes.empty())
            return;
        constexpr double axisLength = 46;
        SvgPicture::Box const box = svg.box();
        Point2 const origin = {box.left + 14, box.bottom + (model.isFlat && model.axes.size() == 1 ? 26 : 44)};
        double const scale = axisLength / length(model.view.project({0, 0, 1}) + model.view.project({1, 0, 0}));
        for (auto const & [name, direction] : model.axes) {
            Point2 const way = model.view.project(direction);
            Point2 const tip = origin + scale * way;
            drawArrow(origin, tip, "coordinate");
            svg.text(tip + (11 / std::max(length(way), 1.0)) * way, "coordinate", name);
        }
    }

    SvgPicture svg;

private:
    bool isShown(Feature const & feature) const {
        return feature.picture == Feature::both || feature.picture == picture;
    }

    std::vector<Point2> projected(std::vector<Vec3> const & path) const {
        std::vector<Point2> points;
        for (Vec3 const & place : path)
            points.push_back(model.view.project(place));
        return points;
    }

    static Vec3 normalTip(NumberedSide const & side) { return side.centre + normalLength * side.normal; }

    /// Where a face's number has room: at the face's centre, behind the tip of its normal, or along it.
    static Point2 roomiest(Point2 centre, Point2 normal, std::vector<Point2> const & taken) {
        double const pixel = 1 / std::max(length(normal), 1.0);
        Point2 best = centre;
        double widest = -1;
        for (double const share : {0.0, 1 + 15 * pixel, 1 + 28 * pixel, 0.7, 1 + 41 * pixel, 1 + 54 * pixel}) {
            Point2 const at = centre + share * normal;
            double room = enoughRoom;
            for (Point2 const & other : taken)
                room = std::min(room, length(other - at));
            if (room > widest) {
                widest = room;
                best = at;
            }
        }
        return best;
    }

    /// The faces that look at the eye: those that go around counter-clockwise in the picture.
    void drawFaces() {
        for (auto const & face : model.faces) {
            std::vector<Point2> const outline = projected(face);
            double area = 0;
            for (std::size_t i = 0; i < outline.size(); ++i) {
                Point2 const & a = outline[i];
                Point2 const & b = outline[(i + 1) % outline.size()];
                area += b.x * a.y - a.x * b.y;
            }
            if (area > 0 || model.faces.size() == 1)
                svg.area(outline, "body");
        }
    }

    void drawLine(std::vector<Vec3> const & path, std::string const & style, bool hidden) {
        for (LinePiece const & piece : lines.split(path))
            if (piece.hidden == hidden)
                svg.line(projected(piece.path), hidden ? style + " hidden" : style);
    }

    void drawArrow(Point2 from, Point2 to, std::string const & style) {
        svg.line({from, to}, style);
        svg.arrowHead(from, to, style);
    }

    void drawPointedAxis() {
        Vec3 const directions[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
        Point2 const way = model.view.project(directions[model.pointed.coordinate]);
        SvgPicture::Box const box = svg.box();
        bool const isUpright = std::abs(way.y) > 2 * std::abs(way.x);
        bool const isLevel = std::abs(way.x) > 2 * std::abs(way.y);
        Point2 middle = {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
        Point2 words;
        if (isUpright) {
            middle.x = box.left - 30;
            words = {middle.x, std::min((middle - way).y, (middle + way).y) - 16};
        } else if (isLevel) {
            middle.y = box.bottom + 22;
            words = middle + Point2{0, 18};
        } else {
            middle = {box.right, box.bottom - 60};
            words = middle + Point2{52, 4};
        }
        double const half = isUpright || isLevel ? 0.8 : 0.9;
        drawArrow(middle - half * way, middle + half * way, "pointed");
        if (model.pointed.bothWays)
            svg.arrowHead(middle + half * way, middle - half * way, "pointed");
        svg.text(words, "pointed", model.pointed.words);
    }

    ElementModel const & model;
    Feature::Picture picture;
    HiddenLines lines;
};

std::string spoken(ElementModel const & model) {
    return countOf(static_cast<int>(model.nodes.size()), "node") + " and " +
           countOf(static_cast<int>(model.edges.size()), "edge");
}

} // namespace

std::string nodePicture(ElementModel const & model, std::string const & name) {
    Drawing drawing(model, Feature::ofNodes);
    drawing.drawBody();
    drawing.drawNormals();
    drawing.drawSideNumbers();
    drawing.drawNodes();
    drawing.drawWords();
    drawing.drawAxes();
    return drawing.svg.finish("nodes", name + ": nodes",
                              "The element with " + spoken(model) +
                                  ", each node with its number, each face with its number and outward normal. "
                                  "Hidden edges are dashed.");
}

std::string pointPicture(ElementModel const & model, std::string const & name) {
    Drawing drawing(model, Feature::ofPoints);
    drawing.drawBody();
    if (!model.isInPlanes)
        drawing.drawNodeDots(3);
    drawing.drawPoints();
    drawing.drawWords();
    drawing.drawAxes();
    return drawing.svg.finish("points", name + ": integration points",
                              "The same element with " +
                                  countOf(static_cast<int>(model.points.size()), "integration point") +
                                  ", numbered in their stored order.");
}

std::string thumbnail(ElementModel model) {
    model.features.erase(std::remove_if(model.features.begin(), model.features.end(),
                                        [](Feature const & f) { return f.kind == Feature::text; }),
                         model.features.end());
    Drawing drawing(model, Feature::ofNodes);
    drawing.drawBody();
    drawing.drawNodeDots(9);
    // Small elements stay small.
    drawing.svg.grow(drawing.svg.middle(), model.edges.empty() ? 70 : 150);
    return drawing.svg.finish("", "", "");
}
