#include "cut_picture.h"

#include "svg_chart.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <set>
#include <stdexcept>

namespace {

using Paths = std::vector<std::vector<Crossing>>;
using Points = SvgChart::Points;

/// Seven colours that colour-blind readers tell apart as well (Okabe and Ito, 2008; the yellow, too pale for lines,
/// left out).
constexpr char const * colours[] = {"#000000", "#e69f00", "#56b4e9", "#009e73", "#0072b2", "#d55e00", "#cc79a7"};

char const * colourOf(std::size_t line) {
    return colours[line % std::size(colours)];
}

/// Segments, each kept once however many elements share it.
class SegmentSet {
public:
    void add(g3d_Storage const & a, g3d_Storage const & b) {
        auto const from = key(a);
        auto const to = key(b);
        if (from != to && known.insert(std::minmax(from, to)).second)
            ends.insert(ends.end(), {{a.X(), a.Y()}, {b.X(), b.Y()}});
    }
    Points const & all() const { return ends; }

private:
    using Key = std::pair<long, long>;
    static Key key(g3d_Storage const & p) { return {std::lround(p.X() * 1e5), std::lround(p.Y() * 1e5)}; }

    std::set<std::pair<Key, Key>> known;
    Points ends;
};

/// The straight cut of a triangle with the plane at `height`.
void addTriangleCut(SegmentSet & section, g3d_Storage const * const (&corners)[3], double height) {
    std::vector<g3d_Storage> cuts;
    for (int i = 0; i < 3; ++i) {
        g3d_Storage const & a = *corners[i];
        g3d_Storage const & b = *corners[(i + 1) % 3];
        if ((a.Z() < height) != (b.Z() < height))
            cuts.push_back(Line{a, b}.at((height - a.Z()) / (b.Z() - a.Z())));
    }
    if (cuts.size() == 2)
        section.add(cuts[0], cuts[1]);
}

/// The elements' outlines: their edges in a flat mesh, else their surface triangles' cuts with the plane at `height`.
Points sectionOf(shp_Topology const & shape, Mesh const & mesh, double height) {
    SegmentSet section;
    for (int e = 0; e < mesh.numElements(); ++e) {
        std::vector<g3d_Storage> const coords = elementCoords(mesh, e);
        auto const at = [&](int node) { return &coords[static_cast<std::size_t>(node)]; };
        if (mesh.model == Model::solid) {
            for (int t = 0; t < shape.NumFaceTriangles(); ++t) {
                int const * const corners = shape.FaceTriangles() + 3 * t;
                addTriangleCut(section, {at(corners[0]), at(corners[1]), at(corners[2])}, height);
            }
        } else {
            for (int edge = 0; edge < shape.NumEdgesPerFace(0); ++edge)
                for (int i = 1; i < shape.NumNodesPerEdge(0, edge); ++i)
                    section.add(*at(shape.EdgeNodeIndex(0, edge, i - 1)), *at(shape.EdgeNodeIndex(0, edge, i)));
        }
    }
    return section.all();
}

void drawSection(SvgChart const & chart, Points const & section, Fan const & fan, Paths const & paths,
                 double labelDistance) {
    chart.drawSegments(section, {"#9a9a9a", 0.8, 1});
    for (std::size_t i = 0; i < paths.size(); ++i) {
        Line const line = fan.line(i);
        if (paths[i].empty())
            continue;
        double const last = paths[i].back().exit.parameter;
        g3d_Storage const end = line.at(last);
        chart.drawLine({{line.start.X(), line.start.Y()}, {end.X(), end.Y()}}, {colourOf(i), 0.8, 0.7});
        Points hits;
        for (Crossing const & crossing : paths[i]) {
            Points const inside = {{crossing.entry.point.X(), crossing.entry.point.Y()},
                                   {crossing.exit.point.X(), crossing.exit.point.Y()}};
            chart.drawLine(inside, {colourOf(i), 2, 1});
            hits.insert(hits.end(), inside.begin(), inside.end());
        }
        chart.drawDots(hits, 2.6, colourOf(i));
        g3d_Storage const labelled = line.at(last + labelDistance / line.length());
        chart.drawText(labelled.X(), labelled.Y(), 0, 4, std::to_string(i + 1), "middle", colourOf(i));
    }
    chart.drawDots({{fan.apex.X(), fan.apex.Y()}}, 3.5, "#333333");
}

void drawStress(SvgChart const & chart, Cylinder const & cylinder, Model model, Fan const & fan, Paths const & paths) {
    for (std::size_t i = 0; i < paths.size(); ++i) {
        Line const line = fan.line(i);
        double const length = line.length();
        for (Crossing const & crossing : paths[i]) {
            Points exact;
            constexpr int steps = 8;
            for (int step = 0; step <= steps; ++step) {
                double const t = std::lerp(crossing.entry.parameter, crossing.exit.parameter, double(step) / steps);
                g3d_Storage const point = line.at(t);
                exact.emplace_back(t * length, equivalentStress(exactStress(cylinder, model, point.X(), point.Y())));
            }
            chart.drawLine(exact, {colourOf(i), 6, 0.3});
            Points const hits = {{crossing.entry.parameter * length, equivalentStress(crossing.entry.stress)},
                                 {crossing.exit.parameter * length, equivalentStress(crossing.exit.stress)}};
            chart.drawLine(hits, {colourOf(i), 1.3, 1});
            chart.drawDots(hits, 2.2, colourOf(i));
        }
        if (!paths[i].empty()) {
            // Beyond the curve's end: above one that rises to it, below one that falls.
            Crossing const & last = paths[i].back();
            bool const rises = equivalentStress(last.exit.stress) > equivalentStress(last.entry.stress);
            chart.drawText(last.exit.parameter * length, equivalentStress(last.exit.stress), 3, rises ? -8 : 18,
                           std::to_string(i + 1), "middle", colourOf(i));
        }
    }
}

/// The highest stress of any hit, nodal or exact.
double highestStress(Cylinder const & cylinder, Model model, Paths const & paths) {
    double highest = 0;
    for (auto const & path : paths)
        for (Crossing const & crossing : path)
            for (Hit const & hit : {crossing.entry, crossing.exit})
                highest = std::max({highest, equivalentStress(hit.stress),
                                    equivalentStress(exactStress(cylinder, model, hit.point.X(), hit.point.Y()))});
    return highest;
}

} // namespace

void writePicture(char const * path, std::string const & title, Cylinder const & cylinder, shp_Topology const & shape,
                  Mesh const & mesh, Fan const & fan, std::vector<std::vector<Crossing>> const & paths) {
    bool const isAxial = mesh.model == Model::axisymmetric;
    double nearest = fan.length;
    double farthest = 0;
    for (auto const & way : paths)
        for (Crossing const & crossing : way) {
            nearest = std::min(nearest, crossing.entry.parameter * fan.length);
            farthest = std::max(farthest, crossing.exit.parameter * fan.length);
        }

    std::ofstream out(path);
    out << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 1180 600\" width=\"1180\" height=\"600\" "
           "font-family=\"DejaVu Sans, Arial, sans-serif\" font-size=\"13\">\n"
           "<rect width=\"1180\" height=\"600\" fill=\"#ffffff\"/>\n";
    std::string const above = "<text x=\"590\" y=\"26\" text-anchor=\"middle\" font-size=\"16\">";
    out << above << title << "</text>\n";

    double const left = isAxial ? 0.5 : -0.15;
    double const side = isAxial ? 1.65 : 2.5;
    double const bottom = isAxial ? -0.3 : -0.15;
    SvgChart const section(out, {70, 550}, {70, 550}, {left, left + side}, {bottom, bottom + side});
    char where[60];
    std::snprintf(where, sizeof where, "Section at z = %g, lines and hits", fan.apex.Z());
    section.drawAxes(where, isAxial ? "radius" : "x", isAxial ? "height" : "y");
    drawSection(section, sectionOf(shape, mesh, fan.apex.Z()), fan, paths, 0.04 * side);

    SvgChart const stress(out, {640, 1150}, {70, 550}, {nearest - 0.1, farthest + 0.1},
                          {0, 1.08 * highestStress(cylinder, mesh.model, paths)});
    stress.drawAxes("Equivalent stress: at the hits (thin, dots) and exact (wide, pale)", "distance from the apex",
                    "stress");
    drawStress(stress, cylinder, mesh.model, fan, paths);
    out << "</svg>\n";
    out.close();
    if (!out)
        throw std::runtime_error(std::string("cannot write ") + path);
}
