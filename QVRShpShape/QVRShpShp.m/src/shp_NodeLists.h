#ifndef shp_NodeLists_h
#define shp_NodeLists_h

#include "shp_FunctionSets.h"

#include <array>
#include <cstddef>

namespace shp_shape {

template <class Factor, class Through> struct Solid;

/// Node functions in node order. Function array, derivative arrays and fused evaluators come out of one such list.
template <class... Node> struct Nodes {
    static constexpr std::size_t count = sizeof...(Node);
    using Array = std::array<shp_ShapeFunction, count>;

    static constexpr Array values() { return {Node::value...}; }

    /// d/dg of all nodes, then d/dh, then d/dr, as far as there are directions.
    template <int Directions> static constexpr std::array<shp_ShapeFunction, Directions * count> derivatives() {
        if constexpr (Directions == 1)
            return {Node::dG...};
        else if constexpr (Directions == 2)
            return {Node::dG..., Node::dH...};
        else if constexpr (Directions == 3)
            return {Node::dG..., Node::dH..., Node::dR...};
        else
            return {};
    }

    // Everything is inlined into the evaluators, so that shared factors are computed once; the bits stay those of the
    // single functions, because no operation is reordered or contracted.

    [[gnu::flatten]] static void row(float g, float h, float r, float * out) { ((*out++ = Node::value(g, h, r)), ...); }

    template <int Directions> [[gnu::flatten]] static void gradient(float g, float h, float r, float * out) {
        ((*out++ = Node::dG(g, h, r)), ...);
        if constexpr (Directions > 1)
            ((*out++ = Node::dH(g, h, r)), ...);
        if constexpr (Directions > 2)
            ((*out++ = Node::dR(g, h, r)), ...);
    }
};

template <class... List> struct Joined;
template <class... Node> struct Joined<Nodes<Node...>> { using Result = Nodes<Node...>; };
template <class... A, class... B, class... Rest> struct Joined<Nodes<A...>, Nodes<B...>, Rest...> {
    using Result = typename Joined<Nodes<A..., B...>, Rest...>::Result;
};
/// One list after the other.
template <class... List> using Join = typename Joined<List...>::Result;

template <class Through, class List> struct Ringed;
template <class Through, class... InPlane> struct Ringed<Through, Nodes<InPlane...>> {
    using Result = Nodes<Solid<InPlane, Through>...>;
};
/// Every in-plane factor of a list times one factor along r.
template <class Through, class List> using Ring = typename Ringed<Through, List>::Result;

/// A set: values from one list, derivatives from the same or, for the sets that say so, from another list of as many
/// functions. Each set derives its own class from this, with a `name`, and so has arrays of its own.
template <int Directions, class ValueNodes, class DerivativeNodes = ValueNodes> struct Set {
    static_assert(ValueNodes::count == DerivativeNodes::count);
    static constexpr int directions = Directions;
    using Values = ValueNodes;
    using Derivatives = DerivativeNodes;
};

template <class Of> struct Arrays {
    static constexpr auto functions = Of::Values::values();
    static constexpr auto derivatives = Of::Derivatives::template derivatives<Of::directions>();
};

template <class Of> constexpr shp_FunctionSet describe() {
    shp_FunctionSet set = {};
    set.name = Of::name;
    set.count = static_cast<int>(Of::Values::count);
    set.functions = Arrays<Of>::functions.data();
    set.row = Of::Values::row;
    if constexpr (Of::directions > 0) {
        set.directions = Of::directions;
        set.derivatives = Arrays<Of>::derivatives.data();
        set.gradient = Of::Derivatives::template gradient<Of::directions>;
    }
    return set;
}

/// The set as everything else sees it: one object per set.
template <class Of> inline constexpr shp_FunctionSet setOf = describe<Of>();

} // namespace shp_shape

#endif
