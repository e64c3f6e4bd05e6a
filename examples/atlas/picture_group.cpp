#include "picture_group.h"

#include "element_kind.h"
#include "element_page.h"

#include <omi_BtreeIterator.h>
#include <shp_ShapeDictionary.h>

#include <algorithm>
#include <map>
#include <tuple>

namespace {

auto orderOf(PictureGroup const & group) {
    shp_Shape const & shape = group.shape();
    return std::make_tuple(&familyOf(shape), shape.numNodesPerElem, shape.numSpatialDimensions, shape.numIntPtsPerElem,
                           group.name());
}

} // namespace

std::string PictureGroup::name() const {
    std::string shortest = shapes.front()->label.CStr();
    for (shp_Shape const * shape : shapes) {
        std::string const label = shape->label.CStr();
        if (label.size() < shortest.size())
            shortest = label;
    }
    return shortest;
}

std::vector<PictureGroup> groupCatalogue() {
    shp_ShapeDictionary const & dictionary = omi_Singleton<shp_ShapeDictionary>::Instance();
    std::map<std::string, std::vector<shp_Shape const *>> byContent;
    omi_BtreeIterator<cow_String, void *> labels(dictionary.Keys());
    for (bool isLabel = labels.First(); isLabel; isLabel = labels.Next()) {
        shp_Shape const * const shape = dictionary.GetShape(labels.CurrentKey());
        byContent[elementContent(*shape)].push_back(shape);
    }
    std::vector<PictureGroup> groups;
    for (auto & [content, shapes] : byContent)
        groups.push_back({shapes, content});
    std::sort(groups.begin(), groups.end(),
              [](PictureGroup const & a, PictureGroup const & b) { return orderOf(a) < orderOf(b); });
    return groups;
}

std::string addressOf(PictureGroup const & group) {
    return "element/" + group.name() + ".html";
}
