#ifndef start_page_h
#define start_page_h

#include "picture_group.h"

#include <string>
#include <vector>

/// All labels under their pictures, to be searched and filtered.
std::string startPage(std::vector<PictureGroup> const & groups);

#endif
