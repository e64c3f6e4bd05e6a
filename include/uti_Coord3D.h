#ifndef uti_Coord3D_h
#define uti_Coord3D_h

#include "QVRShpCore_Export.h"

/// Three floats x, y, z.
class QVRSHPCORE_API uti_Coord3D {
public:
    constexpr uti_Coord3D() = default; ///< (0, 0, 0)
    constexpr uti_Coord3D(float x, float y, float z) : coords{x, y, z} {}

    /// Component 0, 1 or 2; other indices are not checked.
    constexpr float operator[](int component) const { return coords[component]; }

private:
    float coords[3] = {0, 0, 0};
};

#endif
