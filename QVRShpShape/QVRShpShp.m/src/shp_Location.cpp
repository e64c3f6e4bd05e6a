// The inverse problems of an element: where a point of space lies in it, and where a line meets it.

#include "shp_Location.h"
#include "g3d_GeomUtils.h"
#include "shp_LineWorkers.h"
#include "shp_Topology.h"

#include <algorithm>
#include <cmath>

namespace {

/// How far a converged point may lie beyond the node locations as it stands, in each coordinate.
constexpr double boundSlack = 1e-5;
/// How far it may lie beyond them in all to be accepted on them.
constexpr double overshootLimit = 0.0005;

/// Parameters of a line within this of its start are at the start.
constexpr double parameterTolerance = 1e-5;

bool agree(g3d_Storage const & a, g3d_Storage const & b) {
    double const tolerance = g3d_GeomUtils::getTolerance();
    return std::fabs(a.X() - b.X()) < tolerance && std::fabs(a.Y() - b.Y()) < tolerance &&
           std::fabs(a.Z() - b.Z()) < tolerance;
}

/// The first node at a point; -1 when there is none.
int nodeAt(shp_Topology const & t, g3d_Storage const & point, g3d_Storage const * coords) {
    for (int i = 0; i < t.BaseNodesPerElem(); ++i)
        if (agree(point, coords[i]))
            return i;
    return -1;
}

/// Sum of the absolute values of the nine entries.
float sizeOf(g3d_XForm const & jacobian) {
    float sum = 0;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            sum += std::fabs(jacobian.GetM(row, column));
    return sum;
}

/// Distance in isoparametric space; the squares are floats.
double distanceBetween(float const (&a)[3], float const * b) {
    double sum = 0;
    for (int c = 0; c < 3; ++c) {
        float const difference = a[c] - b[c];
        float const square = difference * difference;
        sum += double{square};
    }
    return std::sqrt(sum);
}

/// Moves the first coordinates by Newton's step.
void moveByInverse(g3d_XForm const & inverse, double const (&d)[3], int coordinates, float * iso) {
    for (int row = 0; row < coordinates; ++row)
        iso[row] -= static_cast<float>(double{inverse.GetM(row, 0)} * d[0] + double{inverse.GetM(row, 1)} * d[1] +
                                       double{inverse.GetM(row, 2)} * d[2]);
}

// One update of `iso` from `old`, where the interpolated point is off by `d`. False when there is none, or when the
// rows that it leaves out do not agree with it. What they predict is compared with +d and not with -d, and results on
// file depend on it: where the entries of these rows are 0, the comparison only asks whether the element and the point
// lie in one plane normal to an axis, or on one line along an axis.

bool updateSolid(g3d_XForm & jacobian, double const (&d)[3], float * iso) {
    if (!jacobian.Invert())
        return false;
    moveByInverse(jacobian, d, 3, iso);
    return true;
}

/// The row that holds the 1 of the unit direction; -1 when there is none.
int rowOfUnitDirection(g3d_XForm const & jacobian) {
    for (int row = 0; row < 3; ++row)
        if (jacobian.GetM(row, 2) == 1.0f)
            return row;
    return -1;
}

bool updateSurface(g3d_XForm & jacobian, double const (&d)[3], float const (&old)[3], float * iso) {
    int const out = rowOfUnitDirection(jacobian);
    if (out < 0)
        return false;
    float const a = jacobian.GetM(out, 0), b = jacobian.GetM(out, 1);
    jacobian.M(out, 0) = 0;
    jacobian.M(out, 1) = 0;
    if (!jacobian.Invert())
        return false;
    moveByInverse(jacobian, d, 2, iso);
    float const predicted = (iso[0] - old[0]) * a + (iso[1] - old[1]) * b;
    return std::fabs(double{predicted} - d[out]) < shp_consistencyLimit;
}

/// The row with the element's own direction, and without a 1 of the others; -1 when there is none.
int rowOfDirection(g3d_XForm const & jacobian) {
    for (int row = 0; row < 3; ++row)
        if (jacobian.GetM(row, 1) != 1.0f && jacobian.GetM(row, 2) != 1.0f)
            return row;
    return -1;
}

bool updateLine(g3d_XForm const & jacobian, double const (&d)[3], float const (&old)[3], float * iso) {
    int const along = rowOfDirection(jacobian);
    if (along < 0 || jacobian.GetM(along, 0) == 0.0f)
        return false;
    iso[0] -= static_cast<float>(d[along] * (1.0 / double{jacobian.GetM(along, 0)}));
    for (int row = 0; row < 3; ++row) {
        float const predicted = (iso[0] - old[0]) * jacobian.GetM(row, 0);
        if (row != along && !(std::fabs(double{predicted} - d[row]) < shp_consistencyLimit))
            return false;
    }
    return true;
}

bool update(int dimensions, g3d_XForm & jacobian, double const (&d)[3], float const (&old)[3], float * iso) {
    switch (dimensions) {
    case 1: return updateLine(jacobian, d, old, iso);
    case 2: return updateSurface(jacobian, d, old, iso);
    case 3: return updateSolid(jacobian, d, iso);
    default: return false;
    }
}

/// Newton's iteration from (0, 0, 0), a corner of some shapes; true when it has converged. Comparisons are written so
/// that what is not a number neither converges nor fails, and ends with the last update.
bool iterate(shp_Topology const & t, g3d_Storage const & point, g3d_Storage const * coords, float * iso) {
    std::fill_n(iso, 3, 0.0f);
    g3d_XForm jacobian = t.ShapeFunctionJacobian(coords, iso);
    float const limit = shp_growthLimit * sizeOf(jacobian);
    for (int updates = 0; updates < shp_maxUpdates; ++updates) {
        if (updates > 0)
            jacobian = t.ShapeFunctionJacobian(coords, iso);
        if (sizeOf(jacobian) > limit || std::fabs(jacobian.Determinant()) < shp_singularLimit)
            return false;
        g3d_Storage const reached = t.InterpolatePointFromNodes(coords, iso);
        double const d[3] = {reached.X() - point.X(), reached.Y() - point.Y(), reached.Z() - point.Z()};
        float const old[3] = {iso[0], iso[1], iso[2]};
        if (!update(t.NumGeometryDimensions(), jacobian, d, old, iso))
            return false;
        if (distanceBetween(old, iso) < shp_stepLimit)
            return true;
    }
    return false;
}

/// The iteration, by the one of the element's set of functions where it has one.
bool converges(shp_Topology const & t, g3d_Storage const & point, g3d_Storage const * coords, float * iso) {
    shp_Iteration const end = t.locator ? t.locator(point, coords, iso) : shp_Iteration::unusual;
    return end == shp_Iteration::unusual ? iterate(t, point, coords, iso) : end == shp_Iteration::converged;
}

/// True when a point lies in the box around the node locations.
bool isWithinBounds(shp_Topology const & t, float const * iso) {
    for (int c = 0; c < 3; ++c)
        if (!(double{iso[c]} >= t.isoLow[c] - boundSlack && double{iso[c]} <= t.isoHigh[c] + boundSlack))
            return false;
    return true;
}

/// Moves a point onto that box; how far in all.
double clampToBounds(shp_Topology const & t, float * iso) {
    double overshoot = 0.0;
    for (int c = 0; c < 3; ++c) {
        double const inside = std::clamp(iso[c], t.isoLow[c], t.isoHigh[c]);
        overshoot += std::fabs(double{iso[c]} - inside);
        iso[c] = static_cast<float>(inside);
    }
    return overshoot;
}

/// A converged point inside the bounds stays as it is; another one is moved onto them, and is good if it then still
/// is at the point, or was moved by very little.
bool acceptWithinBounds(shp_Topology const & t, g3d_Storage const & point, g3d_Storage const * coords, float * iso) {
    if (isWithinBounds(t, iso))
        return true;
    double const overshoot = clampToBounds(t, iso);
    return agree(t.InterpolatePointFromNodes(coords, iso), point) || overshoot < overshootLimit;
}

/// Completes the coordinates of those that lack their centre. Other elements of the kind have no room for it.
void prepare(shp_Topology const & t, g3d_Storage *& coords, g3d_Storage const & lineStart,
             g3d_Storage const & lineEnd) {
    if (t.prepareCoords && t.BaseNodesPerElem() == shp_nodesWithoutCentre)
        t.prepareCoords(coords, lineStart, lineEnd);
}

bool isAtStart(double parameter) {
    return std::fabs(parameter) < parameterTolerance;
}

/// True when the line's start lies between two hits, whichever comes first.
bool areOnBothSides(double t0, double t1) {
    return (t0 - parameterTolerance <= 0 && t1 + parameterTolerance >= 0) ||
           (t1 - parameterTolerance <= 0 && t0 + parameterTolerance >= 0);
}

/// The linear blend of two hits at the line's start.
void blend(double const * params, float const (*hits)[3], float * iso) {
    float const f = static_cast<float>(params[0] / (params[1] - params[0]));
    for (int c = 0; c < 3; ++c)
        iso[c] = hits[0][c] - (hits[1][c] - hits[0][c]) * f;
}

} // namespace

bool shp_Topology::FindIsoPointLocation(g3d_Storage const & point, g3d_Storage const * coords, float * iso) const {
    if (!hasDerivatives)
        return false;
    if (int const node = nodeAt(*this, point, coords); node >= 0) {
        GetNodeIsoCoords(node, iso);
        return true;
    }
    return converges(*this, point, coords, iso) && acceptWithinBounds(*this, point, coords, iso);
}

bool shp_Topology::LineShapeIntersection(g3d_Storage const & lineStart, g3d_Storage const & lineEnd,
                                         g3d_Storage * coords, double * params, float (*const iso)[3], int & numHits,
                                         bool flag, g3d_Storage * hitPoints) const {
    if (!lineWorker)
        return false;
    prepare(*this, coords, lineStart, lineEnd);
    return lineWorker(*this, lineStart, lineEnd, coords, params, iso, numHits, flag, hitPoints);
}

bool shp_Topology::FindPointInShape(g3d_Storage const & point, g3d_Storage const & direction, g3d_Storage * coords,
                                    float * iso) const {
    if (!lineWorker)
        return false;
    prepare(*this, coords, point, direction);
    double params[3];
    float hits[3][3];
    int numHits = 0;
    if (!lineWorker(*this, point, direction, coords, params, hits, numHits, false, nullptr) || numHits == 0)
        return false;

    bool const isInside = numHits == 1 ? isAtStart(params[0]) : areOnBothSides(params[0], params[1]);
    if (!isInside || !iso)
        return isInside;
    if (numHits > 1 && NumFaceTriangles() == 0 && NumGeometryDimensions() > 1)
        return FindIsoPointLocation(point, coords, iso);
    if (numHits == 1 || NumFaceTriangles() == 0 || isAtStart(params[0]))
        std::copy_n(hits[0], 3, iso);
    else
        blend(params, hits, iso);
    return true;
}
