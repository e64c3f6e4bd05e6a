#include "odiC_CategorySelection.h"

#include "odiC_FieldPacking.h"

odiC_CategorySelection::odiC_CategorySelection(cow_String const & label, bool showDiff, int top,
                                               cow_String const & topLabel, int bottom, cow_String const & bottomLabel)
    : categoryLabel(label), showDiffLocations(showDiff), topSectionId(top), bottomSectionId(bottom),
      topSectionLabel(topLabel), bottomSectionLabel(bottomLabel) {}

/// All fields, in the order in which they are packed.
template <class Visit, class Self> void odiC_CategorySelection::forEachField(Visit visit, Self & self) {
    visit(self.categoryLabel);
    visit(self.showDiffLocations);
    visit(self.topSectionId);
    visit(self.topSectionLabel);
    visit(self.bottomSectionId);
    visit(self.bottomSectionLabel);
}

bool odiC_CategorySelection::operator==(odiC_CategorySelection const & other) const {
    return this == &other ||
           (categoryLabel == other.categoryLabel && showDiffLocations == other.showDiffLocations &&
            topSectionId == other.topSectionId && bottomSectionId == other.bottomSectionId &&
            topSectionLabel == other.topSectionLabel && bottomSectionLabel == other.bottomSectionLabel);
}

bool odiC_CategorySelection::IsEqual(odiC_CategorySelection const & other) const {
    if (this == &other)
        return true;
    if (categoryLabel != other.categoryLabel || bottomSectionId != other.bottomSectionId ||
        bottomSectionLabel != other.bottomSectionLabel || showDiffLocations != other.showDiffLocations)
        return false;
    return !showDiffLocations || (topSectionId == other.topSectionId && topSectionLabel == other.topSectionLabel);
}

int odiC_CategorySelection::operator-(odiC_CategorySelection const & other) const {
    if (int const order = categoryLabel.Compare(other.categoryLabel); order != 0)
        return order;
    if (showDiffLocations != other.showDiffLocations)
        return static_cast<int>(showDiffLocations) - static_cast<int>(other.showDiffLocations);
    if (int const order = odiC_difference(topSectionId, other.topSectionId); order != 0)
        return order;
    if (int const order = odiC_difference(bottomSectionId, other.bottomSectionId); order != 0)
        return order;
    if (int const order = topSectionLabel.Compare(other.topSectionLabel); order != 0)
        return order;
    return bottomSectionLabel.Compare(other.bottomSectionLabel);
}

bool odiC_CategorySelection::operator<(odiC_CategorySelection const & other) const {
    return categoryLabel < other.categoryLabel;
}

bool odiC_CategorySelection::operator>(odiC_CategorySelection const & other) const {
    return categoryLabel > other.categoryLabel;
}

cow_String odiC_CategorySelection::Print() const {
    cow_String const bottom = cow_String(bottomSectionId) + "  '" + bottomSectionLabel + "'\n";
    cow_String text = "  Category:   '" + categoryLabel + "'\n";
    if (showDiffLocations) {
        text.Append("    Top:      " + cow_String(topSectionId) + "  '" + topSectionLabel + "'\n");
        text.Append("    Bottom:   " + bottom);
    } else {
        text.Append("    Both:     " + bottom);
    }
    return text;
}

omu_PrimTuple odiC_CategorySelection::PackTuple() const {
    omu_PrimTuple tuple(6, '(');
    forEachField(odiC_FieldWriter{tuple}, *this);
    return tuple;
}

odiC_CategorySelection odiC_CategorySelection::UnpackTuple(omu_PrimTuple & source) {
    odiC_CategorySelection selection;
    source.Begin();
    forEachField(odiC_FieldReader{source}, selection);
    source.End("");
    return selection;
}

cow_Map<cow_String, odiC_CategorySelection> odiC_CategorySelection::UnpackTupleMap(omu_PrimTuple & source) {
    cow_Map<cow_String, odiC_CategorySelection> map;
    odiC_forEachTuple(source, [&](omu_PrimTuple & tuple) {
        odiC_CategorySelection const selection = UnpackTuple(tuple);
        map.Insert(selection.categoryLabel, selection);
    });
    return map;
}

template class cow_List<odiC_CategorySelection>;
template class cow_ListIter<odiC_CategorySelection>;
template class cow_MapAbsent<odiC_CategorySelection>;
template class cow_CountedHld<cow_MapNode<cow_String, odiC_CategorySelection>>;
template class cow_COW<cow_MapNode<cow_String, odiC_CategorySelection>,
                       cow_Direct<cow_MapNode<cow_String, odiC_CategorySelection>>>;
template class cow_MapNode<cow_String, odiC_CategorySelection>;
template class cow_Map<cow_String, odiC_CategorySelection>;
template class cow_ConstMapIterator<cow_String, odiC_CategorySelection>;
