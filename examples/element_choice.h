#ifndef element_choice_h
#define element_choice_h

#include <shp_Topology.h>

#include <string>

/// What stands against meshing the cylinder with this element type and carrying its stresses to the nodes: the
/// property, as the end of a sentence that begins with the label ("is a gasket, ..."). Empty if nothing does.
std::string reasonAgainst(shp_Topology const & shape);

#endif
