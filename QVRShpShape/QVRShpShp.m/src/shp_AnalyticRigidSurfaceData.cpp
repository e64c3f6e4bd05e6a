#include "shp_AnalyticRigidSurfaceData.h"

#include "cls_ClassRegistrar.h"
#include "cls_TypeAdapter.h"
#include "cow_Virtual.h"
#include "shp_StoredAttributes.h"

namespace {

constexpr cls_FieldHandle meshIndexField("meshIndex");
constexpr cls_FieldHandle classIndexField("classIndex");
constexpr cls_FieldHandle elemIndexField("elemIndex");
constexpr cls_FieldHandle surfaceNameField("surfaceName");
constexpr cls_FieldHandle surfaceTypeField("surfaceType");
constexpr cls_FieldHandle localCoordDefField("localCoordDef");
constexpr cls_FieldHandle dataPairListField("dataPairList");

/// How many vectors define the local system of a surface of that type.
int numVectors(shp_AnalyticRigidSurfEnm type) {
    switch (type) {
    case shp_AnalyticRigidSurf_Cylinder: return 3;
    case shp_AnalyticRigidSurf_Revolut: return 2;
    default: return 0;
    }
}

} // namespace

shp_AnalyticRigidSurfaceData::shp_AnalyticRigidSurfaceData()
    : shp_AnalyticRigidSurfaceData(shp_AnalyticRigidSurf_Cylinder) {
    surfaceName = "default";
}

shp_AnalyticRigidSurfaceData::shp_AnalyticRigidSurfaceData(shp_AnalyticRigidSurfEnm type) : surfaceType(type) {
    localCoordDef.Fill(numVectors(type), g3d_Vector());
    dataPairList.uid.NewUid();
    uid.NewUid();
}

shp_AnalyticRigidSurfaceData::shp_AnalyticRigidSurfaceData(cls_ReadVisitor const & reader)
    : meshIndex(shp_startRead(reader, TypeId()).Read(meshIndexField, 0)), classIndex(reader.Read(classIndexField, 0)),
      elemIndex(reader.Read(elemIndexField, 0)), surfaceName(shp_readText(reader, surfaceNameField)),
      surfaceType(shp_readEnum<shp_AnalyticRigidSurfEnm>(reader, surfaceTypeField)),
      localCoordDef(cls_ReadVisitor(reader, localCoordDefField), &uid),
      dataPairList(cls_ReadVisitor(reader, dataPairListField)), uid(reader.GetUid()) {}

shp_AnalyticRigidSurfaceData * shp_AnalyticRigidSurfaceData::Copy() const {
    return new shp_AnalyticRigidSurfaceData(*this);
}

void shp_AnalyticRigidSurfaceData::DBWrite(cls_WriteVisitor const & writer) const {
    if (writer.StartWrite(TypeId(), uid) == 0)
        return;
    writer.Write(meshIndexField, meshIndex);
    writer.Write(classIndexField, classIndex);
    writer.Write(elemIndexField, elemIndex);
    writer.Write(surfaceNameField, surfaceName);
    shp_writeEnum(writer, surfaceTypeField, surfaceType);
    localCoordDef.DBWrite(cls_WriteVisitor(writer, localCoordDefField));
    dataPairList.DBWrite(cls_WriteVisitor(writer, dataPairListField));
}

unsigned int shp_AnalyticRigidSurfaceData::DynTypeId() const {
    return TypeId();
}

void shp_AnalyticRigidSurfaceData::InitializeMetadata(cls_ClassRegistrar & registrar) {
    auto * const metadata =
        new cls_TypeAdapter<shp_AnalyticRigidSurfaceData>("shp_AnalyticRigidSurfaceData", TypeId(), 203, nullptr, 1);
    registrar.AddClassMD(metadata);
    metadata->AddDtor(CowDtor);
    metadata->AddAttribute(meshIndexField, cls_AttributeType_INT, 1, 0)
        .AddAttribute(classIndexField, cls_AttributeType_INT, 1, 0)
        .AddAttribute(elemIndexField, cls_AttributeType_INT, 1, 0)
        .AddAttribute(surfaceNameField, cls_AttributeType_STRING, 1, 0)
        .AddAttribute(surfaceTypeField, cls_AttributeType_ENUM, 1, 0)
        .AddAttribute(localCoordDefField, cls_AttributeType_OBJECT, cls_ClassNumber_LIST, 1)
        .AddAttribute(dataPairListField, cls_AttributeType_OBJECT, cls_ClassNumber_LIST, 1);
}

shp_AnalyticRigidSurfaceData * shp_AnalyticRigidSurfaceData::Ctor(cls_ReadVisitor & reader) {
    return new shp_AnalyticRigidSurfaceData(reader);
}

void shp_AnalyticRigidSurfaceData::CowDtor(cow_COW<int, cow_Direct<int>> * holder) {
    shp_deleteHolder<shp_AnalyticRigidSurfaceData, cow_Virtual<shp_AnalyticRigidSurfaceData>>(holder);
}
