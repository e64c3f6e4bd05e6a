// The texts and questions that results share, and the rotations of connectors.

#include "atr_translate.h"
#include "odiC_Utils.h"
#include "odiC_VariableSelection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <random>
#include <set>
#include <string>

namespace {

constexpr float undefined = std::numeric_limits<float>::quiet_NaN();
constexpr auto atAngle = res_ComplexDisplay_COMPLEX_VAL_AT_ANGLE;
constexpr double pi = std::numbers::pi;

std::string degrees(float radians) {
    std::string const text = odiC_Utils::ConvertComplexDisplay(atAngle, radians).CStr();
    EXPECT_EQ(text.rfind("Complex: Value at Angle ", 0), 0u);
    return text.substr(std::strlen("Complex: Value at Angle "));
}

// Every tenth of a degree, and what lies short of half a tenth on either side of it.
TEST(ComplexAngle, IsTheNearestTenthOfADegree) {
    for (int tenths = -3700; tenths <= 3700; ++tenths) {
        int const size = std::abs(tenths);
        std::string expected = tenths < 0 ? "-" : "";
        if (size >= 10 || size == 0)
            expected += std::to_string(size / 10);
        if (size % 10 != 0)
            expected += "." + std::to_string(size % 10);
        for (double const off : {-0.49, 0.0, 0.49})
            EXPECT_EQ(degrees(static_cast<float>((tenths + off) * pi / 1800)), expected) << tenths << " " << off;
    }
    EXPECT_EQ(degrees(0.001f), ".1");
    EXPECT_EQ(degrees(undefined), "0");
    for (float const beyond : {1e9f, -1e9f, std::numeric_limits<float>::infinity()})
        EXPECT_EQ(degrees(beyond), "-214748364.8");
}

// The two forms of a display differ in one word; the translated one is one text, number and all.
TEST(Texts, OfComplexDisplays) {
    auto const translated = [](int display) {
        return std::string(
            odiC_Utils::ConvertComplexTranslatedDisplay(static_cast<res_ComplexDisplayEnm>(display), -0.35f, 0).CStr());
    };
    std::set<std::string> plains;
    for (int display = -1; display <= 8; ++display) {
        bool const known = display >= 0 && display <= 7;
        std::string const plain =
            odiC_Utils::ConvertComplexDisplay(static_cast<res_ComplexDisplayEnm>(display), -0.35f).CStr();
        EXPECT_EQ(translated(display), !known ? "" : display == 7 ? plain + "olute" : plain);
        EXPECT_EQ(known, plains.insert(plain).second && plain != "Complex: ") << plain;
    }
    atr_translate::SetTranslation([](char const * text) -> char const * {
        return std::strcmp(text, "Complex: Value at Angle %s") == 0 ? "%s Grad" : "?";
    });
    EXPECT_EQ(translated(atAngle), "-20.1 Grad");
    EXPECT_EQ(translated(7), "?");
    atr_translate::SetTranslation(nullptr);
}

TEST(Texts, OfTypesAndPositions) {
    for (int value = -2; value < 20; ++value) {
        std::string const type = odiC_Utils::ConvertDataType(static_cast<res_DataTypeEnm>(value), 0).CStr();
        EXPECT_EQ(type == "tensor", odiC_Utils::IsTensor(static_cast<res_DataTypeEnm>(value))) << value;
        EXPECT_EQ(type == "tensor", value >= 8 && value <= 13) << value;
        EXPECT_EQ(type == "invalid data type", value < 0 || value == 5 || value > 13) << value;
    }
    for (int const nameless : {-1, 11, 13, 14, 15, 18})
        EXPECT_STREQ(odiC_Utils::ConvertOutputPosition(static_cast<res_OutputPositionEnm>(nameless), 0).CStr(),
                     "invalid position");
}

bool onSurface(char const * label, int position = 1) {
    return odiC_Utils::IsSurfaceVariable(label, static_cast<res_OutputPositionEnm>(position));
}

// The first letter chooses the words, some of which are sought and some of which are the whole label.
TEST(SurfaceVariable, IsToldByItsLabel) {
    for (char const * label : {"cpress",   "CPRESS   ASSEMBLY_S1",
                               "CXCOPENX", "C_CTHICKTOTAL",
                               "FTEMP2",   "FXFSLIP",
                               "FLUX",     "PPPRESSURE",
                               "P",        "pdload",
                               "R.RADTL",  "RADFLA",
                               "TTRVEC",   "TRSHR",
                               "Trnor1",   "VVNSQ",
                               "VP",       "XAVNSQ1",
                               "HP",       "HPDLOAD",
                               "STAGP",    "AVNSQ"})
        EXPECT_TRUE(onSurface(label)) << label;
    for (char const * label :
         {"",    "S",      "CPPRESS", "PCPRESS", "FLUX1",   "XFLUX", "P1", "PDLOADS", "VPX", "HPX",
          "XHP", "CAVNSQ", "PAVNSQ",  "STRVEC",  "XCPRESS", "CPRES", " P", "RAD",     "1VP", "FPPRESS"})
        EXPECT_FALSE(onSurface(label)) << label;
}

TEST(SurfaceVariable, IsToldByItsPositionAndFlag) {
    for (int position = -1; position < 20; ++position) {
        bool const onFace = position == 3 || position == 16 || position == 17;
        EXPECT_EQ(onSurface("U", position), onFace) << position;
        EXPECT_EQ(onSurface("", position), onFace) << position;
    }
    auto const selected = [](char const * label, res_OutputPositionEnm position, bool flag) {
        return odiC_Utils::IsSurfaceVariable(
            odiC_VariableSelection(label, position, res_DataType_SCALAR, res_StorageType_FLOAT,
                                   calC_VariableRefinementTypeEnm{}, "", 0xffffffff, false, 0, 1, false, flag, false));
    };
    EXPECT_TRUE(selected("U", res_OutputPosition_NODAL, true));
    EXPECT_FALSE(selected("U", res_OutputPosition_NODAL, false));
    EXPECT_TRUE(selected("COPEN", res_OutputPosition_NODAL, false));
    EXPECT_TRUE(selected("U", res_OutputPosition_ELEMENT_FACE, false));
}

TEST(Labels, OfTractionsAndDesignVariables) {
    for (char const * label : {"TRVEC", "strnor", "XTRSHRX"})
        EXPECT_TRUE(odiC_Utils::IsTractionVariable(label)) << label;
    for (char const * label : {"", "TRVE", "CPRESS"})
        EXPECT_FALSE(odiC_Utils::IsTractionVariable(label)) << label;
    for (char const * label : {"mat_prop_normalized", "DISP_OPT", "DISP_OPT_VAL", "CTRL_INPUT", "ELEMENT_THICKNESS",
                               "Element_Delta_Thickness"})
        EXPECT_TRUE(odiC_Utils::IsOptimizationVariable(label)) << label;
    for (char const * label : {"", "DISP_OPT_", "XDISP_OPT", "DISP"})
        EXPECT_FALSE(odiC_Utils::IsOptimizationVariable(label)) << label;
}

/// Hamilton's product in double: vector part, then scalar.
struct Quaternion {
    double x, y, z, w;
    friend Quaternion operator*(Quaternion const & a, Quaternion const & b) {
        return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y, a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
                a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
    }
    Quaternion Conjugate() const { return {-x, -y, -z, w}; }
    std::array<float, 4> Floats() const {
        return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z), static_cast<float>(w)};
    }
};

Quaternion randomRotation(std::mt19937 & random) {
    std::normal_distribution<double> component;
    Quaternion const q{component(random), component(random), component(random), component(random)};
    double const length = std::hypot(std::hypot(q.x, q.y), std::hypot(q.z, q.w));
    return {q.x / length, q.y / length, q.z / length, q.w / length};
}

/// The turn by `angle` about (x, y, z), which has length 1.
Quaternion turn(double x, double y, double z, double angle) {
    double const s = std::sin(angle / 2);
    return {s * x, s * y, s * z, std::cos(angle / 2)};
}

/// The largest difference between two quaternions of the same rotation, either of which may have the other sign.
double distance(std::array<float, 4> const & found, Quaternion const & expected) {
    double same = 0, opposite = 0;
    double const components[] = {expected.x, expected.y, expected.z, expected.w};
    for (std::size_t i = 0; i < 4; ++i) {
        same = std::max(same, std::abs(double{found[i]} - components[i]));
        opposite = std::max(opposite, std::abs(double{found[i]} + components[i]));
    }
    return std::min(same, opposite);
}

// Through the matrix and back, by whichever component is the largest; the axes against the product q v q*.
TEST(Rotation, GoesThroughItsMatrixAndBack) {
    std::mt19937 random(20);
    for (int i = 0; i < 20000; ++i) {
        Quaternion const q = randomRotation(random);
        std::array<float, 9> axes, matrix;
        ASSERT_TRUE(odiC_Utils::QuatToRotationVec(q.Floats().data(), axes.data()));
        for (std::size_t axis = 0; axis < 3; ++axis) {
            Quaternion const unit{axis == 0 ? 1.0 : 0, axis == 1 ? 1.0 : 0, axis == 2 ? 1.0 : 0, 0};
            Quaternion const image = q * unit * q.Conjugate();
            double const expected[] = {image.x, image.y, image.z};
            for (std::size_t k = 0; k < 3; ++k) {
                ASSERT_NEAR(axes[3 * axis + k], expected[k], 1e-6);
                matrix[3 * k + axis] = axes[3 * axis + k];
            }
        }
        std::array<float, 4> back;
        ASSERT_TRUE(odiC_Utils::XformToQuat(matrix.data(), back.data()));
        ASSERT_LT(distance(back, q), 1e-6) << i;
    }
}

// Quaternions far from length 1 can make an axis vanish: then nothing is written.
TEST(Rotation, NeedsAxesWithALength) {
    float const good[4] = {0, 0, 0, 1};
    for (int axis = 0; axis < 3; ++axis) {
        float bad[4] = {0, 0, 0, 0.5f};
        bad[axis] = 0.5f;
        std::array<float, 9> axes;
        axes.fill(7);
        EXPECT_FALSE(odiC_Utils::QuatToRotationVec(bad, axes.data()));
        EXPECT_FALSE(odiC_Utils::GetBushingConnectorOrientation(bad, good, axes.data()));
        EXPECT_FALSE(odiC_Utils::GetBushingConnectorOrientation(good, bad, axes.data()));
        EXPECT_EQ(std::count(axes.begin(), axes.end(), 7.0f), 9);
    }
    float const zero[4] = {};
    std::array<float, 9> axes;
    EXPECT_TRUE(odiC_Utils::QuatToRotationVec(zero, axes.data()));
    EXPECT_EQ(axes, (std::array<float, 9>{-1, 0, 0, 0, -1, 0, 0, 0, -1}));
    float const notANumber[4] = {undefined, 0, 0, 0};
    EXPECT_TRUE(odiC_Utils::QuatToRotationVec(notANumber, axes.data())) << "not-a-number is no zero length";
}

// One end, a swing about an axis across its third one, and a twist before it, make the other end: the mean is half the
// swing and half the twist. Swing axes on the side of the end's second axis, where the mean is what its name says.
TEST(Bushing, TakesHalfTheSwingAndHalfTheTwist) {
    std::mt19937 random(21);
    std::uniform_real_distribution<double> side(-1.4, 1.4), swing(0.2, 2.9), twist(-1.4, 1.4);
    for (int i = 0; i < 20000; ++i) {
        Quaternion const end = randomRotation(random);
        double const phi = side(random), theta = swing(random), psi = twist(random);
        double const x = -std::sin(phi), y = std::cos(phi);
        Quaternion const other = end * turn(x, y, 0, theta) * turn(0, 0, 1, psi);
        Quaternion const mean = end * turn(x, y, 0, theta / 2) * turn(0, 0, 1, psi / 2);
        std::array<float, 4> found = end.Floats();
        ASSERT_TRUE(odiC_Utils::GetBushingConnectorOrientation(found.data(), other.Floats().data(), found.data()));
        ASSERT_LT(distance(found, mean), 2e-5) << phi << " " << theta << " " << psi;
    }
    std::array<float, 4> found;
    float const same[4] = {0, 0, 0, 1};
    EXPECT_TRUE(odiC_Utils::GetBushingConnectorOrientation(same, same, found.data()));
    EXPECT_TRUE(std::isnan(found[0])) << "parallel ends have no swing axis";
}

} // namespace
