#ifndef shp_NodeRows_h
#define shp_NodeRows_h

#include "shp_NodeLists.h"
#include "shp_Quad.h"
#include "shp_ShapeFactors.h"

#include <type_traits>

// The functions of four nodes side by side, where they are products of the same kind. They come out of the same factors
// as the single functions, with the same operations in each lane, and so have the same bits.
//
// Compiled once for each width of vectors (see shp_Quad.h).

namespace {

using shp_shape::HexCorner, shp_shape::Nodes, shp_shape::Product, shp_shape::SerendipityCorner, shp_shape::Solid;

template <class Factor> constexpr bool isMiddle = std::is_same_v<Factor, shp_shape::q0>;

/// What linear factors have: -1 or 1. A middle one has no side, and its lane is not looked at.
template <class Factor> constexpr float sideOf() {
    if constexpr (isMiddle<Factor>)
        return 1;
    else
        return Factor::side;
}

/// Linear, or in the middle between linear ones.
template <class Factor>
concept Straight = isMiddle<Factor> || requires {
    Factor::side;
};

/// -x or x, for each of four factors along one axis.
template <class... Factor> [[gnu::always_inline]] inline Floats sidesOf(float x) {
    return Floats{sideOf<Factor>()...} * Floats{x, x, x, x};
}

/// Four factors along one axis. Linear ones that are not all alike cost less side by side than put together; to add -x
/// is to subtract x, to the last bit.
template <class A, class B, class C, class D> [[gnu::always_inline]] inline Floats valuesOf(float x) {
    constexpr bool areAlike = std::is_same_v<A, B> && std::is_same_v<A, C> && std::is_same_v<A, D>;
    if constexpr (areAlike || !(Straight<A> && Straight<B> && Straight<C> && Straight<D>)) {
        return Floats{A::value(x), B::value(x), C::value(x), D::value(x)};
    } else {
        float const middle = shp_shape::q0::value(x);
        Floats const linear = 0.5f * (1 + sidesOf<A, B, C, D>(x)), middles = {middle, middle, middle, middle};
        return __builtin_shufflevector(linear, middles, isMiddle<A> ? 4 : 0, isMiddle<B> ? 5 : 1, isMiddle<C> ? 6 : 2,
                                       isMiddle<D> ? 7 : 3);
    }
}

/// `at(g, h, r)`: the functions of four nodes that are products of the same kind.
template <class... Node> struct FourNodes;
template <class... Node>
concept OfOneKind = requires {
    FourNodes<Node...>::at(0, 0, 0);
};

template <class... InG, class... InH> struct FourNodes<Product<InG, InH>...> {
    [[gnu::always_inline]] static Floats at(float g, float h, float) {
        return valuesOf<InG...>(g) * valuesOf<InH...>(h);
    }
};

template <class... InG, class... InH> struct FourNodes<SerendipityCorner<InG, InH>...> {
    [[gnu::always_inline]] static Floats at(float g, float h, float) {
        return valuesOf<InG...>(g) * valuesOf<InH...>(h) * (sidesOf<InG...>(g) + sidesOf<InH...>(h) - 1);
    }
};

/// Four nodes of one ring.
template <class... InPlane, class Through>
requires OfOneKind<InPlane...>
struct FourNodes<Solid<InPlane, Through>...> {
    [[gnu::always_inline]] static Floats at(float g, float h, float r) {
        return FourNodes<InPlane...>::at(g, h, r) * Through::value(r);
    }
};

template <class... InG, class... InH, class... InR> struct FourNodes<HexCorner<InG, InH, InR>...> {
    [[gnu::always_inline]] static Floats at(float g, float h, float r) {
        return valuesOf<InG...>(g) * valuesOf<InH...>(h) * valuesOf<InR...>(r) *
               (sidesOf<InG...>(g) + sidesOf<InH...>(h) + sidesOf<InR...>(r) - 2);
    }
};

/// All functions of a list.
[[gnu::always_inline]] inline void storeRow(Nodes<>, float, float, float, float *) {}

template <class Node, class... Next>
[[gnu::always_inline]] inline void storeRow(Nodes<Node, Next...>, float g, float h, float r, float * out);

template <class A, class B, class C, class D, class... Next>
requires OfOneKind<A, B, C, D>
[[gnu::always_inline]] inline void storeRow(Nodes<A, B, C, D, Next...>, float g, float h, float r, float * out) {
    store(FourNodes<A, B, C, D>::at(g, h, r), out);
    storeRow(Nodes<Next...>(), g, h, r, out + 4);
}

template <class Node, class... Next>
[[gnu::always_inline]] inline void storeRow(Nodes<Node, Next...>, float g, float h, float r, float * out) {
    *out = Node::value(g, h, r);
    storeRow(Nodes<Next...>(), g, h, r, out + 1);
}

} // namespace

#endif
