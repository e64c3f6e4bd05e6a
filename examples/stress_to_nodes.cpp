// stress_to_nodes [LABEL] [N]
//
// Meshes a quarter of a thick-walled cylinder with elements of one type, puts the exact stress of the pressurised
// cylinder at the integration points, carries it to the nodes, and compares it there with the exact stress, on meshes
// of N, 2N and 4N cells in each direction. Writes the finest one to stress.vtu.
//
// Exit status: 0; 1 if something failed; 2 if the arguments are at fault.

#include "element_choice.h"
#include "stress_recovery.h"
#include "vtu_writer.h"

#include <QVRBasException.h>
#include <shp_Shape.h>
#include <shp_ShapeDictionary.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

namespace {

constexpr int defaultCells = 2;
constexpr int maxCells = 20;
constexpr char const * resultFile = "stress.vtu";

int refuse(std::string const & sentence) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return 2;
}

/// The number that is written in `text`, or 0 if it is not a whole number from 1 to `maxCells`.
int parseCells(char const * text) {
    int cells = 0;
    auto const [end, error] = std::from_chars(text, text + std::strlen(text), cells);
    bool const isGood = error == std::errc{} && *end == '\0' && cells >= 1 && cells <= maxCells;
    return isGood ? cells : 0;
}

std::string meshText(int cells, Model model) {
    std::string const side = std::to_string(cells);
    return model == Model::solid ? side + "x" + side + "x" + side : side + "x" + side;
}

/// Errors below this share of the pressure are those of rounding to float.
constexpr double rounding = 1e-6;

/// How fast an error falls from one mesh to the next: the exponent of the cell size.
std::string orderText(double coarser, double finer, double pressure) {
    if (finer < rounding * pressure)
        return "rounding";
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", std::log2(coarser / finer));
    return text;
}

void printRow(int cells, Mesh const & mesh, NodalStress const & now, NodalStress const & coarser, double pressure) {
    bool const isFirst = coarser.stress.empty();
    std::printf("%12s %9d %9d %14.6g %14.6g %10s %9s\n", meshText(cells, mesh.model).c_str(), mesh.numElements(),
                mesh.numNodes, now.largestError, now.rmsError,
                isFirst ? "-" : orderText(coarser.largestError, now.largestError, pressure).c_str(),
                isFirst ? "-" : orderText(coarser.rmsError, now.rmsError, pressure).c_str());
    std::fflush(stdout);
}

void run(std::string const & label, shp_Topology const & shape, int coarsestCells) {
    Cylinder const cylinder;
    VtuCell const cell = vtuCellOf(shape);
    std::printf("%s: %d nodes, %d integration points. Thick-walled cylinder, radii %g and %g, height %g, closed ends,\n"
                "internal pressure %g. Errors of the nodal stress against the exact solution:\n\n",
                label.c_str(), shape.BaseNodesPerElem(), shape.BaseIntPtsPerElem(), cylinder.innerRadius,
                cylinder.outerRadius, cylinder.height, cylinder.pressure);
    std::printf("%12s %9s %9s %14s %14s %20s\n", "", "", "", "largest", "RMS", "observed order");
    std::printf("%12s %9s %9s %14s %14s %10s %9s\n", "mesh", "elements", "nodes", "error", "error", "largest", "RMS");

    NodalStress coarser;
    int const finestCells = 4 * coarsestCells;
    for (int cells = coarsestCells; cells <= finestCells; cells *= 2) {
        Mesh const mesh = meshCylinder(cylinder, shape, cells);
        NodalStress result = recoverStress(cylinder, shape, mesh);
        printRow(cells, mesh, result, coarser, cylinder.pressure);
        if (cells == finestCells)
            writeVtu(resultFile, mesh, cell, result);
        coarser = std::move(result);
    }
    std::printf("\nThe finest mesh with its nodal stresses and errors is in %s.\n", resultFile);
}

} // namespace

int main(int argc, char ** argv) {
    if (argc > 3)
        return refuse("usage: stress_to_nodes [LABEL] [N]");
    std::string const label = argc > 1 ? argv[1] : "C3D20R";
    int const cells = argc > 2 ? parseCells(argv[2]) : defaultCells;
    if (cells == 0)
        return refuse("N, the cells in each direction of the coarsest mesh, is a whole number from 1 to " +
                      std::to_string(maxCells) + ", not \"" + argv[2] + "\".");
    try {
        auto const & dictionary = omi_Singleton<shp_ShapeDictionary>::Instance();
        shp_Shape const * const shape = dictionary.GetShape(label.c_str());
        if (!shape)
            return refuse(label + " is not a label of the element catalogue.");
        if (std::string const reason = reasonAgainst(*shape); !reason.empty())
            return refuse(label + " " + reason + ".");
        run(label, *shape, cells);
    } catch (QVRBasException const & failure) {
        std::fprintf(stderr, "stress_to_nodes: %s\n", failure.AsString(QVRBasStringMode()).CStr());
        return 1;
    } catch (std::exception const & failure) {
        std::fprintf(stderr, "stress_to_nodes: %s\n", failure.what());
        return 1;
    }
    return 0;
}
