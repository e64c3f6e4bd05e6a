// From integration points, nodes and whole elements to nodes and faces.

#include "shp_InterpolationTables.h"
#include "shp_MessageTypes.h"
#include "shp_TableMemory.h"
#include "shp_Topology.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>

namespace {

std::size_t product(int a, int b) {
    return static_cast<std::size_t>(a) * static_cast<std::size_t>(b);
}

/// The nearest finite float; not-a-number stays.
float narrow(double sum) {
    constexpr float largest = std::numeric_limits<float>::max();
    if (sum > static_cast<double>(largest))
        return largest;
    if (sum < -static_cast<double>(largest))
        return -largest;
    return static_cast<float>(sum);
}

/// What the sums over the integration points of one element have in common.
struct PointSums {
    float const * values;  ///< [numPoints][numComps]
    float const * weights; ///< [rows][numPoints]
    float * out;           ///< [rows][numComps]
    int numPoints;
    int numComps;
};

/// A tile of `Rows` times `Comps` sums, side by side: each product in float, each sum in double over the points in
/// order.
template <int Rows, int Comps> void sumTile(PointSums const & s, int row, int comp) {
    double sum[Rows][Comps] = {};
    float const * value = s.values + comp;
    float const * weight = s.weights + product(row, s.numPoints);
    for (int point = 0; point < s.numPoints; ++point, value += s.numComps, ++weight)
        for (int i = 0; i < Rows; ++i)
            for (int c = 0; c < Comps; ++c) {
                float const share = value[c] * weight[i * s.numPoints];
                sum[i][c] += static_cast<double>(share);
            }
    float * const out = s.out + product(row, s.numComps) + comp;
    for (int i = 0; i < Rows; ++i)
        for (int c = 0; c < Comps; ++c)
            out[i * s.numComps + c] = narrow(sum[i][c]);
}

/// One component, four rows side by side.
void sumComponent(PointSums const & s, int numRows, int comp) {
    int row = 0;
    for (; row + 4 <= numRows; row += 4)
        sumTile<4, 1>(s, row, comp);
    for (; row < numRows; ++row)
        sumTile<1, 1>(s, row, comp);
}

/// All components, four side by side as long as there are four.
void sumComponents(PointSums const & s, int numRows) {
    int comp = 0;
    for (; comp + 4 <= s.numComps; comp += 4)
        for (int row = 0; row < numRows; ++row)
            sumTile<1, 4>(s, row, comp);
    for (; comp < s.numComps; ++comp)
        sumComponent(s, numRows, comp);
}

/// Float sums over the points in order, `out[numRows][numComps]`; too large a sum is infinite.
void sumInFloat(PointSums const & s, int numRows) {
    for (int row = 0; row < numRows; ++row)
        for (int comp = 0; comp < s.numComps; ++comp) {
            float sum = 0;
            for (int point = 0; point < s.numPoints; ++point)
                sum += s.values[product(point, s.numComps) + static_cast<std::size_t>(comp)] *
                       s.weights[product(row, s.numPoints) + static_cast<std::size_t>(point)];
            s.out[product(row, s.numComps) + static_cast<std::size_t>(comp)] = sum;
        }
}

/// The one point's components for each of `numRows`.
void repeatPoint(float const * values, int numRows, int numComps, float * out) {
    for (int row = 0; row < numRows; ++row)
        out = std::copy_n(values, numComps, out);
}

void zero(float * out, int numRows, int numComps) {
    std::fill_n(out, product(numRows, numComps), 0.0f);
}

/// 180 degrees in `intervals` equal steps, in float.
float stepOf(int intervals) {
    return 180.0f / static_cast<float>(intervals);
}

/// Room for one plane's values: on the stack as long as they fit.
class PlaneScratch {
public:
    explicit PlaneScratch(std::size_t size) {
        if (size > std::size(fixed)) {
            block.reset(static_cast<float *>(mem_OperatorNewThrowBuiltin(size * sizeof(float))));
            values = block.get();
        }
    }
    float * Values() { return values; }

private:
    float fixed[240];
    shp_ScratchTable<float> block;
    float * values = fixed;
};

} // namespace

void shp_Topology::StdExtrapToNodes(float const * values, res_OutputPositionEnm position, float * nodal,
                                    int numComps) const {
    bool const hasOutput = numComps > 0;
    switch (position) {
    case res_OutputPosition_INTEGRATION_POINT:
        if (hasOutput && nodeWeights)
            sumComponents({values, nodeWeights, nodal, baseIntPtsPerElem, numComps}, baseNodesPerElem);
        else if (hasOutput)
            zero(nodal, baseNodesPerElem, numComps);
        break;
    case res_OutputPosition_ELEMENT_NODAL:
        if (hasOutput)
            std::copy_n(values, product(baseNodesPerElem, numComps), nodal);
        break;
    case res_OutputPosition_WHOLE_ELEMENT:
    case res_OutputPosition_ELEMENT_CENTROID:
        if (hasOutput)
            repeatPoint(values, baseNodesPerElem, numComps, nodal);
        break;
    default:
        shp_MessageTypes::ErrorUnsupportedPositionOnMethod("shp_Shape::ExtrapolateToNodes", position);
        if (hasOutput)
            zero(nodal, baseNodesPerElem, numComps);
    }
}

void shp_Topology::ExtrapolateToFaces(float const * values, res_OutputPositionEnm position, float * faceValues,
                                      int numComps) const {
    bool const hasOutput = numComps > 0;
    switch (position) {
    case res_OutputPosition_INTEGRATION_POINT:
        if (hasOutput && faceWeights)
            sumInFloat({values, faceWeights, faceValues, baseIntPtsPerElem, numComps}, numFacesPerElem);
        else if (hasOutput)
            zero(faceValues, numFacesPerElem, numComps);
        break;
    case res_OutputPosition_ELEMENT_NODAL:
        if (hasOutput)
            sumInFloat({values, faceCenterNodeWeights, faceValues, baseNodesPerElem, numComps}, numFacesPerElem);
        break;
    case res_OutputPosition_WHOLE_ELEMENT:
    case res_OutputPosition_ELEMENT_CENTROID:
        if (hasOutput)
            repeatPoint(values, numFacesPerElem, numComps, faceValues);
        break;
    default:
        shp_MessageTypes::ErrorUnsupportedPositionOnMethod("shp_Shape::ExtrapolateToFaces", position);
        if (hasOutput)
            zero(faceValues, numFacesPerElem, numComps);
    }
}

/// The table is read straight through, also where its own row is wider or narrower than the face's point count.
void shp_Topology::ExtrapolateFromFaceIntPtsToFaceNodes(float const * values, float * faceNodal, int face) const {
    float const * weight = shp_InterpolationTables::getFacialNdWghtTblPtr(options, face);
    if (!weight || !baseNodesPerFaceTbl || !intPtsPerFaceTbl)
        return;
    int const numPoints = intPtsPerFaceTbl[face];
    for (int node = 0; node < baseNodesPerFaceTbl[face]; ++node) {
        float sum = 0;
        for (int point = 0; point < numPoints; ++point)
            sum += values[point] * *weight++;
        faceNodal[node] = sum;
    }
}

void shp_Topology::CaxaExtrapToNodes(float const * values, res_OutputPositionEnm position, float * nodal,
                                     int numComps) const {
    int const lastPlane = options.Mode();
    float const step = stepOf(lastPlane);
    std::size_t const planeSize = product(baseNodesPerElem, std::max(numComps, 0));
    for (int plane = 0; plane <= lastPlane; ++plane, nodal += planeSize)
        GetNodalValueFromIntPlanes(static_cast<float>(plane) * step, values, nodal, numComps, position);
}

/// A plane's own angle belongs to the interval that ends there, for a tolerance of 0.001 degrees.
void shp_Topology::GetNeighbourPlaneIndex(float angle, int & lower, int & upper) const {
    int const lastPlane = 2 * options.Mode() + 1;
    float const step = stepOf(lastPlane);
    for (int plane = 1; plane <= lastPlane; ++plane) {
        float const planeAngle = static_cast<float>(plane) * step;
        if (static_cast<float>(static_cast<double>(planeAngle) + 0.001) >= angle) {
            lower = plane - 1;
            upper = plane;
            return;
        }
    }
}

void shp_Topology::GetNodalValueFromIntPlanes(float angle, float const * values, float * nodal, int numComps,
                                              res_OutputPositionEnm position) const {
    int const comps = std::max(numComps, 0);
    if (position == res_OutputPosition_ELEMENT_NODAL) {
        // Cut towards zero; written so that not-a-number, from a mode of 0, is plane 0.
        float const planes = angle / stepOf(options.Mode());
        std::size_t const plane = planes >= 1 ? static_cast<std::size_t>(planes) : 0;
        StdExtrapToNodes(values + plane * product(baseNodesPerElem, comps), position, nodal, numComps);
        return;
    }

    int lower = 2 * options.Mode();
    int upper = lower + 1;
    GetNeighbourPlaneIndex(angle, lower, upper);
    float const step = stepOf(2 * options.Mode() + 1);
    float const fraction = (angle - static_cast<float>(lower) * step) / step;

    // A whole element's value is read from the first point of the blend, which a plane without points lacks.
    std::size_t const size = product(baseIntPtsPerElem, comps);
    std::size_t const roomForOne = std::max(size, static_cast<std::size_t>(comps));
    float const * const before = values + static_cast<std::size_t>(lower) * size;
    float const * const after = values + static_cast<std::size_t>(upper) * size;
    PlaneScratch scratch(roomForOne);
    float * const blend = scratch.Values();
    for (std::size_t q = 0; q < size; ++q)
        blend[q] = before[q] + (after[q] - before[q]) * fraction;
    std::fill(blend + size, blend + roomForOne, 0.0f);
    StdExtrapToNodes(blend, position, nodal, numComps);
}
