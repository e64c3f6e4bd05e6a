#include "odiC_CategoryDesc.h"

#include "odiC_FieldPacking.h"

odiC_CategoryDesc::odiC_CategoryDesc(cow_String const & label, cow_Map<cow_String, unsigned int> const & map,
                                     bool allow, int defaultPoint)
    : categoryLabel(label), sectionPoints(map), allowTopAndBottom(allow), defaultSectionPoint(defaultPoint) {}

/// All fields, in the order in which they are packed.
template <class Visit, class Self> void odiC_CategoryDesc::forEachField(Visit visit, Self & self) {
    visit(self.categoryLabel);
    visit(self.sectionPoints);
    visit(self.allowTopAndBottom);
    visit(self.defaultSectionPoint);
}

bool odiC_CategoryDesc::operator==(odiC_CategoryDesc const & other) const {
    if (this == &other)
        return true;
    if (categoryLabel != other.categoryLabel || allowTopAndBottom != other.allowTopAndBottom ||
        defaultSectionPoint != other.defaultSectionPoint || sectionPoints.Size() != other.sectionPoints.Size())
        return false;
    // Side by side: the same section points in another iteration order are another description.
    cow_ConstMapIterator<cow_String, unsigned int> point(sectionPoints);
    cow_ConstMapIterator<cow_String, unsigned int> otherPoint(other.sectionPoints);
    otherPoint.First();
    for (point.First(); !point.IsDone() && !otherPoint.IsDone(); point.Next(), otherPoint.Next())
        if (point.CurrentValue() != otherPoint.CurrentValue() || point.CurrentKey() != otherPoint.CurrentKey())
            return false;
    return true;
}

bool odiC_CategoryDesc::operator<(odiC_CategoryDesc const & other) const {
    return categoryLabel < other.categoryLabel;
}

bool odiC_CategoryDesc::operator>(odiC_CategoryDesc const & other) const {
    return categoryLabel > other.categoryLabel;
}

cow_String odiC_CategoryDesc::operator[](int index) const {
    cow_ConstMapIterator<cow_String, unsigned int> point(sectionPoints);
    for (point.First(); !point.IsDone(); point.Next())
        if (static_cast<int>(point.CurrentValue()) == index)
            return point.CurrentKey();
    return cow_String();
}

int odiC_CategoryDesc::operator[](cow_String const & label) const {
    return sectionPoints.IsMember(label) ? static_cast<int>(sectionPoints.ConstGet(label)) : -1;
}

void odiC_CategoryDesc::AddSection(cow_String const & label, unsigned int index) {
    if (!sectionPoints.IsMember(label) || sectionPoints.ConstGet(label) != index)
        sectionPoints.Insert(label, index);
}

void odiC_CategoryDesc::RemoveSection(cow_String const & label) {
    sectionPoints.Remove(label);
}

cow_List<unsigned int> odiC_CategoryDesc::SectionPointIndices() const {
    cow_List<unsigned int> indices(cow_listConstruct, sectionPoints.Size());
    cow_ConstMapIterator<cow_String, unsigned int> point(sectionPoints);
    for (point.First(); !point.IsDone(); point.Next())
        indices.Append(point.CurrentValue());
    return indices;
}

cow_List<cow_String> odiC_CategoryDesc::SectionPointLabels() const {
    cow_List<cow_String> labels(cow_listConstruct, sectionPoints.Size());
    cow_ConstMapIterator<cow_String, unsigned int> point(sectionPoints);
    for (point.First(); !point.IsDone(); point.Next())
        labels.Append(point.CurrentKey());
    return labels;
}

cow_String odiC_CategoryDesc::Print() const {
    // A default that is no section point has position -1, where the list ends the process.
    int const position = SectionPointIndices().FindMember(static_cast<unsigned int>(defaultSectionPoint));
    cow_String text = "  Category: '" + categoryLabel + "'\n";
    text.Append(allowTopAndBottom ? "    allows both top and bottom locations\n" : "    allows only one location\n");
    text.Append("    Default section = '" + SectionPointLabels().ConstGet(position) + "'\n");
    cow_ConstMapIterator<cow_String, unsigned int> point(sectionPoints);
    for (point.First(); !point.IsDone(); point.Next())
        text.Append("    Section point #" + cow_String(point.CurrentValue()) + ": '" + point.CurrentKey() + "'\n");
    return text;
}

omu_PrimTuple * odiC_CategoryDesc::packSections() const {
    auto pairs = odiC_newTuple(sectionPoints.Size());
    cow_ConstMapIterator<cow_String, unsigned int> point(sectionPoints);
    for (point.First(); !point.IsDone(); point.Next())
        odiC_putPair(*pairs, point.CurrentKey(), point.CurrentValue());
    return pairs.release();
}

/// The packed form, with what `sections` gives as the tuple of section points, which may be null.
template <class Sections> omu_PrimTuple * odiC_CategoryDesc::pack(Sections sections) const {
    auto tuple = odiC_newTuple(4);
    auto const put = [&]<class Field>(Field const & field) {
        if constexpr (std::is_same_v<Field, cow_Map<cow_String, unsigned int>>)
            tuple->Put(static_cast<omu_Primitive *>(sections()));
        else
            odiC_FieldWriter{*tuple}(field);
    };
    forEachField(put, *this);
    return tuple.release();
}

omu_PrimTuple * odiC_CategoryDesc::PackTuple() const {
    return pack([this] { return packSections(); });
}

omu_PrimTuple * odiC_CategoryDesc::PackTupleMap(cow_Map<cow_String, odiC_CategoryDesc> const & map) {
    auto tuples = odiC_newTuple(map.Size());
    cow_ConstMapIterator<cow_String, odiC_CategoryDesc> entry(map);
    for (entry.First(); !entry.IsDone(); entry.Next()) {
        odiC_CategoryDesc const & category = entry.CurrentValue();
        tuples->Put(
            category.pack([&] { return category.sectionPoints.IsEmpty() ? nullptr : category.packSections(); }));
    }
    return tuples.release();
}

odiC_CategoryDesc odiC_CategoryDesc::UnpackTuple(omu_PrimTuple & source) {
    odiC_CategoryDesc category;
    omu_PrimTuple sections('(');
    auto const get = [&]<class Field>(Field & field) {
        if constexpr (std::is_same_v<Field, cow_Map<cow_String, unsigned int>>)
            source.Get(sections);
        else
            odiC_FieldReader{source}(field);
    };
    source.Begin();
    forEachField(get, category);
    source.End("");
    // Inserted in the iteration order of the packed map, the section points come out in the same order.
    odiC_forEachPair(
        sections, [&](cow_String const & label, unsigned int index) { category.sectionPoints.Insert(label, index); });
    return category;
}

cow_Map<cow_String, odiC_CategoryDesc> odiC_CategoryDesc::UnpackTupleMap(omu_PrimTuple & source) {
    cow_Map<cow_String, odiC_CategoryDesc> map;
    odiC_forEachTuple(source, [&](omu_PrimTuple & tuple) {
        odiC_CategoryDesc const category = UnpackTuple(tuple);
        map.Insert(category.categoryLabel, category);
    });
    return map;
}

template class cow_MapAbsent<odiC_CategoryDesc>;
template class cow_CountedHld<cow_MapNode<cow_String, odiC_CategoryDesc>>;
template class cow_COW<cow_MapNode<cow_String, odiC_CategoryDesc>,
                       cow_Direct<cow_MapNode<cow_String, odiC_CategoryDesc>>>;
template class cow_MapNode<cow_String, odiC_CategoryDesc>;
template class cow_Map<cow_String, odiC_CategoryDesc>;
template class cow_ConstMapIterator<cow_String, odiC_CategoryDesc>;
