#ifndef odiC_Utils_h
#define odiC_Utils_h

#include "QVRBasStringMode.h"
#include "QVRShpCore_Export.h"
#include "atr_String.h"
#include "cow_String.h"
#include "odiC_VariableSelection.h"
#include "res_ComplexDisplayEnm.h"
#include "res_DataTypeEnm.h"
#include "res_OutputPositionEnm.h"

/// What the descriptions of results share: texts for the user, the questions that a result's label answers, and the
/// rotations of connectors.
///
/// A quaternion is `[4]`: the vector part (q0, q1, q2), then the scalar q3. The numeric operations check no pointer and
/// no length. Nothing here raises, but for memory that runs out.
class QVRSHPCORE_API odiC_Utils {
public:
    /// Both do nothing.
    static void Assert(int condition);
    static void AssertMem(void const * block);

    /// How a complex result is shown: "Complex: Magnitude", "Complex: Value at Angle 12.5". `angle`, in radians, is
    /// read for res_ComplexDisplay_COMPLEX_VAL_AT_ANGLE alone. An unknown display gives "Complex: ".
    static cow_String ConvertComplexDisplay(res_ComplexDisplayEnm display, float angle);
    /// The same for the user, translated as one text and encoded as `mode` asks; an unknown display gives the empty
    /// text. COMPLEX_ENVELOPE_MAX_ABS reads "Envelope Max Absolute" here.
    static atr_String ConvertComplexTranslatedDisplay(res_ComplexDisplayEnm display, float angle,
                                                      QVRBasStringMode mode);
    /// "scalar", "tensor" and so on, translated; "invalid data type" for types without a word, res_DataType_MATRIX and
    /// res_DataType_ARRAY_1D among them.
    static atr_String ConvertDataType(res_DataTypeEnm type, QVRBasStringMode mode);
    /// "at nodes", "for whole element" and so on, translated; "invalid position" for positions without a name.
    static atr_String ConvertOutputPosition(res_OutputPositionEnm position, QVRBasStringMode mode);

    /// Whether a variable lives on a surface: by its own flag, or by its label and position.
    static bool IsSurfaceVariable(odiC_VariableSelection const & selection);
    /// Whether a result lives on a surface: every result on element faces or at surface integration points does;
    /// elsewhere the label tells, in either case of letters.
    static bool IsSurfaceVariable(cow_String label, res_OutputPositionEnm position);
    /// Whether the label, in either case of letters, names a traction.
    static bool IsTractionVariable(cow_String label);
    /// Whether the label, in either case of letters, is that of a design variable.
    static bool IsOptimizationVariable(cow_String label);
    /// Whether the type is res_DataType_TENSOR or one of its five variants.
    static bool IsTensor(res_DataTypeEnm type);

    /// The images of the x, y and z axes under the rotation `quat[4]`, one behind the other in `axes[9]`, each of
    /// length 1 whatever the norm of the quaternion. False, with `axes` as it was, when an image has no length.
    static bool QuatToRotationVec(float const * quat, float * axes);
    /// The quaternion `quat[4]` of the rotation with the matrix `matrix[9]`, row by row. That is the transpose of what
    /// QuatToRotationVec writes. Always true; a matrix that is no rotation may give infinities or not-a-number. The two
    /// arrays do not overlap.
    static bool XformToQuat(float const * matrix, float * quat);
    /// The mean `quat[4]` of the orientations `quat1[4]` and `quat2[4]` of a bushing's ends: half the swing between
    /// their third axes and half the twist about them. Not-a-number when the third axes are parallel. The swing axis is
    /// told from its slope alone: where it points against the second axis of `quat1`, the result is another one, which
    /// stored results depend on. Any of the three may be the same array. False, with `quat` as it was, when
    /// QuatToRotationVec fails for either end.
    static bool GetBushingConnectorOrientation(float const * quat1, float const * quat2, float * quat);

private:
    static cow_String ComplexAngleToString(float angle);
};

#endif
