#ifndef shp_HexNodeLocations_h
#define shp_HexNodeLocations_h

// Node numbers here and in the drawing count from 0. Isoparametric locations (g, h, r), row = node; g, h and r run from
// -1 to 1.
//
//            7-------14-------6
//          / |              / |
//        15  |            13  |        r  h
//       /    19          /    18       | /
//      4-------12-------5     |        |/
//      |     |          |     |        +--- g
//      |     3-------10-|-----2
//     16    /          17    /         20 in the centre; 21 and 22 in the faces r = -1, r = 1;
//      |  11            |   9          23 to 26 in the faces h = -1, g = 1, h = 1, g = -1
//      | /              | /
//      0-------8--------1

// clang-format off

/// Corners at r = -1, then at r = 1, each counter-clockwise seen from +r; the midsides of the two layers, those between
/// them; the centre (before the face centres), the face centres. 8, 20 and 27 nodes use the leading rows.
inline constexpr float hexNodeLocs[][3] = {
    {-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
    {-1, -1, 1}, {1, -1, 1}, {1, 1, 1}, {-1, 1, 1},
    {0, -1, -1}, {1, 0, -1}, {0, 1, -1}, {-1, 0, -1},
    {0, -1, 1}, {1, 0, 1}, {0, 1, 1}, {-1, 0, 1},
    {-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0},
    {0, 0, 0},
    {0, 0, -1}, {0, 0, 1}, {0, -1, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0},
};

/// Cylindrical: corners of both layers, the corners of the layer r = 0, then the midsides at r = -1, 1 and 0. 12 nodes
/// use the leading rows.
inline constexpr float hexCylNodeLocs[][3] = {
    {-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
    {-1, -1, 1}, {1, -1, 1}, {1, 1, 1}, {-1, 1, 1},
    {-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0},
    {0, -1, -1}, {1, 0, -1}, {0, 1, -1}, {-1, 0, -1},
    {0, -1, 1}, {1, 0, 1}, {0, 1, 1}, {-1, 0, 1},
    {0, -1, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0},
};

/// Gasket: corners and midsides of the one side, then of the other, then the centres of the sides.
inline constexpr float hexGasketNodeLocs[][3] = {
    {-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
    {0, -1, -1}, {1, 0, -1}, {0, 1, -1}, {-1, 0, -1},
    {-1, -1, 1}, {1, -1, 1}, {1, 1, 1}, {-1, 1, 1},
    {0, -1, 1}, {1, 0, 1}, {0, 1, 1}, {-1, 0, 1},
    {0, 0, -1}, {0, 0, 1},
};

/// Infinite, first order: the pole lies at r = 1, the far nodes at r = 0.
inline constexpr float hexInfiniteNodeLocs8[][3] = {
    {-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
    {-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0},
};

/// Infinite, second order: corners and midsides at r = -1, then at r = 0, then the centres of the two layers. 12 nodes
/// use the leading rows.
inline constexpr float hexInfiniteNodeLocs18[][3] = {
    {-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
    {0, -1, -1}, {1, 0, -1}, {0, 1, -1}, {-1, 0, -1},
    {-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0},
    {0, -1, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0},
    {0, 0, -1}, {0, 0, 0},
};

// clang-format on

#endif
