// What is compiled for the plainest machine and once more for this one, against the same done plainly: points,
// Jacobians, inverse locations, and lines through surfaces have the same bits.

#include "../positions.h"
#include "shp_SetOperationsKernel.h"
#include "shp_SurfaceLineKernel.h"

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
        plain.evaluateFunctions = nullptr;
        plain.evaluatePoint = nullptr;
        plain.evaluateJacobian = nullptr;
        plain.locator = nullptr;
        shp_FunctionSetList const all = shp_allFunctionSets();
        for (int i = 0; i < all.count; ++i) {
            if (all.sets[i]->functions == wide.shapeFunctions && wide.evaluatePoint) {
                narrow.evaluateFunctions = setOperations[i].row;
                narrow.evaluatePoint = setOperations[i].point;
            }
            if (all.sets[i]->derivatives == wide.dUdGFunctions && wide.evaluateJacobian)
                narrow.evaluateJacobian = setOperations[i].jacobian;
            if (all.sets[i]->functions == wide.shapeFunctions && wide.locator)
                narrow.locator = setOperations[i].locate;
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
    float weights[27] = {};
    t.CalculateNodesShapeWeight(at, weights);
    for (float weight : weights)
        bits.add(weight);
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
            located += expected.all[27 + 12] != 0;
        }
        EXPECT_EQ(located > 50, shape.hasDerivatives) << located;
    }
    EXPECT_GT(kinds.size(), 30u);
}

/// A line's hits with a surface, triangle by triangle: the bits of parameters, places and points.
Bits hitsOneByOne(shp_Topology const & t, Positions const & coords, g3d_Storage const & start, g3d_Storage const & end,
                  bool isSegment) {
    struct Hit {
        double t, u, v;
        int const * triangle;
    } first = {2, 0, 0, nullptr}, last = {-2, 0, 0, nullptr};
    int const points = numUsablePoints(t);
    for (int k = 0; k < t.NumFaceTriangles(); ++k) {
        int const * const c = t.FaceTriangles() + 3 * k;
        double at[2], u[2], v[2];
        int count = 0;
        auto const corner = [&](int i) { return coords[static_cast<std::size_t>(c[i])]; };
        if (c[0] < points && c[1] < points && c[2] < points)
            g3d_GeomUtils::LineTriIntersection(start, end, corner(0), corner(1), corner(2), at, u, v, count, isSegment);
        for (int i = 0; i < count; ++i) {
            if (at[i] > last.t)
                last = {at[i], u[i], v[i], c};
            if (first.t != 0 && (at[i] < first.t || at[i] == 0))
                first = {at[i], u[i], v[i], c};
        }
    }
    bool const isMet = last.t > -1.5 && first.t < 1.5;
    int const count = !isMet ? 0 : g3d_GeomUtils::EqualValue(first.t, last.t, 1e-5) ? 1 : 2;
    Bits bits;
    bits.add(count);
    for (int i = 0; i < count; ++i) {
        Hit const & hit = i == 0 ? first : last;
        float const u = static_cast<float>(hit.u), v = static_cast<float>(hit.v), w = 1 - u - v;
        auto const corner = [&](int k) { return coords[static_cast<std::size_t>(hit.triangle[k])]; };
        auto const blend = [&](double a, double b, double c) { return w * a + u * b + v * c; };
        g3d_Storage offset(blend(corner(0).X(), corner(1).X(), corner(2).X()),
                           blend(corner(0).Y(), corner(1).Y(), corner(2).Y()),
                           blend(corner(0).Z(), corner(1).Z(), corner(2).Z()));
        for (double x : {offset.X(), offset.Y(), offset.Z()})
            bits.add(x);
        offset -= start;
        bool const isAtStart = std::max({std::fabs(offset.X()), std::fabs(offset.Y()), std::fabs(offset.Z())}) < 1e-6;
        double const inverseLength = 1.0 / g3d_Magnitude(g3d_difference(end, start));
        double const anew = isAtStart ? 0 : g3d_Magnitude(offset) * inverseLength * (hit.t < 0 ? -1.0 : 1.0);
        bits.add(std::fabs(hit.t - i) < 1e-5 ? hit.t : anew);
        for (int k = 0; k < 3; ++k) {
            double sum = 0;
            double const weights[] = {1 - hit.u - hit.v, hit.u, hit.v};
            for (int c = 0; c < 3; ++c)
                sum += double{t.nodeLocationTable[3 * hit.triangle[c] + k]} * weights[c];
            bits.add(static_cast<float>(sum));
        }
    }
    return bits;
}

Bits hitsOf(shp_LineWorker worker, shp_Topology const & t, Positions coords, g3d_Storage const & start,
            g3d_Storage const & end, bool isSegment) {
    double params[3];
    float iso[3][3];
    g3d_Storage points[3];
    int count = -1;
    worker(t, start, end, coords.data(), params, iso, count, isSegment, points);
    Bits bits;
    bits.add(count);
    for (std::size_t i = 0; static_cast<int>(i) < count; ++i)
        for (double x : {points[i].X(), points[i].Y(), points[i].Z(), params[i], double{iso[i][0]}, double{iso[i][1]},
                         double{iso[i][2]}})
            bits.add(x);
    return bits;
}

TEST(SurfaceLine, FindsWhatItsTrianglesFindOneByOne) {
    std::map<int const *, int> tables;
    forEachShape([&](shp_Topology const & t) {
        if (t.NumFaceTriangles() == 0 || tables[t.FaceTriangles()]++ > 0)
            return;
        int hits = 0;
        for (int sample = 0; sample < 3000; ++sample) {
            Positions coords = anyElement(t);
            if (static_cast<int>(coords.size()) > t.BaseNodesPerElem())
                coords.back() = coords[2];
            if (sample % 5 == 0)
                coords[1] = coords[0];
            auto const node = [&] { return coords[static_cast<std::size_t>(between(0, t.BaseNodesPerElem() - 0.01))]; };
            auto const anywhere = [&] { return g3d_Storage(between(-2, 2), between(-2, 2), between(-2, 2)); };
            // Across, through nodes, along edges and in the planes of faces; far off, and from a point to itself.
            g3d_Storage const start = sample % 3 == 0 ? node() : anywhere(), to = sample % 2 == 0 ? node() : anywhere();
            double const factor = sample % 7 == 0 ? 1e6 : sample % 97 == 0 ? 0 : 1;
            g3d_Storage const end = g3d_moved(start, factor, g3d_difference(to, start));
            bool const isSegment = sample % 4 == 0;
            Bits const expected = hitsOneByOne(t, coords, start, end, isSegment);
            ASSERT_TRUE(hitsOf(surfaceLineWorker, t, coords, start, end, isSegment) == expected) << sample;
            ASSERT_TRUE(hitsOf(t.lineWorker, t, coords, start, end, isSegment) == expected) << sample;
            hits += expected.all.size() > 1;
        }
        EXPECT_GT(hits, 500);
    });
    EXPECT_GT(tables.size(), 20u);
}

} // namespace
