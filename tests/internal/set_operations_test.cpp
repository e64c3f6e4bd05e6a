// What is made for one set of functions, for the plainest machine and for this one, against the same shape without it:
// points, Jacobians and inverse locations have the same bits.

#include "../positions.h"
#include "shp_SetOperationsKernel.h"

#include <bit>
#include <cstdint>
#include <limits>
#include <map>

namespace {

using Limits = std::numeric_limits<float>;

/// One shape in three ways.
struct Ways {
    shp_Shape plain, narrow, wide;

    explicit Ways(LongKey const & key) : plain("", key), narrow("", key), wide("", key) {
        plain.evaluatePoint = nullptr;
        plain.evaluateTangents = nullptr;
        plain.locator = nullptr;
        shp_FunctionSetList const all = shp_allFunctionSets();
        for (int i = 0; i < all.count; ++i) {
            if (all.sets[i]->functions == wide.shapeFunctions && wide.evaluatePoint)
                narrow.evaluatePoint = operations[i].point;
            if (all.sets[i]->derivatives == wide.dUdGFunctions && wide.evaluateTangents)
                narrow.evaluateTangents = operations[i].tangents;
            if (all.sets[i]->functions == wide.shapeFunctions && wide.locator)
                narrow.locator = operations[i].locate;
        }
    }
};

/// Numbers one after the other as bits; all not-a-numbers are the same.
struct Bits {
    std::vector<std::uint64_t> all;

    void add(double x) {
        all.push_back(std::bit_cast<std::uint64_t>(std::isnan(x) ? std::numeric_limits<double>::quiet_NaN() : x));
    }
    bool operator==(Bits const &) const = default;
};

Bits answersOf(shp_Topology const & t, Positions const & coords, g3d_Storage const & point, float const (&iso)[3]) {
    Bits bits;
    float at[3] = {iso[0], iso[1], iso[2]};
    g3d_Storage const reached = t.InterpolatePointFromNodes(coords.data(), at);
    for (double x : {reached.X(), reached.Y(), reached.Z()})
        bits.add(x);
    g3d_XForm const jacobian = t.ShapeFunctionJacobian(coords.data(), at);
    for (int i = 0; i < 9; ++i)
        bits.add(jacobian.GetM(i / 3, i % 3));
    bits.add(t.FindIsoPointLocation(point, coords.data(), at));
    for (float x : at)
        bits.add(x);
    return bits;
}

/// Inside and outside; one in 30 is special.
float coordinate() {
    constexpr float special[] = {0, -0.0f, 1, -1, 1e20f, 1e-40f, Limits::infinity(), Limits::quiet_NaN()};
    int const pick = static_cast<int>(between(0, 240));
    return pick < 8 ? special[pick] : static_cast<float>(between(-1.2, 1.2));
}

/// Sound, shaken, small, large or with a special coordinate; planar elements lie in a plane normal to an axis.
Positions anyElement(shp_Topology const & t) {
    double const most = between(0, 1) < 0.5 ? 0.1 : 1;
    double const size = between(0, 1) < 0.7 ? 1 : std::pow(10, between(-6, 36));
    int const axis = static_cast<int>(between(0, 2.99)), dimensions = t.NumGeometryDimensions();
    Positions coords = element(t, [=](double x, double y, double z) {
        double const p[3] = {x + between(-most, most), dimensions < 2 ? 0 : y + between(-most, most),
                             dimensions < 3 ? 0 : z + between(-most, most)};
        return g3d_Storage(size * p[axis], size * p[(axis + 1) % 3], size * p[(axis + 2) % 3]);
    });
    if (between(0, 1) < 0.05)
        coords[0].Y() = coordinate();
    return coords;
}

TEST(SetOperations, HaveTheBitsOfTheSingleFunctions) {
    std::map<std::pair<void const *, void const *>, int> kinds;
    omi_BtreeIterator<cow_String, void *> labels(dictionary().Keys());
    for (bool isLabel = labels.First(); isLabel; isLabel = labels.Next()) {
        SCOPED_TRACE(labels.CurrentKey().CStr());
        Ways const ways(*static_cast<LongKey const *>(labels.CurrentValue()));
        shp_Topology const & shape = ways.wide;
        if (!shape.nodeLocationTable || kinds[{shape.shapeFunctions, shape.dUdGFunctions}]++ > 0)
            continue;
        int located = 0;
        for (int sample = 0; sample < 3000; ++sample) {
            Positions const coords = anyElement(shape);
            float const at[3] = {coordinate(), coordinate(), coordinate()};
            float const iso[3] = {coordinate(), coordinate(), coordinate()};
            g3d_Storage const point = ways.plain.InterpolatePointFromNodes(coords.data(), at);
            Bits const expected = answersOf(ways.plain, coords, point, iso);
            ASSERT_TRUE(answersOf(ways.narrow, coords, point, iso) == expected) << sample;
            ASSERT_TRUE(answersOf(ways.wide, coords, point, iso) == expected) << sample;
            located += expected.all[12] != 0;
        }
        EXPECT_EQ(located > 50, shape.hasDerivatives) << located;
    }
    EXPECT_GT(kinds.size(), 30u);
}

} // namespace
