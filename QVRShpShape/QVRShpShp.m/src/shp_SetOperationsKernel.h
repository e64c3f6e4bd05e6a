#ifndef shp_SetOperationsKernel_h
#define shp_SetOperationsKernel_h

// The operations of every set. Compiled once for each width of vectors (see shp_Quad.h).

#include "g3d_Storage.h"
#include "shp_Location.h"
#include "shp_NodeLanes.h"
#include "shp_NodeRows.h"
#include "shp_SetOperations.h"
#include "shp_ShapeSets.h"

#include <cmath>
#include <utility>

namespace {

/// Sums over the nodes, in node order: lane 0 the point itself, lanes 1 to 3 its derivatives.
struct NodeSums {
    Quad x, y, z;

    [[gnu::always_inline]] NodeSums(Floats lanes, g3d_Storage const & node)
        : x(widen(lanes) * allOf(node.X())), y(widen(lanes) * allOf(node.Y())), z(widen(lanes) * allOf(node.Z())) {}

    [[gnu::always_inline]] void add(Floats lanes, g3d_Storage const & node) {
        Quad const weights = widen(lanes);
        x = x + weights * allOf(node.X());
        y = y + weights * allOf(node.Y());
        z = z + weights * allOf(node.Z());
    }
};

template <int Directions, class V, class... Values, class D, class... Derivatives>
[[gnu::always_inline]] inline NodeSums sumNodes(Nodes<V, Values...>, Nodes<D, Derivatives...>,
                                                g3d_Storage const * coords, float g, float h, float r) {
    NodeSums sums(lanesOf<V, D, Directions>(g, h, r), *coords);
    (sums.add(lanesOf<Values, Derivatives, Directions>(g, h, r), *++coords), ...);
    return sums;
}

/// A sum that is 0 may have the other sign than one that begins with 0.
template <class Of>
[[gnu::always_inline]] inline NodeSums sumsAt(g3d_Storage const * coords, float g, float h, float r) {
    return sumNodes<Of::directions>(typename Of::Values(), typename Of::Derivatives(), coords, g, h, r);
}

template <class Of> [[gnu::flatten]] void rowAt(float g, float h, float r, float * out) {
    storeRow(typename Of::Values(), g, h, r, out);
}

/// The point alone, as a sum over the nodes, in node order. Lanes are x, y, z and what follows in memory, which is the
/// next node's x: the last node is told apart.
template <class... Node, std::size_t... I>
[[gnu::always_inline]] inline g3d_Storage sumPoint(Nodes<Node...>, std::index_sequence<I...>,
                                                   g3d_Storage const * coords, float g, float h, float r) {
    constexpr std::size_t last = sizeof...(Node) - 1;
    Quad sum = allOf(0.0);
    ((sum = sum + allOf(Node::value(g, h, r)) *
                      (I < last ? loadFour(coords + I) : quadOf(coords[I].X(), coords[I].Y(), coords[I].Z(), 0))),
     ...);
    return {lane(sum, 0), lane(sum, 1), lane(sum, 2)};
}

template <class Of> [[gnu::flatten]] g3d_Storage pointAt(g3d_Storage const * coords, float const * iso) {
    return sumPoint(typename Of::Values(), std::make_index_sequence<Of::Values::count>(), coords, iso[0], iso[1],
                    iso[2]);
}

// --- inverse location

/// Up to this size of a Jacobian with a determinant that is not too small, no entry of its inverse can overflow.
constexpr float usualSize = 1e9f;

[[gnu::always_inline]] inline float sum3(float sum, Floats lanes) {
    for (int i = 1; i < 4; ++i)
        sum += std::fabs(lanes[i]);
    return sum;
}

[[gnu::always_inline]] inline double sum3(Quad lanes) {
    return lane(lanes, 1) + lane(lanes, 2) + lane(lanes, 3);
}

/// A Jacobian of floats: lanes 1 to 3 of a row are its three entries.
struct Jacobian {
    Floats x, y, z;

    [[gnu::always_inline]] explicit Jacobian(NodeSums const & sums)
        : x(narrow(sums.x)), y(narrow(sums.y)), z(narrow(sums.z)) {}

    /// Sum of the absolute values of the entries, in order.
    [[gnu::always_inline]] float size() const { return sum3(sum3(sum3(0, x), y), z); }
};

/// A row, and the same with its entries turned by one, for cross products.
struct Row {
    Quad entries, turnedEntries;

    [[gnu::always_inline]] explicit Row(Floats floats) : entries(widen(floats)), turnedEntries(turned(entries)) {}
};

/// The cross product, with its components in the order 3, 1, 2.
[[gnu::always_inline]] inline Quad cross(Row const & a, Row const & b) {
    return a.entries * b.turnedEntries - a.turnedEntries * b.entries;
}

/// To float and back.
[[gnu::always_inline]] inline Quad rounded(Quad four) {
    return widen(narrow(four));
}

/// Newton's step from where the sums are off the point by d: the inverse, whose entries are floats, times d. Each
/// number has the bits that g3d_XForm would give it, but for the signs of zeros, which do not reach the result.
struct NewtonStep {
    double determinant;
    Floats lanes;

    [[gnu::always_inline]] NewtonStep(Jacobian const & jacobian, Quad dx, Quad dy, Quad dz) {
        Row const x(jacobian.x), y(jacobian.y), z(jacobian.z);
        Quad const xy = cross(x, y);
        // (xy * z)3 + (xy * z)2 + (xy * z)1
        Quad const products = xy * turned(z.turnedEntries);
        determinant = lane(products, 1) + lane(products, 3) + lane(products, 2);
        Quad const divisor = allOf(determinant);
        Quad const step =
            rounded(cross(y, z) / divisor) * dx + rounded(cross(z, x) / divisor) * dy + rounded(xy / divisor) * dz;
        lanes = __builtin_shufflevector(narrow(step), Floats{}, 0, 2, 3, 1);
    }
};

/// A surface's Jacobian has three rows of which one ends with the 1 of the unit direction that completes the tangents;
/// what else stands in that row takes no part in the step.
struct RowOfUnitDirection {
    int axis;
    float alongG, alongH;

    [[gnu::always_inline]] explicit RowOfUnitDirection(NodeSums const & s)
        : axis(shp_completingAxis(lane(s.x, 1), lane(s.x, 2), lane(s.y, 1), lane(s.y, 2), lane(s.z, 1), lane(s.z, 2))) {
    }

    [[gnu::always_inline]] void complete(Jacobian & jacobian) const {
        jacobian.x[3] = axis == 0 ? 1.0f : 0.0f;
        jacobian.y[3] = axis == 1 ? 1.0f : 0.0f;
        jacobian.z[3] = axis == 2 ? 1.0f : 0.0f;
    }

    [[gnu::always_inline]] void leaveOut(Jacobian & jacobian) {
        Floats & row = axis == 0 ? jacobian.x : axis == 1 ? jacobian.y : jacobian.z;
        alongG = row[1];
        alongH = row[2];
        row = Floats{0, 0, 0, 1};
    }

    /// What the step predicts for the coordinate that it leaves out is compared with +d (see shp_Location.cpp).
    [[gnu::always_inline]] bool agrees(Floats moved, double d) const {
        float const predicted = moved[1] * alongG + moved[2] * alongH;
        return std::fabs(double{predicted} - d) < shp_consistencyLimit;
    }
};

/// All rows of g3d_XForm, as shp_Topology::ShapeFunctionJacobian has them.
template <class Of> [[gnu::flatten]] void jacobianAt(g3d_Storage const * coords, float const * iso, float (*rows)[4]) {
    NodeSums sums = sumsAt<Of>(coords, iso[0], iso[1], Of::directions == 3 ? iso[2] : 0);
    Quad const zero = allOf(0.0); // makes 0 of -0
    sums.x = sums.x + zero;
    sums.y = sums.y + zero;
    sums.z = sums.z + zero;
    Jacobian jacobian(sums);
    if constexpr (Of::directions == 2)
        RowOfUnitDirection(sums).complete(jacobian);
    store(__builtin_shufflevector(jacobian.x, Floats{}, 1, 2, 3, 4), rows[0]);
    store(__builtin_shufflevector(jacobian.y, Floats{}, 1, 2, 3, 4), rows[1]);
    store(__builtin_shufflevector(jacobian.z, Floats{}, 1, 2, 3, 4), rows[2]);
    store(Floats{0, 0, 0, 1}, rows[3]);
}

/// The iteration of shp_Location.cpp for one set, with values and derivatives in one pass, and a first update whose
/// functions are constants.
template <class Of>
[[gnu::flatten]] shp_Iteration locate(g3d_Storage const & point, g3d_Storage const * coords, float * iso) {
    constexpr bool isSurface = Of::directions == 2;
    Floats at = {};
    float limit = 0;
    shp_Iteration end = shp_Iteration::failed;
    for (int updates = 0; updates < shp_maxUpdates; ++updates) {
        asm("" : "+r"(coords)); // positions are read anew: kept from update to update, they would fill the stack
        NodeSums const sums = updates == 0 ? sumsAt<Of>(coords, 0, 0, 0) : sumsAt<Of>(coords, at[1], at[2], at[3]);
        Jacobian jacobian(sums);
        RowOfUnitDirection out(sums);
        if constexpr (isSurface)
            out.complete(jacobian);
        float const size = jacobian.size();
        if (!(size <= usualSize))
            return shp_Iteration::unusual;
        if (updates == 0)
            limit = shp_growthLimit * size;
        if (size > limit)
            break;

        if constexpr (isSurface)
            out.leaveOut(jacobian);
        Quad const dx = first(sums.x) - allOf(point.X());
        Quad const dy = first(sums.y) - allOf(point.Y());
        Quad const dz = first(sums.z) - allOf(point.Z());
        NewtonStep step(jacobian, dx, dy, dz);
        if (std::fabs(step.determinant) < shp_singularLimit)
            break;
        if constexpr (isSurface)
            step.lanes[3] = 0;
        Floats const moved = (at - step.lanes) - at;
        at = at - step.lanes;
        if constexpr (isSurface)
            if (!out.agrees(moved, lane(out.axis == 0 ? dx : out.axis == 1 ? dy : dz, 0)))
                break;
        if (std::sqrt(sum3(widen(moved * moved))) < shp_stepLimit) {
            end = shp_Iteration::converged;
            break;
        }
    }
    for (int c = 0; c < 3; ++c)
        iso[c] = at[c + 1];
    return end;
}

// --- of all sets

template <class Of> constexpr shp_SetOperations operationsOf() {
    shp_SetOperations operations = {rowAt<Of>, pointAt<Of>, nullptr, nullptr};
    if constexpr (Of::directions > 1) {
        operations.jacobian = jacobianAt<Of>;
        operations.locate = locate<Of>;
    }
    return operations;
}

template <class Sets> struct OperationsOf;
template <class... Of> struct OperationsOf<shp_shape::SetList<Of...>> {
    static constexpr shp_SetOperations all[] = {operationsOf<Of>()...};
};

constexpr shp_SetOperations const * setOperations = OperationsOf<shp_shape::AllSets>::all;

} // namespace

#endif
