#include "odiC_Utils.h"

#include "atr.h"
#include "odiC_VariableSelection.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <numbers>
#include <span>

namespace {

/// What users read for the value of an enumeration.
struct Text {
    int value;
    char const * text;
};

/// The text of `value`, or `byDefault` when it has no row.
char const * textOf(std::span<Text const> rows, int value, char const * byDefault) {
    auto const row = std::find_if(rows.begin(), rows.end(), [value](Text const & r) { return r.value == value; });
    return row == rows.end() ? byDefault : row->text;
}

// clang-format off
/// What follows "Complex: ", untranslated.
constexpr Text complexDisplays[] = {
    {res_ComplexDisplay_REAL,                     "Real"},
    {res_ComplexDisplay_IMAGINARY,                "Imaginary"},
    {res_ComplexDisplay_COMPLEX_MAGNITUDE,        "Magnitude"},
    {res_ComplexDisplay_COMPLEX_PHASE,            "Phase Angle"},
    {res_ComplexDisplay_COMPLEX_VAL_AT_ANGLE,     "Value at Angle "},
    {res_ComplexDisplay_COMPLEX_ENVELOPE_MIN,     "Envelope Min"},
    {res_ComplexDisplay_COMPLEX_ENVELOPE_MAX,     "Envelope Max"},
    {res_ComplexDisplay_COMPLEX_ENVELOPE_MAX_ABS, "Envelope Max Abs"},
};

/// Whole texts, keys of the translation. The last one spells out a word that the untranslated text shortens.
constexpr Text translatedComplexDisplays[] = {
    {res_ComplexDisplay_REAL,                     "Complex: Real"},
    {res_ComplexDisplay_IMAGINARY,                "Complex: Imaginary"},
    {res_ComplexDisplay_COMPLEX_MAGNITUDE,        "Complex: Magnitude"},
    {res_ComplexDisplay_COMPLEX_PHASE,            "Complex: Phase Angle"},
    {res_ComplexDisplay_COMPLEX_VAL_AT_ANGLE,     "Complex: Value at Angle %s"},
    {res_ComplexDisplay_COMPLEX_ENVELOPE_MIN,     "Complex: Envelope Min"},
    {res_ComplexDisplay_COMPLEX_ENVELOPE_MAX,     "Complex: Envelope Max"},
    {res_ComplexDisplay_COMPLEX_ENVELOPE_MAX_ABS, "Complex: Envelope Max Absolute"},
};

constexpr Text dataTypes[] = {
    {res_DataType_ENUMERATION,       "enumeration"},
    {res_DataType_BOOLEAN,           "boolean"},
    {res_DataType_INTEGER,           "integer"},
    {res_DataType_SCALAR,            "scalar"},
    {res_DataType_VECTOR,            "vector"},
    {res_DataType_QUATERNION_2D,     "quaternion"},
    {res_DataType_QUATERNION_3D,     "quaternion"},
    {res_DataType_TENSOR,            "tensor"},
    {res_DataType_TENSOR_3D_FULL,    "tensor"},
    {res_DataType_TENSOR_3D_PLANAR,  "tensor"},
    {res_DataType_TENSOR_3D_SURFACE, "tensor"},
    {res_DataType_TENSOR_2D_PLANAR,  "tensor"},
    {res_DataType_TENSOR_2D_SURFACE, "tensor"},
};

constexpr Text outputPositions[] = {
    {res_OutputPosition_UNDEFINED_POSITION,             "at undefined position"},
    {res_OutputPosition_NODAL,                          "at nodes"},
    {res_OutputPosition_INTEGRATION_POINT,              "at integration points"},
    {res_OutputPosition_ELEMENT_FACE,                   "on element face"},
    {res_OutputPosition_ELEMENT_NODAL,                  "at element nodes"},
    {res_OutputPosition_WHOLE_ELEMENT,                  "for whole element"},
    {res_OutputPosition_ELEMENT_CENTROID,               "at element centroid"},
    {res_OutputPosition_WHOLE_REGION,                   "for whole region"},
    {res_OutputPosition_WHOLE_PART_INSTANCE,            "for whole part instance"},
    {res_OutputPosition_WHOLE_MODEL,                    "for whole model"},
    {res_OutputPosition_GENERAL_PARTICLE,               "for general particle in space"},
    {res_OutputPosition_SURFACE_NODAL,                  "at surface nodes"},
    {res_OutputPosition_ELEMENT_FACE_INTEGRATION_POINT, "on element face at integration points"},
    {res_OutputPosition_SURFACE_INTEGRATION_POINT,      "at surface integration points"},
};
// clang-format on

using Labels = std::span<char const * const>;

constexpr char const * tractions[] = {"TRVEC", "TRNOR", "TRSHR"};

constexpr char const * designVariables[] = {
    "MAT_PROP_NORMALIZED", "DISP_OPT_VAL", "CTRL_INPUT", "ELEMENT_THICKNESS", "ELEMENT_DELTA_THICKNESS", "DISP_OPT"};

constexpr char const * contactParts[] = {
    "CPRESS",     "CSHEAR1",  "CSHEAR2",   "CSHEARF",    "CDPRESS",   "CDSHEAR1",   "CDSHEAR2",  "CDSHEARF",
    "CNAREA",     "CNORMF",   "COPEN",     "CSLIP1",     "CSLIP2",    "CSLIPEQ",    "CSLIP_PL1", "CSLIP_PL2",
    "CSLIP_PLEQ", "CSLIPR1",  "CSLIPR2",   "CSLIPRMAG",  "CTANDIR1",  "CTANDIR2",   "CSTATUS",   "CRUSHSTATE",
    "CNORMFC",    "CSHEARFC", "CLINELOAD", "CPOINTLOAD", "CGAP0MECH", "CTHICKTOTAL"};
constexpr char const * fluxParts[] = {"FTEMP", "FSLIP"};
constexpr char const * fluxNames[] = {"FLUX"};
constexpr char const * pressureParts[] = {"PPRESS"};
constexpr char const * pressureNames[] = {"P", "PDLOAD"};
constexpr char const * radiationParts[] = {"RADFL", "RADFLA", "RADTL", "RADTLA"};
constexpr char const * velocityParts[] = {"VFTOT", "VNRE", "VNIM", "VNSQ"};
constexpr char const * velocityNames[] = {"VP"};
constexpr char const * otherParts[] = {"AVNSQ"};
constexpr char const * otherNames[] = {"HP", "HPDLOAD", "STAGP"};

/// The labels with a first letter that are results on surfaces: those that contain one of `parts` and those that are
/// one of `names`.
struct SurfaceLabels {
    char initial;
    Labels parts, names;
};

// A label is tested against the row of its first letter alone: no row of another letter counts for it.
constexpr SurfaceLabels surfaceLabels[] = {
    {'C', contactParts, {}},   {'F', fluxParts, fluxNames}, {'P', pressureParts, pressureNames},
    {'R', radiationParts, {}}, {'T', tractions, {}},        {'V', velocityParts, velocityNames},
};
constexpr SurfaceLabels otherSurfaceLabels = {'\0', otherParts, otherNames};

bool containsAny(cow_String const & label, Labels parts) {
    return std::any_of(parts.begin(), parts.end(),
                       [&label](char const * part) { return label.Find(part) != label.Length(); });
}

bool isAny(cow_String const & label, Labels names) {
    return std::any_of(names.begin(), names.end(), [&label](char const * name) { return label == name; });
}

/// An angle in radians as tenths of a degree, rounded half away from zero. Not-a-number is 0; what no int holds is the
/// least one.
int tenthsOfDegree(float angle) {
    double tenths = 0;
    if (angle > 0)
        tenths = double{angle * 1800.0f} / std::numbers::pi + 0.5;
    else if (angle < 0)
        tenths = double{angle * 1800.0f} / std::numbers::pi - 0.5;
    bool const isInt = tenths > INT_MIN - 1.0 && tenths < INT_MAX + 1.0;
    return isInt ? static_cast<int>(tenths) : INT_MIN;
}

} // namespace

void odiC_Utils::Assert(int) {}

void odiC_Utils::AssertMem(void const *) {}

/// An angle in radians as text in degrees, to a tenth: "180", "12.3". Below one degree nothing stands before the point:
/// ".5", "-.5".
cow_String odiC_Utils::ComplexAngleToString(float angle) {
    int const tenths = tenthsOfDegree(angle);
    if (tenths == 0)
        return "0";
    cow_String const digits(tenths);
    int const last = digits.Length() - 1;
    cow_String degrees(digits.CStr(), last);
    if (digits[last] != '0') {
        degrees.Append(".");
        degrees.Append(digits.CStr() + last);
    }
    return degrees;
}

cow_String odiC_Utils::ConvertComplexDisplay(res_ComplexDisplayEnm display, float angle) {
    cow_String text = "Complex: ";
    text.Append(textOf(complexDisplays, display, ""));
    if (display == res_ComplexDisplay_COMPLEX_VAL_AT_ANGLE)
        text.Append(ComplexAngleToString(angle));
    return text;
}

atr_String odiC_Utils::ConvertComplexTranslatedDisplay(res_ComplexDisplayEnm display, float angle,
                                                       QVRBasStringMode mode) {
    char const * const key = textOf(translatedComplexDisplays, display, nullptr);
    if (key == nullptr)
        return {};
    if (display == res_ComplexDisplay_COMPLEX_VAL_AT_ANGLE)
        return atr<cow_String>(key, ComplexAngleToString(angle), mode);
    return atr(key, mode);
}

atr_String odiC_Utils::ConvertDataType(res_DataTypeEnm type, QVRBasStringMode mode) {
    return atr(textOf(dataTypes, type, "invalid data type"), mode);
}

atr_String odiC_Utils::ConvertOutputPosition(res_OutputPositionEnm position, QVRBasStringMode mode) {
    return atr(textOf(outputPositions, position, "invalid position"), mode);
}

bool odiC_Utils::IsSurfaceVariable(odiC_VariableSelection const & selection) {
    return selection.IsSurfaceVariable() || IsSurfaceVariable(selection.VariableLabel(), selection.OutputPosition());
}

bool odiC_Utils::IsSurfaceVariable(cow_String label, res_OutputPositionEnm position) {
    if (position == res_OutputPosition_ELEMENT_FACE || position == res_OutputPosition_ELEMENT_FACE_INTEGRATION_POINT ||
        position == res_OutputPosition_SURFACE_INTEGRATION_POINT)
        return true;
    if (label.Empty())
        return false;
    label.ToUpper();
    auto const * row = std::find_if(surfaceLabels, std::end(surfaceLabels),
                                    [&label](SurfaceLabels const & r) { return r.initial == label[0]; });
    if (row == std::end(surfaceLabels))
        row = &otherSurfaceLabels;
    return containsAny(label, row->parts) || isAny(label, row->names);
}

bool odiC_Utils::IsTractionVariable(cow_String label) {
    label.ToUpper();
    return containsAny(label, tractions);
}

bool odiC_Utils::IsOptimizationVariable(cow_String label) {
    label.ToUpper();
    return isAny(label, designVariables);
}

bool odiC_Utils::IsTensor(res_DataTypeEnm type) {
    return type >= res_DataType_TENSOR && type <= res_DataType_TENSOR_2D_SURFACE;
}
