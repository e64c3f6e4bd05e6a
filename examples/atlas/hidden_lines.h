#ifndef hidden_lines_h
#define hidden_lines_h

#include "view.h"

#include <array>
#include <vector>

using Triangle3 = std::array<Vec3, 3>;

/// A piece of a line that is seen or hidden as a whole.
struct LinePiece {
    bool hidden;
    std::vector<Vec3> path;
};

/// Tells what a surface of triangles hides from the eye.
class HiddenLines {
public:
    HiddenLines(View const & drawn, std::vector<Triangle3> const & surface);

    bool hides(Vec3 place) const;
    /// Cuts a line of straight segments where it goes behind the surface or comes out.
    std::vector<LinePiece> split(std::vector<Vec3> const & line) const;

private:
    struct Shadow {
        Point2 origin, first, second; ///< corner and two sides in the picture
        double area;                  ///< of the parallelogram, with its sign
        double depths[3];
    };

    View view;
    std::vector<Shadow> shadows;
};

#endif
