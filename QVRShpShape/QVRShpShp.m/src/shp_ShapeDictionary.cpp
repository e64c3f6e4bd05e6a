#include "shp_ShapeDictionary.h"

#include "mem_Alloc.h"
#include "omi_BtreeIterator.h"
#include "shp_Catalogue.h"
#include "shp_KeyBit.h"
#include "shp_Shape.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <memory>
#include <new>

template class omi_SingletonBase<shp_ShapeDictionary>;
template class omi_Singleton<shp_ShapeDictionary>;

namespace {

constexpr unsigned int modeBits[] = {shp_keyMode1, shp_keyMode2, shp_keyMode3, shp_keyMode4};

struct FreeKey {
    void operator()(LongKey * key) const { mem_Free(key); }
};

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
    cow_String name(label);
    name.ToUpper();
    if (void * const built = shapes.ConstGet(name))
        return static_cast<shp_Shape *>(built);
    void * const key = keys.ConstGet(name);
    if (!key)
        return nullptr;

    std::unique_ptr<shp_Shape> shape(new shp_Shape(name, *static_cast<LongKey const *>(key)));
    shape->SetShapeRef(nextShapeRef++); // used up, even if the insertion fails
    shapes.Insert(name, shape.get());
    return shape.release();
}

/// A label that exists keeps its key.
void shp_ShapeDictionary::addKey(cow_String const & label, LongKey const & key) {
    std::unique_ptr<LongKey, FreeKey> copy(::new (mem_OperatorNewThrow(sizeof(LongKey))) LongKey(key));
    if (keys.Insert(label, copy.get()))
        copy.release();
}

void shp_ShapeDictionary::BuildKey(omn_FixedString const & label, unsigned int bitCount, unsigned int const * bits) {
    addKey(cow_String(static_cast<char const *>(label)), keyOf(bitCount, bits));
}

void shp_ShapeDictionary::BuildModeKeys(omn_FixedString const & label, int modeCount, unsigned int bitCount,
                                        unsigned int const * bits) {
    LongKey const base = keyOf(bitCount, bits);
    // Layered prisms are stacked along the third coordinate alone.
    bool const isLayeredPrism = base.hasBit(shp_keyLayeredSolid) && base.hasBit(shp_keyPrism);
    int const first = isLayeredPrism ? 2 : 0;
    int const last = isLayeredPrism ? 3 : std::min(modeCount, static_cast<int>(std::size(modeBits)));
    for (int i = first; i < last; ++i) {
        char name[shp_labelCapacity];
        std::snprintf(name, sizeof name, "%s%d", static_cast<char const *>(label), i + 1);
        LongKey key(base);
        key.setBits(1, &modeBits[i]);
        addKey(cow_String(name), key);
    }
}

void shp_ShapeDictionary::addFamily(shp_CatalogueFamily const & family) {
    for (shp_CatalogueRow const & row : family.rows) {
        unsigned int bits[4 + shp_CatalogueFlags::capacity];
        unsigned int bitCount = 0;
        for (shp_KeyBit const bit : {family.shape, row.nodes, row.points, row.space})
            bits[bitCount++] = static_cast<unsigned int>(bit);
        for (shp_KeyBit const bit : row.flags)
            bits[bitCount++] = static_cast<unsigned int>(bit);

        for (std::string_view rest = row.labels; !rest.empty();) {
            char label[shp_labelCapacity] = {};
            shp_takeLabel(rest).copy(label, sizeof label - 1);
            if (row.modes != 0)
                BuildModeKeys(label, row.modes, bitCount, bits);
            else
                BuildKey(label, bitCount, bits);
        }
    }
}

void shp_ShapeDictionary::GenerateShapeKeys() {
    GenerateARSShapeKeys();
    GeneratePointShapeKeys();
    GenerateLineShapeKeys();
    GenerateTriShapeKeys();
    GenerateQuadShapeKeys();
    GenerateTetraShapeKeys();
    GeneratePyrShapeKeys();
    GeneratePrismShapeKeys();
    GenerateHexShapeKeys();
}

void shp_ShapeDictionary::GenerateARSShapeKeys() {
    addFamily(shp_catalogueARS);
}
void shp_ShapeDictionary::GeneratePointShapeKeys() {
    addFamily(shp_cataloguePoint);
}
void shp_ShapeDictionary::GenerateLineShapeKeys() {
    addFamily(shp_catalogueLine);
}
void shp_ShapeDictionary::GenerateTriShapeKeys() {
    addFamily(shp_catalogueTri);
}
void shp_ShapeDictionary::GenerateQuadShapeKeys() {
    addFamily(shp_catalogueQuad);
}
void shp_ShapeDictionary::GenerateTetraShapeKeys() {
    addFamily(shp_catalogueTetra);
}
void shp_ShapeDictionary::GeneratePyrShapeKeys() {
    addFamily(shp_cataloguePyr);
}
void shp_ShapeDictionary::GeneratePrismShapeKeys() {
    addFamily(shp_cataloguePrism);
}
void shp_ShapeDictionary::GenerateHexShapeKeys() {
    addFamily(shp_catalogueHex);
}
