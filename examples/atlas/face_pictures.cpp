#include "face_pictures.h"

#include "element_kind.h"
#include "element_model.h"
#include "svg_picture.h"
#include "table_text.h"
#include "view.h"

#include <cmath>
#include <vector>

namespace {

constexpr double side = 150;

/// A face with its corners on a square or on an equilateral triangle.
class FlatFace {
public:
    FlatFace(shp_Topology const & topology, int number) : shape(topology), face(number) {
        std::vector<int> const around = corners();
        origin = iso(around[0]);
        first = iso(around[1]) - origin;
        second = iso(around.back()) - origin;
        isTriangle = around.size() == 3;
    }

    /// The corner nodes in order around the face, from its first node.
    std::vector<int> corners() const {
        std::vector<int> around;
        if (shape.numGeometryDimensions == 3) {
            for (int i = 0; i < numFaceCorners(shape, face); ++i)
                around.push_back(shape.FaceNodeIndex(face, i));
            return around;
        }
        for (int edge = 0; edge < shape.NumEdgesPerFace(face); ++edge)
            around.push_back(shape.EdgeNodeIndex(face, edge, 0));
        if (isInfinite(shape))
            around.insert(around.begin() + 2, shape.EdgeNodeIndex(face, 1, shape.BaseNodesPerEdge(face, 1) - 1));
        return around;
    }

    /// A midside node stands in the middle of its edge, whatever its location; all others by their location.
    Point2 place(int node) const {
        for (int edge = 0; edge < shape.NumEdgesPerFace(face); ++edge)
            if (shape.BaseNodesPerEdge(face, edge) == 3 && shape.EdgeNodeIndex(face, edge, 1) == node)
                return 0.5 *
                       (located(shape.EdgeNodeIndex(face, edge, 0)) + located(shape.EdgeNodeIndex(face, edge, 2)));
        return located(node);
    }

    std::string draw() const {
        SvgPicture svg;
        std::vector<Point2> outline;
        Point2 middle;
        for (int corner : corners()) {
            outline.push_back(place(corner));
            middle = middle + outline.back();
        }
        middle = (1.0 / static_cast<double>(outline.size())) * middle;
        svg.area(outline, "body");
        for (int edge = 0; edge < shape.NumEdgesPerFace(face); ++edge)
            drawEdge(svg, edge, middle);
        for (int i = 0; i < shape.BaseNodesPerFace(face); ++i) {
            int const node = shape.FaceNodeIndex(face, i);
            svg.badge(SvgPicture::Shape::circle, place(node), 12, "node",
                      "data-node=\"" + std::to_string(node) + "\" data-order=\"" + std::to_string(i) + "\"",
                      numberSvg(node), "node");
            svg.text(orderPlace(place(node), middle), "order", numberSvg(i));
        }
        std::string const what = shape.numGeometryDimensions == 3 ? "seen from outside" : "with g to the right";
        return svg.finish("face" + std::to_string(face), "Face",
                          "The face laid flat, " + what +
                              ": each node with its number, outside of it in "
                              "small figures its place in the face's order.");
    }

private:
    Point2 located(int node) const {
        // Shares of the two sides from the first corner, by least squares: the face is flat in isoparametric space.
        Vec3 const offset = iso(node) - origin;
        double const aa = dot(first, first), ab = dot(first, second), bb = dot(second, second);
        double const a = dot(first, offset), b = dot(second, offset);
        double const determinant = aa * bb - ab * ab;
        double const alongFirst = (a * bb - b * ab) / determinant;
        double const alongSecond = (b * aa - a * ab) / determinant;
        if (isTriangle)
            return side * Point2{1.15 * (alongFirst + alongSecond / 2), -alongSecond};
        return side * Point2{alongFirst, -alongSecond};
    }

    Vec3 iso(int node) const {
        float const * const at = shape.nodeLocationTable + 3 * node;
        return {double(at[0]), double(at[1]), double(at[2])};
    }

    void drawEdge(SvgPicture & svg, int edge, Point2 middle) const {
        int const count = shape.BaseNodesPerEdge(face, edge);
        Point2 const from = place(shape.EdgeNodeIndex(face, edge, 0));
        Point2 const to = place(shape.EdgeNodeIndex(face, edge, count - 1));
        svg.line({from, to}, "edge");
        Point2 const centre = 0.5 * (from + to);
        Point2 const inwards = middle - centre;
        svg.text(centre + (27 / length(inwards)) * inwards, "edgenumber", "E" + numberSvg(edge));
    }

    /// The figure of a node's place in the face's order stands outside of the face, or beside its centre node.
    static Point2 orderPlace(Point2 node, Point2 middle) {
        Point2 const outwards = node - middle;
        if (length(outwards) < 20)
            return node + Point2{14, -14};
        return node + (20 / length(outwards)) * outwards;
    }

    shp_Topology const & shape;
    int face;
    Vec3 origin, first, second;
    bool isTriangle;
};

} // namespace

std::string facePictures(shp_Topology const & shape) {
    std::string html;
    if (shape.numGeometryDimensions < 2)
        return html;
    for (int face = 0; face < shape.numFacesPerElem; ++face) {
        html += "<figure class=\"face\" data-face=\"" + std::to_string(face) + "\">\n" + FlatFace(shape, face).draw() +
                "<figcaption>Face " + numberHtml(face) + (shape.isCaxaElement ? ", its first plane" : "") + ": nodes ";
        for (int i = 0; i < shape.NumNodesPerFace(face); ++i)
            html += (i ? ", " : "") + numberHtml(shape.FaceNodeIndex(face, i));
        html += "</figcaption>\n</figure>\n";
    }
    return html;
}
