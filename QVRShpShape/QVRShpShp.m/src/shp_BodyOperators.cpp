#include "shp_BodyOperators.h"

#include "mem_Alloc.h"
#include "uti_CoordCont3D.h"

#include <array>

namespace {

struct Vector {
    double x, y, z;
};

Vector operator-(Vector const & a, Vector const & b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
Vector operator+(Vector const & a, Vector const & b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
Vector operator*(double s, Vector const & a) {
    return {s * a.x, s * a.y, s * a.z};
}

double determinant(Vector const & a, Vector const & b, Vector const & c) {
    return a.x * (b.y * c.z - b.z * c.y) + a.y * (b.z * c.x - b.x * c.z) + a.z * (b.x * c.y - b.y * c.x);
}

// The two linear functions at the two points +-1/sqrt(3) of the Gauss rule: `nearPart` of the function that is 1 at
// this end, `farPart` of the other.
constexpr double nearPart = 0.78867513459481288225;
constexpr double farPart = 0.21132486540518711775;

/// What four values at the corners of a square, (lo,lo) (hi,lo) (lo,hi) (hi,hi), are at its four Gauss points. The same
/// sums carry values at Gauss points to corners when they are to be integrated with the corners' functions.
template <class Value> std::array<Value, 4> betweenCornersAndGaussPoints(std::array<Value, 4> const & v) {
    Value const lowLo = nearPart * v[0] + farPart * v[1];
    Value const lowHi = farPart * v[0] + nearPart * v[1];
    Value const highLo = nearPart * v[2] + farPart * v[3];
    Value const highHi = farPart * v[2] + nearPart * v[3];
    return {nearPart * lowLo + farPart * highLo, nearPart * lowHi + farPart * highHi,
            farPart * lowLo + nearPart * highLo, farPart * lowHi + nearPart * highHi};
}

/// The weights of the eight corners of a hexahedron, entries 0 to 7 of `coords`: the integrals of N_i det J by the
/// Gauss rule with two points along each axis, which is exact for them, divided by their sum.
void hexWeights(uti_CoordCont3D const & coords, float * weights) {
    // Corner of each place of the tensor order, g fastest; nodes run around the faces r = -1 and r = 1 instead.
    constexpr int corner[8] = {0, 1, 3, 2, 4, 5, 7, 6};
    Vector at[8];
    for (int place = 0; place < 8; ++place) {
        float x, y, z;
        coords.GetCoord(corner[place], x, y, z);
        at[place] = {x, y, z};
    }

    // Edge vectors: those along g at the four (h, r), along h at the four (g, r), along r at the four (g, h). A tangent
    // does not depend on its own coordinate, so four Gauss points are enough for each. Factors that all eight integrals
    // have in common are left out: they cancel.
    auto const alongG =
        betweenCornersAndGaussPoints<Vector>({at[1] - at[0], at[3] - at[2], at[5] - at[4], at[7] - at[6]});
    auto const alongH =
        betweenCornersAndGaussPoints<Vector>({at[2] - at[0], at[3] - at[1], at[6] - at[4], at[7] - at[5]});
    auto const alongR =
        betweenCornersAndGaussPoints<Vector>({at[4] - at[0], at[5] - at[1], at[6] - at[2], at[7] - at[3]});

    std::array<double, 4> jacobians[2]; // [r][h, g]
    for (std::size_t r = 0; r < 2; ++r)
        for (std::size_t h = 0; h < 2; ++h)
            for (std::size_t g = 0; g < 2; ++g)
                jacobians[r][2 * h + g] = determinant(alongG[2 * r + h], alongH[2 * r + g], alongR[2 * h + g]);

    std::array<double, 4> const low = betweenCornersAndGaussPoints(jacobians[0]);
    std::array<double, 4> const high = betweenCornersAndGaussPoints(jacobians[1]);
    for (std::size_t place = 0; place < 4; ++place) {
        weights[corner[place]] = static_cast<float>(nearPart * low[place] + farPart * high[place]);
        weights[corner[place + 4]] = static_cast<float>(farPart * low[place] + nearPart * high[place]);
    }

    double sum = 0.0;
    for (int node = 0; node < 8; ++node)
        sum += weights[node];
    float const reciprocal = static_cast<float>(1.0 / sum);
    for (int node = 0; node < 8; ++node)
        weights[node] *= reciprocal;
}

/// A hexahedron collapsed onto an element with fewer nodes: the node at each of its eight corners, counted from 0.
using Collapse = int[8];

void fillCollapsed(uti_CoordCont3D & collapsed, uti_CoordCont3D const & coords, Collapse const & nodes) {
    collapsed.Grow(8);
    for (int place = 0; place < 8; ++place)
        collapsed.SetCoord(place, coords[nodes[place]]);
}

/// The weights of the corners (x1, y1) to (x4, y4) of an axisymmetric quadrilateral, x the radius.
void axisymmetricWeights(float const (&x)[4], float const (&y)[4], float (&weights)[4]) {
    auto const [x1, x2, x3, x4] = x;
    auto const [y1, y2, y3, y4] = y;

    // The Jacobian: constant part, and its slopes in g and h.
    float const P = (y2 - y4) * (x1 - x3) - (y1 - y3) * (x2 - x4);
    float const Q = (y1 - y2) * (x3 - x4) - (y3 - y4) * (x1 - x2);
    float const R = (y1 - y4) * (x2 - x3) - (x1 - x4) * (y2 - y3);

    // The radius: constant part, slopes in g and h, and in g h.
    float const s0 = x1 + x2 + x3 + x4;
    float const s1 = -x1 + x2 + x3 - x4;
    float const s2 = -x1 - x2 + x3 + x4;
    float const s3 = x1 - x2 + x3 - x4;

    float const f = 1 / ((s2 * R + s1 * Q) * 0.041666668f + P * 0.125f * s0);
    float const u = 0.010416667f;  // 1/96
    float const v = 0.0034722222f; // 1/288
    float const w = s0 * 0.03125f;
    weights[0] = (((-s1 - s2) * u + w + s3 * v) * P + ((s2 - s3) * v + (s1 - s0) * u) * Q +
                  ((s1 - s3) * v + (s2 - s0) * u) * R) *
                 f;
    weights[1] = (((s1 - s2) * u + w - s3 * v) * P + ((-s3 - s2) * v + (s1 + s0) * u) * Q +
                  ((s3 - s1) * v + (s2 - s0) * u) * R) *
                 f;
    weights[2] =
        (((s2 + s1) * u + w + s3 * v) * P + ((s3 + s2) * v + (s1 + s0) * u) * Q + ((s3 + s1) * v + (s2 + s0) * u) * R) *
        f;
    weights[3] = (((s2 - s1) * u + w - s3 * v) * P + ((s3 - s2) * v + (s1 - s0) * u) * Q +
                  ((-s3 - s1) * v + (s2 + s0) * u) * R) *
                 f;
}

} // namespace

void HexBodyOp(uti_CoordCont3D const & coords, float * weights) {
    hexWeights(coords, weights);
}

void TetraBodyOp(uti_CoordCont3D const & coords, float * weights) {
    // The collapsed hexahedron is built and not looked at: the weights are those of the caller's own entries 0 to 7.
    // Stored results depend on it.
    constexpr Collapse nodes = {1, 2, 0, 1, 1, 3, 0, 1};
    uti_CoordCont3D collapsed;
    fillCollapsed(collapsed, coords, nodes);

    float r[8];
    hexWeights(coords, r);
    weights[0] = r[6] + r[2];
    weights[1] = r[3] + r[0] + r[4] + r[7];
    weights[2] = r[1];
    weights[3] = r[5];
}

void PrismBodyOp(uti_CoordCont3D const & coords, float * weights) {
    // As in TetraBodyOp, the collapsed hexahedron is built and not looked at.
    constexpr Collapse nodes = {0, 1, 2, 0, 3, 4, 5, 3};
    uti_CoordCont3D collapsed;
    fillCollapsed(collapsed, coords, nodes);

    // Never freed: each call leaves the eight floats behind.
    float * const r = static_cast<float *>(mem_OperatorNewThrowBuiltin(8 * sizeof(float)));
    hexWeights(coords, r);
    weights[0] = r[3] + r[0];
    weights[1] = r[1];
    weights[2] = r[2];
    weights[3] = r[7] + r[4];
    weights[4] = r[5];
    weights[5] = r[6];
}

void QuadBodyOp(uti_CoordCont3D const & coords, float * weights) {
    float x1, x2, x3, x4, y1, y2, y3, y4, unused;
    coords.GetCoord(0, x1, y1, unused);
    coords.GetCoord(1, x2, y2, unused);
    coords.GetCoord(2, x3, y3, unused);
    coords.GetCoord(3, x4, y4, unused);

    // The Jacobian at the centre, and a third of its slopes in g and h.
    float const J0 = static_cast<float>(((y3 - y1) * (x2 - x4) + (y4 - y2) * (x3 - x1)) * 0.125);
    float const a = static_cast<float>(((y1 - y2) * (x3 - x4) + (y3 - y4) * (x2 - x1)) / 24.0);
    float const b = static_cast<float>(((y3 - y2) * (x1 - x4) + (y4 - y1) * (x3 - x2)) / 24.0);
    float const f = static_cast<float>(1.0 / (J0 * 4.0));
    weights[0] = (J0 - a - b) * f;
    weights[1] = (J0 + a - b) * f;
    weights[2] = (J0 + a + b) * f;
    weights[3] = (J0 - a + b) * f;
}

void QuadAxiBodyOp(uti_CoordCont3D const & coords, float * weights) {
    float x[4], y[4], unused;
    for (int node = 0; node < 4; ++node)
        coords.GetCoord(node, x[node], y[node], unused);
    float corners[4];
    axisymmetricWeights(x, y, corners);
    for (int node = 0; node < 4; ++node)
        weights[node] = corners[node];
}

void TriBodyOp(uti_CoordCont3D const & coords, float * weights) {
    float x1, x2, x3, y1, y2, y3, unused;
    coords.GetCoord(0, x1, y1, unused);
    coords.GetCoord(1, x2, y2, unused);
    coords.GetCoord(2, x3, y3, unused);

    // QuadBodyOp with node 1 at two corners: 1/3 each, up to rounding, but not for a triangle without area.
    float const J = (y1 - y2) * (x3 - x1) + (y3 - y1) * (x2 - x1);
    float const J0 = static_cast<float>(J * 0.125);
    float const c = static_cast<float>(J / 24.0);
    float const f = static_cast<float>(1.0 / (J0 * 4.0));
    weights[0] = (2 * J0 - 2 * c) * f;
    weights[1] = (J0 + c) * f;
    weights[2] = (J0 + c) * f;
}

void TriAxiBodyOp(uti_CoordCont3D const & coords, float * weights) {
    // Node 1 stands at the first two corners of a quadrilateral.
    constexpr int node[4] = {0, 0, 1, 2};
    float x[4], y[4], unused;
    for (int corner = 0; corner < 4; ++corner)
        coords.GetCoord(node[corner], x[corner], y[corner], unused);
    float corners[4];
    axisymmetricWeights(x, y, corners);
    weights[0] = corners[0] + corners[1];
    weights[1] = corners[2];
    weights[2] = corners[3];
}
