#ifndef element_page_h
#define element_page_h

#include "picture_group.h"

#include <string>

/// Pictures, counts and tables of an element type: the same text for labels that differ in nothing but flags.
std::string elementContent(shp_Shape const & shape);

/// The page of a group, with links to the groups before and after it; null where there is none.
std::string elementPage(PictureGroup const & group, PictureGroup const * before, PictureGroup const * after);

#endif
