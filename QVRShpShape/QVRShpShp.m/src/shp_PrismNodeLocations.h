#ifndef shp_PrismNodeLocations_h
#define shp_PrismNodeLocations_h

// Node numbers here and in the drawing count from 0. Isoparametric locations (g, h, r), row = node; g and h as in a
// triangle (node 0 at the origin, 1 at g = 1, 2 at h = 1), r from -1 to 1.
//
//          5
//        / |  \            r
//      11  |   10          |  h
//     /    14     \        | /
//    3-----|-9-----4       |/
//    |     2       |       +--- g
//   12   /    \   13
//    | 8       7   |       15, 16, 17 in the side faces 0-1, 1-2, 2-0
//    |/           \|
//    0------6------1

// clang-format off

/// Corners at r = -1 and r = 1, the midsides of the two triangles, then the layer r = 0: corners, midsides. 6 and 15
/// nodes use the leading rows.
inline constexpr float prismNodeLocs[][3] = {
    {0, 0, -1}, {1, 0, -1}, {0, 1, -1},
    {0, 0, 1}, {1, 0, 1}, {0, 1, 1},
    {0.5f, 0, -1}, {0.5f, 0.5f, -1}, {0, 0.5f, -1},
    {0.5f, 0, 1}, {0.5f, 0.5f, 1}, {0, 0.5f, 1},
    {0, 0, 0}, {1, 0, 0}, {0, 1, 0},
    {0.5f, 0, 0}, {0.5f, 0.5f, 0}, {0, 0.5f, 0},
};

/// Cylindrical: the corners of the layer r = 0 come before all midsides. 9 nodes use the leading rows.
inline constexpr float prismCylNodeLocs[][3] = {
    {0, 0, -1}, {1, 0, -1}, {0, 1, -1},
    {0, 0, 1}, {1, 0, 1}, {0, 1, 1},
    {0, 0, 0}, {1, 0, 0}, {0, 1, 0},
    {0.5f, 0, -1}, {0.5f, 0.5f, -1}, {0, 0.5f, -1},
    {0.5f, 0, 1}, {0.5f, 0.5f, 1}, {0, 0.5f, 1},
    {0.5f, 0, 0}, {0.5f, 0.5f, 0}, {0, 0.5f, 0},
};

/// Gasket: corners and midsides of the one side, then of the other.
inline constexpr float prismGasketNodeLocs[][3] = {
    {0, 0, -1}, {1, 0, -1}, {0, 1, -1},
    {0.5f, 0, -1}, {0.5f, 0.5f, -1}, {0, 0.5f, -1},
    {0, 0, 1}, {1, 0, 1}, {0, 1, 1},
    {0.5f, 0, 1}, {0.5f, 0.5f, 1}, {0, 0.5f, 1},
};

// clang-format on

#endif
