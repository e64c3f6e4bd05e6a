#ifndef odiC_CategorySpec_h
#define odiC_CategorySpec_h

#include "QVRShpCore_Export.h"
#include "cow_String.h"
#include "mem_AllocationOperators.h"

class omu_PrimTuple;

/// A choice from a category of section points, as odiC_CategorySelection, with the number of the category. A variable
/// selection holds one for each of its categories.
///
/// Packed form, a tuple of 7: the six elements of a packed odiC_CategorySelection, then the category id.
///
/// Threads: comparing, printing and packing count as copying (cow_String.h).
class QVRSHPCORE_API odiC_CategorySpec : public mem_AllocationOperators {
public:
    /// Both ids come before both labels, other than in odiC_CategorySelection.
    odiC_CategorySpec(int id, cow_String const & label, bool showDiff, int top, int bottom, cow_String const & topLabel,
                      cow_String const & bottomLabel);
    /// Shares the labels.
    odiC_CategorySpec(odiC_CategorySpec const &) = default;
    /// Each gives this spec labels of its own, shared with nobody. The arguments may be fields of this spec, which
    /// stays as it was when memory runs out.
    odiC_CategorySpec & operator=(odiC_CategorySpec const & other);
    void reset(int id, cow_String const & label, bool showDiff, int top, int bottom, cow_String const & topLabel,
               cow_String const & bottomLabel);

    /// Whether all fields are equal, the labels included.
    bool operator==(odiC_CategorySpec const & other) const;
    bool operator!=(odiC_CategorySpec const & other) const { return !(*this == other); }
    /// The sign tells the order, which leaves out the labels, for the ids identify the section points: two specs may
    /// have the difference 0 and be unequal. Differences of ids are taken modulo 2^32.
    int operator-(odiC_CategorySpec const & other) const;

    /// The fields. showDiffLocations: whether top and bottom are chosen separately.
    int categoryId() const { return m_categoryId; }
    cow_String const & categoryLabel() const { return m_categoryLabel; }
    bool showDiffLocations() const { return m_showDiffLocations; }
    int TopSectionId() const { return m_topSectionId; }
    int BottomSectionId() const { return m_bottomSectionId; }
    cow_String const & TopSectionLabel() const { return m_topSectionLabel; }
    cow_String const & BottomSectionLabel() const { return m_bottomSectionLabel; }

    /// Adds the packed form to `target`.
    void PackTuple(omu_PrimTuple & target) const;
    /// Reads the next `count` tuples of `source`. Each tuple of 7 becomes a spec from `new` at `specs[categoryId]`, in
    /// place of the one that is there; tuples of other lengths, and specs with an id outside 0 to `count` - 1, are left
    /// out. `specs` is an array of `count` pointers to specs from `new`, or null. Raises nex_PrimException<atr_String,
    /// 1> when an element is no tuple, or a tuple of 7 has other elements; `specs` keeps what it has got until then.
    static void UnpackTuple(omu_PrimTuple & source, int count, odiC_CategorySpec **& specs);

    /// Adds the spec as text for a user to `out`.
    void Print(cow_String & out) const;

private:
    odiC_CategorySpec() = default;
    template <class Visit, class... Self> static void forEachField(Visit visit, Self &... self);

    int m_categoryId = -1;
    cow_String m_categoryLabel;
    bool m_showDiffLocations = false; ///< top and bottom are chosen separately
    int m_topSectionId = -1;
    int m_bottomSectionId = -1;
    cow_String m_topSectionLabel;
    cow_String m_bottomSectionLabel;
};

#endif
