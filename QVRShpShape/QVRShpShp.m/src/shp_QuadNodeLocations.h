#ifndef shp_QuadNodeLocations_h
#define shp_QuadNodeLocations_h

// Node numbers here and in the drawings count from 0. Isoparametric locations (g, h, r), row = node; g and h run from
// -1 to 1, r is 0.
//
//   h                         infinite        gasket 4    gasket 6     with 6: extra nodes at the
//   3--6--2                   3-----2 h = 0   2-----3     3--4--5      cohesive: 4 left, 5 right
//   |     |                   |     |         |     |     |     |      pipe-soil: 4 below, 5 above
//   7  8  5                   |     |         |     |     |     |      others: 4 right, 5 left
//   |     |                   |     |         |     |     |     |
//   0--4--1 g                 0--4--1 h = -1  0-----1     0--1--2

// clang-format off

/// Corners counter-clockwise, midsides, centre. Elements of 4 and 8 nodes use the leading rows.
inline constexpr float quadNodeLocs[][3] = {
    {-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0},
    {0, -1, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0},
    {0, 0, 0},
};

/// Infinite: the pole lies at h = 1, the far nodes at h = 0.
inline constexpr float quadInfiniteNodeLocs[][3] = {{-1, -1, 0}, {1, -1, 0}, {1, 0, 0}, {-1, 0, 0}, {0, -1, 0}};

inline constexpr float quadCohesiveNodeLocs4[][3] = {{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};

inline constexpr float quadCohesiveNodeLocs6[][3] = {
    {-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0},
    {-1, 0, 0}, {1, 0, 0},
};

/// Not in cyclic order: both sides of a gasket run the same way.
inline constexpr float quadGasketNodeLocs4[][3] = {{-1, -1, 0}, {1, -1, 0}, {-1, 1, 0}, {1, 1, 0}};

inline constexpr float quadGasketNodeLocs6[][3] = {
    {-1, -1, 0}, {0, -1, 0}, {1, -1, 0},
    {-1, 1, 0}, {0, 1, 0}, {1, 1, 0},
};

/// The two extra nodes stand in the opposite order to the cohesive table.
inline constexpr float quadNodeLocs6[][3] = {
    {-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0},
    {1, 0, 0}, {-1, 0, 0},
};

inline constexpr float quadPipeSoilNodeLocs6[][3] = {
    {-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0},
    {0, -1, 0}, {0, 1, 0},
};

// clang-format on

#endif
