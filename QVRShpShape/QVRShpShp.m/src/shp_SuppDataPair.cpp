#include "shp_SuppDataPair.h"

#include "cls_ClassRegistrar.h"
#include "cls_TypeAdapter.h"
#include "shp_StoredAttributes.h"

namespace {

constexpr cls_FieldHandle valueField("value");
constexpr cls_FieldHandle dataTypeField("dataType");

} // namespace

shp_SuppDataPair::shp_SuppDataPair(cls_ReadVisitor const & reader)
    : value(cls_ReadVisitor(shp_startRead(reader, TypeId()), valueField)),
      dataType(shp_readEnum<shp_SuppDataPairEnm>(reader, dataTypeField)), uid(reader.GetUid()) {}

unsigned int shp_SuppDataPair::DynTypeId() const {
    return TypeId();
}

void shp_SuppDataPair::DBWrite(cls_WriteVisitor const & writer) const {
    if (writer.StartWrite(TypeId(), uid) == 0)
        return;
    value.DBWrite(cls_WriteVisitor(writer, valueField));
    shp_writeEnum(writer, dataTypeField, dataType);
}

void shp_SuppDataPair::InitializeMetadata(cls_ClassRegistrar & registrar) {
    auto * const metadata = new cls_TypeAdapter<shp_SuppDataPair>("shp_SuppDataPair", TypeId(), 203, nullptr, 1);
    registrar.AddClassMD(metadata);
    metadata->AddDtor(CowDtor);
    metadata->AddAttribute(valueField, cls_AttributeType_OBJECT, g3d_Point::TypeId(), 0)
        .AddAttribute(dataTypeField, cls_AttributeType_ENUM, 1, 0);
}

shp_SuppDataPair * shp_SuppDataPair::Ctor(cls_ReadVisitor & reader) {
    return new shp_SuppDataPair(reader);
}

void shp_SuppDataPair::CowDtor(cow_COW<int, cow_Direct<int>> * holder) {
    shp_deleteHolder<shp_SuppDataPair, cow_Direct<shp_SuppDataPair>>(holder);
}

template class cow_List<shp_SuppDataPair>;
template class cow_ListIter<shp_SuppDataPair>;
template class cls_xoList<shp_SuppDataPair>;
template cls_xoList<shp_SuppDataPair> cls_xoListFromCow(cow_List<shp_SuppDataPair> const &);
