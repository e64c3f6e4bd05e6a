#ifndef table_laws_h
#define table_laws_h

// What the tests of constant tables share: places in isoparametric space, and laws with the element types that break
// them on purpose.

#include "catalogued_shapes.h"
#include "shp_KeyBit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <vector>

using Place = std::array<double, 3>;

inline Place row(float const * table, int index) {
    return {table[3 * index], table[3 * index + 1], table[3 * index + 2]};
}

inline std::vector<Place> rows(float const * table, int count) {
    std::vector<Place> all;
    for (int i = 0; i < count; ++i)
        all.push_back(row(table, i));
    return all;
}

inline std::vector<Place> nodesOf(shp_Topology const & shape) {
    return rows(shape.nodeLocationTable, shape.BaseNodesPerElem());
}

inline std::vector<Place> pointsOf(shp_Topology const & shape) {
    return rows(shape.intPtLocationTable, shape.BaseIntPtsPerElem());
}

inline double dot(Place const & a, Place const & b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline Place minus(Place const & a, Place const & b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

inline double distance(Place const & a, Place const & b) {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

inline Place mean(std::vector<Place> const & places) {
    Place total = {};
    for (Place const & place : places)
        for (std::size_t axis = 0; axis < 3; ++axis)
            total[axis] += place[axis] / static_cast<double>(places.size());
    return total;
}

inline shp_Options optionsOf(std::initializer_list<unsigned int> bits) {
    return shp_Options(keyOf(bits));
}

/// Element types by what their key says; an empty condition holds for all.
struct Kind {
    int family = 0;
    std::vector<int> nodes = {};
    std::vector<int> points = {};
    std::vector<int> with = {};    ///< all of these bits
    std::vector<int> without = {}; ///< none of these bits
    int mode = -1;
    std::vector<int> faces = {};

    bool holds(shp_Topology const & shape, int face) const {
        auto const isOneOf = [](std::vector<int> const & numbers, int number) {
            return numbers.empty() || std::count(numbers.begin(), numbers.end(), number) > 0;
        };
        auto const isSet = [&](int bit) { return shape.options.IsType(bit); };
        return shape.options.Shape() == family && isOneOf(nodes, shape.options.NumNodes()) &&
               isOneOf(points, shape.options.NumIntPnts()) && std::all_of(with.begin(), with.end(), isSet) &&
               std::none_of(without.begin(), without.end(), isSet) && (mode < 0 || mode == shape.options.Mode()) &&
               isOneOf(faces, face);
    }
};

struct Exception {
    Kind kind;
    int broken; ///< the laws, a bit each
    char const * reason;
};

/// Element types keep every law that no exception names, and break every law that one names.
class Laws {
public:
    explicit Laws(std::vector<Exception> list) : exceptions(std::move(list)), met(exceptions.size(), false) {}
    ~Laws() {
        for (std::size_t i = 0; i < exceptions.size(); ++i)
            EXPECT_TRUE(met[i]) << "no label for: " << exceptions[i].reason;
    }

    void expect(int broken, shp_Topology const & shape, int face = -1) {
        int expected = 0;
        for (std::size_t i = 0; i < exceptions.size(); ++i)
            if (exceptions[i].kind.holds(shape, face)) {
                met[i] = true;
                expected |= exceptions[i].broken;
            }
        EXPECT_EQ(broken, expected) << "face " << face;
    }

private:
    std::vector<Exception> exceptions;
    std::vector<bool> met;
};

#endif
