#include "omu_Primitive.h"

#include "cls_ReadVisitor.h"
#include "cls_WriteVisitor.h"
#include "omu_PrimSequence.h"
#include "omu_PrimVisitor.h"

omu_PrimVisitor::~omu_PrimVisitor() = default;

omu_Primitive::~omu_Primitive() = default;

void omu_Primitive::Accept(omu_PrimVisitor * visitor) {
    visitor->Visit(*this);
}

omu_Primitive::omu_Primitive(cls_ReadVisitor const & reader) {
    reader.StartRead(TypeId());
}

unsigned int omu_Primitive::DynTypeId() const {
    return TypeId();
}

void omu_Primitive::DBWrite(cls_WriteVisitor const & writer) const {
    writer.StartWrite(TypeId(), cls_Uid());
}

omu_PrimSequence::~omu_PrimSequence() = default;

cow_String omu_PrimSequence::TypeString() const {
    return "sequence";
}

omu_PrimSequence::omu_PrimSequence(cls_ReadVisitor const & reader)
    : omu_Primitive(cls_ReadVisitor(reader, omu_Primitive::TypeId())) {
    reader.StartRead(TypeId());
}

unsigned int omu_PrimSequence::DynTypeId() const {
    return TypeId();
}

void omu_PrimSequence::DBWrite(cls_WriteVisitor const & writer) const {
    writer.StartWrite(TypeId(), cls_Uid());
    omu_Primitive::DBWrite(cls_WriteVisitor(writer, omu_Primitive::TypeId()));
}

template class cow_List<cow_ArrayCOW<omu_Primitive, cow_Virtual<omu_Primitive>>>;
template class cow_ListIter<cow_ArrayCOW<omu_Primitive, cow_Virtual<omu_Primitive>>>;
