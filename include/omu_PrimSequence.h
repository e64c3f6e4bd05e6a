#ifndef omu_PrimSequence_h
#define omu_PrimSequence_h

#include "omu_Primitive.h"

/// A primitive that is an ordered sequence of elements.
class QVRSHPCORE_API omu_PrimSequence : public omu_Primitive {
public:
    ~omu_PrimSequence() override;

    cow_String TypeString() const override;
    /// The number of elements.
    virtual int Length() const = 0;

    static unsigned int TypeId() { return cls_ClassNumber_omu_PrimSequence; }
    unsigned int DynTypeId() const override;
    void DBWrite(cls_WriteVisitor const & writer) const override;

protected:
    omu_PrimSequence() = default;
    explicit omu_PrimSequence(cls_ReadVisitor const & reader);
    omu_PrimSequence(omu_PrimSequence const &) = default;
    omu_PrimSequence & operator=(omu_PrimSequence const &) = default;
};

#endif
