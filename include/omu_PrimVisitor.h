#ifndef omu_PrimVisitor_h
#define omu_PrimVisitor_h

#include "QVRShpCore_Export.h"

class omu_Primitive;

/// What walks over primitives: omu_Primitive::Accept calls Visit with the primitive.
class QVRSHPCORE_API omu_PrimVisitor {
public:
    virtual ~omu_PrimVisitor();

    /// What is done with `primitive`, which stays the caller's.
    virtual void Visit(omu_Primitive & primitive) = 0;

protected:
    omu_PrimVisitor() = default;
    omu_PrimVisitor(omu_PrimVisitor const &) = default;
    omu_PrimVisitor & operator=(omu_PrimVisitor const &) = default;
};

#endif
