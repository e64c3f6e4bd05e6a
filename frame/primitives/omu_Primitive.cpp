#include "omu_Primitive.h"

#include "omu_PrimSequence.h"
#include "omu_PrimVisitor.h"

omu_PrimVisitor::~omu_PrimVisitor() = default;

omu_Primitive::~omu_Primitive() = default;

void omu_Primitive::Accept(omu_PrimVisitor * visitor) {
    visitor->Visit(*this);
}

omu_PrimSequence::~omu_PrimSequence() = default;

cow_String omu_PrimSequence::TypeString() const {
    return "sequence";
}

template class cow_List<cow_ArrayCOW<omu_Primitive, cow_Virtual<omu_Primitive>>>;
template class cow_ListIter<cow_ArrayCOW<omu_Primitive, cow_Virtual<omu_Primitive>>>;
