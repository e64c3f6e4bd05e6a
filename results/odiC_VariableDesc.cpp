#include "odiC_VariableDesc.h"

#include "QVRBasAtrStringMode.h"
#include "odiC_FieldPacking.h"
#include "res_PrimEnums.h"

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace {

constexpr int packedLength = 15;

/// The order in which invariants are listed.
constexpr unsigned int invariantOrder[] = {
    res_Invariant_MISES,
    res_Invariant_MAXIMUM_IN_PLANE_PRINCIPAL,
    res_Invariant_MAX_IN_PLANE_PRINCIPAL_ABS,
    res_Invariant_MINIMUM_IN_PLANE_PRINCIPAL,
    res_Invariant_OUT_OF_PLANE_PRINCIPAL,
    res_Invariant_MAX_PRINCIPAL,
    res_Invariant_MAX_PRINCIPAL_ABS,
    res_Invariant_MID_PRINCIPAL,
    res_Invariant_MIN_PRINCIPAL,
    res_Invariant_TRESCA,
    res_Invariant_PRESS,
    res_Invariant_INV3,
    res_Invariant_MAGNITUDE,
};

/// The place of an invariant in that order; -1 for a number that is no invariant, which goes in front.
int invariantRank(unsigned int id) {
    auto const * const found = std::find(invariantOrder, std::end(invariantOrder), id);
    return found == std::end(invariantOrder) ? -1 : static_cast<int>(found - invariantOrder);
}

unsigned int componentRank(unsigned int id) {
    return id;
}

template <class Enumeration> cow_String textOf(Enumeration value) {
    return omu_PrimEnum<Enumeration, 1>(value).AsString(0);
}

/// Walks two category maps side by side until they differ or one ends.
template <class IsDifferent>
bool sameCategories(cow_Map<cow_String, odiC_CategoryDesc> const & left,
                    cow_Map<cow_String, odiC_CategoryDesc> const & right, IsDifferent isDifferent) {
    cow_ConstMapIterator<cow_String, odiC_CategoryDesc> leftEntry(left);
    cow_ConstMapIterator<cow_String, odiC_CategoryDesc> rightEntry(right);
    leftEntry.First();
    rightEntry.First();
    for (; !leftEntry.IsDone() && !rightEntry.IsDone(); leftEntry.Next(), rightEntry.Next())
        if (isDifferent(leftEntry, rightEntry))
            return false;
    return true;
}

} // namespace

template class cow_List<odiC_VariableDesc>;
template class cow_ListIter<odiC_VariableDesc>;

/// Adds an entry before the first one of a higher rank. An entry that has only the label or only the id makes way.
template <class Rank> void odiC_VariableDesc::LabelledIds::add(cow_String const & label, unsigned int id, Rank rank) {
    int const withId = ids.FindMember(id);
    int const withLabel = labels.FindMember(label);
    if (withId >= 0 && withLabel >= 0)
        return;
    cow_String const added(label); // `label` may be the text that makes way
    if (int const replaced = std::max(withId, withLabel); replaced >= 0) {
        ids.RemoveIndex(replaced);
        labels.RemoveIndex(replaced);
    }
    int position = 0;
    while (position < ids.Length() && rank(ids.UncheckedConstGet(position)) <= rank(id))
        ++position;
    ids.InsertIndex(position, id);
    labels.InsertIndex(position, added);
}

omu_PrimTuple * odiC_VariableDesc::LabelledIds::pack() const {
    auto pairs = odiC_newTuple(ids.Length());
    cow_ListIter<cow_String> label(labels);
    cow_ListIter<unsigned int> id(ids);
    for (; label.NotDone() && id.NotDone(); label.Next(), id.Next())
        odiC_putPair(*pairs, label.CurrentItem(), id.CurrentItem());
    return pairs.release();
}

void odiC_VariableDesc::LabelledIds::print(cow_String & text, char const * heading) const {
    if (labels.IsEmpty())
        return;
    text.Append(heading);
    cow_ListIter<cow_String> label(labels);
    cow_ListIter<unsigned int> id(ids);
    for (; label.NotDone() && id.NotDone(); label.Next(), id.Next())
        text.Append(cow_String(id.CurrentItem()) + ":  '" + label.CurrentItem() + "'\n");
}

odiC_VariableDesc::odiC_VariableDesc(cow_String const & label, cow_String const & variableDescription,
                                     res_OutputPositionEnm position, atr_String const & positionLabel,
                                     res_DataTypeEnm type, cow_String const & typeLabel, res_StorageTypeEnm storage,
                                     bool complex, float lowerClamp, float upperClamp, QVRBasStringMode mode)
    : variableLabel(label), description(variableDescription), outputPosition(position),
      outputPositionLabel(QVRBasAtrStringMode::ModalToUTF8(positionLabel, mode)), dataType(type),
      dataTypeLabel(typeLabel), storageType(storage), isComplex(complex), minClamp(lowerClamp), maxClamp(upperClamp) {}

/// Calls `visit` with each field, or each pair of parallel lists, in the order of the tuple's elements.
template <class Self, class Visit> void odiC_VariableDesc::forEachField(Self & self, Visit visit) {
    visit(self.variableLabel);
    visit(self.description);
    visit(self.outputPosition);
    visit(self.outputPositionLabel);
    visit(self.dataType);
    visit(self.dataTypeLabel);
    visit(self.storageType);
    visit(self.invariants);
    visit(self.components);
    visit(self.categoryMap);
    visit(self.isComplex);
    visit(self.isDerived);
    visit(self.minClamp);
    visit(self.maxClamp);
    visit(self.isSurfaceVariable);
}

bool odiC_VariableDesc::operator==(odiC_VariableDesc const & other) const {
    if (this == &other)
        return true;
    return variableLabel == other.variableLabel && description == other.description &&
           outputPosition == other.outputPosition && outputPositionLabel == other.outputPositionLabel &&
           dataType == other.dataType && dataTypeLabel == other.dataTypeLabel && storageType == other.storageType &&
           invariants.labels == other.invariants.labels && invariants.ids == other.invariants.ids &&
           components.labels == other.components.labels && components.ids == other.components.ids &&
           categoryMap.Size() == other.categoryMap.Size() && isComplex == other.isComplex &&
           isDerived == other.isDerived && isSurfaceVariable == other.isSurfaceVariable && minClamp == other.minClamp &&
           maxClamp == other.maxClamp &&
           sameCategories(categoryMap, other.categoryMap, [](auto const & left, auto const & right) {
               return left.CurrentValue() != right.CurrentValue() || left.CurrentKey() != right.CurrentKey();
           });
}

int odiC_VariableDesc::compareKeys(odiC_VariableDesc const & other) const {
    if (int const order = variableLabel.Compare(other.variableLabel))
        return order;
    if (int const order = description.Compare(other.description))
        return order;
    return outputPositionLabel.Compare(other.outputPositionLabel);
}

atr_String odiC_VariableDesc::OutputPositionLabel(QVRBasStringMode mode) const {
    return QVRBasAtrStringMode::Utf8ToModal(outputPositionLabel, mode);
}

void odiC_VariableDesc::AddInvariant(cow_String const & label, unsigned int id) {
    LabelledIds changed(invariants);
    changed.add(label, id, invariantRank);
    invariants = changed;
}

void odiC_VariableDesc::AddComponent(cow_String const & label, unsigned int id) {
    LabelledIds changed(components);
    changed.add(label, id, componentRank);
    components = changed;
}

void odiC_VariableDesc::AddSection(cow_String const & category, cow_String const & section, unsigned int index,
                                   bool allowTopAndBottom, bool isDefault) {
    if (categoryMap.IsMember(category)) {
        odiC_CategoryDesc & known = categoryMap.Get(category);
        if (!known.SectionPointMap().IsMember(section))
            known.AddSection(section, index);
        known.SetAllowTopAndBottom(allowTopAndBottom);
        if (isDefault)
            known.SetDefaultSectionPoint(static_cast<int>(index));
        return;
    }
    cow_Map<cow_String, unsigned int> sectionPoints;
    sectionPoints.Insert(section, index);
    categoryMap.Insert(category,
                       odiC_CategoryDesc(category, sectionPoints, allowTopAndBottom, static_cast<int>(index)));
}

bool odiC_VariableDesc::IsCategoryMapEqual(cow_Map<cow_String, odiC_CategoryDesc> const & map) const {
    return categoryMap.Size() == map.Size() &&
           sameCategories(categoryMap, map, [](auto const & left, auto const & right) {
               return left.CurrentKey() != right.CurrentKey() || left.CurrentValue() != right.CurrentValue();
           });
}

cow_String odiC_VariableDesc::Print() const {
    cow_String text = cow_String("Label:           '") + variableLabel + "'\n";
    text.Append(cow_String("Description:     '") + description + "'\n");
    text.Append(cow_String("Output Position: ") + textOf(outputPosition) + "\n");
    text.Append(cow_String("Data Type:       ") + textOf(dataType) + "\n");
    text.Append(cow_String("Storage Type:    ") + textOf(storageType) + "\n");
    invariants.print(text, "Invariants:\n");
    components.print(text, "Components:\n");
    if (categoryMap.IsEmpty())
        return text;
    text.Append("Categories:\n");
    cow_ConstMapIterator<cow_String, odiC_CategoryDesc> category(categoryMap);
    for (category.First(); !category.IsDone(); category.Next())
        text.Append(category.CurrentValue().Print());
    return text;
}

omu_PrimTuple * odiC_VariableDesc::PackTuple(QVRBasStringMode mode) const {
    auto tuple = odiC_newTuple(packedLength);
    forEachField(*this, [&](auto const & field) {
        using Field = std::remove_cvref_t<decltype(field)>;
        if constexpr (std::is_same_v<Field, atr_String>)
            tuple->Put(QVRBasAtrStringMode::Utf8ToModal(field, mode));
        else if constexpr (std::is_same_v<Field, LabelledIds>)
            tuple->Put(field.pack());
        else if constexpr (std::is_same_v<Field, cow_Map<cow_String, odiC_CategoryDesc>>)
            tuple->Put(odiC_CategoryDesc::PackTupleMap(field));
        else
            odiC_FieldWriter{*tuple}(field);
    });
    return tuple.release();
}

odiC_VariableDesc odiC_VariableDesc::UnpackTuple(omu_PrimTuple & tuple, QVRBasStringMode mode) {
    odiC_VariableDesc variable;
    // The outer tuple is read to its end before what is nested in it.
    omu_PrimTuple nested[] = {omu_PrimTuple('('), omu_PrimTuple('('), omu_PrimTuple('(')};
    auto & [invariantPairs, componentPairs, categoryTuples] = nested;
    omu_PrimTuple * next = nested;
    tuple.Begin();
    forEachField(variable, [&](auto & field) {
        using Field = std::remove_cvref_t<decltype(field)>;
        if constexpr (std::is_same_v<Field, LabelledIds> ||
                      std::is_same_v<Field, cow_Map<cow_String, odiC_CategoryDesc>>)
            tuple.Get(*next++);
        else
            odiC_FieldReader{tuple}(field);
    });
    tuple.End("");

    variable.outputPositionLabel = QVRBasAtrStringMode::ModalToUTF8(variable.outputPositionLabel, mode);
    odiC_forEachPair(invariantPairs, [&](cow_String const & label, unsigned int id) {
        variable.invariants.add(label, id, invariantRank);
    });
    odiC_forEachPair(componentPairs, [&](cow_String const & label, unsigned int id) {
        variable.components.add(label, id, componentRank);
    });
    variable.categoryMap = odiC_CategoryDesc::UnpackTupleMap(categoryTuples);
    return variable;
}
