#ifndef g3d_Vector_h
#define g3d_Vector_h

#include "QVRShpCore_Export.h"
#include "mem_AllocationOperators.h"

#include <cmath>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A direction: three floats x, y, z.
class QVRSHPCORE_API g3d_Vector : public mem_AllocationOperators {
public:
    constexpr g3d_Vector() = default; ///< (0, 0, 0)
    /// From its components.
    constexpr g3d_Vector(float xValue, float yValue, float zValue) : x(xValue), y(yValue), z(zValue) {}
    explicit g3d_Vector(cls_ReadVisitor const & reader);

    /// The components, to be read or written.
    constexpr float X() const { return x; }
    constexpr float Y() const { return y; }
    constexpr float Z() const { return z; }
    constexpr float & X() { return x; }
    constexpr float & Y() { return y; }
    constexpr float & Z() { return z; }
    constexpr float GetX() const { return x; }
    constexpr float GetY() const { return y; }
    constexpr float GetZ() const { return z; }

    /// Replaces all components.
    constexpr void Set(float xValue, float yValue, float zValue) {
        x = xValue;
        y = yValue;
        z = zValue;
    }

    /// Scales to length 1. The length is formed in double, and each component is divided in double and narrowed, so
    /// that no finite direction is too long or too short for it. The zero vector stays zero.
    void Normalize() {
        double const dx = x, dy = y, dz = z;
        double const length = std::sqrt(dx * dx + dy * dy + dz * dz);
        if (length == 0)
            return;
        x = static_cast<float>(dx / length);
        y = static_cast<float>(dy / length);
        z = static_cast<float>(dz / length);
    }

    static unsigned int TypeId();
    unsigned int DynTypeId() const { return TypeId(); }
    void DBWrite(cls_WriteVisitor const & writer) const;
    static void InitializeMetadata(cls_ClassRegistrar & registrar);

private:
    float x = 0, y = 0, z = 0;
};

#endif
