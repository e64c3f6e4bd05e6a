#ifndef shp_Location_h
#define shp_Location_h

// What the iteration of the inverse location is ruled by, for the one over all element types and for those of one set
// of functions.

/// Factor on the Jacobian's size at the start beyond which the iteration has run away.
inline constexpr float shp_growthLimit = 1000.0f;
/// Determinants below this are singular, whatever the unit of length.
inline constexpr double shp_singularLimit = 1e-10;
/// How well the rows that an update leaves out must agree with it.
inline constexpr double shp_consistencyLimit = 1e-10;
/// Length of an update with which the iteration has converged.
inline constexpr double shp_stepLimit = 0.0005;
inline constexpr int shp_maxUpdates = 100;

/// The unit direction that completes the two tangents of a surface, along g and along h.
template <class Real>
[[gnu::always_inline]] constexpr int shp_completingAxis(Real xg, Real xh, Real yg, Real yh, Real zg, Real zh) {
    if (yh * xg - xh * yg != 0)
        return 2;
    if (zh * xg - xh * zg != 0)
        return 1;
    return 0;
}

#endif
