#ifndef bench_hand_written_h
#define bench_hand_written_h

// What a careful user would write instead of calling a library: plain C++ in double, for one element type each, without
// a choice at run time. Node order and isoparametric coordinates are those of the library.

#include <array>

namespace hand {

using Point = std::array<double, 3>;

/// Foremost and hindmost hit of a line: parameters, points, isoparametric coordinates.
struct Hits {
    int count = 0;
    double parameters[2];
    Point points[2];
    Point iso[2];
};

struct Element {
    void (*row)(Point const & iso, double * values);
    /// Column j of the matrix is the derivative by isoparametric coordinate j; columns that do not exist stay.
    void (*jacobian)(Point const & iso, Point const * nodes, double (&matrix)[3][3]);
    Point (*toSpace)(Point const & iso, Point const * nodes);
    /// Newton's iteration from (0, 0, 0).
    bool (*locate)(Point const & point, Point const * nodes, Point & iso);
};

extern Element const hexahedron8, hexahedron20, hexahedron27, tetrahedron4, tetrahedron10, prism6, prism15, pyramid5,
    quadrilateral4, quadrilateral8, triangle3, triangle6;

/// Meets an endless line with triangles of node numbers.
void meetLine(Point const & start, Point const & end, Point const * nodes, Point const * nodesIso,
              int const (*triangles)[3], int triangleCount, Hits & hits);

/// nodal[n][c] = sum over p of weights[n][p] * values[p][c].
void extrapolate(float const * weights, float const * values, float * nodal, int nodes, int points, int components);

Point faceNormal(Point const * nodes, int const * face, int corners);
/// The sum of weights[i] * nodes[numbers[i]].
Point weightedSum(Point const * nodes, int const * numbers, double const * weights, int count);
Point mean(Point const * nodes, int count);

} // namespace hand

#endif
