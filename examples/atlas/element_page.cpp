#include "element_page.h"

#include "element_kind.h"
#include "element_model.h"
#include "element_picture.h"
#include "face_pictures.h"
#include "page.h"
#include "table_text.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

std::string paragraph(std::string const & text) {
    return "<p>" + text + "</p>\n";
}

std::string coordinate(int number) {
    return std::string("<var>") + coordinateName(number) + "</var>";
}

/// What the reader must know of this kind of element to read its pictures.
std::string notes(shp_Shape const & shape) {
    std::string const last = coordinate(shape.numGeometryDimensions - 1);
    std::string html;
    if (isInfinite(shape))
        html += shape.numGeometryDimensions > 1
                    ? paragraph("Infinite: the element has no end along " + last + ". Its nodes stand at " + last +
                                " = -1 and " + last + " = 0; its pole, infinitely far away, at " + last + " = 1.")
                    : paragraph("Infinite: the tables hold the finite side of the element; the side without end has "
                                "no coordinate of its own.");
    if (isInterlayer(shape))
        html += paragraph("A layer between two sides: its thickness runs along " + last +
                          (shape.numGeometryDimensions > 1
                               ? ", and is drawn flatter than it is. The integration points stand in the middle, where "
                                 "the picture is shaded."
                               : "."));
    if (shape.isCylindrical)
        html += paragraph("Cylindrical: " + last +
                          " runs around the axis, which is drawn dash-dotted. Opening and radius are the picture's "
                          "choice.");
    if (shape.isContinuumShell)
        html += paragraph("A shell with nodes on both its sides: its thickness runs along " + last + ".");
    if (shape.isLayeredSolid)
        html += paragraph("Layered: the layers are stacked along " + coordinate(shape.options.Mode() - 1) +
                          ". The integration points are those of one layer; they stand on its reference surface, which "
                          "is drawn in the middle of the element.");
    if (shape.isCaxaElement) {
        int const mode = shape.options.Mode();
        html += paragraph("In planes around an axis: the section stands in " + countOf(mode + 1, "plane") +
                          " of nodes and " + countOf(2 * mode + 2, "plane") +
                          " of integration points, at equal angles from 0° to 180°; numbers run from plane to plane. " +
                          (shape.numGeometryDimensions > 1
                               ? coordinate(0) + " is drawn away from the axis, " + coordinate(1) + " along it. "
                               : coordinate(0) + " is drawn along the axis. ") +
                          "Tables are those of one plane.");
    }
    std::vector<int> const misplaced = misplacedMidsides(shape);
    if (!misplaced.empty()) {
        std::string nodes;
        for (int node : misplaced)
            nodes += (nodes.empty() ? "" : ", ") + numberHtml(node);
        html +=
            paragraph("Its tables disagree: of " + std::string(misplaced.size() > 1 ? "nodes " : "node ") + nodes +
                      " the edges say that they are in the middle, the locations place them elsewhere. The pictures "
                      "of the element follow the locations, those of faces the edges.");
    }
    if (shape.isFluidpipeThermal || shape.isFluidpipeAnnulusThermal)
        html += paragraph("Of its " + countOf(shape.numNodesPerElem, "node") + ", the tables place the first " +
                          std::to_string(shape.baseNodesPerElem) + ".");
    return html.empty() ? html : "<div class=\"notes\">\n" + html + "</div>\n";
}

std::string figure(std::string const & kind, std::string const & svg, std::string const & caption) {
    return "<figure class=\"" + kind + "\">\n" + svg + "<figcaption>" + caption + "</figcaption>\n</figure>\n";
}

std::string nodeCaption(ElementModel const & model) {
    std::string text = "Nodes";
    if (model.faces.size() > 1)
        text += "; those in outline, and dashed edges, are hidden";
    if (!model.sides.empty())
        text += model.sidesAreEdges ? ". E: edges, with their outward normals" : ". F: faces, with their normals";
    return text + '.';
}

std::string countRow(char const * what, int count) {
    return std::string("<div><dt>") + what + "</dt><dd>" + std::to_string(count) + "</dd></div>\n";
}

std::string counts(shp_Shape const & shape) {
    std::string html = "<dl class=\"counts\">\n";
    html += countRow("Nodes", shape.numNodesPerElem);
    if (shape.baseNodesPerElem != shape.numNodesPerElem)
        html += countRow(shape.isCaxaElement ? "Nodes of one plane" : "Nodes with a place", shape.baseNodesPerElem);
    html += countRow("Corners", shape.nCorner);
    html += countRow("Integration points", shape.numIntPtsPerElem);
    if (shape.baseIntPtsPerElem != shape.numIntPtsPerElem)
        html += countRow("Points of one plane", shape.baseIntPtsPerElem);
    html += countRow("Faces", shape.numFacesPerElem);
    html += countRow("Edges", shape.nUniqueEdge);
    html += countRow("Surface triangles", shape.numFaceTriangles);
    html += countRow("Isoparametric coordinates", shape.numGeometryDimensions);
    html += countRow("Dimensions of space", shape.numSpatialDimensions);
    html += countRow("Order of interpolation", shape.interpolationOrder);
    return html + "</dl>\n";
}

std::string tables(char const * heading, std::vector<TextTable> const & list, bool isOpen) {
    if (list.empty())
        return "";
    std::string html =
        std::string("<details") + (isOpen ? " open" : "") + ">\n<summary><h3>" + heading + "</h3></summary>\n";
    for (TextTable const & table : list)
        html += "<section class=\"table\">\n<h4>" + table.title + "</h4>\n<p>" + table.remark +
                "</p>\n<pre tabindex=\"0\">" + table.text + "</pre>\n</section>\n";
    return html + "</details>\n";
}

/// The labels by what is true of them.
std::string labelTable(PictureGroup const & group) {
    std::map<std::string, std::vector<std::string>> byFlags;
    for (shp_Shape const * shape : group.shapes) {
        std::string text;
        for (ElementFlag const & flag : elementFlags())
            if (flag.holds(*shape))
                text += (text.empty() ? "" : ", ") + std::string(flag.text);
        byFlags[text.empty() ? "none" : text].push_back(shape->label.CStr());
    }
    std::string html = "<table class=\"labels\">\n<thead><tr><th scope=\"col\">Labels</th><th scope=\"col\">Flags</th>"
                       "</tr></thead>\n<tbody>\n";
    for (auto const & [flags, labels] : byFlags) {
        html += "<tr><td>";
        for (std::string const & label : labels)
            html += "<a class=\"label\" href=\"#" + label + "\">" + label + "</a> ";
        html += "</td><td>" + flags + "</td></tr>\n";
    }
    return html + "</tbody>\n</table>\n";
}

/// The label that the address asks for, else the group's name: the style sheet shows one of them.
std::string headline(PictureGroup const & group) {
    std::string html = "<h1><span class=\"name\">" + group.name() + "</span>";
    for (shp_Shape const * shape : group.shapes) {
        std::string const label = shape->label.CStr();
        html += "<span class=\"asked\" id=\"" + label + "\">" + label + "</span>";
    }
    return html + "</h1>\n";
}

std::string neighbour(PictureGroup const * group, char const * relation, char const * before, char const * after) {
    if (!group)
        return "<span></span>\n";
    return "<a rel=\"" + std::string(relation) + "\" href=\"../" + addressOf(*group) + "\">" + before + group->name() +
           after + "</a>\n";
}

} // namespace

std::string elementContent(shp_Shape const & shape) {
    ElementModel const model = modelOf(shape);
    std::string const name = describe(shape);
    std::string html = "<p class=\"lead\">" + name + "</p>\n" + notes(shape);
    // So many numbers that a small screen scrolls rather than shrinks them.
    std::string const wide = model.points.size() > 27 ? " wide" : "";
    html += "<section class=\"pictures\" aria-label=\"Pictures\">\n" +
            figure("nodes" + wide, nodePicture(model, name), nodeCaption(model)) +
            figure("points" + wide, pointPicture(model, name),
                   std::string("Integration points in their stored order") +
                       (model.isInPlanes ? "." : "; dots are nodes.")) +
            "</section>\n";
    std::string const faces = facePictures(shape);
    if (!faces.empty())
        html += "<section>\n<h2>Faces</h2>\n<p>Each face laid flat, with its nodes, its edges and, in small figures, "
                "the order in which the face names its nodes.</p>\n<div class=\"faces\">\n" +
                faces + "</div>\n</section>\n";
    html += "<section>\n<h2>Counts</h2>\n" + counts(shape) + "</section>\n";
    html += "<section>\n<h2>Tables</h2>\n" + tables("Connectivity", connectivityTables(shape), true) +
            tables("Locations", locationTables(shape), true) + tables("Weights", weightTables(shape), true) +
            "</section>\n";
    return html;
}

std::string elementPage(PictureGroup const & group, PictureGroup const * before, PictureGroup const * after) {
    std::string const name = group.name();
    std::string content = headline(group) + group.content;
    // The labels come after the pictures.
    std::string const heading = "<section>\n<h2>Counts</h2>\n";
    content.insert(content.find(heading),
                   "<section>\n<h2>Labels with this picture</h2>\n" + labelTable(group) + "</section>\n");
    content += "<nav class=\"neighbours\" aria-label=\"Other elements\">\n" + neighbour(before, "prev", "← ", "") +
               neighbour(after, "next", "", " →") + "</nav>\n";
    return pageOf({name + " – Element atlas", "../", content});
}
