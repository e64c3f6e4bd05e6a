#ifndef shp_SurfaceLineKernel_h
#define shp_SurfaceLineKernel_h

// How a line meets a triangulated surface: four triangles at a time are sorted out, and few are left to be met.
// Compiled once for each width of vectors (see shp_Quad.h).

#include "g3d_PreparedLine.h"
#include "shp_LineWorkers.h"
#include "shp_Quad.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace {

/// The most triangles that are sorted out, one for each bit of a set of them, and the most points that they name, with
/// a filling to a multiple of four.
constexpr int maxTriangles = 64, maxSightedPoints = 28;

/// An element's points as a line sees them.
struct SightedPoints {
    alignas(32) Pair xy[maxSightedPoints];
    alignas(32) double z[maxSightedPoints];
    g3d_Storage const * positions;

    g3d_PreparedLine::Corner corner(int i) const { return {positions + i, xy[i][0], xy[i][1], z[i]}; }
};

template <int Axis> [[gnu::always_inline]] inline double coordinate(g3d_Storage const & point) {
    return Axis == 0 ? point.X() : Axis == 1 ? point.Y() : point.Z();
}

/// Four points as a line along `MainAxis` sees them.
template <int MainAxis> struct FourSighted {
    static constexpr int xAxis = g3d_PreparedLine::nextAxis(MainAxis), yAxis = g3d_PreparedLine::nextAxis(xAxis);
    Quad x, y, z;

    [[gnu::always_inline]] FourSighted(g3d_PreparedLine const & line, g3d_Storage const & a, g3d_Storage const & b,
                                       g3d_Storage const & c, g3d_Storage const & d)
        : z(offsets<MainAxis>(line, a, b, c, d)) {
        x = offsets<xAxis>(line, a, b, c, d) - allOf(line.Shear()[0]) * z;
        y = offsets<yAxis>(line, a, b, c, d) - allOf(line.Shear()[1]) * z;
    }

private:
    template <int Axis>
    [[gnu::always_inline]] static Quad offsets(g3d_PreparedLine const & line, g3d_Storage const & a,
                                               g3d_Storage const & b, g3d_Storage const & c, g3d_Storage const & d) {
        return quadOf(coordinate<Axis>(a), coordinate<Axis>(b), coordinate<Axis>(c), coordinate<Axis>(d)) -
               allOf(coordinate<Axis>(line.Origin()));
    }
};

/// How the points lie to each other and to the line.
struct Spread {
    /// The greatest difference of a coordinate from that of the first point, passing over coordinates that are no
    /// numbers; no number where one of the first point's is none.
    double difference;
    bool isNear; ///< the line's start is not much farther away than that

    /// Farther away roundings of differences from the line's start may be all that is left of a triangle's area.
    static constexpr double far = 1000;
};

/// Places the points as g3d_PreparedLine::Place does.
template <int MainAxis>
[[gnu::always_inline]] inline Spread placePoints(g3d_PreparedLine const & line, g3d_Storage const * points,
                                                 int numPoints, SightedPoints & sighted) {
    sighted.positions = points;
    Quad firstX = {}, firstY = {}, firstZ = {}, greatest = {};
    auto const add = [&](int i, FourSighted<MainAxis> const & four) {
        storePairs(four.x, four.y, sighted.xy + i);
        store(four.z, sighted.z + i);
        if (i == 0) {
            firstX = first(four.x);
            firstY = first(four.y);
            firstZ = first(four.z);
        }
        // Of a number and one that is none, the second is taken.
        greatest = greater(absolute(four.x - firstX), greatest);
        greatest = greater(absolute(four.y - firstY), greatest);
        greatest = greater(absolute(four.z - firstZ), greatest);
    };
    int i = 0;
    for (; i + 4 <= numPoints; i += 4)
        add(i, {line, points[i], points[i + 1], points[i + 2], points[i + 3]});
    if (i < numPoints) {
        auto const point = [points, last = numPoints - 1](int n) { return points[n < last ? n : last]; };
        add(i, {line, point(i), point(i + 1), point(i + 2), point(i + 3)});
    }
    double const distance = std::fabs(lane(firstX, 0)) + std::fabs(lane(firstY, 0)) + std::fabs(lane(firstZ, 0));
    double const difference = greatestLane(greatest);
    return {difference + 0 * distance, distance <= Spread::far * difference};
}

[[gnu::always_inline]] inline Spread placePoints(g3d_PreparedLine const & line, g3d_Storage const * points,
                                                 int numPoints, SightedPoints & sighted) {
    switch (line.MainAxis()) {
    case 0: return placePoints<0>(line, points, numPoints, sighted);
    case 1: return placePoints<1>(line, points, numPoints, sighted);
    default: return placePoints<2>(line, points, numPoints, sighted);
    }
}

/// With a doubled area above this, as the line sees it, no triangle is grazed in the sense of g3d_PreparedLine::Meet:
/// its tilt is at most twice the square of twice a product of differences, each of at most twice the greatest
/// difference from the first point. One percent is for roundings.
///
/// Such a triangle is wide, too. The shear less than doubles an area, so that the doubled area in space is above 5e-5
/// of the square of the greatest difference, and no edge is longer than 6 such differences: the sine between two edges
/// is above 1e-6. Only with a line that starts far away all that may be roundings (see Spread).
[[gnu::always_inline]] inline double leastAreaAcross(double difference) {
    constexpr double rootOfGrazing = 10 * g3d_PreparedLine::grazingSine, rootOfTilt = 11.32; // squared: 128
    if (!(difference > 1e-60 && difference < 1e60))
        return std::numeric_limits<double>::infinity();
    return 1.01 * rootOfGrazing * rootOfTilt * (difference * difference);
}

/// One corner of four triangles.
struct Corners {
    Quad x, y;

    [[gnu::always_inline]] Corners(SightedPoints const & points, int const * const (&triangles)[4], int corner) {
        auto const at = [&](int triangle) { return points.xy[triangles[triangle][corner]]; };
        Quad const even = quadOf(at(0), at(2)), odd = quadOf(at(1), at(3));
        x = evenLanes(even, odd);
        y = oddLanes(even, odd);
    }
};

/// Triangles as a line sees them, and which of them are left to be met, by their bits.
struct SievedTriangles {
    alignas(32) double a[maxTriangles], b[maxTriangles], c[maxTriangles], sum[maxTriangles];
    std::uint64_t inside = 0;    ///< the line passes inside
    std::uint64_t uncertain = 0; ///< perhaps it grazes the triangle

    g3d_PreparedLine::Weights weights(int k) const { return {a[k], b[k], c[k], sum[k]}; }
};

/// Sorts out the triangles with which g3d_PreparedLine::Meet would find no hit.
[[gnu::always_inline]] inline void sieve(SightedPoints const & points, double greatestDifference, int const * triangles,
                                         int numTriangles, SievedTriangles & sieved) {
    Quad const leastAcross = allOf(leastAreaAcross(greatestDifference));
    auto const add = [&](int k, int const * const(&four)[4]) {
        Corners const p(points, four, 0), q(points, four, 1), r(points, four, 2);
        Quad const a = q.x * r.y - q.y * r.x, b = r.x * p.y - r.y * p.x, c = p.x * q.y - p.y * q.x;
        Quad const sum = a + b + c;
        Quad const least = allOf(-g3d_PreparedLine::weightSlack) * sum * sum;
        sieved.inside |= std::uint64_t{whereAtLeast(lesser(lesser(a * sum, b * sum), c * sum), least)} << k;
        if (unsigned const across = whereGreater(absolute(sum), leastAcross); across != 15u) [[unlikely]]
            sieved.uncertain |= std::uint64_t{across ^ 15u} << k;
        store(a, sieved.a + k);
        store(b, sieved.b + k);
        store(c, sieved.c + k);
        store(sum, sieved.sum + k);
    };
    int k = 0;
    for (; k + 4 <= numTriangles; k += 4) {
        int const * const first = triangles + 3 * k;
        add(k, {first, first + 3, first + 6, first + 9});
    }
    if (k < numTriangles) {
        auto const triangle = [=, last = numTriangles - 1](int n) { return triangles + 3 * (n < last ? n : last); };
        add(k, {triangle(k), triangle(k + 1), triangle(k + 2), triangle(k + 3)});
        std::uint64_t const all = ~std::uint64_t{0} >> (maxTriangles - numTriangles);
        sieved.inside &= all;
        sieved.uncertain &= all;
    }
}

/// A hit of a line with one of the surface's triangles.
struct SurfaceHit {
    double t, u, v; ///< parameter of the line, weights of the triangle's second and third corner
    int const * triangle;

    /// Branches would be hard to predict.
    [[gnu::always_inline]] void replaceIf(bool isBetter, SurfaceHit const & other) {
        t = isBetter ? other.t : t;
        u = isBetter ? other.u : u;
        v = isBetter ? other.v : v;
        triangle = isBetter ? other.triangle : triangle;
    }
};

/// The foremost and the hindmost hit of a line with a surface.
struct SurfaceHits {
    SurfaceHit smallest = {noSmallest, 0, 0, nullptr}, largest = {noLargest, 0, 0, nullptr};

    /// A smallest parameter of exactly 0 is final, also towards parameters below it.
    [[gnu::always_inline]] void take(SurfaceHit const & hit) {
        largest.replaceIf(hit.t > largest.t, hit);
        smallest.replaceIf((smallest.t != 0.0) & ((hit.t < smallest.t) | (hit.t == 0.0)), hit);
    }
};

/// Meets a triangle that the line perhaps grazes.
[[gnu::noinline, gnu::flatten]] void meetUncertain(g3d_PreparedLine const & line, SightedPoints const & points,
                                                   int const * triangle, SurfaceHits & hits) {
    double t[2], u[2], v[2];
    int const count =
        line.Meet(points.corner(triangle[0]), points.corner(triangle[1]), points.corner(triangle[2]), t, u, v);
    for (int i = 0; i < count; ++i)
        hits.take({t[i], u[i], v[i], triangle});
}

[[gnu::always_inline]] inline void meetTriangles(shp_Topology const & topology, g3d_PreparedLine const & line,
                                                 g3d_Storage const * coords, SurfaceHits & found) {
    int const * const triangles = topology.FaceTriangles();
    SightedPoints points;
    SievedTriangles sieved;
    Spread const spread = placePoints(line, coords, topology.numTrianglePoints, points);
    sieve(points, spread.difference, triangles, topology.NumFaceTriangles(), sieved);
    SurfaceHits hits;
    for (std::uint64_t bits = sieved.inside | sieved.uncertain; bits != 0; bits &= bits - 1) {
        int const k = std::countr_zero(bits);
        int const * const triangle = triangles + 3 * k;
        if (sieved.uncertain >> k & 1) [[unlikely]] {
            SurfaceHits more = hits;
            meetUncertain(line, points, triangle, more);
            hits = more;
            continue;
        }
        double t, u, v;
        if (line.MeetInside(sieved.weights(k), points.corner(triangle[0]), points.corner(triangle[1]),
                            points.corner(triangle[2]), spread.isNear, &t, &u, &v))
            hits.take({t, u, v, triangle});
    }
    found = hits;
}

/// Up to this many triangles are met one after the other.
constexpr int fewTriangles = 3;

/// Whether the triangles may be sorted out. One table names a node that its element does not have.
[[gnu::always_inline]] inline bool canBeSieved(shp_Topology const & topology) {
    return topology.NumFaceTriangles() <= maxTriangles && topology.numTrianglePoints <= maxSightedPoints &&
           topology.numTrianglePoints <= numUsablePoints(topology);
}

/// Passes over a triangle with a corner that the element does not have.
[[gnu::always_inline]] inline void meetOneByOne(shp_Topology const & topology, g3d_PreparedLine const & line,
                                                g3d_Storage const * coords, SurfaceHits & hits) {
    int const numPoints = numUsablePoints(topology);
    int const * triangle = topology.FaceTriangles();
    for (int k = 0; k < topology.NumFaceTriangles(); ++k, triangle += 3) {
        if (triangle[0] >= numPoints || triangle[1] >= numPoints || triangle[2] >= numPoints)
            continue;
        double t[2], u[2], v[2];
        int const count = line.Meet(line.Place(coords[triangle[0]]), line.Place(coords[triangle[1]]),
                                    line.Place(coords[triangle[2]]), t, u, v);
        for (int i = 0; i < count; ++i)
            hits.take({t[i], u[i], v[i], triangle});
    }
}

/// Isoparametric coordinates of a hit, linear in its triangle; summed in double.
[[gnu::always_inline]] inline void locate(SurfaceHit const & hit, float const * nodeLocations, float * iso) {
    auto const location = [=](std::ptrdiff_t node) { return widen(loadThree(nodeLocations + 3 * node)); };
    Quad const a = location(hit.triangle[0]), b = location(hit.triangle[1]), c = location(hit.triangle[2]);
    Floats const sum = narrow(allOf(0.0) + a * allOf(1.0 - hit.u - hit.v) + b * allOf(hit.u) + c * allOf(hit.v));
    for (int i = 0; i < 3; ++i)
        iso[i] = sum[i];
}

[[gnu::always_inline]] inline Quad coordinatesOf(g3d_Storage const & point) {
    Pair xy;
    __builtin_memcpy(&xy, &point, sizeof xy);
    return quadOf(xy, Pair{point.Z(), 0});
}

/// The point of a hit, on the flat triangle; the weights are floats.
[[gnu::always_inline]] inline Quad pointOf(SurfaceHit const & hit, g3d_Storage const * coords) {
    float const u = static_cast<float>(hit.u), v = static_cast<float>(hit.v);
    float const w = 1 - u - v;
    return allOf(w) * coordinatesOf(coords[hit.triangle[0]]) + allOf(u) * coordinatesOf(coords[hit.triangle[1]]) +
           allOf(v) * coordinatesOf(coords[hit.triangle[2]]);
}

/// A hit's parameter anew, with its old sign: its point's distance to the line's start.
[[gnu::always_inline]] inline double parameterOf(Quad point, g3d_Storage const & lineStart, double inverseLength,
                                                 double old) {
    Quad const offset = point - coordinatesOf(lineStart);
    if (whereGreater(allOf(g3d_GeomUtils::getTolerance()), absolute(offset)) == 15u)
        return 0.0;
    Quad const squares = offset * offset;
    double const distance = std::sqrt(lane(squares, 0) + lane(squares, 1) + lane(squares, 2));
    return distance * inverseLength * (old < 0 ? -1.0 : 1.0);
}

[[gnu::flatten]] bool surfaceLineWorker(shp_Topology const & topology, g3d_Storage const & lineStart,
                                        g3d_Storage const & lineEnd, g3d_Storage * coords, double * params,
                                        float (*const iso)[3], int & numHits, bool flag, g3d_Storage * hitPoints) {
    g3d_PreparedLine const line(lineStart, lineEnd, flag);
    SurfaceHits hits;
    if (line.HasLength() && topology.NumFaceTriangles() > fewTriangles && canBeSieved(topology))
        meetTriangles(topology, line, coords, hits);
    else if (line.HasLength())
        meetOneByOne(topology, line, coords, hits);
    params[0] = hits.smallest.t;
    params[1] = hits.largest.t;
    numHits = 0;
    if (!areHits(params))
        return false;
    numHits = countOfHits(params);

    double const inverseLength = 1.0 / line.Length();
    for (int i = 0; i < numHits; ++i) {
        SurfaceHit const & hit = i == 0 ? hits.smallest : hits.largest;
        locate(hit, topology.nodeLocationTable, iso[i]);
        Quad const point = pointOf(hit, coords);
        // The first hit keeps its parameter near the line's start, the second near the line's end.
        double const kept = i == 0 ? 0.0 : 1.0;
        if (!(std::fabs(params[i] - kept) < hitTolerance))
            params[i] = parameterOf(point, lineStart, inverseLength, params[i]);
        if (hitPoints)
            hitPoints[i].Set(lane(point, 0), lane(point, 1), lane(point, 2));
    }
    return true;
}

} // namespace

#endif
