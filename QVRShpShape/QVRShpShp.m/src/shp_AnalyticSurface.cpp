#include "shp_AnalyticSurface.h"

#include "cls_ClassRegistrar.h"
#include "cls_TypeAdapter.h"
#include "gsl_Matrix.h"
#include "gsl_Point.h"
#include "shp_StoredAttributes.h"

namespace {

constexpr cls_FieldHandle typeField(shp_AnalyticSurface::typeCmd(), 0);
constexpr cls_FieldHandle filletRadiusField(shp_AnalyticSurface::filletRadiusCmd(), 1);
constexpr cls_FieldHandle profileField(shp_AnalyticSurface::profileCmd(), 2);
constexpr cls_FieldHandle localCoordDataField(shp_AnalyticSurface::localCoordDataCmd(), 3);
constexpr cls_FieldHandle nameField(shp_AnalyticSurface::nameCmd(), 4);

/// Moves a point in doubles; its w stays.
void transform(g3d_Point & point, gsl_Matrix const & matrix) {
    gsl_Point moved(point.X(), point.Y(), point.Z());
    moved.Transform(matrix);
    point.Set(static_cast<float>(moved.GetX()), static_cast<float>(moved.GetY()), static_cast<float>(moved.GetZ()));
}

} // namespace

shp_AnalyticSurface::shp_AnalyticSurface(cls_ReadVisitor const & reader)
    : type(shp_readEnum<TypeEnm>(shp_startRead(reader, TypeId()), typeField)),
      filletRadius(reader.Read(filletRadiusField, 0.0)), profile(cls_ReadVisitor(reader, profileField), &uid),
      localCoordData(cls_ReadVisitor(reader, localCoordDataField), &uid), name(shp_readText(reader, nameField)),
      uid(reader.GetUid()) {}

void shp_AnalyticSurface::SetTransform(gsl_Matrix const & matrix) {
    for (int i = 0; i < profile.Length(); ++i) {
        cls_xo1DArrayList<g3d_Point> & points = profile.Get(i).data;
        for (int k = 0; k < points.Length(); ++k)
            transform(points.Get(k), matrix);
    }
}

shp_AnalyticSurface * shp_AnalyticSurface::Copy() const {
    return new shp_AnalyticSurface(*this);
}

unsigned int shp_AnalyticSurface::DynTypeId() const {
    return TypeId();
}

void shp_AnalyticSurface::DBWrite(cls_WriteVisitor const & writer) const {
    if (writer.StartWrite(TypeId(), uid) == 0)
        return;
    shp_writeEnum(writer, typeField, type);
    writer.Write(filletRadiusField, filletRadius);
    profile.DBWrite(cls_WriteVisitor(writer, profileField));
    localCoordData.DBWrite(cls_WriteVisitor(writer, localCoordDataField));
    writer.Write(nameField, name);
}

void shp_AnalyticSurface::InitializeMetadata(cls_ClassRegistrar & registrar) {
    auto * const metadata = new cls_TypeAdapter<shp_AnalyticSurface>("shp_AnalyticSurface", TypeId(), 1011, nullptr, 1);
    registrar.AddClassMD(metadata);
    metadata->AddDtor(CowDtor);
    metadata->AddAttribute(typeField, cls_AttributeType_ENUM, 1, 0)
        .AddAttribute(filletRadiusField, cls_AttributeType_DOUBLE, 1, 0)
        .AddAttribute(profileField, cls_AttributeType_OBJECT, cls_ClassNumber_LIST, 1)
        .AddAttribute(localCoordDataField, cls_AttributeType_OBJECT, cls_ClassNumber_LIST, 1)
        .AddAttribute(nameField, cls_AttributeType_STRING, 1, 0);
}

shp_AnalyticSurface * shp_AnalyticSurface::Ctor(cls_ReadVisitor & reader) {
    return new shp_AnalyticSurface(reader);
}

void shp_AnalyticSurface::CowDtor(cow_COW<int, cow_Direct<int>> * holder) {
    shp_deleteHolder<shp_AnalyticSurface, cow_Direct<shp_AnalyticSurface>>(holder);
}
