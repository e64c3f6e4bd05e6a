#ifndef shp_TetraNodeLocations_h
#define shp_TetraNodeLocations_h

// Node numbers here and in the drawing count from 0.
//
//          3 r
//         /|\           g, h, r >= 0 and g + h + r <= 1: 0 stands at the origin, 1 at g = 1,
//        / | \          2 at h = 1, 3 at r = 1. Midsides: 4 on 0-1, 5 on 1-2, 6 on 2-0,
//       7  9  8         7 on 0-3, 8 on 1-3, 9 on 2-3.
//      /   |   \        .
//     /    2 h  \       .
//    /  6     5  \      .
//   0------4------1 g

/// Isoparametric node locations (g, h, r), row = node: corners, the midsides of the face r = 0, the midsides towards
/// r = 1. A first-order tetrahedron uses the first four.
// clang-format off
inline constexpr float tetraNodeLocs[][3] = {
    {0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1},
    {0.5f, 0, 0}, {0.5f, 0.5f, 0}, {0, 0.5f, 0},
    {0, 0, 0.5f}, {0.5f, 0, 0.5f}, {0, 0.5f, 0.5f},
};
// clang-format on

#endif
