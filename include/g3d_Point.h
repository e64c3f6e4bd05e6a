#ifndef g3d_Point_h
#define g3d_Point_h

#include "QVRShpCore_Export.h"
#include "mem_AllocationOperators.h"

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A position: four floats x, y, z, w, where w is 1.
class QVRSHPCORE_API g3d_Point : public mem_AllocationOperators {
public:
    constexpr g3d_Point() = default; ///< (0, 0, 0, 1)
    /// (x, y, z, 1).
    constexpr g3d_Point(float xValue, float yValue, float zValue) : x(xValue), y(yValue), z(zValue) {}
    explicit g3d_Point(cls_ReadVisitor const & reader);

    /// The components, to be read or written.
    constexpr float X() const { return x; }
    constexpr float Y() const { return y; }
    constexpr float Z() const { return z; }
    constexpr float W() const { return w; }
    constexpr float & X() { return x; }
    constexpr float & Y() { return y; }
    constexpr float & Z() { return z; }
    constexpr float & W() { return w; }
    constexpr float GetX() const { return x; }
    constexpr float GetY() const { return y; }
    constexpr float GetZ() const { return z; }
    constexpr float GetW() const { return w; }

    /// Sets x, y, z; w stays.
    constexpr void Set(float xValue, float yValue, float zValue) {
        x = xValue;
        y = yValue;
        z = zValue;
    }

    static unsigned int TypeId();
    unsigned int DynTypeId() const { return TypeId(); }
    void DBWrite(cls_WriteVisitor const & writer) const;
    static void InitializeMetadata(cls_ClassRegistrar & registrar);

private:
    float x = 0, y = 0, z = 0, w = 1;
};

#endif
