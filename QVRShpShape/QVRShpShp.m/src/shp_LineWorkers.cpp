#include "shp_LineWorkers.h"

#include "g3d_GeomUtils.h"
#include "g3d_VectorAlgebra.h"

#include <algorithm>
#include <cmath>

namespace {

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
