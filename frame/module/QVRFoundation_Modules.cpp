#include "QVRShpCore_Module.h"
#include "cls_MetadataRegistrar.h"
#include "cls_TypeAdapter.h"
#include "g3d_Point.h"
#include "g3d_Vector.h"
#include "gsl_Point.h"
#include "nex_CommandException.h"
#include "omi_StartCount.h"
#include "omu_PrimEnumBase.h"
#include "omu_PrimTuple.h"
#include "uti_CoordCont3D.h"

// The services of the foundation come into being at their first use and are freed at unload (omi_AtExit.h); what is
// left of its modules is their place in the order of start and stop, and in the level, and what two of them register:
// the foundation's own persistent classes.

namespace {

constinit int geomStartCount = 0;
constinit int basicUtilsStartCount = 0;
constinit int sharedStartCount = 0;
constinit int coreUtilsStartCount = 0;
constinit int allocStartCount = 0;

/// Registers a class whose description is kept here.
template <template <class> class Adapter, class T>
cls_ClassMetadata & add(cls_ClassRegistrar & registrar, char const * name, unsigned int base) {
    auto * const metadata = new Adapter<T>(name, T::TypeId(), 1, nullptr, base);
    registrar.AddClassMD(metadata);
    return *metadata;
}

void registerPrimitives(cls_ClassRegistrar & registrar) {
    add<cls_AbsTypeAdapter, omu_Primitive>(registrar, "omu_Primitive", cls_ClassNumber_ROOT);
    add<cls_AbsTypeAdapter, omu_PrimSequence>(registrar, "omu_PrimSequence", omu_Primitive::TypeId());
    add<cls_AbsTypeAdapter, omu_PrimEnumBase>(registrar, "omu_PrimEnumBase", omu_Primitive::TypeId())
        .AddAttribute(cls_FieldHandle("name", 0), cls_AttributeType_STRING, 1, 0);
    add<cls_TypeAdapter, omu_PrimTuple>(registrar, "omu_PrimTuple", omu_PrimSequence::TypeId())
        .AddAttribute(cls_FieldHandle("bracket", 0), cls_AttributeType_STRING, 1, 0)
        .AddAttribute(cls_FieldHandle("elements", 1), cls_AttributeType_OBJECT, cls_ClassNumber_LIST, 1);
}

void registerExceptions(cls_ClassRegistrar & registrar) {
    add<cls_AbsTypeAdapter, nex_Exception>(registrar, "nex_Exception", cls_ClassNumber_ROOT);
    add<cls_TypeAdapter, nex_CommandException>(registrar, "nex_CommandException", nex_Exception::TypeId())
        .AddAttribute(cls_FieldHandle("m_Traceback", 0), cls_AttributeType_STRING, 1, 0);
}

/// What a list is made of cannot be told by its number: it is read as the part of an object.
void registerList(cls_ClassRegistrar & registrar) {
    registrar.AddClassMD(new cls_ClassMetadata("cls_xoList", cls_ClassNumber_LIST, 1, nullptr, cls_ClassNumber_ROOT));
}

/// Registers classes as ones of the foundation.
template <class... Initialize> void registerClasses(Initialize... initialize) {
    cls_MetadataRegistrar & registrar = omi_Singleton<cls_MetadataRegistrar>::Instance();
    (registrar.initClassMetadata(initialize, 1), ...);
}

} // namespace

void QVRKelGeom_initialize(int & level) {
    if (omi_countStart(geomStartCount, level))
        registerClasses(g3d_Point::InitializeMetadata, g3d_Vector::InitializeMetadata, gsl_Point::InitializeMetadata,
                        registerPrimitives);
}
void QVRKelGeom_finalize(int & level) {
    omi_countStop(geomStartCount, level);
}

void QVRKelBasicUtils_initialize(int & level) {
    if (omi_countStart(basicUtilsStartCount, level))
        registerClasses(registerList, registerExceptions, uti_Coord3D::InitializeMetadata,
                        uti_CoordCont3D::InitializeMetadata);
}
void QVRKelBasicUtils_finalize(int & level) {
    omi_countStop(basicUtilsStartCount, level);
}

void QVRBasShared_initialize(int & level) {
    omi_countStart(sharedStartCount, level);
}
void QVRBasShared_finalize(int & level) {
    omi_countStop(sharedStartCount, level);
}

void QVRBasCoreUtils_initialize(int & level) {
    omi_countStart(coreUtilsStartCount, level);
}
void QVRBasCoreUtils_finalize(int & level) {
    omi_countStop(coreUtilsStartCount, level);
}

void QVRBasAlloc_initialize(int & level) {
    omi_countStart(allocStartCount, level);
}
void QVRBasAlloc_finalize(int & level) {
    omi_countStop(allocStartCount, level);
}
