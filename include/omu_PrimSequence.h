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

protected:
    omu_PrimSequence() = default;
    omu_PrimSequence(omu_PrimSequence const &) = default;
    omu_PrimSequence & operator=(omu_PrimSequence const &) = default;
};

#endif
