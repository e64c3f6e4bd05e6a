#ifndef shp_NodeLanes_h
#define shp_NodeLanes_h

#include "shp_Quad.h"
#include "shp_ShapeFactors.h"

// A node's function and its derivatives side by side: value, d/dg, d/dh, d/dr. They come out of the same factors as the
// single functions, with the same operations in each lane, and so have the same bits.
//
// Compiled once for each width of vectors (see shp_Quad.h).

namespace {

/// A factor along one axis: its slope in the lane of that axis, its value in the others.
template <class Factor, int Axis> [[gnu::always_inline]] inline Floats alongAxis(float x) {
    float const value = Factor::value(x), slope = Factor::slope(x);
    return Floats{value, Axis == 0 ? slope : value, Axis == 1 ? slope : value, Axis == 2 ? slope : value};
}

/// A factor in the plane of g and h; the lane of d/dr has its value.
template <class Factor> struct InPlane {
    [[gnu::always_inline]] static Floats at(float g, float h) {
        float const value = Factor::value(g, h, 0);
        return Floats{value, Factor::dG(g, h, 0), Factor::dH(g, h, 0), value};
    }
};

template <class InG, class InH> struct InPlane<shp_shape::Product<InG, InH>> {
    [[gnu::always_inline]] static Floats at(float g, float h) { return alongAxis<InG, 0>(g) * alongAxis<InH, 1>(h); }
};

template <class InG, class InH> struct InPlane<shp_shape::SerendipityCorner<InG, InH>> {
    [[gnu::always_inline]] static Floats at(float g, float h) {
        float const gi = InG::side * g, hi = InH::side * h;
        return alongAxis<InG, 0>(g) * alongAxis<InH, 1>(h) *
               (Floats{gi, 2 * gi, gi, gi} + Floats{hi, hi, 2 * hi, hi} - Floats{1, 0, 0, 1});
    }
};

/// A node with as many derivatives as there are directions; lanes beyond them have no meaning.
template <class Node, int Directions> struct Lanes {
    [[gnu::always_inline]] static Floats at(float g, float h, float r) {
        if constexpr (Directions == 3)
            return Floats{Node::value(g, h, r), Node::dG(g, h, r), Node::dH(g, h, r), Node::dR(g, h, r)};
        else if constexpr (Directions == 2)
            return InPlane<Node>::at(g, h);
        else
            return Floats{Node::value(g, h, r), Node::dG(g, h, r), 0, 0};
    }
};

template <class Factor, class Through> struct Lanes<shp_shape::Solid<Factor, Through>, 3> {
    [[gnu::always_inline]] static Floats at(float g, float h, float r) {
        return InPlane<Factor>::at(g, h) * alongAxis<Through, 2>(r);
    }
};

template <class InG, class InH, class InR> struct Lanes<shp_shape::HexCorner<InG, InH, InR>, 3> {
    [[gnu::always_inline]] static Floats at(float g, float h, float r) {
        float const gi = InG::side * g, hi = InH::side * h, ri = InR::side * r;
        return alongAxis<InG, 0>(g) * alongAxis<InH, 1>(h) * alongAxis<InR, 2>(r) *
               (Floats{gi, 2 * gi, gi, gi} + Floats{hi, hi, 2 * hi, hi} + Floats{ri, ri, ri, 2 * ri} -
                Floats{2, 1, 1, 1});
    }
};

/// A node whose value and derivatives belong to different functions.
template <class OfValue, class OfDerivatives, int Directions>
[[gnu::always_inline]] inline Floats lanesOf(float g, float h, float r) {
    Floats lanes = Lanes<OfDerivatives, Directions>::at(g, h, r);
    if constexpr (!std::is_same_v<OfValue, OfDerivatives>)
        lanes[0] = OfValue::value(g, h, r);
    return lanes;
}

} // namespace

#endif
