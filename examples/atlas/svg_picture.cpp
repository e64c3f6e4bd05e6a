#include "svg_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

/// True when b can be left out of the line from a to c.
bool isOnLine(Point2 a, Point2 b, Point2 c) {
    Point2 const whole = c - a, part = b - a, rest = c - b;
    return std::abs(whole.x * part.y - whole.y * part.x) <= 0.05 * length(whole) &&
           part.x * rest.x + part.y * rest.y >= 0;
}

/// Without markup, and with the bytes of one character counted once.
std::size_t numCharacters(std::string const & words) {
    std::size_t count = 0;
    bool isMarkup = false;
    for (char const c : words) {
        isMarkup = isMarkup || c == '<';
        if (!isMarkup && (static_cast<unsigned char>(c) & 0xC0) != 0x80)
            ++count;
        isMarkup = isMarkup && c != '>';
    }
    return count;
}

} // namespace

std::string pixelText(double value) {
    long const tenths = std::lround(10 * value);
    std::string text = tenths < 0 ? "-" : "";
    text += std::to_string(std::labs(tenths) / 10);
    if (tenths % 10)
        text += '.' + std::to_string(std::labs(tenths) % 10);
    return text;
}

void SvgPicture::grow(Point2 at, double margin) {
    if (isEmpty)
        bounds = {at.x - margin, at.y - margin, at.x + margin, at.y + margin};
    isEmpty = false;
    bounds.left = std::min(bounds.left, at.x - margin);
    bounds.top = std::min(bounds.top, at.y - margin);
    bounds.right = std::max(bounds.right, at.x + margin);
    bounds.bottom = std::max(bounds.bottom, at.y + margin);
}

std::string SvgPicture::path(std::vector<Point2> const & points) {
    std::vector<Point2> kept;
    for (Point2 const & point : points) {
        while (kept.size() > 1 && isOnLine(kept[kept.size() - 2], kept.back(), point))
            kept.pop_back();
        kept.push_back(point);
    }
    std::string text;
    for (Point2 const & point : kept)
        text += (text.empty() ? 'M' : 'L') + pixelText(point.x) + ' ' + pixelText(point.y);
    return text;
}

void SvgPicture::line(std::vector<Point2> const & points, std::string const & style) {
    for (Point2 const & point : points)
        grow(point, 2);
    content += "<path class=\"" + style + "\" d=\"" + path(points) + "\"/>\n";
}

void SvgPicture::area(std::vector<Point2> const & outline, std::string const & style) {
    for (Point2 const & point : outline)
        grow(point, 2);
    content += "<path class=\"" + style + "\" d=\"" + path(outline) + "Z\"/>\n";
}

void SvgPicture::arrowHead(Point2 from, Point2 tip, std::string const & style) {
    double const distance = length(tip - from);
    if (distance < 1)
        return;
    constexpr double headLength = 9, halfWidth = 3.6;
    Point2 const along = (1 / distance) * (tip - from);
    Point2 const across = {-along.y, along.x};
    Point2 const back = tip - headLength * along;
    area({tip, back + halfWidth * across, back - halfWidth * across}, style + " head");
}

void SvgPicture::text(Point2 middle, std::string const & style, std::string const & words) {
    grow(middle, 9);
    double const halfWidth = 3.6 * static_cast<double>(numCharacters(words));
    grow(middle - Point2{halfWidth, 0}, 2);
    grow(middle + Point2{halfWidth, 0}, 2);
    content += "<text class=\"" + style + "\" x=\"" + pixelText(middle.x) + "\" y=\"" + pixelText(middle.y) + "\">" +
               words + "</text>\n";
}

void SvgPicture::dot(Point2 centre, double radius, std::string const & style) {
    grow(centre, radius + 1);
    content += "<circle class=\"" + style + "\" cx=\"" + pixelText(centre.x) + "\" cy=\"" + pixelText(centre.y) +
               "\" r=\"" + pixelText(radius) + "\"/>\n";
}

void SvgPicture::badge(Shape shape, Point2 centre, double size, std::string const & style,
                       std::string const & attributes, std::string const & number, std::string const & hint) {
    grow(centre, size + 2);
    content += "<g class=\"" + style + "\" " + attributes + " transform=\"translate(" + pixelText(centre.x) + " " +
               pixelText(centre.y) + ")\"><title>" + hint + "</title>";
    std::string const half = pixelText(size), whole = pixelText(2 * size);
    content += shape == Shape::circle ? "<circle r=\"" + half + "\"/>"
                                      : "<rect x=\"-" + half + "\" y=\"-" + half + "\" width=\"" + whole +
                                            "\" height=\"" + whole + "\" rx=\"3\"/>";
    content += "<text>" + number + "</text></g>\n";
}

std::string SvgPicture::finish(std::string const & id, std::string const & title,
                               std::string const & description) const {
    constexpr double margin = 6;
    double const width = bounds.right - bounds.left + 2 * margin;
    double const height = bounds.bottom - bounds.top + 2 * margin;
    std::string svg = "<svg viewBox=\"" + pixelText(bounds.left - margin) + ' ' + pixelText(bounds.top - margin) + ' ' +
                      pixelText(width) + ' ' + pixelText(height) + "\" width=\"" + pixelText(width) + "\" height=\"" +
                      pixelText(height) + "\"";
    if (id.empty())
        return svg + " aria-hidden=\"true\">\n" + content + "</svg>\n";
    svg += " role=\"img\" aria-labelledby=\"" + id + "-title " + id + "-desc\">\n<title id=\"" + id + "-title\">" +
           title + "</title>\n<desc id=\"" + id + "-desc\">" + description + "</desc>\n";
    return svg + content + "</svg>\n";
}
