#ifndef svg_chart_h
#define svg_chart_h

#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

/// A rectangle of a picture with a frame and two axes, which maps its own coordinates to those of the picture.
class SvgChart {
public:
    struct Range {
        double low, high;
    };
    struct Style {
        std::string colour;
        double width = 1;
        double opacity = 1;
    };
    using Points = std::vector<std::pair<double, double>>;

    /// The rectangle from (`left`, `top`), `width` by `height` pixels, holds the ranges of x and y.
    SvgChart(std::ostream & svg, Range pixelsAcross, Range pixelsDown, Range xRange, Range yRange);

    /// Frame, ticks at round numbers with a pale grid, and the axes' titles.
    void drawAxes(std::string const & title, std::string const & xTitle, std::string const & yTitle) const;
    void drawLine(Points const & points, Style const & style) const;
    /// Many separate segments, from each even point to the next odd one, as one path.
    void drawSegments(Points const & ends, Style const & style) const;
    void drawDots(Points const & points, double radius, std::string const & colour) const;
    /// `anchor` is start, middle or end; the text stands (`right`, `down`) pixels from the point.
    void drawText(double x, double y, double right, double down, std::string const & text, std::string const & anchor,
                  std::string const & colour) const;

private:
    double pixelX(double x) const;
    double pixelY(double y) const;

    std::ostream & out;
    Range across, down, xs, ys;
};

#endif
