#include "shp_ShapeDictionary.h"

#include "atr_ConstantText.h"
#include "mem_Alloc.h"
#include "omi_BtreeIterator.h"
#include "shp_Catalogue.h"
#include "shp_LabelIndex.h"
#include "shp_Shape.h"

#include <array>
#include <cstdio>
#include <memory>
#include <new>
#include <utility>

template class omi_SingletonBase<shp_ShapeDictionary>;
template class omi_Singleton<shp_ShapeDictionary>;

namespace {

/// Room for a label, its mode digit and the terminating zero; what is longer is cut.
constexpr std::size_t labelCapacity = 24;

struct FreeKey {
    void operator()(LongKey * key) const { mem_Free(key); }
};
using OwnedKey = std::unique_ptr<LongKey, FreeKey>;

OwnedKey newKey(LongKey const & key) {
    return OwnedKey(::new (mem_OperatorNewThrow(sizeof(LongKey))) LongKey(key));
}

/// A label that exists keeps its key.
void insert(omi_Btree<cow_String, void *> & keys, cow_String const & label, OwnedKey key) {
    if (keys.Insert(label, key.get()))
        key.release();
}

LongKey keyOf(unsigned int bitCount, unsigned int const * bits) {
    LongKey key;
    key.setBits(bitCount, bits);
    return key;
}

/// Values of an owning tree, one after the other.
template <class Destroy> void forEachValue(omi_Btree<cow_String, void *> const & tree, Destroy destroy) {
    omi_BtreeIterator<cow_String, void *> entries(tree);
    for (bool isEntry = entries.First(); isEntry; isEntry = entries.Next())
        destroy(entries.CurrentValue());
}

} // namespace

/// Keys of all families, in ascending order of the labels.
struct shp_ShapeDictionary::GeneratedKeys {
    struct Entry {
        char const * label;
        OwnedKey key;
    };
    void add(shp_CatalogueEntries family) {
        for (shp_CatalogueEntry const & entry : family)
            entries[static_cast<std::size_t>(entry.rank)] = {entry.label, newKey(entry.key)};
    }

    std::array<Entry, shp_catalogueSize> entries;
};

shp_ShapeDictionary::shp_ShapeDictionary() {
    try {
        GenerateShapeKeys();
    } catch (...) {
        release();
        throw;
    }
}

shp_ShapeDictionary::~shp_ShapeDictionary() {
    release();
}

/// Destroys what the trees point to; nothing but the trees' own destruction may follow.
void shp_ShapeDictionary::release() {
    forEachValue(shapes, [](void * shape) { delete static_cast<shp_Shape *>(shape); });
    forEachValue(keys, [](void * key) { mem_Free(key); });
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

void shp_ShapeDictionary::BuildKey(omn_FixedString const & label, unsigned int bitCount, unsigned int const * bits) {
    insert(keys, cow_String(static_cast<char const *>(label)), newKey(keyOf(bitCount, bits)));
}

void shp_ShapeDictionary::BuildModeKeys(omn_FixedString const & label, int modeCount, unsigned int bitCount,
                                        unsigned int const * bits) {
    shp_forEachMode(keyOf(bitCount, bits), modeCount, [&](int mode, LongKey const & key) {
        char name[labelCapacity];
        std::snprintf(name, sizeof name, "%s%d", static_cast<char const *>(label), mode);
        insert(keys, cow_String(name), newKey(key));
    });
}

/// The keys of all families are generated before the tree has any, which then grows in ascending order, one comparison
/// for each label, and not in the order of the families.
void shp_ShapeDictionary::GenerateShapeKeys() {
    GeneratedKeys generated;
    GenerateARSShapeKeys(generated);
    GeneratePointShapeKeys(generated);
    GenerateLineShapeKeys(generated);
    GenerateTriShapeKeys(generated);
    GenerateQuadShapeKeys(generated);
    GenerateTetraShapeKeys(generated);
    GeneratePyrShapeKeys(generated);
    GeneratePrismShapeKeys(generated);
    GenerateHexShapeKeys(generated);
    for (auto & [label, key] : generated.entries)
        insert(keys, cow_String(atr_ConstantText::of(label)), std::move(key));
}

void shp_ShapeDictionary::GenerateARSShapeKeys(GeneratedKeys & generated) {
    generated.add(shp_catalogueARS);
}
void shp_ShapeDictionary::GeneratePointShapeKeys(GeneratedKeys & generated) {
    generated.add(shp_cataloguePoint);
}
void shp_ShapeDictionary::GenerateLineShapeKeys(GeneratedKeys & generated) {
    generated.add(shp_catalogueLine);
}
void shp_ShapeDictionary::GenerateTriShapeKeys(GeneratedKeys & generated) {
    generated.add(shp_catalogueTri);
}
void shp_ShapeDictionary::GenerateQuadShapeKeys(GeneratedKeys & generated) {
    generated.add(shp_catalogueQuad);
}
void shp_ShapeDictionary::GenerateTetraShapeKeys(GeneratedKeys & generated) {
    generated.add(shp_catalogueTetra);
}
void shp_ShapeDictionary::GeneratePyrShapeKeys(GeneratedKeys & generated) {
    generated.add(shp_cataloguePyr);
}
void shp_ShapeDictionary::GeneratePrismShapeKeys(GeneratedKeys & generated) {
    generated.add(shp_cataloguePrism);
}
void shp_ShapeDictionary::GenerateHexShapeKeys(GeneratedKeys & generated) {
    generated.add(shp_catalogueHex);
}
