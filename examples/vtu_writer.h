#ifndef vtu_writer_h
#define vtu_writer_h

#include "stress_recovery.h"
#include "vtu_cell.h"

/// Writes mesh, nodal stresses and their errors as one unstructured grid in XML with plain numbers (.vtu). Raises
/// std::runtime_error if the file cannot be written.
void writeVtu(char const * path, Mesh const & mesh, VtuCell const & cell, NodalStress const & result);

#endif
