// From integration points, nodes and whole elements to nodes and faces.

#include "catalogued_shapes.h"
#include "shp_InterpolationTables.h"
#include "shp_KeyBit.h"
#include "wip_WIP.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using Floats = std::vector<float>;

constexpr res_OutputPositionEnm atPoints = res_OutputPosition_INTEGRATION_POINT;
constexpr res_OutputPositionEnm atNodes = res_OutputPosition_ELEMENT_NODAL;
constexpr res_OutputPositionEnm forWhole = res_OutputPosition_WHOLE_ELEMENT;
constexpr res_OutputPositionEnm atCentroid = res_OutputPosition_ELEMENT_CENTROID;

constexpr float largest = std::numeric_limits<float>::max();
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float untouched = 99;

Floats randomValues(int count) {
    static std::mt19937 generator(4711);
    std::uniform_real_distribution<float> distribution(-100, 100);
    Floats values(static_cast<std::size_t>(count));
    std::generate(values.begin(), values.end(), [&] { return distribution(generator); });
    return values;
}

using Operation = void (shp_Topology::*)(float const *, res_OutputPositionEnm, float *, int) const;

/// What an operation makes of `values` for `rows` targets.
Floats result(Operation operation, int rows, shp_Topology const & t, Floats const & values,
              res_OutputPositionEnm position, int comps) {
    Floats out(static_cast<std::size_t>(rows * std::max(comps, 1) + 1), untouched);
    (t.*operation)(values.data(), position, out.data(), comps);
    EXPECT_EQ(out.back(), untouched);
    out.pop_back();
    return out;
}
Floats toNodes(shp_Topology const & t, Floats const & values, res_OutputPositionEnm position, int comps) {
    return result(&shp_Topology::StdExtrapToNodes, t.BaseNodesPerElem(), t, values, position, comps);
}
Floats toFaces(shp_Topology const & t, Floats const & values, res_OutputPositionEnm position, int comps) {
    return result(&shp_Topology::ExtrapolateToFaces, t.NumFacesPerElem(), t, values, position, comps);
}
Floats toPlanes(shp_Topology const & t, Floats const & values, res_OutputPositionEnm position, int comps) {
    return result(&shp_Topology::CaxaExtrapToNodes, t.NumNodesPerElem(), t, values, position, comps);
}

/// Weighted sums for `rows` targets, as the definition has them: Sum is the type of the running sum.
template <class Sum>
Floats weightedSums(Floats const & values, float const * weights, int rows, int points, int comps) {
    Floats out;
    for (int row = 0; row < rows; ++row)
        for (int c = 0; c < comps; ++c) {
            Sum sum = 0;
            for (int p = 0; p < points; ++p)
                sum += static_cast<Sum>(values[static_cast<std::size_t>(p * comps + c)] * weights[row * points + p]);
            out.push_back(static_cast<float>(sum));
        }
    return out;
}

/// Collects what goes to the message sink as long as it lives.
class Reports {
public:
    Reports() { omi_Singleton<wip_WIP>::Instance().SetHandler(take, this); }
    ~Reports() { omi_Singleton<wip_WIP>::Instance().SetHandler(nullptr); }
    Reports(Reports const &) = delete;
    Reports & operator=(Reports const &) = delete;

    std::vector<std::string> texts;

private:
    static void take(atr_String const & message, wip_errorLevelEnm level, QVRBasStringMode, void * self) {
        EXPECT_EQ(level, 2);
        static_cast<Reports *>(self)->texts.emplace_back(message.CStr());
    }
};

} // namespace

TEST(Extrapolation, SumsInDoubleToNodesAndInFloatToFaces) {
    forEachShape([](shp_Topology const & t) {
        int const nodes = t.BaseNodesPerElem(), points = t.BaseIntPtsPerElem(), faces = t.NumFacesPerElem();
        for (int comps : {1, 2, 6, 7, 13}) {
            Floats const ofPoints = randomValues(points * comps), ofNodes = randomValues(nodes * comps);
            EXPECT_EQ(toNodes(t, ofPoints, atPoints, comps),
                      weightedSums<double>(ofPoints, t.nodeWeights, nodes, points, comps));
            EXPECT_EQ(toFaces(t, ofPoints, atPoints, comps),
                      weightedSums<float>(ofPoints, t.faceWeights, faces, points, comps));
            EXPECT_EQ(toFaces(t, ofNodes, atNodes, comps),
                      weightedSums<float>(ofNodes, t.faceCenterNodeWeights, faces, nodes, comps));
        }
    });
}

TEST(Extrapolation, FromAFacesPointsToItsNodesSumsTheTableStraightThrough) {
    forEachShape([](shp_Topology const & t) {
        for (int face = 0; face < t.NumFacesPerElem(); ++face) {
            int const points = t.intPtsPerFaceTbl[face], nodes = t.BaseNodesPerFace(face);
            Floats const values = randomValues(points);
            Floats faceNodal(static_cast<std::size_t>(nodes + 1), untouched), expected = faceNodal;
            if (float const * const weights = shp_InterpolationTables::getFacialNdWghtTblPtr(t.options, face)) {
                expected = weightedSums<float>(values, weights, nodes, points, 1);
                expected.push_back(untouched);
            }
            t.ExtrapolateFromFaceIntPtsToFaceNodes(values.data(), faceNodal.data(), face);
            EXPECT_EQ(faceNodal, expected);
        }
    });
}

TEST(Extrapolation, SaturatesAtNodesWhereFacesOverflow) {
    shp_Topology const & t = shapeOf("C3D8");
    for (float sign : {1.0f, -1.0f}) {
        // The largest floats, with the signs of a row of weights: the sum is too large.
        Floats forNode, forFace;
        for (int p = 0; p < 8; ++p) {
            forNode.push_back(std::copysign(largest, sign * t.nodeWeights[p]));
            forFace.push_back(std::copysign(largest, sign * t.faceWeights[p]));
        }
        EXPECT_EQ(toNodes(t, forNode, atPoints, 1)[0], sign * largest);
        EXPECT_EQ(toFaces(t, forFace, atPoints, 1)[0], sign * infinity);
    }
    // A product that is too large by itself, and infinity minus infinity, which is no number.
    EXPECT_EQ(toNodes(t, {0.7f * largest, 0, 0, 0, 0, 0, 0, 0}, atPoints, 1)[0], largest);
    EXPECT_TRUE(std::isnan(toNodes(t, Floats(8, infinity), atPoints, 1)[0]));
}

TEST(EveryPosition, CopiesWhatNeedsNoWeights) {
    shp_Topology const & t = shapeOf("C3D8R");
    Floats const nodal = randomValues(8 * 3), whole = {1, 2, 3};
    EXPECT_EQ(toNodes(t, nodal, atNodes, 3), nodal);
    for (res_OutputPositionEnm position : {forWhole, atCentroid}) {
        Floats all = toNodes(t, whole, position, 3), atAllFaces = toFaces(t, whole, position, 3);
        all.insert(all.end(), atAllFaces.begin(), atAllFaces.end());
        for (std::size_t q = 0; q < all.size(); ++q)
            EXPECT_EQ(all[q], whole[q % 3]);
    }
}

TEST(EveryPosition, WithoutARuleGivesZerosAndIsReportedOnceAndWithoutComponentsWritesNothing) {
    for (int number : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 11, 17})
        for (int comps : {2, 0, -1, -100}) {
            auto const position = static_cast<res_OutputPositionEnm>(number);
            bool const hasRule = number == atPoints || number == atNodes || number == forWhole || number == atCentroid;
            if (hasRule && comps > 0)
                continue;
            Reports reports;
            Floats const none(8, untouched);
            EXPECT_EQ(toNodes(shapeOf("C3D8"), {}, position, comps), comps > 0 ? Floats(16) : none);
            EXPECT_EQ(toFaces(shapeOf("C3D8R"), {}, position, comps), comps > 0 ? Floats(12) : Floats(6, untouched));
            EXPECT_EQ(toPlanes(shapeOf("CAXA41"), Floats(32), position, comps), comps > 0 ? Floats(16) : none);
            std::string const end = ": Unsupported position " + std::to_string(number);
            std::string const node = "shp_Shape::ExtrapolateToNodes" + end,
                              face = "shp_Shape::ExtrapolateToFaces" + end;
            std::vector<std::string> const all = {node, face, node, node}; // of two node planes
            EXPECT_EQ(reports.texts, hasRule ? std::vector<std::string>() : all);
        }
}

TEST(EveryPosition, WithoutATableGivesZeros) {
    shp_Topology const t(keyOf({shp_keyHex, shp_keyNodes20, shp_keyIntPts15, shp_key3D}));
    for (int comps : {2, 0}) {
        EXPECT_EQ(toNodes(t, Floats(30, 1), atPoints, comps), comps > 0 ? Floats(40) : Floats(20, untouched));
        EXPECT_EQ(toFaces(t, Floats(30, 1), atPoints, comps), comps > 0 ? Floats(12) : Floats(6, untouched));
    }
}

// An integration plane's own angle belongs to the interval that ends there; the blend is made in float. A whole
// element's value stands at the first point of its plane's block. 300 components are more than the usual.
TEST(NodePlanes, AreTheFloatBlendOfTheirTwoNeighboursAndOfNoOther) {
    forEachShape([](shp_Topology const & t) {
        if (!t.isCaxaElement)
            return;
        int const mode = t.options.Mode(), last = 2 * mode + 1;
        float const step = 180.0f / static_cast<float>(last);
        for (int comps : {1, 2, 300}) {
            Floats const nodal = randomValues(t.NumNodesPerElem() * comps);
            EXPECT_EQ(toPlanes(t, nodal, atNodes, comps), nodal);

            int const planeSize = comps * t.BaseIntPtsPerElem();
            Floats const values = randomValues((last + 1) * planeSize);
            Floats ofPoints, ofWhole;
            for (int k = 0; k <= mode; ++k) {
                int const lower = std::max((k * last + mode - 1) / mode - 1, 0);
                float const angle = static_cast<float>(k) * (180.0f / static_cast<float>(mode));
                float const share = (angle - static_cast<float>(lower) * step) / step;
                Floats blend;
                for (auto low = values.begin() + lower * planeSize, up = low + planeSize; up != low + 2 * planeSize;
                     ++up)
                    blend.push_back(up[-planeSize] + (*up - up[-planeSize]) * share);
                Floats const points = toNodes(t, blend, atPoints, comps), whole = toNodes(t, blend, forWhole, comps);
                ofPoints.insert(ofPoints.end(), points.begin(), points.end());
                ofWhole.insert(ofWhole.end(), whole.begin(), whole.end());
            }
            EXPECT_EQ(toPlanes(t, values, atPoints, comps), ofPoints);
            EXPECT_EQ(toPlanes(t, values, forWhole, comps), ofWhole);
        }
    });
}
