// atlas DIRECTORY
//
// Writes the element atlas into a directory: a web site with a page for every picture and an address for every label of
// the catalogue. Everything on it comes from the library's tables. Open index.html; nothing is fetched from elsewhere.
//
// Exit status: 0; 1 if something failed; 2 if the arguments are at fault.

#include "assets.h"
#include "element_page.h"
#include "page.h"
#include "picture_group.h"
#include "start_page.h"

#include <QVRBasException.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

namespace fs = std::filesystem;

void writeFile(fs::path const & path, std::string const & text) {
    std::ofstream file(path, std::ios::binary);
    if (!(file << text).flush())
        throw std::runtime_error("cannot write " + path.string());
}

void writeSite(fs::path const & site) {
    fs::create_directories(site / "element");
    fs::create_directories(site / "label");
    std::vector<PictureGroup> const groups = groupCatalogue();
    for (std::size_t i = 0; i < groups.size(); ++i) {
        PictureGroup const & group = groups[i];
        writeFile(site / addressOf(group), elementPage(group, i > 0 ? &groups[i - 1] : nullptr,
                                                       i + 1 < groups.size() ? &groups[i + 1] : nullptr));
        for (shp_Shape const * shape : group.shapes) {
            std::string const label = shape->label.CStr();
            writeFile(site / "label" / (label + ".html"), leadingPage(label, "../" + addressOf(group) + '#' + label));
        }
    }
    writeFile(site / "index.html", startPage(groups));
    writeFile(site / "atlas.css", atlasStyle);
    writeFile(site / "atlas.js", atlasScript);
}

} // namespace

int main(int argc, char ** argv) {
    if (argc != 2 || argv[1][0] == '-') {
        std::fprintf(stderr, "usage: atlas DIRECTORY\n");
        return 2;
    }
    try {
        writeSite(argv[1]);
        return 0;
    } catch (QVRBasException const & failure) {
        std::fprintf(stderr, "atlas: %s\n", failure.AsString(QVRBasStringMode()).CStr());
    } catch (std::exception const & failure) {
        std::fprintf(stderr, "atlas: %s\n", failure.what());
    }
    return 1;
}
