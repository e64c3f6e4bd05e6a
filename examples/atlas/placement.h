#ifndef placement_h
#define placement_h

#include "view.h"

#include <shp_Topology.h>

/// Where the pictures put a place of the element: isoparametric coordinates to drawing space. Straight but for
/// cylindrical elements, which are bent around their axis. Triangles and tetrahedra are drawn twice as large as their
/// domain, as large as the other shapes; layers between two sides are drawn flatter.
class Placement {
public:
    explicit Placement(shp_Topology const & shape);

    Vec3 at(double g, double h, double r) const;
    Vec3 at(float const * iso) const { return at(iso[0], iso[1], iso[2]); }

    bool isBent() const { return bend != none; }
    /// The axis of a cylindrical element, a little longer than the element.
    Vec3 axisEnd(double end) const;

private:
    enum Bend { none, surface, solid };

    Vec3 factor{1, 1, 1};
    Bend bend = none;
    double radius = 2; ///< from the axis to where the bent coordinate crosses the origin
};

#endif
