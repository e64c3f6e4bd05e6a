#ifndef command_line_h
#define command_line_h

#include "cylinder.h"

#include <shp_Shape.h>

#include <functional>
#include <stdexcept>
#include <string>

/// The arguments are at fault; the text is the sentence for the user.
class Refusal : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The number of cells in each direction of the coarsest mesh. Raises Refusal if `text` is not such a number.
int parseCells(std::string const & text);

/// The element type with this label. Raises Refusal if there is none, or if the cylinder is not meshed with it.
shp_Shape const & shapeToMesh(std::string const & label);

/// What names a mesh of so many cells in each direction: "8x8x8".
std::string meshText(int cells, Model model);

/// Runs `body` and returns its exit status; after an exception, whose text goes to standard error, 2 if it is a
/// Refusal, else 1.
int runProgram(char const * program, std::function<int()> const & body);

#endif
