#ifndef odiC_CategoryDesc_h
#define odiC_CategoryDesc_h

#include "QVRShpCore_Export.h"
#include "cow_ConstMapIterator.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "mem_AllocationOperators.h"

class omu_PrimTuple;

/// What a category of section points offers: the points of a shell, beam or layered section at which a result variable
/// stands, each with a label and an index. Labels are unique within a category; indices need not be.
///
/// "Iteration order" is that of cow_ConstMapIterator over the section points. It depends on the order in which they
/// were added, and so does equality.
///
/// Packed form, a tuple of 4: category label, tuple of (label, index) in iteration order, whether top and bottom are
/// allowed (0 or 1), default section point. The operations that read a tuple raise nex_PrimException<atr_String, 1>
/// when it has another shape.
///
/// Threads: as with every holder of copy-on-write fields, comparing, printing and packing count as copying (cow_Map.h).
class QVRSHPCORE_API odiC_CategoryDesc : public mem_AllocationOperators {
public:
    /// No label, no section points, one location only, and 2147483647 as the default section point.
    odiC_CategoryDesc() = default;
    /// `defaultPoint` is an index from `map` (not checked).
    odiC_CategoryDesc(cow_String const & label, cow_Map<cow_String, unsigned int> const & map, bool allow,
                      int defaultPoint);
    odiC_CategoryDesc(odiC_CategoryDesc const &) = default;
    odiC_CategoryDesc & operator=(odiC_CategoryDesc const &) = default;

    /// Whether all fields are equal, and the section points stand in the same iteration order.
    bool operator==(odiC_CategoryDesc const & other) const;
    bool operator!=(odiC_CategoryDesc const & other) const { return !(*this == other); }
    /// Order by the category label alone: two descriptions may be neither equal nor before or after each other.
    bool operator<(odiC_CategoryDesc const & other) const;
    bool operator>(odiC_CategoryDesc const & other) const;

    /// The label of the first section point, in iteration order, with this index; empty when there is none.
    cow_String operator[](int index) const;
    /// The index of the section point with this label; -1 when there is none.
    int operator[](cow_String const & label) const;

    /// Adds a section point, or gives a known one another index.
    void AddSection(cow_String const & label, unsigned int index);
    /// Removes a section point if it is there.
    void RemoveSection(cow_String const & label);

    /// All indices, and all labels, in iteration order.
    cow_List<unsigned int> SectionPointIndices() const;
    cow_List<cow_String> SectionPointLabels() const;

    /// The fields; the map has the index of each section point by its label.
    cow_Map<cow_String, unsigned int> const & SectionPointMap() const { return sectionPoints; }
    cow_String const & CategoryLabel() const { return categoryLabel; }
    bool AllowTopAndBottom() const { return allowTopAndBottom; }
    int DefaultSectionPoint() const { return defaultSectionPoint; }

    /// Replace one field each. The default section point is not checked, but see Print.
    void SetAllowTopAndBottom(bool allow) { allowTopAndBottom = allow; }
    void SetDefaultSectionPoint(int index) { defaultSectionPoint = index; }

    /// The description as text for a user. The default section point must be among the section points, which it is not
    /// in a default-constructed description: otherwise the process ends.
    cow_String Print() const;

    /// The packed form. The caller owns it.
    omu_PrimTuple * PackTuple() const;
    /// The packed forms of all values, in the map's iteration order, as one tuple, in which an empty set of section
    /// points is put as a null primitive. The caller owns it.
    static omu_PrimTuple * PackTupleMap(cow_Map<cow_String, odiC_CategoryDesc> const & map);
    /// What PackTuple packed.
    static odiC_CategoryDesc UnpackTuple(omu_PrimTuple & source);
    /// The map by category label; of equal labels the last counts.
    static cow_Map<cow_String, odiC_CategoryDesc> UnpackTupleMap(omu_PrimTuple & source);

private:
    template <class Visit, class Self> static void forEachField(Visit visit, Self & self);
    template <class Sections> omu_PrimTuple * pack(Sections sections) const;
    omu_PrimTuple * packSections() const;

    cow_String categoryLabel;
    cow_Map<cow_String, unsigned int> sectionPoints; ///< index by label
    bool allowTopAndBottom = false;
    int defaultSectionPoint = 2147483647;
};

extern template class cow_MapAbsent<odiC_CategoryDesc>;
extern template class cow_CountedHld<cow_MapNode<cow_String, odiC_CategoryDesc>>;
extern template class cow_COW<cow_MapNode<cow_String, odiC_CategoryDesc>,
                              cow_Direct<cow_MapNode<cow_String, odiC_CategoryDesc>>>;
extern template class cow_MapNode<cow_String, odiC_CategoryDesc>;
extern template class cow_Map<cow_String, odiC_CategoryDesc>;
extern template class cow_ConstMapIterator<cow_String, odiC_CategoryDesc>;

#endif
