#ifndef cut_picture_h
#define cut_picture_h

#include "line_cut.h"

#include <string>

/// Draws the section of the mesh in the fan's plane with the lines and their hits, and the equivalent stress along each
/// line beside the exact one, as an SVG picture. Raises std::runtime_error if it cannot be written.
void writePicture(char const * path, std::string const & title, Cylinder const & cylinder, shp_Topology const & shape,
                  Mesh const & mesh, Fan const & fan, std::vector<std::vector<Crossing>> const & paths);

#endif
