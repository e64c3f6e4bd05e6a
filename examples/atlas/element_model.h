#ifndef element_model_h
#define element_model_h

#include "hidden_lines.h"
#include "view.h"

#include <shp_Topology.h>

#include <string>
#include <vector>

/// A node or an integration point in drawing space; its number counts from 0.
struct NumberedPlace {
    int number;
    Vec3 at;
    std::string coordinates; ///< for readers: "(-1, 0, 1)"
};

/// A face, or an edge of a planar element in two-dimensional space: what bears a number and a normal.
struct NumberedSide {
    int number;
    Vec3 centre;
    Vec3 normal; ///< of length 1, outwards; 0 where there is none
};

/// Lines and areas that show what is special about an element.
struct Feature {
    enum Kind { line, arrow, area, text };
    enum Picture { both, ofNodes, ofPoints };

    Kind kind;
    std::string style; ///< class in the style sheet
    std::vector<Vec3> path;
    std::string words = {};
    Picture picture = both;
};

/// One of the coordinates, pointed out beside the element.
struct PointedAxis {
    int coordinate = -1; ///< none
    char const * words = "";
    bool bothWays = false;
};

/// What the pictures of one element type show, in drawing space. Made from the element type's tables alone.
struct ElementModel {
    View view = View::plan(1);
    bool isFlat = true;         ///< seen from straight above
    bool isInPlanes = false;    ///< around an axis, with nodes and points in different planes
    bool sidesAreEdges = false; ///< of a planar element in two-dimensional space
    std::vector<NumberedPlace> nodes, points;
    std::vector<std::vector<Vec3>> edges; ///< each edge once
    std::vector<std::vector<Vec3>> faces; ///< outlines
    std::vector<Triangle3> surface;       ///< what hides
    std::vector<NumberedSide> sides;
    std::vector<Feature> features;
    PointedAxis pointed;
    std::vector<std::pair<std::string, Vec3>> axes; ///< names and directions
};

/// Whole degrees, from one to the other.
struct DegreeRange {
    int from, to;
};

/// The view in which the numbers of nodes, and those of points, stand farthest apart.
View farthestApart(std::vector<NumberedPlace> const & nodes, std::vector<NumberedPlace> const & points,
                   DegreeRange azimuths, DegreeRange elevations, double pixelsPerUnit);

ElementModel modelOf(shp_Topology const & shape);

/// The same for an element in several planes around its axis.
ElementModel planesModelOf(shp_Topology const & shape);

/// For readers: "(-1, 0, 1)", as many coordinates as the element has.
std::string coordinatesText(shp_Topology const & shape, float const * iso);

/// Pairs of integration points that differ in one coordinate, with none between them.
std::vector<std::pair<int, int>> pointLattice(shp_Topology const & shape);

/// The nodes of each distinct edge in the order of its first use, local numbers of one plane.
std::vector<std::vector<int>> distinctEdges(shp_Topology const & shape);

/// Middle nodes of edges that the table of locations does not place in the middle of their edge.
std::vector<int> misplacedMidsides(shp_Topology const & shape);

/// The corners of a solid's face, three or four.
int numFaceCorners(shp_Topology const & shape, int face);

#endif
