#ifndef shp_FaceNodeWeights_h
#define shp_FaceNodeWeights_h

#include "shp_WeightRules.h"

/// Tables that carry values at the integration points of one face to the nodes of that face, shared by the families.
/// Points and nodes count from 0; rows are in the face's node order: corners, midsides, centre. The entries behind the
/// rows are 0 and stand there for faces that are read with more points than the table has columns.

/// One point per corner: corner k takes point (first + k) mod corners, a midside the mean of its two corners, and row
/// 2 * corners, if the table has it, the mean of all.
template <int Corners, int Rows, int Storage = Rows * Corners>
constexpr shp_WeightTable<Rows, Corners, Storage> shp_cornerPoints(int first) {
    shp_WeightTable<Rows, Corners, Storage> table;
    for (int k = 0; k < Corners; ++k) {
        int const own = (first + k) % Corners;
        table.at(k, own) = 1;
        table.at(Corners + k, own) = 0.5f;
        table.at(Corners + k, (own + 1) % Corners) = 0.5f;
        if (Rows > 2 * Corners)
            table.at(2 * Corners, k) = 1.0f / Corners;
    }
    return table;
}

/// Quadrilateral faces with 4 points, 9 by 4, by the point of the first corner.
inline constexpr auto shp_faceQuadFrom0 = shp_cornerPoints<4, 9>(0);
inline constexpr auto shp_faceQuadFrom1 = shp_cornerPoints<4, 9>(1);
inline constexpr auto shp_faceQuadFrom3 = shp_cornerPoints<4, 9>(3);

/// Triangular faces with 3 points, 6 by 3, by the point of the first corner.
inline constexpr auto shp_faceTriFrom0 = shp_cornerPoints<3, 6>(0);
inline constexpr auto shp_faceTriFrom2 = shp_cornerPoints<3, 6>(2);

/// Side faces with 4 points and 6 nodes: corners, then the middles of two opposite edges.
inline constexpr auto shp_faceQuadSixNodes = shp_weightRows<4>({
    {1, 0, 0, 0},
    {0, 0, 0, 1},
    {0, 0, 1, 0},
    {0, 1, 0, 0},
    {0.5f, 0, 0, 0.5f},
    {0, 0.5f, 0.5f, 0},
});

/// A 3 by 3 grid of Gauss points, g fastest, carried to the nine nodes of a quadrilateral: corners from (-1, -1)
/// counter-clockwise, midsides, centre. A weight is a product of end and middle values of the two axes; the products
/// are literals, stored results depend on their digits.
constexpr shp_WeightTable<9, 9> shp_gaussGridWeights() {
    constexpr float products[3][3] = {
        {2.1869397f, -0.98588699f, 0.27777779f},
        {-0.98588699f, 0.44444439f, -0.1252241f},
        {0.27777779f, -0.1252241f, 0.0352824f},
    };
    constexpr int g[] = {-1, 1, 1, -1, 0, 1, 0, -1, 0};
    constexpr int h[] = {-1, -1, 1, 1, -1, 0, 1, 0, 0};
    shp_WeightTable<9, 9> table;
    for (int node = 0; node < 9; ++node)
        for (int point = 0; point < 9; ++point) {
            int const i = g[node] > 0 ? 2 - point % 3 : point % 3; // counted from the node's end of the axis
            int const j = h[node] > 0 ? 2 - point / 3 : point / 3;
            if (g[node] != 0 && h[node] != 0)
                table.at(node, point) = products[i][j];
            else if (g[node] != 0)
                table.at(node, point) = shp_stored(shp_endOf3[i] * shp_middleOf3[j]);
            else
                table.at(node, point) =
                    shp_stored(shp_middleOf3[i] * (h[node] != 0 ? shp_endOf3[j] : shp_middleOf3[j]));
        }
    return table;
}

/// The same for a face whose first corner is corner `first` of the grid.
constexpr shp_WeightTable<9, 9> shp_gaussFace(int first) {
    constexpr shp_WeightTable<9, 9> grid = shp_gaussGridWeights();
    shp_WeightTable<9, 9> table;
    for (int row = 0; row < 9; ++row) {
        int const source = row < 8 ? row / 4 * 4 + (first + row) % 4 : row;
        for (int point = 0; point < 9; ++point)
            table.at(row, point) = grid.at(source, point);
    }
    return table;
}

inline constexpr auto shp_faceGaussFrom0 = shp_gaussFace(0);
inline constexpr auto shp_faceGaussFrom1 = shp_gaussFace(1);
inline constexpr auto shp_faceGaussFrom3 = shp_gaussFace(3);

#endif
