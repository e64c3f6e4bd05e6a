#ifndef odiC_VariableSelection_h
#define odiC_VariableSelection_h

#include "QVRShpCore_Export.h"
#include "calC_VariableRefinementTypeEnm.h"
#include "cow_String.h"
#include "mem_AllocationOperators.h"
#include "res_DataTypeEnm.h"
#include "res_OutputPositionEnm.h"
#include "res_StorageTypeEnm.h"

#include <limits>

class odiC_CategorySpec;
class odiC_VariableDesc;
class omu_PrimTuple;

/// What a user wants displayed: one result variable, refined to one of its invariants or components or to none, at
/// chosen section points of its categories.
///
/// The section points stand in an array of odiC_CategorySpec pointers with category id as index: the choice in category
/// k stands at slot k, and the slots of categories without a choice are null. The selection owns the array, a block of
/// the library's allocator (mem_OperatorNewThrowBuiltin or another function of mem_Alloc.h), and the elements, which
/// come from `new`.
///
/// Refinement label and id are both set or neither is: every way to make a selection turns an id with an empty label
/// into 0xffffffff, and empties the label of the id 0xffffffff.
///
/// When memory runs out, an operation leaves the selection as it was. Texts are shared between copies and their counts
/// are plain: no selection and no copy of it is shared between threads while one of them writes, copies, compares,
/// prints, packs or destroys.
class QVRSHPCORE_API odiC_VariableSelection : public mem_AllocationOperators {
public:
    /// A null selection: no label, position 0, data type 15 (NUM_DATA_TYPE), storage type 0, no refinement, clamps at
    /// the extreme finite numbers, false flags.
    odiC_VariableSelection();
    /// From all fields; no specs and no ply name.
    odiC_VariableSelection(cow_String const & label, res_OutputPositionEnm outputPosition, res_DataTypeEnm dataType,
                           res_StorageTypeEnm storageType, calC_VariableRefinementTypeEnm refinementType,
                           cow_String const & refinementLabel, unsigned int refinementId, bool isComplex,
                           float minClamp, float maxClamp, bool isDerived, bool isSurfaceVariable, bool localFlag);
    /// Selects what `desc` describes: its label, position, types, clamps and flags. No specs.
    odiC_VariableSelection(odiC_VariableDesc const & desc, calC_VariableRefinementTypeEnm refinementType,
                           cow_String const & refinementLabel, unsigned int refinementId, bool localFlag);
    /// The copy has specs of its own.
    odiC_VariableSelection(odiC_VariableSelection const & other);
    odiC_VariableSelection & operator=(odiC_VariableSelection const & other);
    /// What has been moved from can only be assigned or destroyed.
    odiC_VariableSelection(odiC_VariableSelection && other) noexcept;
    odiC_VariableSelection & operator=(odiC_VariableSelection && other) noexcept;
    virtual ~odiC_VariableSelection();

    /// Two null selections are equal whatever else they hold. Otherwise every field must agree, and the specs by
    /// CompareCategorySpec, which does not look at their labels. A clamp that is not a number equals none, so that
    /// such a selection equals itself, but not its copy.
    bool operator==(odiC_VariableSelection const & other) const;
    bool operator!=(odiC_VariableSelection const & other) const { return !(*this == other); }
    /// An order by label, position, types, refinement, whether different locations are shown, specs, complex flag,
    /// clamps, derived, surface and local flag: below, at or above 0. Differences wrap around, and a clamp that is not
    /// a number counts as equal to every other.
    int operator-(odiC_VariableSelection const & other) const;
    /// Both compare the variable's label alone, by unsigned bytes.
    bool operator<(odiC_VariableSelection const & other) const { return variableLabel < other.variableLabel; }
    bool operator>(odiC_VariableSelection const & other) const { return variableLabel > other.variableLabel; }

    /// The fields, as in the odiC_VariableDesc that was chosen from, and the component or invariant that was chosen.
    cow_String const & VariableLabel() const { return variableLabel; }
    res_OutputPositionEnm OutputPosition() const { return outputPosition; }
    res_DataTypeEnm DataType() const { return dataType; }
    res_StorageTypeEnm StorageType() const { return storageType; }
    calC_VariableRefinementTypeEnm RefinementType() const { return refinementType; }
    cow_String const & RefinementLabel() const { return refinementLabel; }
    /// 0xffffffff for none.
    unsigned int RefinementId() const { return refinementId; }
    /// `[CategorySpecCount()]`, each of which may be null; null for none. The selection stays the owner.
    odiC_CategorySpec const * const * CategorySpecs() const { return specs.categorySpecs; }
    int CategorySpecCount() const { return specs.categorySpecCount; }
    /// The layer that the specs are for; empty for none.
    cow_String const & PlyName() const { return specs.plyName; }
    /// The flags and clamps, as in the odiC_VariableDesc.
    bool IsComplex() const { return isComplex; }
    float MinClamp() const { return minClamp; }
    float MaxClamp() const { return maxClamp; }
    bool IsDerived() const { return isDerived; }
    bool IsSurfaceVariable() const { return isSurfaceVariable; }
    /// Takes part in comparison, but does not travel with the tuple.
    bool LocalFlag() const { return localFlag; }

    /// Whether nothing is selected: the variable's label is empty.
    bool IsNull() const { return variableLabel.Empty(); }
    /// Whether some spec chooses top and bottom separately.
    bool ShowDifferentLocations() const;

    /// Takes over an array `[count]` and its elements in place of the specs there are; the ply name becomes empty.
    /// `array` itself is not changed. An array of count 0 (or below) is freed at once. Unchecked: the array comes from
    /// the library's allocator, each element that is not null from `new`, and this selection does not own it yet.
    void AdoptCategorySpec(odiC_CategorySpec **& array, int count);
    /// Each replaces the specs and the ply name by copies. A count of 0 (or below) leaves none. What is copied may be
    /// this selection's own.
    void CopyCategorySpec(odiC_VariableSelection const & other);
    void CopyCategorySpec(odiC_CategorySpec const * const * array, int count, cow_String const & ply);
    /// Makes `count` slots that are null but for the one at the spec's category id, and no ply name. When there is no
    /// such slot, or `spec` is null, all of them are.
    void CopyCategorySpec(odiC_CategorySpec const * spec, int count);
    /// An order below, at or above 0: by count, ply name, and the specs slot by slot, where null comes first.
    int CompareCategorySpec(odiC_VariableSelection const & other) const;
    int CompareCategorySpec(odiC_CategorySpec const * const * array, int count, cow_String const & ply) const;

    /// The selection in lines for a reader. Raises nex_CmdException<atr_String, 2> for a position, data type or storage
    /// type without a name.
    cow_String Print() const;

    /// The selection as a tuple of 14 elements, which the caller owns; the local flag is left out. Element 9 holds the
    /// ply name and a tuple per slot, empty where the slot is null. With a ply name, only the first spec with a given
    /// category label is written, and empty tuples stand for the others.
    omu_PrimTuple * PackTuple() const;
    /// Reads such a tuple from its beginning; the local flag becomes false. Raises nex_PrimException<atr_String, 1> for
    /// a tuple of another shape.
    static odiC_VariableSelection UnpackTuple(omu_PrimTuple & tuple);

private:
    static constexpr unsigned int noRefinement = 0xffffffff;

    /// The owned array with the name of the ply it is for; without slots there is no name either.
    struct SpecArray {
        SpecArray() = default;
        explicit SpecArray(int count);
        SpecArray(odiC_CategorySpec const * const * array, int count, cow_String const & ply);
        SpecArray(SpecArray const & other) : SpecArray(other.categorySpecs, other.categorySpecCount, other.plyName) {}
        SpecArray(SpecArray && other) noexcept { swap(other); }
        SpecArray & operator=(SpecArray const &) = delete;
        SpecArray & operator=(SpecArray && other) noexcept;
        ~SpecArray();

        /// The tuple of ply name and specs; `numWritten` tells how many of those it holds.
        omu_PrimTuple pack(int & numWritten) const;
        static SpecArray unpack(omu_PrimTuple & tuple);
        void swap(SpecArray & other) noexcept;

        odiC_CategorySpec ** categorySpecs = nullptr;
        int categorySpecCount = 0;
        cow_String plyName;
    };

    /// Calls `visit` with each field that is packed, in the order of the tuple's elements.
    template <class Visit, class Self> static void forEachField(Visit visit, Self & self);

    void normaliseRefinement();
    void ClearCategorySpec();

    cow_String variableLabel;
    res_OutputPositionEnm outputPosition = res_OutputPosition_UNDEFINED_POSITION;
    res_DataTypeEnm dataType = res_DataType_NUM_DATA_TYPE;
    res_StorageTypeEnm storageType = res_StorageType_FLOAT;
    calC_VariableRefinementTypeEnm refinementType = calC_VariableRefinementType_NONE;
    cow_String refinementLabel;
    unsigned int refinementId = noRefinement;
    SpecArray specs;
    bool isComplex = false;
    float minClamp = std::numeric_limits<float>::lowest();
    float maxClamp = std::numeric_limits<float>::max();
    bool isDerived = false;
    bool isSurfaceVariable = false;
    bool localFlag = false;
};

#endif
