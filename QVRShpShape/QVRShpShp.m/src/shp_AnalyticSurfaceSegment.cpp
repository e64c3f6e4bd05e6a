#include "shp_AnalyticSurfaceSegment.h"

#include "cls_ClassRegistrar.h"
#include "cls_TypeAdapter.h"
#include "shp_StoredAttributes.h"

namespace {

constexpr cls_FieldHandle typeField(shp_AnalyticSurfaceSegment::typeCmd(), 0);
constexpr cls_FieldHandle dataField(shp_AnalyticSurfaceSegment::dataCmd(), 1);

} // namespace

shp_AnalyticSurfaceSegment::shp_AnalyticSurfaceSegment(cls_ReadVisitor const & reader)
    : type(shp_readEnum<TypeEnm>(shp_startRead(reader, TypeId()), typeField)),
      data(cls_ReadVisitor(reader, dataField), &uid), uid(reader.GetUid()) {}

shp_AnalyticSurfaceSegment * shp_AnalyticSurfaceSegment::Copy() const {
    return new shp_AnalyticSurfaceSegment(*this);
}

unsigned int shp_AnalyticSurfaceSegment::DynTypeId() const {
    return TypeId();
}

void shp_AnalyticSurfaceSegment::DBWrite(cls_WriteVisitor const & writer) const {
    if (writer.StartWrite(TypeId(), uid) == 0)
        return;
    shp_writeEnum(writer, typeField, type);
    data.DBWrite(cls_WriteVisitor(writer, dataField));
}

void shp_AnalyticSurfaceSegment::InitializeMetadata(cls_ClassRegistrar & registrar) {
    auto * const metadata =
        new cls_TypeAdapter<shp_AnalyticSurfaceSegment>("shp_AnalyticSurfaceSegment", TypeId(), 1011, nullptr, 1);
    registrar.AddClassMD(metadata);
    metadata->AddDtor(CowDtor);
    metadata->AddAttribute(typeField, cls_AttributeType_ENUM, 1, 0)
        .AddAttribute(dataField, cls_AttributeType_OBJECT, cls_ClassNumber_LIST, 1);
}

shp_AnalyticSurfaceSegment * shp_AnalyticSurfaceSegment::Ctor(cls_ReadVisitor & reader) {
    return new shp_AnalyticSurfaceSegment(reader);
}

void shp_AnalyticSurfaceSegment::CowDtor(cow_COW<int, cow_Direct<int>> * holder) {
    shp_deleteHolder<shp_AnalyticSurfaceSegment, cow_Direct<shp_AnalyticSurfaceSegment>>(holder);
}

template class cow_List<shp_AnalyticSurfaceSegment>;
template class cow_ListIter<shp_AnalyticSurfaceSegment>;
template class cls_xoList<shp_AnalyticSurfaceSegment>;
template class cls_xo1DArrayList<shp_AnalyticSurfaceSegment>;
