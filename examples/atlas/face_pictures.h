#ifndef face_pictures_h
#define face_pictures_h

#include <shp_Topology.h>

#include <string>

/// Each face laid flat, as it is seen from outside, with its nodes in the face's own order and its edges; for
/// elements without a face of three corners nothing.
std::string facePictures(shp_Topology const & shape);

#endif
