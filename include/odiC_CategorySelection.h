#ifndef odiC_CategorySelection_h
#define odiC_CategorySelection_h

#include "QVRShpCore_Export.h"
#include "cow_ConstMapIterator.h"
#include "cow_List.h"
#include "cow_ListIter.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "mem_AllocationOperators.h"

class omu_PrimTuple;

/// What a user chose from a category of section points, by label: one location, or a top and a bottom one. A single
/// location is the bottom pair of id and label; the top pair then means nothing, and IsEqual and Print leave it out.
///
/// Packed form, a tuple of 6: category label, whether top and bottom are chosen separately (0 or 1), top id, top label,
/// bottom id, bottom label. The operations that read a tuple raise nex_PrimException<atr_String, 1> when it has another
/// shape.
///
/// Threads: comparing, printing and packing count as copying (cow_String.h).
class QVRSHPCORE_API odiC_CategorySelection : public mem_AllocationOperators {
public:
    /// Empty labels, a single location, and -1 for both ids.
    odiC_CategorySelection() = default;
    /// From all fields. `showDiff`: top and bottom are chosen separately. Ids are not checked.
    odiC_CategorySelection(cow_String const & label, bool showDiff, int top, cow_String const & topLabel, int bottom,
                           cow_String const & bottomLabel);

    /// The fields. ShowDiffLocations: whether top and bottom are chosen separately.
    cow_String CategoryLabel() const { return categoryLabel; }
    bool ShowDiffLocations() const { return showDiffLocations; }
    int TopSectionId() const { return topSectionId; }
    int BottomSectionId() const { return bottomSectionId; }
    cow_String const & TopSectionLabel() const { return topSectionLabel; }
    cow_String const & BottomSectionLabel() const { return bottomSectionLabel; }

    /// Whether all fields are equal, those without meaning too.
    bool operator==(odiC_CategorySelection const & other) const;
    bool operator!=(odiC_CategorySelection const & other) const { return !(*this == other); }
    /// Whether both choose the same: the top pair counts only where it has a meaning.
    bool IsEqual(odiC_CategorySelection const & other) const;
    /// The sign tells the order; 0 when all fields are equal. Differences of ids are taken modulo 2^32.
    int operator-(odiC_CategorySelection const & other) const;
    /// Order by the category label alone: two selections may be neither equal nor before or after each other.
    bool operator<(odiC_CategorySelection const & other) const;
    bool operator>(odiC_CategorySelection const & other) const;

    /// The selection as text for a user.
    cow_String Print() const;

    /// The packed form, and what it holds.
    omu_PrimTuple PackTuple() const;
    static odiC_CategorySelection UnpackTuple(omu_PrimTuple & source);
    /// Reads a tuple of packed selections into a map by category label; of equal labels the last counts.
    static cow_Map<cow_String, odiC_CategorySelection> UnpackTupleMap(omu_PrimTuple & source);

private:
    template <class Visit, class Self> static void forEachField(Visit visit, Self & self);

    cow_String categoryLabel;
    bool showDiffLocations = false; ///< top and bottom are chosen separately
    int topSectionId = -1;
    int bottomSectionId = -1;
    cow_String topSectionLabel;
    cow_String bottomSectionLabel;
};

extern template class cow_List<odiC_CategorySelection>;
extern template class cow_ListIter<odiC_CategorySelection>;
extern template class cow_MapAbsent<odiC_CategorySelection>;
extern template class cow_CountedHld<cow_MapNode<cow_String, odiC_CategorySelection>>;
extern template class cow_COW<cow_MapNode<cow_String, odiC_CategorySelection>,
                              cow_Direct<cow_MapNode<cow_String, odiC_CategorySelection>>>;
extern template class cow_MapNode<cow_String, odiC_CategorySelection>;
extern template class cow_Map<cow_String, odiC_CategorySelection>;
extern template class cow_ConstMapIterator<cow_String, odiC_CategorySelection>;

#endif
