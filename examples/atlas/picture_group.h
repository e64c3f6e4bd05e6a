#ifndef picture_group_h
#define picture_group_h

#include <shp_Shape.h>

#include <string>
#include <vector>

/// The labels of the catalogue that look and count alike, and so share one page.
struct PictureGroup {
    std::vector<shp_Shape const *> shapes; ///< in ascending order of labels
    std::string content;                   ///< what their page shows of each of them, flags and labels aside

    /// The shortest of the labels, the first of equals.
    std::string name() const;
    shp_Shape const & shape() const { return *shapes.front(); }
};

/// All labels, by family and then by node count. Labels belong together when their contents are the same text.
std::vector<PictureGroup> groupCatalogue();

/// "element/C3D8.html", from the site's root.
std::string addressOf(PictureGroup const & group);

#endif
