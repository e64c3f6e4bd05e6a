#ifndef shp_TriIntegrationPoints_h
#define shp_TriIntegrationPoints_h

/// Integration points (g, h, r) of triangles, which prisms repeat at each level of r.

// clang-format off

inline constexpr float triIntPts3[][3] = {
    {1.0f / 6.0f, 1.0f / 6.0f, 0}, {2.0f / 3.0f, 1.0f / 6.0f, 0}, {1.0f / 6.0f, 2.0f / 3.0f, 0},
};

/// Three points towards the corners, then three towards the midsides.
inline constexpr float triIntPts6[][3] = {
    {0.09157621f, 0.09157621f, 0}, {0.81684756f, 0.09157621f, 0}, {0.09157621f, 0.81684756f, 0},
    {0.44594848f, 0.10810301f, 0}, {0.44594848f, 0.44594848f, 0}, {0.10810301f, 0.44594848f, 0},
};

// clang-format on

#endif
