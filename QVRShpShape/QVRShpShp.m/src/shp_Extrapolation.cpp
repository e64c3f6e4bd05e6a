// From integration points, nodes and whole elements to nodes and faces.

#include "shp_InterpolationTables.h"
#include "shp_MessageTypes.h"
#include "shp_TableMemory.h"
#include "shp_Topology.h"
#include "shp_WeightedSums.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace {

std::size_t product(int a, int b) {
    return static_cast<std::size_t>(a) * static_cast<std::size_t>(b);
}

// Functions of their own: in line, they would cost the sums over integration points the registers that they use.

/// The one point's components for each of `numRows`.
[[gnu::noinline]] void repeatPoint(float const * values, int numRows, int numComps, float * out) {
    for (int row = 0; row < numRows; ++row)
        out = std::copy_n(values, numComps, out);
}

[[gnu::noinline]] void zero(float * out, int numRows, int numComps) {
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
            shp_sumInDouble(values, nodeWeights, nodal, baseNodesPerElem, baseIntPtsPerElem, numComps);
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
            shp_sumInFloat(values, faceWeights, faceValues, numFacesPerElem, baseIntPtsPerElem, numComps);
        else if (hasOutput)
            zero(faceValues, numFacesPerElem, numComps);
        break;
    case res_OutputPosition_ELEMENT_NODAL:
        if (hasOutput)
            shp_sumInFloat(values, faceCenterNodeWeights, faceValues, numFacesPerElem, baseNodesPerElem, numComps);
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
    float const * const weights = shp_InterpolationTables::getFacialNdWghtTblPtr(options, face);
    if (weights && baseNodesPerFaceTbl && intPtsPerFaceTbl)
        shp_sumInFloat(values, weights, faceNodal, baseNodesPerFaceTbl[face], intPtsPerFaceTbl[face], 1);
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
