#ifndef g3d_Storage_h
#define g3d_Storage_h

#include <cmath>

/// Three doubles x, y, z: a position or a difference of positions.
class g3d_Storage {
public:
    constexpr g3d_Storage() = default; ///< (0, 0, 0)
    /// From its components.
    constexpr g3d_Storage(double xValue, double yValue, double zValue) : x(xValue), y(yValue), z(zValue) {}

    /// The components, to be read or written.
    constexpr double X() const { return x; }
    constexpr double Y() const { return y; }
    constexpr double Z() const { return z; }
    constexpr double & X() { return x; }
    constexpr double & Y() { return y; }
    constexpr double & Z() { return z; }
    constexpr double GetX() const { return x; }
    constexpr double GetY() const { return y; }
    constexpr double GetZ() const { return z; }

    /// Replaces all components.
    constexpr void Set(double xValue, double yValue, double zValue) {
        x = xValue;
        y = yValue;
        z = zValue;
    }

    /// Subtracts component by component.
    constexpr g3d_Storage & operator-=(g3d_Storage const & other) {
        x -= other.x;
        y -= other.y;
        z -= other.z;
        return *this;
    }

private:
    double x = 0, y = 0, z = 0;
};
// Arrays of positions are read as arrays of their components.
static_assert(sizeof(g3d_Storage) == 3 * sizeof(double));

/// Euclidean length.
inline double g3d_Magnitude(g3d_Storage const & v) {
    return std::sqrt(v.X() * v.X() + v.Y() * v.Y() + v.Z() * v.Z());
}

#endif
