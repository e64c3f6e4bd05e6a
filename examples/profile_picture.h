#ifndef profile_picture_h
#define profile_picture_h

#include <cls_xoList.h>
#include <g3d_Vector.h>
#include <shp_SuppDataPair.h>

#include <string>

/// Three points of the plane: the origin, and the ends of the first and of the second axis.
struct LocalAxes {
    g3d_Vector origin, first, second;
};

/// Draws a profile with its points, numbered as in the list, and with the kind of each link; in grey, the profile that
/// it was made from; and the local axes; all in the plane z = 0, as an SVG picture. Raises std::runtime_error if it
/// cannot be written.
///
/// The links are drawn as this program means them, for a profile only lists points: an arc's first point is its end,
/// the second its centre, and it goes the shorter way round; a parabola's first point is its end, the second the point
/// that it passes halfway.
void writeProfilePicture(char const * path, std::string const & title, cls_xoList<shp_SuppDataPair> const & profile,
                         cls_xoList<shp_SuppDataPair> const & madeFrom, LocalAxes const & axes);

#endif
