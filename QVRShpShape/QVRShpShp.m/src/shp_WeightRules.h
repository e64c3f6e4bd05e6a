#ifndef shp_WeightRules_h
#define shp_WeightRules_h

#include <array>
#include <cstddef>

/// The rules that fill the weight tables, for the compiler. Rows are targets (nodes or faces), columns integration
/// points; both count from 0. Points of a tensor product run g fastest, then h, then r. Levels of a line, a thickness
/// or a tensor axis are numbered from -1 to 1.

/// A row-major weight table. `Storage` is larger than rows times columns where a reader with another stride goes
/// further: the entries behind the rows are 0.
template <int Rows, int Columns, int Storage = Rows * Columns> struct shp_WeightTable {
    float entries[Storage] = {};

    constexpr float & at(int row, int column) { return entries[row * Columns + column]; }
    constexpr float at(int row, int column) const { return entries[row * Columns + column]; }
    constexpr float const * data() const { return entries; }
};

// One-dimensional rows: linear through -1/sqrt(3) and 1/sqrt(3), quadratic through -sqrt(3/5), 0 and sqrt(3/5), at the
// end -1; the middle of the latter. A row at the end 1 is the same reversed.
inline constexpr float shp_endOf2[] = {1.3660254f, -0.36602539f};
inline constexpr float shp_endOf3[] = {1.4788306f, -0.66666669f, 0.1878361f};
inline constexpr float shp_middleOf3[] = {0, 1, 0};

// Averages over the points of a planar face or layer: the plain mean, the 3 by 3 Gauss average.
inline constexpr float shp_average3[] = {0.333333f, 0.333333f, 0.333333f};
inline constexpr float shp_average4[] = {0.25f, 0.25f, 0.25f, 0.25f};
inline constexpr float shp_average9[] = {0.0771605f, 0.123457f,  0.0771605f, 0.123457f, 0.197531f,
                                         0.123457f,  0.0771605f, 0.123457f,  0.0771605f};

/// The table with these rows.
template <int Columns, std::size_t Rows>
constexpr shp_WeightTable<static_cast<int>(Rows), Columns> shp_weightRows(float const (&rows)[Rows][Columns]) {
    shp_WeightTable<static_cast<int>(Rows), Columns> table;
    for (int row = 0; row < static_cast<int>(Rows); ++row)
        for (int column = 0; column < Columns; ++column)
            table.at(row, column) = rows[row][column];
    return table;
}

/// Each target takes one point: row n is the unit row of `points[n]`.
template <int Columns, int Storage = 0, std::size_t Rows> constexpr auto shp_selectPoints(int const (&points)[Rows]) {
    constexpr int rows = static_cast<int>(Rows);
    shp_WeightTable<rows, Columns, (Storage > rows * Columns ? Storage : rows * Columns)> table;
    for (int row = 0; row < rows; ++row)
        table.at(row, points[row]) = 1;
    return table;
}

/// The first `Rows` unit rows.
template <int Rows, int Columns = Rows> constexpr shp_WeightTable<Rows, Columns> shp_identity() {
    shp_WeightTable<Rows, Columns> table;
    for (int row = 0; row < Rows; ++row)
        table.at(row, row) = 1;
    return table;
}

/// The Lagrange polynomial that is 1 at `levels[which]` and 0 at the other levels, at `x`.
template <std::size_t N> constexpr double shp_lagrange(double const (&levels)[N], std::size_t which, double x) {
    double value = 1;
    for (std::size_t i = 0; i < N; ++i)
        if (i != which)
            value *= (x - levels[i]) / (levels[which] - levels[i]);
    return value;
}

/// As a table stores it: rounded once, and a zero without a sign.
constexpr float shp_stored(double value) {
    return static_cast<float>(value + 0.0);
}

/// Row n: the tensor product of Lagrange polynomials over the levels, at node n. Formed in double, rounded once.
template <int Rows, std::size_t Nodes, std::size_t G, std::size_t H, std::size_t R>
constexpr auto shp_tensorRule(float const (&nodes)[Nodes][3], double const (&g)[G], double const (&h)[H],
                              double const (&r)[R]) {
    static_assert(Rows <= static_cast<int>(Nodes));
    constexpr int columns = static_cast<int>(G * H * R);
    shp_WeightTable<Rows, columns> table;
    for (int node = 0; node < Rows; ++node)
        for (std::size_t point = 0; point < G * H * R; ++point)
            table.at(node, static_cast<int>(point)) =
                shp_stored(shp_lagrange(g, point % G, static_cast<double>(nodes[node][0])) *
                           shp_lagrange(h, point / G % H, static_cast<double>(nodes[node][1])) *
                           shp_lagrange(r, point / (G * H), static_cast<double>(nodes[node][2])));
    return table;
}

/// The tensor product of three rows of weights.
template <std::size_t G, std::size_t H, std::size_t R> struct shp_TensorRow {
    std::array<double, G> g;
    std::array<double, H> h;
    std::array<double, R> r;
};

/// The table of these products. Formed in double, rounded once.
template <std::size_t G, std::size_t H, std::size_t R, std::size_t Rows>
constexpr auto shp_tensorRows(shp_TensorRow<G, H, R> const (&rows)[Rows]) {
    shp_WeightTable<static_cast<int>(Rows), static_cast<int>(G * H * R)> table;
    for (std::size_t row = 0; row < Rows; ++row)
        for (std::size_t point = 0; point < G * H * R; ++point)
            table.at(static_cast<int>(row), static_cast<int>(point)) =
                shp_stored(rows[row].g[point % G] * rows[row].h[point / G % H] * rows[row].r[point / (G * H)]);
    return table;
}

/// What a corner, or a midside between two corners, takes from a point: `own` when the point is that of the corner,
/// `edge` when it is one of the midside's two corners, else `other`. `share` is the barycentric coordinate of the node
/// for the point's corner: 1, 1/2 or 0.
struct shp_CornerWeights {
    float own, edge, other;

    constexpr float of(float share) const { return share == 1 ? own : share == 0 ? other : edge; }
};

/// Coordinate of a triangle's or tetrahedron's node for corner `corner`; corner 0 stands at the origin.
constexpr float shp_barycentric(float const (&node)[3], int dimensions, int corner) {
    if (corner > 0)
        return node[corner - 1];
    float rest = 1;
    for (int axis = 0; axis < dimensions; ++axis)
        rest -= node[axis];
    return rest;
}

/// One point per corner of a triangle (`Corners` 3) or tetrahedron (4), targets at corners and midsides.
template <int Corners, std::size_t Nodes>
constexpr auto shp_simplexRule(float const (&nodes)[Nodes][3], shp_CornerWeights const & weights) {
    shp_WeightTable<static_cast<int>(Nodes), Corners> table;
    for (int node = 0; node < static_cast<int>(Nodes); ++node)
        for (int corner = 0; corner < Corners; ++corner)
            table.at(node, corner) = weights.of(shp_barycentric(nodes[node], Corners - 1, corner));
    return table;
}

/// What a prism's node takes from the points of each of three levels.
struct shp_PrismLevelWeights {
    shp_CornerWeights near, middle, far; ///< the node's own end, the middle, the opposite end
    shp_CornerWeights centre;            ///< for a node at r = 0: from the middle level; nothing from the others
};

/// Three points on each of three levels of a prism, targets at the first `Rows` nodes.
template <int Rows, std::size_t Nodes>
constexpr auto shp_prismRule(float const (&nodes)[Nodes][3], shp_PrismLevelWeights const & weights) {
    static_assert(Rows <= static_cast<int>(Nodes));
    shp_WeightTable<Rows, 9> table;
    for (int node = 0; node < Rows; ++node)
        for (int corner = 0; corner < 3; ++corner) {
            float const share = shp_barycentric(nodes[node], 2, corner);
            if (nodes[node][2] == 0) {
                table.at(node, 3 + corner) = weights.centre.of(share);
            } else {
                int const nearLevel = nodes[node][2] < 0 ? 0 : 2;
                table.at(node, 3 * nearLevel + corner) = weights.near.of(share);
                table.at(node, 3 + corner) = weights.middle.of(share);
                table.at(node, 3 * (2 - nearLevel) + corner) = weights.far.of(share);
            }
        }
    return table;
}

/// The columns in groups of three, each group moved right by `steps`: the row of the next corner or side of a triangle.
template <int Columns> struct shp_WeightRow {
    float entries[Columns] = {};
};

template <int Columns> constexpr shp_WeightRow<Columns> shp_rotate(shp_WeightRow<Columns> const & row, int steps) {
    shp_WeightRow<Columns> rotated;
    for (int column = 0; column < Columns; ++column)
        rotated.entries[column / 3 * 3 + (column + steps) % 3] = row.entries[column];
    return rotated;
}

/// The levels of `perLevel` columns in reverse: the row of the target on the other side of the middle.
template <int Columns> constexpr shp_WeightRow<Columns> shp_turnOver(shp_WeightRow<Columns> const & row, int perLevel) {
    shp_WeightRow<Columns> turned;
    for (int column = 0; column < Columns; ++column)
        turned.entries[Columns - perLevel - column / perLevel * perLevel + column % perLevel] = row.entries[column];
    return turned;
}

/// The columns of each level in reverse: the row of the target mirrored in g.
template <int Columns> constexpr shp_WeightRow<Columns> shp_mirror(shp_WeightRow<Columns> const & row, int perLevel) {
    shp_WeightRow<Columns> mirrored;
    for (int column = 0; column < Columns; ++column)
        mirrored.entries[column / perLevel * perLevel + perLevel - 1 - column % perLevel] = row.entries[column];
    return mirrored;
}

/// The table with these rows.
template <int Columns, std::size_t Rows>
constexpr shp_WeightTable<static_cast<int>(Rows), Columns> shp_weightRows(shp_WeightRow<Columns> const (&rows)[Rows]) {
    shp_WeightTable<static_cast<int>(Rows), Columns> table;
    for (int row = 0; row < static_cast<int>(Rows); ++row)
        for (int column = 0; column < Columns; ++column)
            table.at(row, column) = rows[row].entries[column];
    return table;
}

#endif
