#ifndef cut_report_h
#define cut_report_h

#include "line_cut.h"

/// Prints each line's path to standard output: element, entry and exit as distances from the apex, equivalent stress
/// there and the exact one.
void printCut(Cylinder const & cylinder, Model model, Fan const & fan,
              std::vector<std::vector<Crossing>> const & paths);

/// Writes the same with all stress components, one crossing a row. Raises std::runtime_error if that fails.
void writeCsv(char const * path, Fan const & fan, std::vector<std::vector<Crossing>> const & paths);

#endif
