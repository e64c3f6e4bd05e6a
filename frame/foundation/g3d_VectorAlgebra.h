#ifndef g3d_VectorAlgebra_h
#define g3d_VectorAlgebra_h

#include "g3d_Storage.h"

// What the geometric operations compute with three doubles.

constexpr g3d_Storage g3d_difference(g3d_Storage const & a, g3d_Storage const & b) {
    return {a.X() - b.X(), a.Y() - b.Y(), a.Z() - b.Z()};
}

/// a + factor * b
constexpr g3d_Storage g3d_moved(g3d_Storage const & a, double factor, g3d_Storage const & b) {
    return {a.X() + factor * b.X(), a.Y() + factor * b.Y(), a.Z() + factor * b.Z()};
}

constexpr double g3d_dot(g3d_Storage const & a, g3d_Storage const & b) {
    return a.X() * b.X() + a.Y() * b.Y() + a.Z() * b.Z();
}

constexpr g3d_Storage g3d_cross(g3d_Storage const & a, g3d_Storage const & b) {
    return {a.Y() * b.Z() - a.Z() * b.Y(), a.Z() * b.X() - a.X() * b.Z(), a.X() * b.Y() - a.Y() * b.X()};
}

#endif
