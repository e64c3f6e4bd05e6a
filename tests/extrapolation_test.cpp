// From integration points, nodes and whole elements to nodes and faces.

#include "omi_BtreeIterator.h"
#include "shp_InterpolationTables.h"
#include "shp_KeyBit.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"
#include "wip_WIP.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using Floats = std::vector<float>;

constexpr res_OutputPositionEnm atPoints = res_OutputPosition_INTEGRATION_POINT;
constexpr res_OutputPositionEnm atNodes = res_OutputPosition_ELEMENT_NODAL;
constexpr res_OutputPositionEnm forWhole = res_OutputPosition_WHOLE_ELEMENT;

constexpr float largest = std::numeric_limits<float>::max();
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float untouched = 99;

shp_ShapeDictionary & dictionary() {
    return omi_Singleton<shp_ShapeDictionary>::Instance();
}

shp_Shape const & shapeOf(char const * label) {
    return *dictionary().GetShape(label);
}

template <class Check> void forEachLabel(Check check) {
    omi_BtreeIterator<cow_String, void *> labels(dictionary().Keys());
    for (bool isLabel = labels.First(); isLabel; isLabel = labels.Next()) {
        SCOPED_TRACE(labels.CurrentKey().CStr());
        check(*dictionary().GetShape(labels.CurrentKey()));
    }
}

Floats randomValues(int count) {
    static std::mt19937 generator(4711);
    std::uniform_real_distribution<float> distribution(-100, 100);
    Floats values(static_cast<std::size_t>(count));
    std::generate(values.begin(), values.end(), [&] { return distribution(generator); });
    return values;
}

bool sameBits(Floats const & a, Floats const & b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(float)) == 0);
}

Floats toNodes(shp_Topology const & t, Floats const & values, res_OutputPositionEnm position, int comps) {
    Floats nodal(static_cast<std::size_t>(t.BaseNodesPerElem() * std::max(comps, 1)), untouched);
    t.StdExtrapToNodes(values.data(), position, nodal.data(), comps);
    return nodal;
}

Floats toFaces(shp_Topology const & t, Floats const & values, res_OutputPositionEnm position, int comps) {
    Floats faces(static_cast<std::size_t>(t.NumFacesPerElem() * std::max(comps, 1)), untouched);
    t.ExtrapolateToFaces(values.data(), position, faces.data(), comps);
    return faces;
}

Floats toPlanes(shp_Topology const & t, Floats const & values, res_OutputPositionEnm position, int comps) {
    Floats nodal(static_cast<std::size_t>(t.NumNodesPerElem() * std::max(comps, 1)), untouched);
    t.CaxaExtrapToNodes(values.data(), position, nodal.data(), comps);
    return nodal;
}

/// Weighted sums for `rows` targets, as the definition has them: Sum is the type of the running sum.
template <class Sum>
Floats weightedSums(Floats const & values, float const * weights, int rows, int points, int comps) {
    Floats out(static_cast<std::size_t>(rows * comps));
    for (int row = 0; row < rows; ++row)
        for (int c = 0; c < comps; ++c) {
            Sum sum = 0;
            for (int p = 0; p < points; ++p) {
                float const product = values[static_cast<std::size_t>(p * comps + c)] * weights[row * points + p];
                sum += static_cast<Sum>(product);
            }
            out[static_cast<std::size_t>(row * comps + c)] = static_cast<float>(sum);
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

template <class Check> void forEachCaxa(Check check) {
    forEachLabel([&](shp_Topology const & t) {
        if (t.isCaxaElement)
            check(t, t.options.Mode());
    });
}

/// A value for each integration plane of a CAXA element, the same at all its points.
template <class Field> Floats onIntPlanes(shp_Topology const & t, Field field) {
    int const last = 2 * t.options.Mode() + 1;
    Floats values;
    for (int plane = 0; plane <= last; ++plane)
        values.insert(values.end(), static_cast<std::size_t>(t.BaseIntPtsPerElem()),
                      static_cast<float>(field(plane * 180.0 / last)));
    return values;
}

} // namespace

TEST(ToNodes, SumsInDoubleOverThePointsInOrder) {
    forEachLabel([](shp_Topology const & t) {
        for (int comps : {1, 2, 3, 4, 6, 9}) {
            Floats const values = randomValues(t.BaseIntPtsPerElem() * comps);
            EXPECT_TRUE(sameBits(
                toNodes(t, values, atPoints, comps),
                weightedSums<double>(values, t.nodeWeights, t.BaseNodesPerElem(), t.BaseIntPtsPerElem(), comps)));
        }
    });
}

TEST(ToNodes, CarriesALinearFieldExactly) {
    shp_Topology const & t = shapeOf("C3D20R");
    auto const field = [](float const * iso) { return 3 + 2 * iso[0] - iso[1] + 5 * iso[2]; };
    Floats values;
    for (int p = 0; p < 8; ++p)
        values.push_back(field(t.intPtLocationTable + 3 * p));
    Floats const nodal = toNodes(t, values, atPoints, 1);
    for (int i = 0; i < 20; ++i)
        EXPECT_NEAR(nodal[static_cast<std::size_t>(i)], field(t.IsoNodeLocationTable() + 3 * i), 1e-5) << i;
}

TEST(ToNodes, SaturatesWhereFacesOverflow) {
    shp_Topology const & t = shapeOf("C3D8");
    // The largest floats, with the signs of a row of weights: the sum is too large.
    auto const alongRow = [](float const * weights, float sign) {
        Floats values;
        for (int p = 0; p < 8; ++p)
            values.push_back(std::copysign(largest, sign * weights[p]));
        return values;
    };
    EXPECT_EQ(toNodes(t, alongRow(t.nodeWeights, 1), atPoints, 1)[0], largest);
    EXPECT_EQ(toNodes(t, alongRow(t.nodeWeights, -1), atPoints, 1)[0], -largest);
    EXPECT_EQ(toFaces(t, alongRow(t.faceWeights, 1), atPoints, 1)[0], infinity);
    EXPECT_EQ(toFaces(t, alongRow(t.faceWeights, -1), atPoints, 1)[0], -infinity);
    // Products below overflow whose sum is above it, and infinity minus infinity, which is no number.
    EXPECT_EQ(toNodes(t, {0.7f * largest, 0, 0, 0, 0, 0, 0, 0}, atPoints, 1)[0], largest);
    for (float value : toNodes(t, Floats(8, infinity), atPoints, 1))
        EXPECT_TRUE(std::isnan(value));
}

TEST(ToFaces, SumsInFloatOverPointsOrNodes) {
    forEachLabel([](shp_Topology const & t) {
        for (int comps : {1, 6}) {
            Floats const points = randomValues(t.BaseIntPtsPerElem() * comps);
            EXPECT_TRUE(sameBits(
                toFaces(t, points, atPoints, comps),
                weightedSums<float>(points, t.faceWeights, t.NumFacesPerElem(), t.BaseIntPtsPerElem(), comps)));
            Floats const nodes = randomValues(t.BaseNodesPerElem() * comps);
            EXPECT_TRUE(sameBits(
                toFaces(t, nodes, atNodes, comps),
                weightedSums<float>(nodes, t.faceCenterNodeWeights, t.NumFacesPerElem(), t.BaseNodesPerElem(), comps)));
        }
    });
}

TEST(EveryPosition, CopiesWhatNeedsNoWeights) {
    shp_Topology const & t = shapeOf("C3D8R");
    Floats const nodal = randomValues(8 * 3);
    EXPECT_EQ(toNodes(t, nodal, atNodes, 3), nodal);
    Floats const whole = {1, 2, 3};
    for (res_OutputPositionEnm position : {forWhole, res_OutputPosition_ELEMENT_CENTROID}) {
        Floats const atAllNodes = toNodes(t, whole, position, 3), atAllFaces = toFaces(t, whole, position, 3);
        for (std::size_t q = 0; q < atAllNodes.size(); ++q)
            EXPECT_EQ(atAllNodes[q], whole[q % 3]);
        for (std::size_t q = 0; q < atAllFaces.size(); ++q)
            EXPECT_EQ(atAllFaces[q], whole[q % 3]);
    }
}

TEST(EveryPosition, ThatHasNoRuleIsReportedOnceAndGivesZeros) {
    shp_Topology const & t = shapeOf("C3D8");
    for (int number : {-1, 0, 1, 3, 7, 11, 17}) {
        auto const position = static_cast<res_OutputPositionEnm>(number);
        Reports reports;
        EXPECT_EQ(toNodes(t, {}, position, 2), Floats(16, 0.0f));
        EXPECT_EQ(toFaces(t, {}, position, 2), Floats(12, 0.0f));
        std::string const end = ": Unsupported position " + std::to_string(number);
        EXPECT_EQ(reports.texts, (std::vector<std::string>{"shp_Shape::ExtrapolateToNodes" + end,
                                                           "shp_Shape::ExtrapolateToFaces" + end}));
    }
}

TEST(EveryPosition, WithoutComponentsWritesNothingAndIsReportedAllTheSame) {
    for (int comps : {0, -1, -100}) {
        Reports reports;
        for (int number : {1, 2, 4, 5, 6}) {
            auto const position = static_cast<res_OutputPositionEnm>(number);
            EXPECT_EQ(toNodes(shapeOf("C3D8"), {}, position, comps), Floats(8, untouched));
            EXPECT_EQ(toFaces(shapeOf("C3D8"), {}, position, comps), Floats(6, untouched));
            EXPECT_EQ(toPlanes(shapeOf("CAXA41"), {}, position, comps), Floats(8, untouched));
        }
        EXPECT_EQ(reports.texts.size(), 4u); // to nodes, to faces, and to each of two node planes
    }
}

TEST(FaceNodes, GetTheStraightSumsOfTheirFacesPoints) {
    forEachLabel([](shp_Topology const & t) {
        for (int face = 0; face < t.NumFacesPerElem(); ++face) {
            int const points = t.intPtsPerFaceTbl[face], nodes = t.BaseNodesPerFace(face);
            Floats const values = randomValues(points);
            Floats faceNodal(static_cast<std::size_t>(nodes + 1), untouched);
            t.ExtrapolateFromFaceIntPtsToFaceNodes(values.data(), faceNodal.data(), face);
            EXPECT_EQ(faceNodal.back(), untouched);
            faceNodal.pop_back();
            float const * const weights = shp_InterpolationTables::getFacialNdWghtTblPtr(t.options, face);
            if (weights) {
                EXPECT_TRUE(sameBits(faceNodal, weightedSums<float>(values, weights, nodes, points, 1)));
            } else {
                EXPECT_EQ(faceNodal, Floats(faceNodal.size(), untouched));
            }
        }
    });
}

// A field that is linear in the angle is met exactly between planes, whatever the number of planes.
TEST(NodePlanes, LieOnTheLineThroughTheirNeighbours) {
    forEachCaxa([](shp_Topology const & t, int mode) {
        auto const field = [](double angle) { return 5 + 0.25 * angle; };
        Floats const nodal = toPlanes(t, onIntPlanes(t, field), atPoints, 1);
        for (int k = 0; k <= mode; ++k)
            for (int i = 0; i < t.BaseNodesPerElem(); ++i)
                EXPECT_NEAR(nodal[static_cast<std::size_t>(k * t.BaseNodesPerElem() + i)], field(k * 180.0 / mode),
                            2e-4)
                    << "plane " << k << ", node " << i;
    });
}

// An integration plane's own angle belongs to the interval that ends there; the blend is made in float.
TEST(NodePlanes, AreTheFloatBlendOfTheirTwoNeighboursAndOfNoOther) {
    forEachCaxa([](shp_Topology const & t, int mode) {
        int const last = 2 * mode + 1, planeSize = 2 * t.BaseIntPtsPerElem();
        float const step = 180.0f / static_cast<float>(last);
        Floats const values = randomValues((last + 1) * planeSize);
        Floats const nodal = toPlanes(t, values, atPoints, 2);
        auto first = nodal.begin();
        for (int k = 0; k <= mode; ++k) {
            int const lower = std::max((k * last + mode - 1) / mode - 1, 0);
            float const angle = static_cast<float>(k) * (180.0f / static_cast<float>(mode));
            float const share = (angle - static_cast<float>(lower) * step) / step;
            Floats blend;
            for (auto low = values.begin() + lower * planeSize, up = low + planeSize; up != low + 2 * planeSize; ++up)
                blend.push_back(up[-planeSize] + (*up - up[-planeSize]) * share);
            Floats const expected = toNodes(t, blend, atPoints, 2);
            auto const end = first + static_cast<std::ptrdiff_t>(expected.size());
            EXPECT_TRUE(sameBits({first, end}, expected)) << "plane " << k;
            first = end;
        }
    });
}

TEST(NodePlanes, CopyNodalValuesAndBlendWholeElementValues) {
    forEachCaxa([](shp_Topology const & t, int mode) {
        Floats const nodal = randomValues(t.NumNodesPerElem() * 2);
        EXPECT_EQ(toPlanes(t, nodal, atNodes, 2), nodal);

        // One block per integration plane, with only its first point read.
        Floats blocks = onIntPlanes(t, [](double angle) { return angle; });
        for (std::size_t q = 0; q < blocks.size(); ++q)
            if (q % static_cast<std::size_t>(t.BaseIntPtsPerElem()) != 0)
                blocks[q] = 1e6f;
        Floats const whole = toPlanes(t, blocks, forWhole, 1);
        for (int k = 0; k <= mode; ++k)
            EXPECT_NEAR(whole[static_cast<std::size_t>(k * t.BaseNodesPerElem())], k * 180.0 / mode, 1e-3);

        Reports reports;
        Floats const none = toPlanes(t, blocks, res_OutputPosition_NODAL, 1);
        EXPECT_EQ(none, Floats(none.size(), 0.0f));
        EXPECT_EQ(reports.texts.size(), static_cast<std::size_t>(mode + 1));
    });
}

TEST(NodePlanes, WithMoreComponentsThanTheUsualAreTheSameBits) {
    shp_Topology const & t = shapeOf("CAXA83");
    int const points = 8 * t.BaseIntPtsPerElem(), comps = 300;
    Floats const values = randomValues(points * comps);
    Floats const together = toPlanes(t, values, atPoints, comps);
    for (int c : {0, 1, 150, 299}) {
        Floats single;
        for (int p = 0; p < points; ++p)
            single.push_back(values[static_cast<std::size_t>(p * comps + c)]);
        Floats const alone = toPlanes(t, single, atPoints, 1);
        for (int i = 0; i < t.NumNodesPerElem(); ++i)
            EXPECT_EQ(together[static_cast<std::size_t>(i * comps + c)], alone[static_cast<std::size_t>(i)]);
    }
}
