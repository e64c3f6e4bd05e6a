#include "shp_ShapeDictionary.h"

#include "atr_ConstantText.h"
#include "omi_BtreeIterator.h"
#include "shp_Catalogue.h"
#include "shp_LabelIndex.h"
#include "shp_Shape.h"

#include <cstdio>
#include <memory>
#include <utility>

template class omi_SingletonBase<shp_ShapeDictionary>;
template class omi_Singleton<shp_ShapeDictionary>;

namespace {

/// Room for a label, its mode digit and the terminating zero; what is longer is cut.
constexpr std::size_t labelCapacity = 24;

LongKey keyOf(unsigned int bitCount, unsigned int const * bits) {
    LongKey key;
    key.setBits(bitCount, bits);
    return key;
}

} // namespace

shp_ShapeDictionary::shp_ShapeDictionary() {
    GenerateShapeKeys();
}

shp_ShapeDictionary::~shp_ShapeDictionary() {
    omi_BtreeIterator<cow_String, void *> entries(shapes);
    for (bool isEntry = entries.First(); isEntry; isEntry = entries.Next())
        delete static_cast<shp_Shape *>(entries.CurrentValue());
}

shp_Shape const * shp_ShapeDictionary::GetShape(cow_String const & label) const {
    if (builtShapes)
        if (shp_Shape const * const built = builtShapes->Find(shp_LabelIndex::Packed(label)))
            return built;
    return findOrBuild(label);
}

/// GetShape without the index, for what that does not have.
shp_Shape const * shp_ShapeDictionary::findOrBuild(cow_String const & label) const {
    cow_String name(label);
    name.ToUpper();
    if (void * const built = shapes.ConstGet(name))
        return static_cast<shp_Shape *>(built);
    void * const key = keys.ConstGet(name);
    if (!key)
        return nullptr;

    std::unique_ptr<shp_LabelIndex> firstIndex(builtShapes ? nullptr : new shp_LabelIndex);
    std::unique_ptr<shp_Shape> shape(new shp_Shape(name, *static_cast<LongKey const *>(key)));
    shape->SetShapeRef(nextShapeRef++); // used up, even if the insertion fails
    shapes.Insert(name, shape.get());
    if (firstIndex)
        builtShapes = std::move(firstIndex);
    builtShapes->Add(shp_LabelIndex::Packed(name), *shape);
    return shape.release();
}

/// A label that exists keeps its key.
void shp_ShapeDictionary::addKey(cow_String const & label, LongKey const & key) {
    keyStore.push_back(key); // stays unused if the insertion raises
    if (!keys.Insert(label, &keyStore.back()))
        keyStore.pop_back();
}

void shp_ShapeDictionary::BuildKey(omn_FixedString const & label, unsigned int bitCount, unsigned int const * bits) {
    addKey(cow_String(static_cast<char const *>(label)), keyOf(bitCount, bits));
}

void shp_ShapeDictionary::BuildModeKeys(omn_FixedString const & label, int modeCount, unsigned int bitCount,
                                        unsigned int const * bits) {
    shp_forEachMode(keyOf(bitCount, bits), modeCount, [&](int mode, LongKey const & key) {
        char name[labelCapacity];
        std::snprintf(name, sizeof name, "%s%d", static_cast<char const *>(label), mode);
        addKey(cow_String(name), key);
    });
}

void shp_ShapeDictionary::GenerateShapeKeys() {
    for (shp_CatalogueEntry const & entry : shp_catalogue)
        addKey(cow_String(atr_ConstantText::of(entry.label)), entry.key);
}
