#ifndef g3d_GeomUtils_h
#define g3d_GeomUtils_h

#include <cmath>

/// Small geometric tests.
class g3d_GeomUtils {
public:
    /// The geometric tolerance of the suite, in the caller's unit of length.
    static constexpr double getTolerance() { return 1e-6; }

    /// True when `a` and `b` differ by at most `tolerance`; false when one of them is not a number.
    static bool EqualValue(double a, double b, double tolerance) { return std::fabs(a - b) <= tolerance; }
};

#endif
