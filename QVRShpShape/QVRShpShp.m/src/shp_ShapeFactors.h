#ifndef shp_ShapeFactors_h
#define shp_ShapeFactors_h

/// What shape functions are made of. A factor along one axis has a `value(x)` and, where derivatives are made of it, a
/// `slope(x)`; a node function has `value`, `dG`, `dH` and `dR` of (g, h, r), as far as the shape has these
/// coordinates. Derivatives are formulas, not differences. All arithmetic is in float; at coordinates -1, 0, 1/2 and 1
/// it is exact, so that a function is exactly 1 at its own node and 0 at the others.
///
/// What several functions of a set have in common is written the same way in each of them, with the same order of
/// operations: a compiler that sees them side by side computes it once, without changing a bit.
namespace shp_shape {

// --- along one axis

/// 1 at x = -1, 0 at x = 1.
struct l1 {
    static constexpr float side = -1;
    static float value(float x) { return 0.5f * (1 - x); }
    static float slope(float) { return -0.5f; }
};

/// 1 at x = 1, 0 at x = -1.
struct l2 {
    static constexpr float side = 1;
    static float value(float x) { return 0.5f * (1 + x); }
    static float slope(float) { return 0.5f; }
};

/// 1 at x = -1, 0 at x = 0 and 1.
struct q1 {
    static float value(float x) { return -0.5f * x * (1 - x); }
    static float slope(float x) { return x - 0.5f; }
};

/// 1 at x = 0, 0 at x = -1 and 1.
struct q0 {
    static float value(float x) { return 1 - x * x; }
    static float slope(float x) { return -2 * x; }
};

/// 1 at x = 1, 0 at x = -1 and 0.
struct q2 {
    static float value(float x) { return 0.5f * x * (1 + x); }
    static float slope(float x) { return x + 0.5f; }
};

/// 1 + x/2 - x^2/2.
struct q2PlusQ0 {
    static float value(float x) { return q2::value(x) + q0::value(x); }
    static float slope(float x) { return q2::slope(x) + q0::slope(x); }
};

// Mapping factors of an infinite element: they carry the geometry out to the pole at x = 1, where they divide by zero
// unguarded. No derivative is ever made of them.

/// The ring of nodes at x = -1.
struct m1 {
    static float value(float x) { return -2 * x / (1 - x); }
};

/// The ring of nodes at x = 0.
struct m2 {
    static float value(float x) { return (1 + x) / (1 - x); }
};

/// A midside at x = -1 without a partner at x = 0.
struct k {
    static float value(float x) { return 2 / (1 - x); }
};

// --- in the plane of a quadrilateral

template <class InG, class InH> struct Product {
    static float value(float g, float h, float) { return InG::value(g) * InH::value(h); }
    static float dG(float g, float h, float) { return InG::slope(g) * InH::value(h); }
    static float dH(float g, float h, float) { return InG::value(g) * InH::slope(h); }
};

/// Corner of the serendipity quadrilateral: (1 + gi g)(1 + hi h)(gi g + hi h - 1)/4.
template <class InG, class InH> struct SerendipityCorner {
    static constexpr float gi = InG::side, hi = InH::side;
    static float value(float g, float h, float) { return InG::value(g) * InH::value(h) * (gi * g + hi * h - 1); }
    static float dG(float g, float h, float) { return InG::slope(g) * InH::value(h) * (2 * gi * g + hi * h); }
    static float dH(float g, float h, float) { return InG::value(g) * InH::slope(h) * (gi * g + 2 * hi * h); }
};

// Bilinear; corners counter-clockwise from (-1, -1).
using B1 = Product<l1, l1>;
using B2 = Product<l2, l1>;
using B3 = Product<l2, l2>;
using B4 = Product<l1, l2>;

// Serendipity; corners as above, then midsides counter-clockwise from (0, -1).
using S1 = SerendipityCorner<l1, l1>;
using S2 = SerendipityCorner<l2, l1>;
using S3 = SerendipityCorner<l2, l2>;
using S4 = SerendipityCorner<l1, l2>;
using S5 = Product<q0, l1>;
using S6 = Product<l2, q0>;
using S7 = Product<q0, l2>;
using S8 = Product<l1, q0>;

// Biquadratic; corners, midsides, centre.
using T1 = Product<q1, q1>;
using T2 = Product<q2, q1>;
using T3 = Product<q2, q2>;
using T4 = Product<q1, q2>;
using T5 = Product<q0, q1>;
using T6 = Product<q2, q0>;
using T7 = Product<q0, q2>;
using T8 = Product<q1, q0>;
using T9 = Product<q0, q0>;

// --- barycentric, of triangle and tetrahedron

/// A coordinate that is linear with whole slopes.
template <int G, int H, int R> struct Barycentric {
    static constexpr int slopeG = G, slopeH = H, slopeR = R;
    static float dG(float, float, float) { return slopeG; }
    static float dH(float, float, float) { return slopeH; }
    static float dR(float, float, float) { return slopeR; }
};

struct AlongG : Barycentric<1, 0, 0> {
    static float value(float g, float, float) { return g; }
};
struct AlongH : Barycentric<0, 1, 0> {
    static float value(float, float h, float) { return h; }
};
struct AlongR : Barycentric<0, 0, 1> {
    static float value(float, float, float r) { return r; }
};
/// What is left at the triangle's node 1.
struct TriangleRest : Barycentric<-1, -1, 0> {
    static float value(float g, float h, float) { return 1 - g - h; }
};
/// What is left at the tetrahedron's node 1.
struct TetraRest : Barycentric<-1, -1, -1> {
    static float value(float g, float h, float r) { return 1 - g - h - r; }
};

/// slopeA * b + slopeB * a, the derivative of a * b; a slope of 0 adds no term.
template <int SlopeA, int SlopeB> float productSlope(float a, float b) {
    if constexpr (SlopeA == 0 && SlopeB == 0)
        return 0;
    else if constexpr (SlopeA == 0)
        return SlopeB * a;
    else if constexpr (SlopeB == 0)
        return SlopeA * b;
    else
        return SlopeA * b + SlopeB * a;
}

/// A (2 A - 1): 1 where the coordinate A is 1, 0 where it is 0 or 1/2.
template <class A> struct BarycentricCorner {
    static float value(float g, float h, float r) { return A::value(g, h, r) * (2 * A::value(g, h, r) - 1); }
    static float dG(float g, float h, float r) { return slope<A::slopeG>(A::value(g, h, r)); }
    static float dH(float g, float h, float r) { return slope<A::slopeH>(A::value(g, h, r)); }
    static float dR(float g, float h, float r) { return slope<A::slopeR>(A::value(g, h, r)); }

private:
    template <int Slope> static float slope(float a) { return productSlope<Slope, 2 * Slope>(a, 2 * a - 1); }
};

/// 4 A B: the midside between the corners of the coordinates A and B.
template <class A, class B> struct BarycentricMidside {
    static float value(float g, float h, float r) { return 4 * A::value(g, h, r) * B::value(g, h, r); }
    static float dG(float g, float h, float r) {
        return 4 * productSlope<A::slopeG, B::slopeG>(A::value(g, h, r), B::value(g, h, r));
    }
    static float dH(float g, float h, float r) {
        return 4 * productSlope<A::slopeH, B::slopeH>(A::value(g, h, r), B::value(g, h, r));
    }
    static float dR(float g, float h, float r) {
        return 4 * productSlope<A::slopeR, B::slopeR>(A::value(g, h, r), B::value(g, h, r));
    }
};

// Linear triangle.
using A1 = TriangleRest;
using A2 = AlongG;
using A3 = AlongH;

// Quadratic triangle; corners, midsides 1-2, 2-3, 3-1.
using C1 = BarycentricCorner<A1>;
using C2 = BarycentricCorner<A2>;
using C3 = BarycentricCorner<A3>;
using C4 = BarycentricMidside<A2, A1>;
using C5 = BarycentricMidside<A2, A3>;
using C6 = BarycentricMidside<A3, A1>;

// --- nodes of lines and solids

/// A factor along g alone: a node of a line.
template <class Factor> struct OnLine {
    static float value(float g, float, float) { return Factor::value(g); }
    static float dG(float g, float, float) { return Factor::slope(g); }
};

/// An in-plane factor times a factor along r.
template <class InPlane, class Through> struct Solid {
    static float value(float g, float h, float r) { return InPlane::value(g, h, r) * Through::value(r); }
    static float dG(float g, float h, float r) { return InPlane::dG(g, h, r) * Through::value(r); }
    static float dH(float g, float h, float r) { return InPlane::dH(g, h, r) * Through::value(r); }
    static float dR(float g, float h, float r) { return InPlane::value(g, h, r) * Through::slope(r); }
};

/// Corner of the serendipity hexahedron: (1 + gi g)(1 + hi h)(1 + ri r)(gi g + hi h + ri r - 2)/8.
template <class InG, class InH, class InR> struct HexCorner {
    static constexpr float gi = InG::side, hi = InH::side, ri = InR::side;
    static float value(float g, float h, float r) {
        return InG::value(g) * InH::value(h) * InR::value(r) * (gi * g + hi * h + ri * r - 2);
    }
    static float dG(float g, float h, float r) {
        return InG::slope(g) * InH::value(h) * InR::value(r) * (2 * gi * g + hi * h + ri * r - 1);
    }
    static float dH(float g, float h, float r) {
        return InG::value(g) * InH::slope(h) * InR::value(r) * (gi * g + 2 * hi * h + ri * r - 1);
    }
    static float dR(float g, float h, float r) {
        return InG::value(g) * InH::value(h) * InR::slope(r) * (gi * g + hi * h + 2 * ri * r - 1);
    }
};

/// Corner of the serendipity prism, with the barycentric coordinate A of the triangle: A (1 + ri r)(2 A + ri r - 2)/2.
template <class A, class InR> struct PrismCorner {
    static constexpr float ri = InR::side;
    static float value(float g, float h, float r) {
        return A::value(g, h, r) * InR::value(r) * (2 * A::value(g, h, r) + ri * r - 2);
    }
    static float dG(float g, float h, float r) { return inPlane<A::slopeG>(A::value(g, h, r), r); }
    static float dH(float g, float h, float r) { return inPlane<A::slopeH>(A::value(g, h, r), r); }
    static float dR(float g, float h, float r) {
        return A::value(g, h, r) * InR::slope(r) * (2 * A::value(g, h, r) + 2 * ri * r - 1);
    }

private:
    template <int Slope> static float inPlane(float a, float r) {
        if constexpr (Slope == 0)
            return 0;
        else
            return Slope * InR::value(r) * (4 * a + ri * r - 2);
    }
};

/// A factor along r alone: the pyramid's apex.
template <class Through> struct Apex {
    static float value(float, float, float r) { return Through::value(r); }
    static float dG(float, float, float) { return 0; }
    static float dH(float, float, float) { return 0; }
    static float dR(float, float, float r) { return Through::slope(r); }
};

/// A corner function less half of the functions of the midsides next to it, which then vanishes at these.
template <class Corner, class... Midside> struct LessHalf {
    static float value(float g, float h, float r) {
        return Corner::value(g, h, r) - 0.5f * (Midside::value(g, h, r) + ...);
    }
    static float dG(float g, float h, float r) { return Corner::dG(g, h, r) - 0.5f * (Midside::dG(g, h, r) + ...); }
    static float dH(float g, float h, float r) { return Corner::dH(g, h, r) - 0.5f * (Midside::dH(g, h, r) + ...); }
    static float dR(float g, float h, float r) { return Corner::dR(g, h, r) - 0.5f * (Midside::dR(g, h, r) + ...); }
};

/// The same value everywhere. It has no derivatives: the sets that contain one take theirs from elsewhere.
template <int Value> struct Constant {
    static float value(float, float, float) { return Value; }
};

} // namespace shp_shape

#endif
