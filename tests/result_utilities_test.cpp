// The texts and questions that results share, and the rotations of connectors.

#include "atr_translate.h"
#include "odiC_Utils.h"
#include "odiC_VariableSelection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <complex>
#include <cstring>
#include <limits>
#include <numbers>
#include <random>
#include <set>
#include <sstream>
#include <string>

namespace {

constexpr float undefined = std::numeric_limits<float>::quiet_NaN();

std::string shown(int display, float angle) {
    return odiC_Utils::ConvertComplexDisplay(static_cast<res_ComplexDisplayEnm>(display), angle).CStr();
}
std::string translated(int display, float angle) {
    return odiC_Utils::ConvertComplexTranslatedDisplay(static_cast<res_ComplexDisplayEnm>(display), angle, 0).CStr();
}

// Every tenth of a degree, and what lies short of half a tenth on either side of it. No zero stands before the point.
TEST(ComplexAngle, IsTheNearestTenthOfADegree) {
    auto const degrees = [](double radians) { return shown(4, static_cast<float>(radians)); };
    for (int tenths = -3700; tenths <= 3700; ++tenths) {
        std::ostringstream expected;
        expected << "Complex: Value at Angle " << tenths / 10.0;
        std::string text = expected.str();
        if (tenths != 0 && std::abs(tenths) < 10)
            text.erase(text.find('0'), 1);
        for (double const off : {-0.49, 0.0, 0.49})
            EXPECT_EQ(degrees((tenths + off) * std::numbers::pi / 1800), text) << off;
    }
    EXPECT_EQ(degrees(undefined), degrees(0));
    for (double const beyond : {1e9, -1e9, std::numeric_limits<double>::infinity()})
        EXPECT_EQ(degrees(beyond), "Complex: Value at Angle -214748364.8");
}

// The two forms of a display differ in one word; the translated one is one text, number and all.
TEST(Texts, OfComplexDisplays) {
    std::set<std::string> plains = {"Complex: "};
    for (int display = -1; display <= 8; ++display) {
        bool const known = display >= 0 && display <= 7;
        std::string const plain = shown(display, -0.35f);
        EXPECT_EQ(translated(display, -0.35f), !known ? "" : display == 7 ? plain + "olute" : plain);
        EXPECT_EQ(known, plains.insert(plain).second) << plain;
    }
    atr_translate::SetTranslation([](char const * text) -> char const * {
        return std::strcmp(text, "Complex: Value at Angle %s") == 0 ? "%s Grad" : "?";
    });
    EXPECT_EQ(translated(4, -0.35f) + translated(7, 0), "-20.1 Grad?");
    atr_translate::SetTranslation(nullptr);
}

TEST(Texts, OfTypesAndPositions) {
    std::set<std::string> positions;
    for (int value = -2; value < 20; ++value) {
        auto const type = static_cast<res_DataTypeEnm>(value);
        std::string const text = odiC_Utils::ConvertDataType(type, 0).CStr();
        bool const isTensor = value >= 8 && value <= 13;
        EXPECT_TRUE((text == "tensor") == isTensor && odiC_Utils::IsTensor(type) == isTensor) << value;
        EXPECT_EQ(text == "quaternion", value == 6 || value == 7) << value;
        EXPECT_EQ(text == "invalid data type", value < 0 || value == 5 || value > 13) << value;
        atr_String const position = odiC_Utils::ConvertOutputPosition(static_cast<res_OutputPositionEnm>(value), 0);
        bool const isNameless = value < 0 || value == 11 || (13 <= value && value <= 15) || value > 17;
        EXPECT_EQ(position == "invalid position", isNameless) << value;
        EXPECT_EQ(positions.insert(position.CStr()).second, !isNameless || value == -2) << value;
    }
}

/// That all labels of the one text, and none of the other, are what is asked for.
template <class Question> void expectToTell(Question question, char const * these, char const * notThose) {
    for (bool const expected : {true, false}) {
        std::istringstream labels(expected ? these : notThose);
        for (std::string label; std::getline(labels, label, ',');)
            EXPECT_EQ(question(label.c_str()), expected) << label;
    }
}

// The first letter chooses the words, some of which are sought and some of which are the whole label.
TEST(Labels, TellSurfaceVariablesTractionsAndDesignVariables) {
    expectToTell([](cow_String const & l) { return odiC_Utils::IsSurfaceVariable(l, res_OutputPosition_NODAL); },
                 "cpress,CPRESS   ASSEMBLY_S1,CXCOPENX,C_CTHICKTOTAL,FTEMP2,FXFSLIP,FLUX,PPPRESSURE,P,pdload,R.RADTL,"
                 "RADFLA,TTRVEC,TRSHR,Trnor1,VVNSQ,VP,XAVNSQ1,HP,HPDLOAD,STAGP,AVNSQ",
                 ",S,CPPRESS,PCPRESS,FLUX1,XFLUX,P1,PDLOADS,VPX,HPX,XHP,CAVNSQ,PAVNSQ,STRVEC,XCPRESS,CPRES, P,RAD,1VP,"
                 "FPPRESS");
    expectToTell(odiC_Utils::IsTractionVariable, "TRVEC,strnor,XTRSHRX", ",TRVE,CPRESS");
    expectToTell(odiC_Utils::IsOptimizationVariable,
                 "mat_prop_normalized,DISP_OPT,DISP_OPT_VAL,CTRL_INPUT,ELEMENT_THICKNESS,Element_Delta_Thickness",
                 ",DISP_OPT_,XDISP_OPT,DISP");
}

TEST(Labels, GiveWayToThePositionAndTheFlag) {
    for (int value = -1; value < 20; ++value)
        for (bool const flag : {false, true}) {
            odiC_VariableSelection selected("U", static_cast<res_OutputPositionEnm>(value), {}, {}, {}, "", 0, false, 0,
                                            1, false, flag, false);
            bool const expected = flag || value == 3 || value == 16 || value == 17;
            EXPECT_EQ(odiC_Utils::IsSurfaceVariable(selected), expected) << value;
        }
}

/// w + x i + y j + z k as the pair (w + x i, y + z i).
using Quaternion = std::array<std::complex<double>, 2>;

Quaternion operator*(Quaternion const & a, Quaternion const & b) {
    return {a[0] * b[0] - a[1] * std::conj(b[1]), a[0] * b[1] + a[1] * std::conj(b[0])};
}
/// The turn by `angle` about (x, y, z), which has length 1.
Quaternion turn(double x, double y, double z, double angle) {
    double const s = std::sin(angle / 2);
    return {std::complex(std::cos(angle / 2), s * x), std::complex(s * y, s * z)};
}
Quaternion randomRotation(std::mt19937 & random) {
    std::uniform_real_distribution<double> angle(-3, 3);
    return turn(1, 0, 0, angle(random)) * turn(0, 1, 0, angle(random)) * turn(0, 0, 1, angle(random));
}
std::array<float, 4> floats(Quaternion const & q) {
    auto const [w, x, y, z] = std::array{q[0].real(), q[0].imag(), q[1].real(), q[1].imag()};
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z), static_cast<float>(w)};
}
/// The distance between two quaternions, either of which may have the other sign: the rotation is the same.
double distance(std::array<float, 4> const & found, Quaternion const & q) {
    std::complex<double> const first(found[3], found[0]), second(found[1], found[2]);
    return std::sqrt(std::min(std::norm(first - q[0]) + std::norm(second - q[1]),
                              std::norm(first + q[0]) + std::norm(second + q[1])));
}

// Through the matrix, whose columns are the images of the axes, and back, by whichever component is the largest.
TEST(Rotation, GoesThroughItsMatrixAndBack) {
    std::mt19937 random(20);
    std::array<float, 9> axes, matrix;
    std::array<float, 4> back;
    for (int i = 0; i < 20000; ++i) {
        Quaternion const q = randomRotation(random);
        ASSERT_TRUE(odiC_Utils::QuatToRotationVec(floats(q).data(), axes.data()));
        for (std::size_t k = 0; k < 9; ++k)
            matrix[k % 3 * 3 + k / 3] = axes[k];
        ASSERT_TRUE(odiC_Utils::XformToQuat(matrix.data(), back.data()));
        ASSERT_LT(distance(back, q), 1e-6) << i;
    }
}

// Stored results depend on every bit, also of what is no rotation. The checksum comes from a program of its own.
TEST(Rotation, RoundsWhereItAlwaysDid) {
    std::mt19937 random(22);
    float in[9], out[9 + 4 + 4];
    unsigned int checksum = 0;
    for (int i = 0; i < 1000; ++i) {
        std::generate(in, in + 9, [&] { return static_cast<float>(random()) / 2147483648.0f - 1; });
        in[4] = i % 3 == 0 ? in[0] : in[4];
        odiC_Utils::QuatToRotationVec(in, out);
        odiC_Utils::XformToQuat(in, out + 9);
        odiC_Utils::GetBushingConnectorOrientation(in, in + 4, out + 13);
        for (float const number : out)
            checksum = checksum * 31 + (std::isnan(number) ? 1 : std::bit_cast<unsigned int>(number));
    }
    EXPECT_EQ(checksum, 0xf5de2b60u);
}

// Quaternions far from length 1 can make an axis vanish: then nothing is written.
TEST(Rotation, NeedsAxesWithALength) {
    std::array<float, 9> axes;
    axes.fill(7);
    float const good[4] = {0, 0, 0, 1}, zero[4] = {}, notANumber[4] = {undefined, 0, 0, 0};
    for (int axis = 0; axis < 3; ++axis) {
        float bad[4] = {0, 0, 0, 0.5f};
        bad[axis] = 0.5f;
        EXPECT_FALSE(odiC_Utils::QuatToRotationVec(bad, axes.data()));
        EXPECT_FALSE(odiC_Utils::GetBushingConnectorOrientation(bad, good, axes.data()));
        EXPECT_FALSE(odiC_Utils::GetBushingConnectorOrientation(good, bad, axes.data()));
    }
    EXPECT_EQ(std::count(axes.begin(), axes.end(), 7.0f), 9);
    EXPECT_TRUE(odiC_Utils::QuatToRotationVec(zero, axes.data()));
    EXPECT_EQ(axes, (std::array<float, 9>{-1, 0, 0, 0, -1, 0, 0, 0, -1}));
    EXPECT_TRUE(odiC_Utils::QuatToRotationVec(notANumber, axes.data())) << "not-a-number is no zero length";
}

// One end, a swing about an axis across its third one, and a twist before it, make the other end: the mean is half the
// swing and half the twist. Swing axes on the side of the end's second axis, where the mean is what its name says.
TEST(Bushing, TakesHalfTheSwingAndHalfTheTwist) {
    std::mt19937 random(21);
    std::uniform_real_distribution<double> side(-1.4, 1.4), swing(0.2, 2.9), twist(-1.4, 1.4);
    std::array<float, 4> found;
    for (int i = 0; i < 20000; ++i) {
        Quaternion const end = randomRotation(random);
        double const phi = side(random), theta = swing(random), psi = twist(random);
        double const x = -std::sin(phi), y = std::cos(phi);
        Quaternion const other = end * turn(x, y, 0, theta) * turn(0, 0, 1, psi);
        found = floats(end);
        ASSERT_TRUE(odiC_Utils::GetBushingConnectorOrientation(found.data(), floats(other).data(), found.data()));
        ASSERT_LT(distance(found, end * turn(x, y, 0, theta / 2) * turn(0, 0, 1, psi / 2)), 4e-5) << i;
    }
    EXPECT_TRUE(odiC_Utils::GetBushingConnectorOrientation(found.data(), found.data(), found.data()));
    EXPECT_TRUE(std::isnan(found[0])) << "parallel ends have no swing axis";
}

} // namespace
