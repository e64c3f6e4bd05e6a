#ifndef uti_Coord3D_h
#define uti_Coord3D_h

#include "QVRShpCore_Export.h"
#include "mem_AllocationOperators.h"

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Three floats x, y, z.
class QVRSHPCORE_API uti_Coord3D final : public mem_AllocationOperators {
public:
    constexpr uti_Coord3D() = default; ///< (0, 0, 0)
    /// From its components.
    constexpr uti_Coord3D(float x, float y, float z) : coords{x, y, z} {}
    explicit uti_Coord3D(cls_ReadVisitor const & reader);

    /// Component 0, 1 or 2; other indices are not checked.
    constexpr float operator[](int component) const { return coords[component]; }

    static unsigned int TypeId();
    virtual void DBWrite(cls_WriteVisitor const & writer) const;
    virtual unsigned int DynTypeId() const;
    static void InitializeMetadata(cls_ClassRegistrar & registrar);

private:
    float coords[3] = {0, 0, 0};
};

#endif
