// stress_to_nodes [LABEL] [N] [--at X,Y[,Z]]
//
// Meshes a quarter of a thick-walled cylinder with elements of one type, puts the exact stress of the pressurised
// cylinder at the integration points, carries it to the nodes, and compares it there with the exact stress, on meshes
// of N, 2N and 4N cells in each direction. Writes the finest one to stress.vtu.
//
// With --at, takes the finest mesh alone, finds the element that holds the point, and prints the stress there,
// interpolated from the nodes, beside the exact one. Writes no file.
//
// Exit status: 0; 1 if something failed, or if no element holds the point; 2 if the arguments are at fault.

#include "command_line.h"
#include "element_search.h"
#include "stress_recovery.h"
#include "vtu_writer.h"

#include <charconv>
#include <cstdio>
#include <string_view>

namespace {

constexpr char const * resultFile = "stress.vtu";

struct Arguments {
    std::string label = "C3D20R";
    int coarsestCells = 2;
    std::optional<g3d_Storage> probe;
};

g3d_Storage parsePoint(std::string_view text) {
    double coordinates[3] = {0, 0, 0};
    int count = 0;
    char const * at = text.data();
    char const * const end = at + text.size();
    while (count < 3) {
        auto const [stop, error] = std::from_chars(at, end, coordinates[count]);
        if (error != std::errc{} || !std::isfinite(coordinates[count]))
            break;
        ++count;
        at = stop;
        if (at == end || *at != ',')
            break;
        ++at;
    }
    if (count < 2 || at != end || text.back() == ',')
        throw Refusal("A point is X,Y or X,Y,Z, numbers with commas and no blanks between them, not \"" +
                      std::string(text) + "\".");
    return {coordinates[0], coordinates[1], coordinates[2]};
}

Arguments parseArguments(int argc, char ** argv) {
    Arguments arguments;
    int position = 0;
    for (int i = 1; i < argc; ++i) {
        std::string const argument = argv[i];
        if (argument == "--at" && i + 1 < argc && !arguments.probe)
            arguments.probe = parsePoint(argv[++i]);
        else if (argument.starts_with("--") || ++position > 2)
            throw Refusal("usage: stress_to_nodes [LABEL] [N] [--at X,Y[,Z]]");
        else if (position == 1)
            arguments.label = argument;
        else
            arguments.coarsestCells = parseCells(argument);
    }
    return arguments;
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

void printStress(char const * name, Stress const & stress) {
    std::printf("%-14s", name);
    for (double component : stress)
        std::printf(" %11.5g", component);
    std::printf("\n");
}

/// Prints the stress at a point of the mesh with `cells` in each direction; returns the exit status.
int probe(std::string const & label, shp_Topology const & shape, int cells, g3d_Storage const & point) {
    Cylinder const cylinder;
    Mesh const mesh = meshCylinder(cylinder, shape, cells);
    char place[100];
    std::snprintf(place, sizeof place, "(%.7g, %.7g, %.7g)", point.X(), point.Y(), point.Z());
    std::optional<MeshPoint> const found = ElementSearch(shape, mesh).find(point);
    if (!found) {
        bool const isInBody = isInWall(cylinder, mesh.model, point.X(), point.Y(), point.Z());
        std::fprintf(
            stderr, "%s lies %s\n", place,
            isInBody ? "in the wall, but no element was found to hold it: straight edges cut its arcs short, or the "
                       "location gave up, as it does inside 18-node prisms."
                     : "outside the body.");
        return 1;
    }
    std::printf("%s, mesh of %s cells: %s lies in element %d of %d, counted from 0,\nat g = %.6f, h = %.6f, r = %.6f. "
                "Stress there:\n\n",
                label.c_str(), meshText(cells, mesh.model).c_str(), place, found->element, mesh.numElements(),
                static_cast<double>(found->iso[0]), static_cast<double>(found->iso[1]),
                static_cast<double>(found->iso[2]));
    std::printf("%-14s %11s %11s %11s %11s %11s %11s\n", "", "xx", "yy", "zz", "xy", "yz", "xz");
    Stress const interpolated =
        interpolateStress(shape, mesh, recoverStress(cylinder, shape, mesh), found->element, found->iso.data());
    printStress("from the nodes", interpolated);
    printStress("exact", exactStress(cylinder, mesh.model, point.X(), point.Y()));
    return 0;
}

} // namespace

int main(int argc, char ** argv) {
    return runProgram("stress_to_nodes", [&] {
        Arguments const arguments = parseArguments(argc, argv);
        shp_Shape const & shape = shapeToMesh(arguments.label);
        if (arguments.probe)
            return probe(arguments.label, shape, 4 * arguments.coarsestCells, *arguments.probe);
        run(arguments.label, shape, arguments.coarsestCells);
        return 0;
    });
}
