#ifndef element_picture_h
#define element_picture_h

#include "element_model.h"

#include <string>

/// The element with its edges, node numbers, and the numbers and normals of its faces.
std::string nodePicture(ElementModel const & model, std::string const & name);

/// The element with its integration points in their stored order.
std::string pointPicture(ElementModel const & model, std::string const & name);

/// A small one without numbers.
std::string thumbnail(ElementModel model);

#endif
