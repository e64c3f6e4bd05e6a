#include "start_page.h"

#include "element_kind.h"
#include "element_model.h"
#include "element_picture.h"
#include "page.h"

#include <set>

namespace {

std::string flagIds(shp_Shape const & shape) {
    std::string ids;
    for (ElementFlag const & flag : elementFlags())
        if (flag.holds(shape))
            ids += (ids.empty() ? "" : " ") + std::string(flag.id);
    return ids;
}

std::string attribute(char const * name, std::string const & value) {
    return std::string(" data-") + name + "=\"" + value + "\"";
}

std::string card(PictureGroup const & group) {
    shp_Shape const & shape = group.shape();
    std::string const address = addressOf(group);
    std::string html = "<article class=\"card\"" + attribute("family", familyOf(shape).id) +
                       attribute("nodes", std::to_string(shape.numNodesPerElem)) +
                       attribute("points", std::to_string(shape.numIntPtsPerElem)) +
                       attribute("space", std::to_string(shape.numSpatialDimensions)) + ">\n";
    html += "<a class=\"thumbnail\" href=\"" + address + "\" tabindex=\"-1\" aria-hidden=\"true\">" +
            thumbnail(modelOf(shape)) + "</a>\n<div>\n<h3><a href=\"" + address + "\">" + describe(shape) +
            "</a></h3>\n<ul>\n";
    for (shp_Shape const * labelled : group.shapes) {
        std::string const label = labelled->label.CStr();
        html += "<li" + attribute("flags", flagIds(*labelled)) + "><a href=\"" + address + '#' + label + "\">" + label +
                "</a></li>\n";
    }
    return html + "</ul>\n</div>\n</article>\n";
}

std::string choice(char const * name, char const * caption, std::string const & options) {
    return std::string("<label>") + caption + " <select name=\"" + name + "\"><option value=\"\">any</option>" +
           options + "</select></label>\n";
}

std::string option(std::string const & value, std::string const & text) {
    return "<option value=\"" + value + "\">" + text + "</option>";
}

std::string numberOptions(std::set<int> const & numbers) {
    std::string html;
    for (int number : numbers)
        html += option(std::to_string(number), std::to_string(number));
    return html;
}

/// Shown by the script, without which it can do nothing.
std::string searchForm(std::vector<PictureGroup> const & groups) {
    std::set<int> nodes, points;
    for (PictureGroup const & group : groups) {
        nodes.insert(group.shape().numNodesPerElem);
        points.insert(group.shape().numIntPtsPerElem);
    }
    std::string families, flags;
    for (ElementFamily const & family : elementFamilies())
        families += option(family.id, family.many);
    for (ElementFlag const & flag : elementFlags())
        flags += "<label><input type=\"checkbox\" name=\"flag\" value=\"" + std::string(flag.id) + "\">" + flag.text +
                 "</label>\n";
    return "<form id=\"search\" role=\"search\" hidden>\n"
           "<label class=\"query\">Label <input type=\"search\" name=\"label\" placeholder=\"C3D20R\" "
           "autocomplete=\"off\" autocapitalize=\"characters\" spellcheck=\"false\"></label>\n<div "
           "class=\"choices\">\n" +
           choice("family", "Family", families) + choice("nodes", "Nodes", numberOptions(nodes)) +
           choice("points", "Integration points", numberOptions(points)) +
           choice("space", "Space", option("2", "two dimensions") + option("3", "three dimensions")) +
           "</div>\n<details>\n<summary>Flags</summary>\n<div class=\"flags\">\n" + flags +
           "</div>\n</details>\n<p><output id=\"found\"></output> <button type=\"reset\">Show all</button></p>\n"
           "</form>\n";
}

} // namespace

std::string startPage(std::vector<PictureGroup> const & groups) {
    std::size_t numLabels = 0;
    for (PictureGroup const & group : groups)
        numLabels += group.shapes.size();
    std::string contents, families;
    for (ElementFamily const & family : elementFamilies()) {
        std::string cards;
        std::size_t count = 0;
        for (PictureGroup const & group : groups)
            if (&familyOf(group.shape()) == &family) {
                cards += card(group);
                count += group.shapes.size();
            }
        contents += "<li><a href=\"#" + std::string(family.id) + "\">" + family.many + "</a> " + std::to_string(count) +
                    "</li>\n";
        families += "<section class=\"family\" id=\"" + std::string(family.id) + "\">\n<h2>" + family.many +
                    "</h2>\n<div class=\"cards\">\n" + cards + "</div>\n</section>\n";
    }
    std::string const content =
        "<h1>Element atlas</h1>\n<p class=\"lead\">" + std::to_string(numLabels) + " element labels in " +
        std::to_string(groups.size()) +
        " pictures: where each node stands, which face is which, and which integration point is number "
        "<span class=\"b0\">0</span><span class=\"b1\">1</span>.</p>\n" +
        searchForm(groups) + "<nav class=\"families\" aria-label=\"Families\"><ul>\n" + contents + "</ul></nav>\n" +
        families;
    return pageOf({"Element atlas", "", content});
}
