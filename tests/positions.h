#ifndef positions_h
#define positions_h

// Node positions of elements for the tests of where a point lies and where a line meets.

#include "catalogued_shapes.h"

#include <random>
#include <vector>

using Positions = std::vector<g3d_Storage>;

inline double between(double low, double high) {
    static std::mt19937 generator(20240911);
    return std::uniform_real_distribution<double>(low, high)(generator);
}

inline double distance(g3d_Storage a, g3d_Storage const & b) {
    a -= b;
    return g3d_Magnitude(a);
}

/// The node locations as positions, each put through `map`, and room for the ninth point where it is completed.
template <class Map> Positions element(shp_Topology const & t, Map map) {
    Positions coords;
    for (int i = 0; i < t.BaseNodesPerElem(); ++i) {
        float const * const iso = t.IsoNodeLocationTable() + 3 * i;
        coords.push_back(map(iso[0], iso[1], iso[2]));
    }
    if (t.prepareCoords && t.BaseNodesPerElem() == 8)
        coords.emplace_back();
    return coords;
}

#endif
