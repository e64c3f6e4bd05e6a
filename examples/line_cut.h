#ifndef line_cut_h
#define line_cut_h

#include "element_search.h"
#include "stress_recovery.h"

/// A straight segment.
struct Line {
    g3d_Storage start;
    g3d_Storage end;

    double length() const;
    g3d_Storage at(double parameter) const; ///< 0 at the start, 1 at the end
};

/// Where a line meets an element's surface.
struct Hit {
    double parameter = 0; ///< along the line
    g3d_Storage point;    ///< on the element's triangulated surface
    std::array<float, 3> iso{};
    Stress stress{}; ///< interpolated from the element's nodes
};

/// A line's way through one element.
struct Crossing {
    int element = 0;
    Hit entry;
    Hit exit;
};

/// A fan of lines from one point.
struct Fan {
    g3d_Storage apex;
    std::vector<double> directions; ///< degrees from the x axis, in the plane of x and y
    double length = 0;

    Line line(std::size_t i) const;
};

/// Lines of which some only graze the wall, and some go through wall, bore and wall again. They lie in a plane without
/// nodes, or in that of a two-dimensional model.
Fan fanThrough(Cylinder const & cylinder, Model model);

/// The way of a line, whose ends lie outside the mesh, through the elements, in the order of entry. An element that the
/// line only touches is not on it; a face along which the line runs gives both its elements. Between curved elements
/// two crossings can overlap or leave a gap, as their surfaces are cut as triangles, and only the first and last hit of
/// each surface is reported.
std::vector<Crossing> cutMesh(shp_Topology const & shape, Mesh const & mesh, BoxGrid const & grid,
                              NodalStress const & stress, Line const & line);

/// The exact length of the line's way through the wall.
double lengthInWall(Cylinder const & cylinder, Model model, Line const & line);

#endif
