#ifndef shp_TriNodeLocations_h
#define shp_TriNodeLocations_h

// Node numbers here and in the drawing count from 0.
//
//   h
//   2
//   |\          g, h >= 0 and g + h <= 1: 0 stands at the origin,
//   5  4        1 at g = 1, 2 at h = 1
//   |    \      .
//   0--3--1 g

/// Isoparametric node locations (g, h, r), row = node: corners, then midsides. A first-order triangle uses the first
/// three.
// clang-format off
inline constexpr float triNodeLocs[][3] = {
    {0, 0, 0}, {1, 0, 0}, {0, 1, 0},
    {0.5f, 0, 0}, {0.5f, 0.5f, 0}, {0, 0.5f, 0},
};
// clang-format on

#endif
