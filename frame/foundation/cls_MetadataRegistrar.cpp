#include "cls_MetadataRegistrar.h"

#include "cls_Failure.h"
#include "cls_ReadVisitor.h"
#include "omi_AtExit.h"

#include <algorithm>
#include <cstdio>
#include <memory>

void cls_ClassRegistrar::AddClassMD(cls_ClassMetadata * metadata) {
    owner.add(metadata);
}

cls_MetadataRegistrar::~cls_MetadataRegistrar() {
    for (cls_ClassMetadata * const each : classes)
        delete each;
}

// The parts of the suite are started by those who call this; nothing here depends on which of them a class is of.
void cls_MetadataRegistrar::initClassMetadata(void (*initializeMetadata)(cls_ClassRegistrar &), unsigned int) {
    cls_ClassRegistrar registrar(*this);
    initializeMetadata(registrar);
}

void cls_MetadataRegistrar::add(cls_ClassMetadata * metadata) {
    std::unique_ptr<cls_ClassMetadata> owner(metadata);
    for (cls_ClassMetadata *& each : classes)
        if (each->TypeNumber() == metadata->TypeNumber()) {
            delete each;
            each = owner.release();
            return;
        }
    classes.push_back(metadata);
    owner.release();
}

cls_ClassMetadata const * cls_MetadataRegistrar::Find(unsigned int typeNumber) const noexcept {
    auto const isSought = [typeNumber](cls_ClassMetadata const * each) { return each->TypeNumber() == typeNumber; };
    auto const found = std::find_if(classes.begin(), classes.end(), isSought);
    return found != classes.end() ? *found : nullptr;
}

cls_ClassMetadata const * cls_MetadataRegistrar::Find(char const * name) const noexcept {
    auto const isSought = [name](cls_ClassMetadata const * each) { return each->Name() == name; };
    auto const found = std::find_if(classes.begin(), classes.end(), isSought);
    return found != classes.end() ? *found : nullptr;
}

void * cls_MetadataRegistrar::Construct(cls_ReadVisitor & reader) const {
    constexpr char const * file = "frame/foundation/cls_MetadataRegistrar";
    if (!reader.HasObject())
        cls_raise(file, __LINE__, "There is no object to be read.");
    cls_ClassMetadata const * const metadata = Find(reader.GetTypeNumber());
    if (metadata == nullptr)
        cls_raise(file, __LINE__, "Class %s is not registered.", cls_nameOfClass(reader.GetTypeNumber()));
    return metadata->Ctor(reader);
}

cow_String cls_nameOfClass(unsigned int typeNumber) {
    cls_ClassMetadata const * const metadata = omi_Singleton<cls_MetadataRegistrar>::Instance().Find(typeNumber);
    if (metadata != nullptr)
        return metadata->Name();
    char number[16];
    std::snprintf(number, sizeof number, "0x%x", typeNumber);
    return number;
}

template <> cls_MetadataRegistrar & omi_Singleton<cls_MetadataRegistrar>::Instance() {
    if (omi_SingletonBase<cls_MetadataRegistrar>::instance == nullptr) {
        void * block = mem_OperatorNewThrow(sizeof(cls_MetadataRegistrar));
        try {
            new (block) cls_MetadataRegistrar;
        } catch (...) {
            mem_Free(block);
            omi_SingletonBase<cls_MetadataRegistrar>::isAbandoned = true;
            omi_SingletonBase<cls_MetadataRegistrar>::Finalize();
            throw;
        }
        omi_freeAtUnload(omi_SingletonBase<cls_MetadataRegistrar>::Finalize);
    }
    return static_cast<cls_MetadataRegistrar &>(*omi_SingletonBase<cls_MetadataRegistrar>::instance);
}

template class omi_SingletonBase<cls_MetadataRegistrar>;
template class omi_Singleton<cls_MetadataRegistrar>;
