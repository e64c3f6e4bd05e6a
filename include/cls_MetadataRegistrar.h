#ifndef cls_MetadataRegistrar_h
#define cls_MetadataRegistrar_h

#include "QVRShpCore_Export.h"
#include "cls_ClassMetadata.h"
#include "cls_ClassRegistrar.h"
#include "mem_Allocator.h"
#include "omi_Singleton.h"

#include <vector>

/// The descriptions of all persistent classes, `omi_Singleton<cls_MetadataRegistrar>::Instance()`. Modules fill it when
/// they start. It is made by the first call, which callers on several threads serialise, and lives until the library is
/// unloaded. A description stays valid until then, or until its class is registered again.
class QVRSHPCORE_API cls_MetadataRegistrar : public omi_Singleton<cls_MetadataRegistrar> {
public:
    /// Has a class register its description. `family` says which part of the suite the class belongs to: 1 the
    /// foundation, 2 the output database, 4 element shapes. It is passed as it stands, and not kept.
    void initClassMetadata(void (*initializeMetadata)(cls_ClassRegistrar &), unsigned int family);

    /// The description of a class by its number or its name; null when it is not registered.
    cls_ClassMetadata const * Find(unsigned int typeNumber) const noexcept;
    cls_ClassMetadata const * Find(char const * name) const noexcept;

    /// All descriptions, in the order of their first registration: 0 to Length() - 1 (not checked).
    int Length() const noexcept { return static_cast<int>(classes.size()); }
    cls_ClassMetadata const & operator[](int index) const { return *classes[static_cast<std::size_t>(index)]; }

    /// Makes the object on which `reader` stands, knowing nothing of it but its class number; the caller owns it and
    /// gives it to the Delete of its description. Raises nex_PrimException<atr_String, 1> for a class that is not
    /// registered or of which no object can be made, and for a reader that stands on no object.
    void * Construct(cls_ReadVisitor & reader) const;

private:
    friend class omi_SingletonBase<cls_MetadataRegistrar>;
    friend class omi_Singleton<cls_MetadataRegistrar>;
    friend class cls_ClassRegistrar;

    cls_MetadataRegistrar() = default;
    ~cls_MetadataRegistrar();
    void add(cls_ClassMetadata * metadata);

    std::vector<cls_ClassMetadata *, mem_Allocator<cls_ClassMetadata *>> classes; ///< owned
};

/// Other than that of other singletons, this one can be called again after it has failed.
template <> QVRSHPCORE_API cls_MetadataRegistrar & omi_Singleton<cls_MetadataRegistrar>::Instance();

extern template class omi_SingletonBase<cls_MetadataRegistrar>;
extern template class omi_Singleton<cls_MetadataRegistrar>;

#endif
