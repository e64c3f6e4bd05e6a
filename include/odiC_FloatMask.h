#ifndef odiC_FloatMask_h
#define odiC_FloatMask_h

#include "QVRShpCore_Export.h"

/// The base-2 logarithm of a whole number, taken from its exponent as a float: getPower(getFloatMask(i)) is
/// floor(log2 i) for 0 < i <= 2^24. Beyond that it is one more for numbers that float rounds up to a power of two.

/// The 32 bits of `i` as a float.
QVRSHPCORE_API int getFloatMask(int i);
/// The exponent in the bits of a positive float.
QVRSHPCORE_API int getPower(int mask);

#endif
