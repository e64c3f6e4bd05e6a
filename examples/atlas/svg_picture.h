#ifndef svg_picture_h
#define svg_picture_h

#include "view.h"

#include <string>
#include <vector>

/// One picture as SVG inside a page; colours and widths come from the page's style sheet by class. Its view box grows
/// with what is drawn.
class SvgPicture {
public:
    enum class Shape { circle, square };

    void line(std::vector<Point2> const & path, std::string const & style);
    void area(std::vector<Point2> const & outline, std::string const & style);
    /// A head of an arrow at `tip`, away from `from`.
    void arrowHead(Point2 from, Point2 tip, std::string const & style);
    void text(Point2 middle, std::string const & style, std::string const & words);
    void dot(Point2 centre, double radius, std::string const & style);
    /// A number on a ground of its own. `attributes` go to the group, `hint` to readers who point at it.
    void badge(Shape shape, Point2 centre, double size, std::string const & style, std::string const & attributes,
               std::string const & number, std::string const & hint);

    struct Box {
        double left = 0, top = 0, right = 0, bottom = 0;
    };
    Box const & box() const { return bounds; }
    Point2 middle() const { return {(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2}; }
    /// Keeps room for something `margin` around a place.
    void grow(Point2 at, double margin);

    /// The whole picture. `id` is unique in its page; without one, the picture is an ornament without a name.
    std::string finish(std::string const & id, std::string const & title, std::string const & description) const;

private:
    static std::string path(std::vector<Point2> const & points);

    std::string content;
    Box bounds;
    bool isEmpty = true;
};

/// A coordinate of a picture with one decimal, as short as can be.
std::string pixelText(double value);

#endif
