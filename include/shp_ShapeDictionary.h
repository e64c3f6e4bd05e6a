#ifndef shp_ShapeDictionary_h
#define shp_ShapeDictionary_h

#include "LongKey.h"
#include "QVRShpCore_Export.h"
#include "cow_String.h"
#include "omi_Btree.h"
#include "omi_Singleton.h"
#include "omn_FixedString.h"

#include <memory>

class aio_ostream;
class shp_LabelIndex;
class shp_Shape;

/// The door of the library: from an element label to its key and to its shape.
///
///     shp_Shape const * shape = omi_Singleton<shp_ShapeDictionary>::Instance().GetShape("C3D20R");
///
/// The first Instance() fills the catalogue with the keys of all labels; a shape is built when its label is first asked
/// for. The dictionary owns keys and shapes; it lives until the library stops, or until
/// omi_SingletonBase<shp_ShapeDictionary>::Finalize(), and every pointer that it gave out dies with it.
///
/// No operation is guarded by a lock: callers serialise Instance() and GetShape. If the first Instance() raises (memory
/// is exhausted), neither Instance() nor the dictionary may be used until Finalize().
class QVRSHPCORE_API shp_ShapeDictionary : public omi_Singleton<shp_ShapeDictionary> {
public:
    shp_ShapeDictionary(shp_ShapeDictionary const &) = delete;
    shp_ShapeDictionary & operator=(shp_ShapeDictionary const &) = delete;

    /// Destroys every shape and every key.
    ~shp_ShapeDictionary();

    /// The shape of `label` in upper or lower case, the same object at each call; null, and nothing reported, for a
    /// label that the catalogue does not have. Raises when memory is exhausted: then no shape was added, and the next
    /// call tries again. A shape that is built already is found without an allocation, if its label has at most nine
    /// characters.
    shp_Shape const * GetShape(cow_String const & label) const;

    /// The catalogue: upper-case label to LongKey const *. Walk it with omi_BtreeIterator, in ascending label order.
    omi_Btree<cow_String, void *> const & Keys() const { return keys; }

    // Text reports of the whole catalogue, in ascending label order. Each builds all shapes that nobody has asked for
    // yet. They raise what GetShape raises, in the midst of the text.

    /// Counts and flags of each label, as a list.
    void PrintShape(aio_ostream & stream) const;
    /// Four sections, each over all labels: counts and flags, connectivity, weights, inverse topology tables. Leaves
    /// the stream's adjustment left and its precision at 7.
    void PrintShapeTable(aio_ostream & stream) const;
    /// A Python script that defines shp_NodesPerElement, a dictionary from label to node count (of all planes of the
    /// element), and 0 for "unsupported". Leaves the stream's adjustment left.
    void PrintLabelToNodecountTable(aio_ostream & stream) const;

    /// Adds the labels of all families to the catalogue. The constructor has done so; labels that exist stay as they
    /// are.
    void GenerateShapeKeys();

    /// Adds one label with the key of the `bitCount` numbers in `bits`. A label that exists keeps its key. GetShape
    /// finds only labels in upper case.
    void BuildKey(omn_FixedString const & label, unsigned int bitCount, unsigned int const * bits);

    /// Adds the labels `label`1 to `label`N, N = `modeCount` but at most 4, each with the mode bit of its digit beside
    /// `bits`. Of a layered prism (shp_keyLayeredSolid and shp_keyPrism) only `label`3 is added, whatever the count. A
    /// label with its digit is cut after 23 characters.
    void BuildModeKeys(omn_FixedString const & label, int modeCount, unsigned int bitCount, unsigned int const * bits);

private:
    friend class omi_Singleton<shp_ShapeDictionary>;

    shp_ShapeDictionary();

    struct GeneratedKeys;
    void GenerateARSShapeKeys(GeneratedKeys & generated);
    void GeneratePointShapeKeys(GeneratedKeys & generated);
    void GenerateLineShapeKeys(GeneratedKeys & generated);
    void GenerateTriShapeKeys(GeneratedKeys & generated);
    void GenerateQuadShapeKeys(GeneratedKeys & generated);
    void GenerateTetraShapeKeys(GeneratedKeys & generated);
    void GeneratePyrShapeKeys(GeneratedKeys & generated);
    void GeneratePrismShapeKeys(GeneratedKeys & generated);
    void GenerateHexShapeKeys(GeneratedKeys & generated);
    void release();
    shp_Shape const * findOrBuild(cow_String const & label) const;

    omi_Btree<cow_String, void *> keys;                  ///< label to LongKey *, owned
    mutable omi_Btree<cow_String, void *> shapes;        ///< upper-case label to shp_Shape *, owned; filled by GetShape
    mutable unsigned int nextShapeRef = 0;               ///< shapeRef of the next shape
    mutable std::unique_ptr<shp_LabelIndex> builtShapes; ///< the quick way into `shapes`, from the first shape on
};

extern template class omi_SingletonBase<shp_ShapeDictionary>;
extern template class omi_Singleton<shp_ShapeDictionary>;

#endif
