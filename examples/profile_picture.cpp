#include "profile_picture.h"

#include "svg_chart.h"

#include <shp_PrimEnums.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <numbers>
#include <stdexcept>
#include <utility>

namespace {

using Place = std::pair<double, double>;
using Points = SvgChart::Points;
using Pairs = cls_xoList<shp_SuppDataPair>;

constexpr int steps = 40; ///< straight pieces of a drawn curve

/// A link as it is drawn; of a start, the one point.
struct Link {
    shp_SuppDataPairEnm kind;
    Points way;
    Place other{}; ///< the second point: the centre of an arc, the halfway point of a parabola

    bool isArc() const { return kind == shp_SuppDataPair_Circl; }
    bool hasOther() const { return isArc() || kind == shp_SuppDataPair_Parab; }
};

Place placeOf(shp_SuppDataPair const & pair) {
    return {pair.value.X(), pair.value.Y()};
}

/// The shorter way from `start` to `end` around `centre`.
Points arc(Place start, Place end, Place centre) {
    auto const angleOf = [&](Place p) { return std::atan2(p.second - centre.second, p.first - centre.first); };
    auto const radiusOf = [&](Place p) { return std::hypot(p.first - centre.first, p.second - centre.second); };
    double const sweep = std::remainder(angleOf(end) - angleOf(start), 2 * std::numbers::pi);
    Points way;
    for (int i = 0; i <= steps; ++i) {
        double const t = double(i) / steps;
        double const angle = angleOf(start) + t * sweep;
        double const radius = std::lerp(radiusOf(start), radiusOf(end), t);
        way.emplace_back(centre.first + radius * std::cos(angle), centre.second + radius * std::sin(angle));
    }
    return way;
}

/// The quadratic curve from `start` over `middle`, which it passes halfway, to `end`.
Points parabola(Place start, Place end, Place middle) {
    Points way;
    for (int i = 0; i <= steps; ++i) {
        double const t = double(i) / steps;
        double const s = (1 - t) * (1 - 2 * t), m = 4 * t * (1 - t), e = t * (2 * t - 1);
        way.emplace_back(s * start.first + m * middle.first + e * end.first,
                         s * start.second + m * middle.second + e * end.second);
    }
    return way;
}

std::vector<Link> linksOf(Pairs const & pairs) {
    std::vector<Link> links;
    for (int i = 0; i < pairs.Length(); ++i) {
        Link link{pairs[i].dataType, {placeOf(pairs[i])}};
        Place const end = link.way.back(), start = links.empty() ? end : links.back().way.back();
        if (link.hasOther())
            link.other = placeOf(pairs[++i]);
        if (link.kind == shp_SuppDataPair_Line)
            link.way = {start, end};
        else if (link.isArc())
            link.way = arc(start, end, link.other);
        else if (link.kind == shp_SuppDataPair_Parab)
            link.way = parabola(start, end, link.other);
        links.push_back(link);
    }
    return links;
}

/// Colours that colour-blind readers tell apart as well (Okabe and Ito, 2008), by kind.
constexpr char const * colours[] = {"#333333", "#333333", "#0072b2", "#d55e00"};

Place directionFrom(Place from, Place to) {
    double const dx = to.first - from.first, dy = to.second - from.second, length = std::hypot(dx, dy);
    return {dx / length, dy / length};
}

/// Text beside a point, in that direction from it.
void drawBeside(SvgChart const & chart, Place place, Place direction, std::string const & text,
                std::string const & colour) {
    auto const [right, up] = direction;
    chart.drawText(place.first, place.second, 12 * right, 4.5 - 15 * up, text,
                   right > 0.3    ? "start"
                   : right < -0.3 ? "end"
                                  : "middle",
                   colour);
}

/// The name of the kind beside the middle of the link, on the left of its way.
void drawKind(SvgChart const & chart, Link const & link) {
    std::size_t const half = link.way.size() / 2;
    Place const before = link.way[half - 1], after = link.way[half];
    bool const isStraight = link.way.size() == 2;
    Place const middle =
        isStraight ? Place((before.first + after.first) / 2, (before.second + after.second) / 2) : after;
    auto const [dx, dy] = directionFrom(before, after);
    drawBeside(chart, middle, {-dy, dx}, omu_PrimEnum<shp_SuppDataPairEnm, 1>(link.kind).GetString().CStr(),
               colours[link.kind]);
}

/// The points with their numbers, which keep out of the way of arcs and of the thin lines to their centres.
void drawPoints(SvgChart const & chart, std::vector<Link> const & links) {
    constexpr Place below(0, -1);
    int number = 0;
    for (std::size_t i = 0; i < links.size(); ++i) {
        Link const & link = links[i];
        Place const end = link.way.back();
        bool const arcFollows = i + 1 < links.size() && links[i + 1].isArc();
        Place const beside = arcFollows     ? directionFrom(links[i + 1].other, end)
                             : link.isArc() ? directionFrom(link.other, end)
                                            : below;
        chart.drawDots({end}, 4, colours[link.kind]);
        drawBeside(chart, end, beside, std::to_string(++number), "#000000");
        if (!link.hasOther())
            continue;
        if (link.isArc())
            chart.drawSegments({link.other, link.way.front(), link.other, end}, {colours[link.kind], 0.8, 0.5});
        chart.drawDots({link.other}, 3, colours[link.kind]);
        drawBeside(chart, link.other, link.isArc() ? directionFrom(link.way[link.way.size() / 2], link.other) : below,
                   std::to_string(++number), "#777777");
    }
}

void drawArrow(SvgChart const & chart, g3d_Vector const & from, g3d_Vector const & to, std::string const & text) {
    double const x = to.X() - from.X(), y = to.Y() - from.Y();
    auto const at = [&](double along, double across) {
        return Place(from.X() + along * x - across * y, from.Y() + along * y + across * x);
    };
    SvgChart::Style const style{"#009e73", 2.2, 1};
    chart.drawSegments({at(0, 0), at(1, 0), at(1, 0), at(0.9, 0.05), at(1, 0), at(0.9, -0.05)}, style);
    auto const [labelX, labelY] = at(1.1, 0);
    chart.drawText(labelX, labelY, 0, 4, text, "middle", style.colour);
}

struct Box {
    SvgChart::Range x{0, 0}, y{0, 0};

    void hold(Place const & p) {
        x = {std::min(x.low, p.first), std::max(x.high, p.first)};
        y = {std::min(y.low, p.second), std::max(y.high, p.second)};
    }
    void widen(double by) {
        x = {x.low - by, x.high + by};
        y = {y.low - by, y.high + by};
    }
};

} // namespace

void writeProfilePicture(char const * path, std::string const & title, cls_xoList<shp_SuppDataPair> const & profile,
                         cls_xoList<shp_SuppDataPair> const & madeFrom, LocalAxes const & axes) {
    Box box;
    for (Pairs const * pairs : {&profile, &madeFrom})
        for (int i = 0; i < pairs->Length(); ++i)
            box.hold(placeOf(pairs->ConstGet(i)));
    for (g3d_Vector const & end : {axes.origin, axes.first, axes.second})
        box.hold({end.X(), end.Y()});
    box.widen(0.1 * (box.x.high - box.x.low));

    // Equal scales across and up.
    constexpr double left = 70, top = 78, width = 860;
    double const height = width * (box.y.high - box.y.low) / (box.x.high - box.x.low);
    double const fullWidth = left + width + 30, fullHeight = top + height + 60;

    std::ofstream out(path);
    out << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << fullWidth << ' ' << fullHeight << "\" width=\""
        << fullWidth << "\" height=\"" << fullHeight
        << "\" font-family=\"DejaVu Sans, Arial, sans-serif\" font-size=\"13\">\n<rect width=\"100%\" height=\"100%\" "
           "fill=\"#ffffff\"/>\n<text x=\""
        << fullWidth / 2 << "\" y=\"30\" text-anchor=\"middle\" font-size=\"16\">" << title << "</text>\n";
    SvgChart const chart(out, {left, left + width}, {top, top + height}, box.x, box.y);
    chart.drawAxes(
        "Profile with its points in the order of the list; grey: before the transformation; green: local axes", "x",
        "y");
    for (Link const & link : linksOf(madeFrom))
        chart.drawLine(link.way, {"#b0b0b0", 2, 1});
    drawArrow(chart, axes.origin, axes.first, "1");
    drawArrow(chart, axes.origin, axes.second, "2");
    std::vector<Link> const links = linksOf(profile);
    for (Link const & link : links) {
        if (link.kind == shp_SuppDataPair_Start)
            continue;
        chart.drawLine(link.way, {colours[link.kind], 2.6, 1});
        drawKind(chart, link);
    }
    drawPoints(chart, links);
    out << "</svg>\n";
    out.close();
    if (!out)
        throw std::runtime_error(std::string("cannot write ") + path);
}
