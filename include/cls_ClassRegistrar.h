#ifndef cls_ClassRegistrar_h
#define cls_ClassRegistrar_h

#include "QVRShpCore_Export.h"

class cls_ClassMetadata;
class cls_MetadataRegistrar;

/// What a class's InitializeMetadata registers its description with:
///
///     auto * const metadata = new cls_TypeAdapter<Circle>("Circle", TypeId(), 800, nullptr, 1);
///     registrar.AddClassMD(metadata);
///     metadata->AddDtor(CowDtor);
///     metadata->AddAttribute("radius", cls_AttributeType_DOUBLE, 1, 0)
///         .AddAttribute("name", cls_AttributeType_STRING, 1, 0);
class QVRSHPCORE_API cls_ClassRegistrar {
public:
    /// Takes over `metadata`, which comes from `new`, even when this fails. A description that is registered under the
    /// same number is deleted, and the new one takes its place.
    void AddClassMD(cls_ClassMetadata * metadata);

private:
    friend class cls_MetadataRegistrar;
    explicit cls_ClassRegistrar(cls_MetadataRegistrar & registrar) noexcept : owner(registrar) {}

    cls_MetadataRegistrar & owner;
};

#endif
