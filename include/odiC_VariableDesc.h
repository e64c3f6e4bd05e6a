#ifndef odiC_VariableDesc_h
#define odiC_VariableDesc_h

#include "QVRBasStringMode.h"
#include "QVRShpCore_Export.h"
#include "atr_String.h"
#include "cow_List.h"
#include "cow_ListIter.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "mem_AllocationOperators.h"
#include "odiC_CategoryDesc.h"
#include "res_DataTypeEnm.h"
#include "res_OutputPositionEnm.h"
#include "res_StorageTypeEnm.h"

#include <limits>

class omu_PrimTuple;

/// One result variable that a step or frame of an output database can offer: its label and description, where it stands
/// and what it is made of, the invariants and components derived from it, and the categories of section points at which
/// it exists.
///
/// Labels and ids of the invariants stand in parallel lists, and so do those of the components. No label and no id
/// occurs twice. Components ascend by id; invariants (res_InvariantEnm) stand in the order in which users are shown
/// them: 6, 3, 12, 4, 5, 0, 11, 1, 2, 7, 8, 9, 10, behind all ids that are not among these.
///
/// Packed form, a tuple of 15: label, description, position, position label, data type, data type label, storage type,
/// invariants and components (a tuple of (label, id) each), categories (a tuple of odiC_CategoryDesc tuples), whether
/// complex, whether derived, lower and upper clamp, whether a surface variable. Enumerators and flags are int there,
/// clamps double.
///
/// A copy takes constant time and shares all texts, lists and the map. Threads: comparing, printing and packing count
/// as copying, so no description and no copy of it is shared between threads while one of them does any of this,
/// writes, copies or destroys.
class QVRSHPCORE_API odiC_VariableDesc : public mem_AllocationOperators {
public:
    /// Empty texts, lists and map; position 0, data type 15 (NUM_DATA_TYPE), storage type 0; the flags false; the
    /// clamps at the extreme finite numbers.
    odiC_VariableDesc() = default;
    /// `mode` says in which encoding `positionLabel` is. No invariants, components and categories; neither derived nor
    /// a surface variable.
    odiC_VariableDesc(cow_String const & label, cow_String const & variableDescription, res_OutputPositionEnm position,
                      atr_String const & positionLabel, res_DataTypeEnm type, cow_String const & typeLabel,
                      res_StorageTypeEnm storage, bool complex, float lowerClamp, float upperClamp,
                      QVRBasStringMode mode);
    odiC_VariableDesc(odiC_VariableDesc const &) = default;
    odiC_VariableDesc & operator=(odiC_VariableDesc const &) = default;

    /// Whether all fields are equal, the categories also in their iteration order (cow_ConstMapIterator), which depends
    /// on the order in which they were added. A description equals itself; one with a clamp that is not a number equals
    /// no other, not even its copy.
    bool operator==(odiC_VariableDesc const & other) const;
    bool operator!=(odiC_VariableDesc const & other) const { return !(*this == other); }
    /// The order by label, description and position label, by unsigned bytes. Descriptions that agree in these are in
    /// no order, equal or not; cow_List::Sort leaves such ones in any order.
    bool operator<(odiC_VariableDesc const & other) const { return compareKeys(other) < 0; }
    bool operator>(odiC_VariableDesc const & other) const { return compareKeys(other) > 0; }

    /// Label and description for a user, and where the values stand.
    cow_String const & VariableLabel() const { return variableLabel; }
    cow_String const & Description() const { return description; }
    res_OutputPositionEnm OutputPosition() const { return outputPosition; }
    /// The label of the position, in the encoding that `mode` names.
    atr_String OutputPositionLabel(QVRBasStringMode mode) const;
    /// What one value is: a scalar, a vector, a tensor.
    res_DataTypeEnm DataType() const { return dataType; }
    /// Stored, compared and packed; what it says is its writer's matter.
    cow_String const & DataTypeLabel() const { return dataTypeLabel; }
    /// How the values are stored.
    res_StorageTypeEnm StorageType() const { return storageType; }
    /// Labels and ids of the invariants, and of the components, in the order that the class describes.
    cow_List<cow_String> const & InvariantLabels() const { return invariants.labels; }
    cow_List<unsigned int> const & InvariantIds() const { return invariants.ids; }
    cow_List<cow_String> const & ComponentLabels() const { return components.labels; }
    cow_List<unsigned int> const & ComponentIds() const { return components.ids; }
    /// The categories by label.
    cow_Map<cow_String, odiC_CategoryDesc> const & CategoryMap() const { return categoryMap; }
    /// Flags of the values: complex numbers, derived from other values, on surfaces.
    bool IsComplex() const { return isComplex; }
    bool IsDerived() const { return isDerived; }
    bool IsSurfaceVariable() const { return isSurfaceVariable; }
    /// The clamps, in the unit of the values; the extreme finite numbers when there are none.
    float MinClamp() const { return minClamp; }
    float MaxClamp() const { return maxClamp; }

    /// Adds an invariant in its place. One that has either its label or its id is replaced. When both are there
    /// already, even of different invariants, nothing changes. When memory runs out, the description stays as it was.
    void AddInvariant(cow_String const & label, unsigned int id);
    /// The same for a component.
    void AddComponent(cow_String const & label, unsigned int id);
    /// Adds a section point to a category, sets whether the category allows top and bottom, and, if `isDefault`, makes
    /// `index` its default section point. A section point that is there keeps its index. A category that is not there
    /// is added, with `index` as its default whatever `isDefault` says.
    void AddSection(cow_String const & category, cow_String const & section, unsigned int index, bool allowTopAndBottom,
                    bool isDefault);

    /// Whether `map` has equal categories under the same keys in the same iteration order.
    bool IsCategoryMapEqual(cow_Map<cow_String, odiC_CategoryDesc> const & map) const;
    /// Shares `map` as the categories.
    void SetCategoryMap(cow_Map<cow_String, odiC_CategoryDesc> const & map) { categoryMap = map; }
    /// The new value of IsDerived, and of IsSurfaceVariable.
    void SetDerived(bool derived) { isDerived = derived; }
    void SetSurfaceVariable(bool surfaceVariable) { isSurfaceVariable = surfaceVariable; }

    /// The description in lines for a reader. Raises nex_CmdException<atr_String, 2> for a position, data type or
    /// storage type without a name. The process ends when the default section point of a category is not among its
    /// section points.
    cow_String Print() const;

    /// The packed form, its position label in the encoding that `mode` names. The caller owns it.
    omu_PrimTuple * PackTuple(QVRBasStringMode mode) const;
    /// What PackTuple packed, read from the tuple's first element on. Invariants and components are added one by one,
    /// so that they get into their order whatever order they arrive in. A missing, surplus or wrong element raises
    /// nex_PrimException<atr_String, 1>.
    static odiC_VariableDesc UnpackTuple(omu_PrimTuple & tuple, QVRBasStringMode mode);

private:
    /// Parallel lists of the labels and ids of invariants or components.
    struct LabelledIds {
        cow_List<cow_String> labels;
        cow_List<unsigned int> ids;

        template <class Rank> void add(cow_String const & label, unsigned int id, Rank rank);
        omu_PrimTuple * pack() const;
        void print(cow_String & text, char const * heading) const;
    };

    template <class Self, class Visit> static void forEachField(Self & self, Visit visit);
    int compareKeys(odiC_VariableDesc const & other) const;

    cow_String variableLabel;
    cow_String description;
    res_OutputPositionEnm outputPosition = res_OutputPosition_UNDEFINED_POSITION;
    atr_String outputPositionLabel; ///< UTF-8
    res_DataTypeEnm dataType = res_DataType_NUM_DATA_TYPE;
    cow_String dataTypeLabel;
    res_StorageTypeEnm storageType = res_StorageType_FLOAT;
    LabelledIds invariants;
    LabelledIds components;
    cow_Map<cow_String, odiC_CategoryDesc> categoryMap;
    bool isComplex = false;
    bool isDerived = false;
    float minClamp = std::numeric_limits<float>::lowest();
    float maxClamp = std::numeric_limits<float>::max();
    bool isSurfaceVariable = false;
};

extern template class cow_List<odiC_VariableDesc>;
extern template class cow_ListIter<odiC_VariableDesc>;

#endif
