// cut [LABEL] [N]
//
// Meshes a quarter of a thick-walled cylinder with 4N cells in each direction, as stress_to_nodes does for its finest
// mesh, and shoots a fan of lines through it. Prints each line's path through the elements with the stress carried to
// the nodes and interpolated to where the line enters and leaves, and writes it to cut.csv and as a picture to cut.svg.
//
// Exit status: 0; 1 if something failed; 2 if the arguments are at fault.

#include "command_line.h"
#include "cut_picture.h"
#include "cut_report.h"

#include <cstdio>

namespace {

constexpr char const * tableFile = "cut.csv";
constexpr char const * pictureFile = "cut.svg";

void run(std::string const & label, shp_Topology const & shape, int cells) {
    Cylinder const cylinder;
    Mesh const mesh = meshCylinder(cylinder, shape, cells);
    NodalStress const stress = recoverStress(cylinder, shape, mesh);
    BoxGrid const grid(elementBoxes(mesh));
    Fan const fan = fanThrough(cylinder, mesh.model);
    std::string const meshName = label + ", mesh of " + meshText(cells, mesh.model) + " cells";
    std::printf("%s: %d elements. %zu lines from (%g, %g, %g).\n"
                "Entry and exit are distances from there; stresses are equivalent ones (von Mises).\n",
                meshName.c_str(), mesh.numElements(), fan.directions.size(), fan.apex.X(), fan.apex.Y(), fan.apex.Z());

    std::vector<std::vector<Crossing>> paths;
    for (std::size_t i = 0; i < fan.directions.size(); ++i)
        paths.push_back(cutMesh(shape, mesh, grid, stress, fan.line(i)));
    printCut(cylinder, mesh.model, fan, paths);
    writeCsv(tableFile, fan, paths);
    writePicture(pictureFile, meshName, cylinder, shape, mesh, fan, paths);
    std::printf("\nThe paths with all stress components are in %s, a picture of them in %s.\n", tableFile, pictureFile);
}

} // namespace

int main(int argc, char ** argv) {
    return runProgram("cut", [&] {
        if (argc > 3)
            throw Refusal("usage: cut [LABEL] [N]");
        std::string const label = argc > 1 ? argv[1] : "C3D20R";
        int const coarsestCells = argc > 2 ? parseCells(argv[2]) : 2;
        run(label, shapeToMesh(label), 4 * coarsestCells);
        return 0;
    });
}
