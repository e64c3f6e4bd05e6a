#include "shp_LineWorkers.h"

#include "g3d_GeomUtils.h"
#include "g3d_PreparedLine.h"
#include "g3d_VectorAlgebra.h"

#include <algorithm>
#include <cmath>

namespace {

/// The most nodes of one plane, a completed centre among them.
constexpr int maxPoints = 27;

/// Two hits closer than this are one, and a hit this close to an end of the line keeps its parameter.
constexpr double parameterTolerance = 1e-5;

/// Parameters before a hit is found: each beyond what the other's limit lets pass.
constexpr double noSmallest = 2.0, noLargest = -2.0;

/// True once both have been set by a hit that reaches far enough back and forth: a single hit at 1.7 or -1.7 does not.
bool areHits(double const * params) {
    return params[1] > -1.5 && params[0] < 1.5;
}

int countOfHits(double const * params) {
    return g3d_GeomUtils::EqualValue(params[0], params[1], parameterTolerance) ? 1 : 2;
}

/// Points that the triangles may name: the nodes, and the ninth point where it was completed. One table names a node
/// that its element does not have; the triangle is passed over.
int numUsablePoints(shp_Topology const & topology) {
    int const nodes = topology.BaseNodesPerElem();
    return topology.prepareCoords && nodes == shp_nodesWithoutCentre ? nodes + 1 : nodes;
}

/// A hit of a line with one of the surface's triangles.
struct SurfaceHit {
    double u = 0, v = 0; ///< weights of the triangle's second and third corner
    int const * triangle = nullptr;
};

/// The foremost and the hindmost hit of a line with a surface; their parameters stand in `params[2]`.
struct SurfaceHits {
    SurfaceHit smallest, largest;

    /// A smallest parameter of exactly 0 is final, also towards parameters below it.
    void take(double t, SurfaceHit const & hit, double * params) {
        if (t > params[1]) {
            params[1] = t;
            largest = hit;
        }
        if (params[0] != 0.0 && (t < params[0] || t == 0.0)) {
            params[0] = t;
            smallest = hit;
        }
    }
};

SurfaceHits meetTriangles(shp_Topology const & topology, g3d_PreparedLine const & line, g3d_Storage const * coords,
                          double * params) {
    SurfaceHits hits;
    g3d_PreparedLine::Corner corners[maxPoints];
    int const numPoints = numUsablePoints(topology);
    for (int i = 0; i < numPoints; ++i)
        corners[i] = line.Place(coords[i]);

    int const * triangle = topology.FaceTriangles();
    for (int k = 0; k < topology.NumFaceTriangles(); ++k, triangle += 3) {
        if (std::max({triangle[0], triangle[1], triangle[2]}) >= numPoints)
            continue;
        double t[2], u[2], v[2];
        int const count = line.Meet(corners[triangle[0]], corners[triangle[1]], corners[triangle[2]], t, u, v);
        for (int i = 0; i < count; ++i)
            hits.take(t[i], {u[i], v[i], triangle}, params);
    }
    return hits;
}

/// Isoparametric coordinates of a hit, linear in its triangle; summed in double.
void locate(SurfaceHit const & hit, float const * nodeLocations, float * iso) {
    double const weights[3] = {1.0 - hit.u - hit.v, hit.u, hit.v};
    for (int c = 0; c < 3; ++c) {
        double sum = 0;
        for (int corner = 0; corner < 3; ++corner)
            sum += double{nodeLocations[3 * hit.triangle[corner] + c]} * weights[corner];
        iso[c] = static_cast<float>(sum);
    }
}

/// The point of a hit, on the flat triangle; the weights are floats.
g3d_Storage pointOf(SurfaceHit const & hit, g3d_Storage const * coords) {
    float const u = static_cast<float>(hit.u), v = static_cast<float>(hit.v);
    float const w = 1 - u - v;
    g3d_Storage const & a = coords[hit.triangle[0]];
    g3d_Storage const & b = coords[hit.triangle[1]];
    g3d_Storage const & c = coords[hit.triangle[2]];
    return {w * a.X() + u * b.X() + v * c.X(), w * a.Y() + u * b.Y() + v * c.Y(), w * a.Z() + u * b.Z() + v * c.Z()};
}

bool isAt(g3d_Storage const & offset) {
    double const tolerance = g3d_GeomUtils::getTolerance();
    return std::fabs(offset.X()) < tolerance && std::fabs(offset.Y()) < tolerance && std::fabs(offset.Z()) < tolerance;
}

/// A hit's parameter anew, with its old sign: its point's distance to the line's start.
double parameterOf(g3d_Storage const & point, g3d_Storage const & lineStart, double inverseLength, double old) {
    g3d_Storage const offset = g3d_difference(point, lineStart);
    if (isAt(offset))
        return 0.0;
    return g3d_Magnitude(offset) * inverseLength * (old < 0 ? -1.0 : 1.0);
}

/// A hit of a line with one of an element's segments.
struct SegmentHits {
    double smallest = 0, largest = 0; ///< parameters along their segments

    void take(double t, double s, double * params) {
        if (t > params[1]) {
            params[1] = t;
            largest = s;
        }
        if (t < params[0]) {
            params[0] = t;
            smallest = s;
        }
    }
};

SegmentHits meetSegments(shp_Topology const & topology, g3d_Storage const & lineStart, g3d_Storage const & lineEnd,
                         g3d_Storage const * coords, double * params, bool flag) {
    SegmentHits hits;
    for (int i = 0; i + 1 < topology.BaseNodesPerElem(); ++i) {
        double t[2], s[2];
        int count = 0;
        g3d_GeomUtils::LineLineIntersection(lineStart, lineEnd, coords[i], coords[i + 1], t, s, count, flag, true);
        for (int k = 0; k < count; ++k)
            hits.take(t[k], s[k], params);
    }
    return hits;
}

void setIso(float * iso, double g) {
    iso[0] = static_cast<float>(g);
    iso[1] = iso[2] = 0;
}

} // namespace

bool surfaceLineWorker(shp_Topology const & topology, g3d_Storage const & lineStart, g3d_Storage const & lineEnd,
                       g3d_Storage * coords, double * params, float (*const iso)[3], int & numHits, bool flag,
                       g3d_Storage * hitPoints) {
    params[0] = noSmallest;
    params[1] = noLargest;
    numHits = 0;
    SurfaceHits const hits = meetTriangles(topology, g3d_PreparedLine(lineStart, lineEnd, flag), coords, params);
    if (!areHits(params))
        return false;
    numHits = countOfHits(params);

    double const inverseLength = 1.0 / g3d_Magnitude(g3d_difference(lineEnd, lineStart));
    for (int i = 0; i < numHits; ++i) {
        SurfaceHit const & hit = i == 0 ? hits.smallest : hits.largest;
        locate(hit, topology.nodeLocationTable, iso[i]);
        g3d_Storage const point = pointOf(hit, coords);
        // The first hit keeps its parameter near the line's start, the second near the line's end.
        double const kept = i == 0 ? 0.0 : 1.0;
        if (!(std::fabs(params[i] - kept) < parameterTolerance))
            params[i] = parameterOf(point, lineStart, inverseLength, params[i]);
        if (hitPoints)
            hitPoints[i] = point;
    }
    return true;
}

/// Walks the element's nodes from one to the next. A hit's g comes from its parameter along its own segment, whichever
/// that is: on a three-node line both segments run from -1 to 1.
bool segmentLineWorker(shp_Topology const & topology, g3d_Storage const & lineStart, g3d_Storage const & lineEnd,
                       g3d_Storage * coords, double * params, float (*const iso)[3], int & numHits, bool flag,
                       g3d_Storage * hitPoints) {
    params[0] = noSmallest;
    params[1] = noLargest;
    numHits = 0;
    SegmentHits const hits = meetSegments(topology, lineStart, lineEnd, coords, params, flag);
    if (!areHits(params))
        return false;
    numHits = countOfHits(params);
    setIso(iso[0], 2 * hits.smallest - 1);
    setIso(iso[1], 2 * hits.largest - 1);

    double onLine;
    if (topology.BaseNodesPerElem() == 3 && numHits == 2 &&
        g3d_GeomUtils::LinePointIntersection(lineStart, lineEnd, coords[1], onLine, true)) {
        setIso(iso[2], 0);
        params[2] = (params[0] + params[1]) * 0.5;
        numHits = 3;
    }
    if (hitPoints)
        for (int i = 0; i < numHits; ++i)
            hitPoints[i] = topology.InterpolatePointFromNodes(coords, iso[i]);
    return true;
}

bool pointLineWorker(shp_Topology const & topology, g3d_Storage const & lineStart, g3d_Storage const & lineEnd,
                     g3d_Storage * coords, double * params, float (*const iso)[3], int & numHits, bool flag,
                     g3d_Storage * hitPoints) {
    numHits = 0;
    if (!g3d_GeomUtils::LinePointIntersection(lineStart, lineEnd, coords[0], params[0], flag))
        return false;
    numHits = 1;
    setIso(iso[0], 0);
    if (hitPoints)
        hitPoints[0] = topology.InterpolatePointFromNodes(coords, iso[0]);
    return true;
}

void completeQuadCenterNode(g3d_Storage *& coords, g3d_Storage const &, g3d_Storage const &) {
    g3d_Storage corners, midsides;
    for (int i = 0; i < 4; ++i) {
        corners = g3d_moved(corners, 1, coords[i]);
        midsides = g3d_moved(midsides, 1, coords[4 + i]);
    }
    coords[8].Set(0.5 * midsides.X() - 0.25 * corners.X(), 0.5 * midsides.Y() - 0.25 * corners.Y(),
                  0.5 * midsides.Z() - 0.25 * corners.Z());
}
