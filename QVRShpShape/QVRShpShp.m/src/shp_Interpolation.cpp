// From isoparametric coordinates to weights, positions, values and Jacobians.

#include "g3d_Point.h"
#include "shp_Location.h"
#include "shp_TableMemory.h"
#include "shp_Topology.h"
#include "uti_CoordCont3D.h"

#include <algorithm>
#include <limits>

namespace {

/// The most nodes of one plane, and shape functions of one set.
constexpr int maxNodes = 27;

constexpr int maxDirections = 3;

/// All derivatives at one point, `out[numGeometryDimensions][baseNodesPerElem]`.
void slopesAt(shp_Topology const & t, float g, float h, float r, float * out) {
    if (t.evaluateDerivatives) {
        t.evaluateDerivatives(g, h, r, out);
        return;
    }
    for (shp_ShapeFunction const * functions : {t.dUdGFunctions, t.dUdHFunctions, t.dUdRFunctions}) {
        if (!functions)
            return;
        for (int i = 0; i < t.numDerivatives; ++i)
            out[i] = functions[i](g, h, r);
        for (int i = t.numDerivatives; i < t.baseNodesPerElem; ++i)
            out[i] = 0;
        out += t.baseNodesPerElem;
    }
}

/// Derivatives of x, y, z with respect to g, h, r.
template <class Real> struct Tangents {
    Real d[3][maxDirections] = {};
};

/// Sums in node order, at the precision of the node positions.
template <class Real, class Position>
Tangents<Real> sumTangents(Position const * coords, float const * derivatives, int numNodes, int numDirections) {
    Tangents<Real> sum;
    for (int i = 0; i < numNodes; ++i) {
        Real const x = coords[i].X(), y = coords[i].Y(), z = coords[i].Z();
        for (int k = 0; k < numDirections; ++k) {
            Real const slope = derivatives[k * numNodes + i];
            sum.d[0][k] += slope * x;
            sum.d[1][k] += slope * y;
            sum.d[2][k] += slope * z;
        }
    }
    return sum;
}

/// The first coordinate that varies along a line; z when none does.
template <class Real> int varyingAxis(Tangents<Real> const & t) {
    if (t.d[0][0] != 0)
        return 0;
    return t.d[1][0] != 0 ? 1 : 2;
}

template <class Real> void store(Tangents<Real> const & t, int numDirections, g3d_XForm & jacobian) {
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < numDirections; ++column)
            jacobian.M(row, column) = static_cast<float>(t.d[row][column]);
}

/// A surface's two tangents and the unit direction that completes them.
template <class Real> void storeSurface(Tangents<Real> const & t, g3d_XForm & jacobian) {
    store(t, 2, jacobian);
    int const axis = shp_completingAxis(t.d[0][0], t.d[0][1], t.d[1][0], t.d[1][1], t.d[2][0], t.d[2][1]);
    for (int row = 0; row < 3; ++row)
        jacobian.M(row, 2) = row == axis ? 1.0f : 0.0f;
}

/// A line's direction changes places with the unit direction of the coordinate that varies along it; the inverse
/// location depends on exactly this pattern.
template <class Real> void storeLine(Tangents<Real> const & t, g3d_XForm & jacobian) {
    int const axis = varyingAxis(t);
    jacobian.M(0, 0) = 0;
    jacobian.M(axis, axis) = 0;
    jacobian.M(0, axis) = 1;
    jacobian.M(axis, 0) = static_cast<float>(t.d[axis][0]);
}

template <class Real, class Position>
g3d_XForm jacobianAt(shp_Topology const & t, Position const * coords, float const * iso) {
    g3d_XForm jacobian;
    int const dimensions = t.numGeometryDimensions;
    if (!t.hasDerivatives || dimensions == 0)
        return jacobian;
    float const h = dimensions >= 2 ? iso[1] : 0.0f;
    float const r = dimensions == 3 ? iso[2] : 0.0f;
    float derivatives[maxDirections * maxNodes];
    slopesAt(t, iso[0], h, r, derivatives);
    Tangents<Real> const tangents = sumTangents<Real>(coords, derivatives, t.baseNodesPerElem, dimensions);
    if (dimensions == 3)
        store(tangents, 3, jacobian);
    else if (dimensions == 2)
        storeSurface(tangents, jacobian);
    else
        storeLine(tangents, jacobian);
    return jacobian;
}

/// Adds up positions of nodes in float.
struct PositionSum {
    float x = 0, y = 0, z = 0;

    void add(uti_CoordCont3D const & coords, int node, float weight) {
        float nodeX, nodeY, nodeZ;
        coords.GetCoord(node, nodeX, nodeY, nodeZ);
        x += weight * nodeX;
        y += weight * nodeY;
        z += weight * nodeZ;
    }
};

/// Adds up positions of nodes in float, without a node at exactly the place of the node before it.
struct DistinctNodes {
    float x = 0, y = 0, z = 0;
    int count = 0;

    /// Node i is entry `entryOf(i)`. Few nodes have the x of the node before; only of these is more compared.
    template <class EntryOf> void add(uti_CoordCont3D const & coords, int numNodes, EntryOf entryOf) {
        float lastX = std::numeric_limits<float>::quiet_NaN();
        count = numNodes;
        for (int i = 0; i < numNodes; ++i) {
            float nodeX, nodeY, nodeZ;
            coords.GetCoord(entryOf(i), nodeX, nodeY, nodeZ);
            if (nodeX == lastX) [[unlikely]] {
                uti_Coord3D const before = coords[entryOf(i - 1)];
                if (nodeY == before[1] && nodeZ == before[2]) {
                    --count;
                    continue;
                }
            }
            x += nodeX;
            y += nodeY;
            z += nodeZ;
            lastX = nodeX;
        }
    }
};

/// An order in which IntPtCoord takes the nodes of a caller's list.
struct NodeOrder {
    int length;
    int entries[8];
};

constexpr NodeOrder nodeOrder1 = {8, {0, 3, 7, 4, 1, 2, 6, 5}};
constexpr NodeOrder nodeOrder2 = {8, {0, 4, 5, 1, 3, 7, 6, 2}};
constexpr NodeOrder nodeOrder4 = {4, {0, 3, 2, 1}};

/// Null for the list's own order.
NodeOrder const * rearrangement(int nodeOrder) {
    switch (nodeOrder) {
    case 1: return &nodeOrder1;
    case 2: return &nodeOrder2;
    case 4: return &nodeOrder4;
    default: return nullptr;
    }
}

} // namespace

void shp_Topology::GetNodeIsoCoords(int node, float * iso) const {
    std::copy_n(nodeLocationTable + 3 * node, 3, iso);
}

void shp_Topology::IsoParCentroidLocation(float (&iso)[3]) const {
    std::copy_n(centerLocation, 3, iso);
}

/// 0 for what the set does not have.
void shp_Topology::callShapeFunctions(float const * iso, float * weights) const {
    for (int i = 0; i < numShapeFunctions; ++i)
        weights[i] = shapeFunctions[i](iso[0], iso[1], iso[2]);
    for (int i = numShapeFunctions; i < baseNodesPerElem; ++i)
        weights[i] = 0;
}

void shp_Topology::CalculateCylindricalCentroidWeights(float const *, float * weights) const {
    if (isCylindrical && cylCentroidWeights)
        std::copy_n(cylCentroidWeights, numIntPtsPerElem, weights);
}

void shp_Topology::GetCenterNodeWeights(float * weights) const {
    bool const hasOwnTable =
        isCylindrical && numGeometryDimensions == 3 && (numNodesPerElem == 9 || numNodesPerElem == 12);
    if (hasOwnTable)
        CalculateCylindricalCentroidWeights(centerLocation, weights);
    else if (centerLocation)
        CalculateNodesShapeWeight(centerLocation, weights);
    else
        std::fill_n(weights, baseNodesPerElem, 0.0f);
}

void shp_Topology::BodyOp(uti_CoordCont3D const & coords, float * weights) const {
    if (bodyOp)
        bodyOp(coords, weights);
}

float shp_Topology::shapeFuncValue(int node, float g, float h, float r) const {
    return shapeFunctions ? shapeFunctions[node](g, h, r) : 0.0f;
}

float shp_Topology::dUdGValue(int node, float g, float h, float r) const {
    return dUdGFunctions ? dUdGFunctions[node](g, h, r) : 0.0f;
}

float shp_Topology::dUdHValue(int node, float g, float h, float r) const {
    return dUdHFunctions ? dUdHFunctions[node](g, h, r) : 0.0f;
}

float shp_Topology::dUdRValue(int node, float g, float h, float r) const {
    return dUdRFunctions ? dUdRFunctions[node](g, h, r) : 0.0f;
}

g3d_Storage shp_Topology::InterpolatePointFromNodes(g3d_Storage const * coords, float const * iso) const {
    if (evaluatePoint)
        return evaluatePoint(coords, iso);
    float weights[maxNodes];
    CalculateNodesShapeWeight(iso, weights);
    double x = 0, y = 0, z = 0;
    for (int i = 0; i < baseNodesPerElem; ++i) {
        double const weight = weights[i];
        x += weight * coords[i].X();
        y += weight * coords[i].Y();
        z += weight * coords[i].Z();
    }
    return {x, y, z};
}

float shp_Topology::InterpolateResultFromNodes(float const * values, float const * iso, float undefinedValue) const {
    for (int i = 0; i < baseNodesPerElem; ++i)
        if (values[i] == undefinedValue)
            return undefinedValue;
    float weights[maxNodes];
    CalculateNodesShapeWeight(iso, weights);
    float sum = 0;
    for (int i = 0; i < baseNodesPerElem; ++i)
        sum += values[i] * weights[i];
    return sum;
}

g3d_XForm shp_Topology::ShapeFunctionJacobian(g3d_Storage const * coords, float * iso) const {
    if (!evaluateJacobian)
        return jacobianAt<double>(*this, coords, iso);
    float rows[4][4];
    evaluateJacobian(coords, iso, rows);
    return g3d_XForm(rows);
}

g3d_XForm shp_Topology::ShapeFunctionJacobian(g3d_Point const * coords, float * iso) const {
    return jacobianAt<float>(*this, coords, iso);
}

void shp_Topology::Centroid(int const * conn, uti_CoordCont3D const & coords, uti_CoordCont3D & centroid,
                            bool useConnectivity) const {
    DistinctNodes nodes;
    if (useConnectivity)
        nodes.add(coords, baseNodesPerElem, [conn](int i) { return conn[i]; });
    else
        nodes.add(coords, baseNodesPerElem, [](int i) { return i; });
    float const factor = 1.0f / static_cast<float>(nodes.count);
    centroid.SetCoord(0, nodes.x * factor, nodes.y * factor, nodes.z * factor);
}

void shp_Topology::IntPtCoord(uti_CoordCont3D const & coords, int const * conn, uti_CoordCont3D & intPoints,
                              int nodeOrder) const {
    intPoints.Grow(baseIntPtsPerElem);

    int const * nodes = conn;
    int rowLength = std::min(baseNodesPerElem, baseNodesPerElem == maxNodes ? 20 : maxNodes);
    shp_ScratchTable<int> rearranged;
    if (NodeOrder const * const order = rearrangement(nodeOrder)) {
        rowLength = std::min(baseNodesPerElem, order->length);
        rearranged.reset(shp_newTable<int>(1, 8));
        std::transform(order->entries, order->entries + rowLength, rearranged.get(),
                       [conn](int entry) { return conn[entry]; });
        nodes = rearranged.get();
    }

    float const * weight = intPointNodeWeights;
    for (int point = 0; point < baseIntPtsPerElem; ++point) {
        PositionSum sum;
        for (int i = 0; i < rowLength; ++i)
            sum.add(coords, nodes[i], *weight++);
        intPoints.SetCoord(point, sum.x, sum.y, sum.z);
    }
}
