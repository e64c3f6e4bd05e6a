#ifndef element_input_h
#define element_input_h

// Elements and points for the targets that compute with positions: from undistorted to hopeless.

#include "input.h"

#include "g3d_Storage.h"
#include "shp_KeyBit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <memory>

/// One shape for each set of tables and functions that location and intersection look at.
inline std::vector<shp_Shape const *> const & distinctShapes() {
    static std::vector<shp_Shape const *> const shapes = [] {
        std::vector<shp_Shape const *> distinct;
        for (shp_Shape const * shape : allShapes()) {
            auto const isSame = [shape](shp_Shape const * other) {
                return shape->nodeLocationTable == other->nodeLocationTable &&
                       shape->shapeFunctions == other->shapeFunctions && shape->dUdGFunctions == other->dUdGFunctions &&
                       shape->faceTriTbl == other->faceTriTbl &&
                       shape->numGeometryDimensions == other->numGeometryDimensions &&
                       shape->baseNodesPerElem == other->baseNodesPerElem;
            };
            if (std::none_of(distinct.begin(), distinct.end(), isSame))
                distinct.push_back(shape);
        }
        return distinct;
    }();
    return shapes;
}

inline double component(g3d_Storage const & v, int axis) {
    return axis == 0 ? v.X() : axis == 1 ? v.Y() : v.Z();
}

inline bool isFinite(g3d_Storage const & v) {
    return std::isfinite(v.X()) && std::isfinite(v.Y()) && std::isfinite(v.Z());
}

inline bool haveSameBits(g3d_Storage const & a, g3d_Storage const & b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

inline double largestDistance(g3d_Storage const & a, g3d_Storage const & b) {
    return std::max({std::fabs(a.X() - b.X()), std::fabs(a.Y() - b.Y()), std::fabs(a.Z() - b.Z())});
}

/// Bounds of the node locations by which positions in an element are judged: they reach from 1 down and from -1 up.
struct IsoBounds {
    float low[3] = {1, 1, 1};
    float high[3] = {-1, -1, -1};

    explicit IsoBounds(shp_Topology const & shape) {
        for (int i = 0; i < 3 * shape.BaseNodesPerElem(); ++i) {
            low[i % 3] = std::min(low[i % 3], shape.nodeLocationTable[i]);
            high[i % 3] = std::max(high[i % 3], shape.nodeLocationTable[i]);
        }
    }
    /// Never for what is not a number.
    bool hold(float const * iso, double slack) const {
        for (int c = 0; c < 3; ++c)
            if (!(iso[c] >= low[c] - slack && iso[c] <= high[c] + slack))
                return false;
        return true;
    }
};

/// A number to stumble over, or any number at all.
inline double anyNumber(Input & input) {
    using Double = std::numeric_limits<double>;
    constexpr double special[] = {0,
                                  -0.0,
                                  1,
                                  -1,
                                  0.5,
                                  2,
                                  1e-5,
                                  1e-6,
                                  1e-7,
                                  1e-10,
                                  1e-38,
                                  1e-45,
                                  1e-300,
                                  1e10,
                                  1e19,
                                  -1e19,
                                  1e38,
                                  3.5e38,
                                  1e154,
                                  1e300,
                                  Double::max(),
                                  -Double::max(),
                                  Double::min(),
                                  Double::denorm_min(),
                                  Double::epsilon(),
                                  Double::quiet_NaN(),
                                  Double::infinity(),
                                  -Double::infinity()};
    std::uint8_t const kind = input.byte();
    if (kind < std::size(special))
        return special[kind];
    if (kind % 2 == 0)
        return input.fraction();
    std::uint64_t const bits = input.bits(8);
    double number;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

/// An element of one of the distinct shapes, with its nodes' positions in a block of exactly the length that the
/// operations ask for, so that every access beyond it is caught.
class Element {
public:
    explicit Element(Input & input)
        : shape(*distinctShapes()[input.below(distinctShapes().size())]), numNodes(shape.BaseNodesPerElem()),
          numPositions(numNodes == 8 && shape.prepareCoords ? 9 : numNodes), coords(room(numPositions)) {
        std::uint8_t const kind = input.byte();
        place(input);
        switch (kind % 8) {
        case 0: isAffine = true; break;
        case 1: disturb(input, 0.05); break;
        case 2: disturb(input, 3); break;
        case 3: flatten(input); break;
        case 4: mergeNodes(input); break;
        case 5: spoilOneNumber(input); break;
        default: replaceAll(input); break;
        }
        isGentle = kind % 8 <= 1;
        if (numPositions > numNodes)
            coords[8].Set(0, 0, 0);
    }

    /// The position of isoparametric coordinates in the undisturbed element.
    g3d_Storage positionOf(double const * iso) const {
        double at[3] = {};
        for (int c = 0; c < 3; ++c)
            at[c] = iso[0] * axes[c][0] + iso[1] * axes[c][1] + iso[2] * axes[c][2];
        return {origin.X() + at[0], origin.Y() + at[1], origin.Z() + at[2]};
    }

    /// Isoparametric coordinates in the midst of the nodes: a mean with a part of each node.
    std::array<double, 3> isoInside(Input & input) const {
        std::array<double, 3> sum = {};
        double sumOfWeights = 0;
        for (int node = 0; node < numNodes; ++node) {
            double const weight = 1 + input.byte() % 32 * (input.byte() % 2);
            for (std::size_t c = 0; c < 3; ++c)
                sum[c] += weight * double{shape.nodeLocationTable[3 * static_cast<std::size_t>(node) + c]};
            sumOfWeights += weight;
        }
        for (double & coordinate : sum)
            coordinate /= sumOfWeights;
        return sum;
    }

    /// A point in, at, or far away from the element.
    g3d_Storage point(Input & input) const {
        auto const node = [&]() -> g3d_Storage const & {
            return coords[input.below(static_cast<std::size_t>(numNodes))];
        };
        g3d_Storage const a = node();
        switch (input.byte() % 6) {
        case 0: return a;
        case 1: return {a.X() + 2e-6 * input.fraction(), a.Y(), a.Z() + 2e-6 * input.fraction()};
        case 2: {
            g3d_Storage const b = node();
            double const part = input.fraction();
            return {a.X() + part * (b.X() - a.X()), a.Y() + part * (b.Y() - a.Y()), a.Z() + part * (b.Z() - a.Z())};
        }
        case 3: return positionOf(isoInside(input).data());
        case 4: {
            double const beside[3] = {2 * input.fraction(), 2 * input.fraction(), 2 * input.fraction()};
            return positionOf(beside);
        }
        default: {
            double const x = anyNumber(input), y = anyNumber(input);
            return {x, y, anyNumber(input)};
        }
        }
    }

    bool hasFiniteCoords() const { return std::all_of(coords, coords + numNodes, isFinite); }

    shp_Shape const & shape;
    int const numNodes;
    int const numPositions; ///< with the ninth point that an 8-node quadrilateral needs
    g3d_Storage * const coords;
    bool isGentle = false; ///< little disturbed, or not at all
    bool isAffine = false; ///< undisturbed
    double size = 1;       ///< about half an edge

private:
    static g3d_Storage * room(int count) {
        static std::unique_ptr<g3d_Storage[]> blocks[28];
        auto const n = static_cast<std::size_t>(count);
        if (!blocks[n])
            blocks[n] = std::make_unique<g3d_Storage[]>(n);
        return blocks[n].get();
    }

    /// The node locations themselves, in some size, somewhere, along the coordinate axes in some order or inclined.
    void place(Input & input) {
        constexpr double sizes[] = {1, 1e-2, 0.1, 10, 1e3, 1e4};
        size = sizes[input.byte() % std::size(sizes)];
        std::uint8_t const direction = input.byte();
        int const first = direction % 3;
        for (int c = 0; c < 3; ++c)
            axes[(first + c) % 3][c] = size;
        if (direction >= 128)
            for (auto & row : axes)
                for (double & entry : row)
                    entry += 0.15 * size * input.fraction();
        if (direction % 8 != 0) {
            double const x = 2 * size * input.fraction(), y = 2 * size * input.fraction();
            origin.Set(x, y, 2 * size * input.fraction());
        }
        for (int node = 0; node < numNodes; ++node) {
            float const * const location = shape.nodeLocationTable + 3 * node;
            double const iso[3] = {location[0], location[1], location[2]};
            coords[node] = positionOf(iso);
        }
    }

    void disturb(Input & input, double amount) {
        for (int node = 0; node < numNodes; ++node) {
            g3d_Storage & p = coords[node];
            p.X() += amount * size * input.fraction();
            p.Y() += amount * size * input.fraction();
            p.Z() += amount * size * input.fraction();
        }
    }

    void flatten(Input & input) {
        std::uint8_t const how = input.byte();
        double const factor = how % 2 == 0 ? 0 : 1e-9;
        for (int node = 0; node < numNodes; ++node) {
            g3d_Storage & p = coords[node];
            p.Set(p.X() * ((how & 2) != 0 ? factor : 1), p.Y() * ((how & 4) != 0 ? factor : 1),
                  p.Z() * ((how & 8) != 0 ? factor : 1));
        }
    }

    void mergeNodes(Input & input) {
        auto const count = static_cast<std::size_t>(numNodes);
        for (int merges = input.byte() % 8; merges >= 0; --merges) {
            g3d_Storage const & kept = coords[input.below(count)];
            coords[input.below(count)] = kept;
        }
    }

    void spoilOneNumber(Input & input) {
        g3d_Storage & p = coords[input.below(static_cast<std::size_t>(numNodes))];
        int const axis = input.byte() % 3;
        (axis == 0 ? p.X() : axis == 1 ? p.Y() : p.Z()) = anyNumber(input);
    }

    void replaceAll(Input & input) {
        for (int node = 0; node < numNodes; ++node) {
            double const x = anyNumber(input), y = anyNumber(input);
            coords[node].Set(x, y, anyNumber(input));
        }
    }

    double axes[3][3] = {}; ///< [space][iso]
    g3d_Storage origin;
};

#endif
