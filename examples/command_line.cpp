#include "command_line.h"

#include "element_choice.h"

#include <QVRBasException.h>
#include <shp_ShapeDictionary.h>

#include <charconv>
#include <cstdio>

namespace {

constexpr int maxCells = 20;

} // namespace

int parseCells(std::string const & text) {
    int cells = 0;
    char const * const end = text.data() + text.size();
    auto const [stop, error] = std::from_chars(text.data(), end, cells);
    if (error != std::errc{} || stop != end || cells < 1 || cells > maxCells)
        throw Refusal("N, the cells in each direction of the coarsest mesh, is a whole number from 1 to " +
                      std::to_string(maxCells) + ", not \"" + text + "\".");
    return cells;
}

shp_Shape const & shapeToMesh(std::string const & label) {
    shp_Shape const * const shape = omi_Singleton<shp_ShapeDictionary>::Instance().GetShape(label.c_str());
    if (!shape)
        throw Refusal(label + " is not a label of the element catalogue.");
    if (std::string const reason = reasonAgainst(*shape); !reason.empty())
        throw Refusal(label + " " + reason + ".");
    return *shape;
}

std::string meshText(int cells, Model model) {
    std::string const side = std::to_string(cells);
    return model == Model::solid ? side + "x" + side + "x" + side : side + "x" + side;
}

int runProgram(char const * program, std::function<int()> const & body) {
    try {
        return body();
    } catch (Refusal const & refusal) {
        std::fprintf(stderr, "%s\n", refusal.what());
        return 2;
    } catch (QVRBasException const & failure) {
        std::fprintf(stderr, "%s: %s\n", program, failure.AsString(QVRBasStringMode()).CStr());
    } catch (std::exception const & failure) {
        std::fprintf(stderr, "%s: %s\n", program, failure.what());
    }
    return 1;
}
