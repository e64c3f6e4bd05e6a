// How points, vectors and coordinates are stored: by their components, as doubles.

#include "cls_ClassNumbers.h"
#include "cls_ClassRegistrar.h"
#include "cls_ReadVisitor.h"
#include "cls_TypeAdapter.h"
#include "cls_WriteRequestListObj.h"
#include "cls_WriteVisitor.h"
#include "g3d_Point.h"
#include "g3d_Vector.h"
#include "gsl_Point.h"
#include "uti_CoordCont3D.h"

namespace {

constexpr cls_FieldHandle xField("x", 0);
constexpr cls_FieldHandle yField("y", 1);
constexpr cls_FieldHandle zField("z", 2);
constexpr cls_FieldHandle wField("w", 3);
constexpr cls_FieldHandle coordsField("coords", 0);

void write(cls_WriteVisitor const & writer, double x, double y, double z) {
    writer.Write(xField, x);
    writer.Write(yField, y);
    writer.Write(zField, z);
}

/// A float; what is too large for one becomes infinite.
float readFloat(cls_ReadVisitor const & reader, cls_FieldHandle const & field, double fallback) {
    return static_cast<float>(reader.Read(field, fallback));
}

template <class T> cls_ClassMetadata & registerClass(cls_ClassRegistrar & registrar, char const * name) {
    auto * const metadata = new cls_TypeAdapter<T>(name, T::TypeId(), 1, nullptr, cls_ClassNumber_ROOT);
    registrar.AddClassMD(metadata);
    return *metadata;
}

cls_ClassMetadata & addCoordinates(cls_ClassMetadata & metadata) {
    return metadata.AddAttribute(xField, cls_AttributeType_DOUBLE, 1, 0)
        .AddAttribute(yField, cls_AttributeType_DOUBLE, 1, 0)
        .AddAttribute(zField, cls_AttributeType_DOUBLE, 1, 0);
}

} // namespace

g3d_Point::g3d_Point(cls_ReadVisitor const & reader) {
    reader.StartRead(TypeId());
    Set(readFloat(reader, xField, 0), readFloat(reader, yField, 0), readFloat(reader, zField, 0));
    w = readFloat(reader, wField, 1);
}

unsigned int g3d_Point::TypeId() {
    return cls_ClassNumber_g3d_Point;
}

void g3d_Point::DBWrite(cls_WriteVisitor const & writer) const {
    writer.StartWrite(TypeId(), cls_Uid());
    write(writer, x, y, z);
    writer.Write(wField, w);
}

void g3d_Point::InitializeMetadata(cls_ClassRegistrar & registrar) {
    addCoordinates(registerClass<g3d_Point>(registrar, "g3d_Point"))
        .AddAttribute(wField, cls_AttributeType_DOUBLE, 1, 0);
}

g3d_Vector::g3d_Vector(cls_ReadVisitor const & reader) {
    reader.StartRead(TypeId());
    Set(readFloat(reader, xField, 0), readFloat(reader, yField, 0), readFloat(reader, zField, 0));
}

unsigned int g3d_Vector::TypeId() {
    return cls_ClassNumber_g3d_Vector;
}

void g3d_Vector::DBWrite(cls_WriteVisitor const & writer) const {
    writer.StartWrite(TypeId(), cls_Uid());
    write(writer, x, y, z);
}

void g3d_Vector::InitializeMetadata(cls_ClassRegistrar & registrar) {
    addCoordinates(registerClass<g3d_Vector>(registrar, "g3d_Vector"));
}

gsl_Point::gsl_Point(cls_ReadVisitor const & reader) : uid(reader.GetUid()) {
    reader.StartRead(TypeId());
    x = reader.Read(xField, 0.0);
    y = reader.Read(yField, 0.0);
    z = reader.Read(zField, 0.0);
}

void gsl_Point::Transform(gsl_Matrix const & matrix) {
    auto const transformed = [&](int row) {
        return matrix.GetM(row, 0) * x + matrix.GetM(row, 1) * y + matrix.GetM(row, 2) * z + matrix.GetM(row, 3);
    };
    double const newX = transformed(0), newY = transformed(1), newZ = transformed(2);
    x = newX;
    y = newY;
    z = newZ;
}

unsigned int gsl_Point::TypeId() {
    return cls_ClassNumber_gsl_Point;
}

void gsl_Point::DBWrite(cls_WriteVisitor const & writer) const {
    if (writer.StartWrite(TypeId(), uid) != 0)
        write(writer, x, y, z);
}

void gsl_Point::InitializeMetadata(cls_ClassRegistrar & registrar) {
    addCoordinates(registerClass<gsl_Point>(registrar, "gsl_Point"));
}

uti_Coord3D::uti_Coord3D(cls_ReadVisitor const & reader) {
    reader.StartRead(TypeId());
    coords[0] = readFloat(reader, xField, 0);
    coords[1] = readFloat(reader, yField, 0);
    coords[2] = readFloat(reader, zField, 0);
}

unsigned int uti_Coord3D::TypeId() {
    return cls_ClassNumber_uti_Coord3D;
}

void uti_Coord3D::DBWrite(cls_WriteVisitor const & writer) const {
    writer.StartWrite(TypeId(), cls_Uid());
    write(writer, coords[0], coords[1], coords[2]);
}

unsigned int uti_Coord3D::DynTypeId() const {
    return TypeId();
}

void uti_Coord3D::InitializeMetadata(cls_ClassRegistrar & registrar) {
    addCoordinates(registerClass<uti_Coord3D>(registrar, "uti_Coord3D"));
}

uti_CoordCont3D::uti_CoordCont3D(cls_ReadVisitor const & reader) {
    reader.StartRead(TypeId());
    cls_ReadVisitor const list(reader, coordsField);
    list.StartRead(cls_ClassNumber_LIST);
    int const count = list.NumElements();
    Grow(count);
    for (int i = 0; i < count; ++i)
        SetCoord(i, uti_Coord3D(list.Element(i)));
}

unsigned int uti_CoordCont3D::TypeId() {
    return cls_ClassNumber_uti_CoordCont3D;
}

void uti_CoordCont3D::DBWrite(cls_WriteVisitor const & writer) const {
    writer.StartWrite(TypeId(), cls_Uid());
    cls_WriteVisitor const list(writer, coordsField);
    list.StartWrite(cls_ClassNumber_LIST, cls_Uid());
    for (int i = 0; i < Length(); ++i) {
        cls_WriteRequestListObj const request(list);
        (*this)[i].DBWrite(cls_WriteVisitor(request));
    }
}

void uti_CoordCont3D::InitializeMetadata(cls_ClassRegistrar & registrar) {
    registerClass<uti_CoordCont3D>(registrar, "uti_CoordCont3D")
        .AddAttribute(coordsField, cls_AttributeType_OBJECT, cls_ClassNumber_LIST, 1);
}
