#ifndef bench_targets_h
#define bench_targets_h

#include "harness.h"

#include <string_view>

namespace bench {

inline constexpr char bestPeer[] = "best"; ///< the fastest of all peers that were timed
inline constexpr char any[] = "";

/// Our time is at most `ratio` of the peer's. Without a peer, no limit.
struct Limit {
    std::string_view peer;
    double ratio;
};

/// The limits of the elements (or cases) whose names begin with `element`, of the items that begin with `item`. The
/// first row that fits holds.
struct Target {
    std::string_view item, element;
    Limit limits[2];
};

inline constexpr Target targets[] = {
    {"shape function row", "hexahedron 20", {{handWritten, 0.9}, {vtk, 0.6}}},
    {"shape function row", "hexahedron 27", {{vtk, 0.7}}},
    {"shape function row", "hexahedron 8", {{vtk, 0.85}}},
    {"shape function row", any, {{bestPeer, 1.15}}},

    {"Jacobian", "hexahedron 20", {{handWritten, 0.7}}},
    {"Jacobian", "hexahedron 27", {{handWritten, 0.7}}},
    {"Jacobian", any, {{bestPeer, 1.1}}},

    {"isoparametric to space", "hexahedron 8", {{vtk, 0.65}}},
    {"isoparametric to space", "tetrahedron 4", {{vtk, 0.65}}},
    {"isoparametric to space", "prism 6", {{vtk, 0.65}}},
    {"isoparametric to space", "pyramid 5", {{vtk, 0.65}}},
    {"isoparametric to space", "quadrilateral 4", {}},
    {"isoparametric to space", "triangle 3", {}},
    {"isoparametric to space", any, {{vtk, 0.3}}},

    {"location", "hexahedron 20", {{vtk, 0.09}, {handWritten, 0.68}}},
    {"location", "hexahedron 27", {{vtk, 0.09}, {handWritten, 0.68}}},
    {"location", "hexahedron 8", {{handWritten, 0.85}}},
    {"location", "tetrahedron 10", {{handWritten, 0.75}}},
    {"location", "prism 6", {{handWritten, 0.8}}},

    {"line", "hexahedron 20", {{vtk, 0.02}, {handWritten, 0.6}}},
    {"line", "hexahedron 27", {{vtk, 0.02}, {handWritten, 0.6}}},
    {"line", "tetrahedron 10", {{vtk, 0.15}, {handWritten, 0.6}}},
    {"line", "prism 15", {{vtk, 0.15}, {handWritten, 0.6}}},
    {"line", "quadrilateral", {{vtk, 0.15}}},
    {"line", "triangle", {{vtk, 0.15}}},
    {"line", any, {{vtk, 0.15}, {handWritten, 0.85}}},

    {"extrapolation", "hexahedron 20 with 8 points, 6", {{handWritten, 0.5}, {eigen, 1}}},
    {"extrapolation", "hexahedron 8 with 8 points, 6", {{handWritten, 0.5}, {eigen, 1}}},
    {"extrapolation", "tetrahedron 10 with 4 points, 6", {{handWritten, 0.5}, {eigen, 1}}},
    {"extrapolation", "quadrilateral 8 with 4 points, 6", {{handWritten, 0.5}, {eigen, 1}}},
    {"extrapolation", any, {{handWritten, 0.6}}},

    {"face normal", any, {{vtk, 0.35}}},
    {"face centroid", any, {{vtk, 0.35}}},
    {"element centroid", any, {{vtk, 0.35}}},

    {"look-up by label", "upper case", {{unorderedMap, 0.5}}},
    {"look-up by label", "lower case", {{unorderedMap, 0.3}}},
    {"catalogue", "filling", {{unorderedMap, 0.8}}},

    {"list of 1,000 strings", "copy and write", {{qt, 0.03}}},
    {"list of 1,000 strings", "copy", {{qt, 0.5}}},
    {"list of 1,000 strings", "append", {{qt, 0.75}}},
    {"list of 1,000 strings", "read through an iterator", {{vector, 1.3}}},
    {"list of 1,000 strings", "FindMember", {{vector, 1.5}}},
};

} // namespace bench

#endif
