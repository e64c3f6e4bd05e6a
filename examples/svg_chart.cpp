#include "svg_chart.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ostream>

namespace {

std::string number(double value, char const * format) {
    char text[40];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string pixel(double value) {
    return number(value, "%.2f");
}

/// The distance of about six round ticks: 1, 2 or 5 times a power of ten.
double tickDistance(SvgChart::Range const & range) {
    double const rough = (range.high - range.low) / 6;
    double const power = std::pow(10.0, std::floor(std::log10(rough)));
    for (double factor : {1.0, 2.0, 5.0})
        if (factor * power >= rough)
            return factor * power;
    return 10 * power;
}

template <class Visit> void forEachTick(SvgChart::Range const & range, Visit visit) {
    double const distance = tickDistance(range);
    double const slack = 1e-9 * distance;
    for (double i = std::ceil((range.low - slack) / distance); i * distance <= range.high + slack; ++i)
        visit(i * distance, number(i == 0 ? 0 : i * distance, "%g"));
}

} // namespace

SvgChart::SvgChart(std::ostream & svg, Range pixelsAcross, Range pixelsDown, Range xRange, Range yRange)
    : out(svg), across(pixelsAcross), down(pixelsDown), xs(xRange), ys(yRange) {}

double SvgChart::pixelX(double x) const {
    return across.low + (x - xs.low) / (xs.high - xs.low) * (across.high - across.low);
}

double SvgChart::pixelY(double y) const {
    return down.high - (y - ys.low) / (ys.high - ys.low) * (down.high - down.low);
}

void SvgChart::drawAxes(std::string const & title, std::string const & xTitle, std::string const & yTitle) const {
    Style const gridLine{"#e4e4e4", 1, 1};
    forEachTick(xs, [&](double x, std::string const & text) {
        drawLine({{x, ys.low}, {x, ys.high}}, gridLine);
        drawText(x, ys.low, 0, 18, text, "middle", "#333333");
    });
    forEachTick(ys, [&](double y, std::string const & text) {
        drawLine({{xs.low, y}, {xs.high, y}}, gridLine);
        drawText(xs.low, y, -7, 4, text, "end", "#333333");
    });
    drawLine({{xs.low, ys.low}, {xs.high, ys.low}, {xs.high, ys.high}, {xs.low, ys.high}, {xs.low, ys.low}},
             {"#333333", 1, 1});
    double const middle = (xs.low + xs.high) / 2;
    drawText(middle, ys.high, 0, -12, title, "middle", "#000000");
    drawText(middle, ys.low, 0, 38, xTitle, "middle", "#000000");
    out << "<text transform=\"translate(" << pixel(across.low - 48) << ' ' << pixel((down.low + down.high) / 2)
        << ") rotate(-90)\" text-anchor=\"middle\">" << yTitle << "</text>\n";
}

void SvgChart::drawLine(Points const & points, Style const & style) const {
    out << "<polyline fill=\"none\" stroke=\"" << style.colour << "\" stroke-width=\"" << style.width
        << "\" stroke-opacity=\"" << style.opacity << "\" points=\"";
    for (auto const & [x, y] : points)
        out << pixel(pixelX(x)) << ',' << pixel(pixelY(y)) << ' ';
    out << "\"/>\n";
}

void SvgChart::drawSegments(Points const & ends, Style const & style) const {
    out << "<path fill=\"none\" stroke=\"" << style.colour << "\" stroke-width=\"" << style.width
        << "\" stroke-opacity=\"" << style.opacity << "\" d=\"";
    for (std::size_t i = 0; i < ends.size(); ++i)
        out << (i % 2 == 0 ? 'M' : 'L') << pixel(pixelX(ends[i].first)) << ' ' << pixel(pixelY(ends[i].second));
    out << "\"/>\n";
}

void SvgChart::drawDots(Points const & points, double radius, std::string const & colour) const {
    for (auto const & [x, y] : points)
        out << "<circle cx=\"" << pixel(pixelX(x)) << "\" cy=\"" << pixel(pixelY(y)) << "\" r=\"" << radius
            << "\" fill=\"" << colour << "\"/>\n";
}

void SvgChart::drawText(double x, double y, double right, double downwards, std::string const & text,
                        std::string const & anchor, std::string const & colour) const {
    out << "<text x=\"" << pixel(pixelX(x) + right) << "\" y=\"" << pixel(pixelY(y) + downwards) << "\" text-anchor=\""
        << anchor << "\" fill=\"" << colour << "\">" << text << "</text>\n";
}
