#include "odiC_CategorySpec.h"

#include "odiC_FieldPacking.h"

#include <memory>
#include <type_traits>
#include <utility>

namespace {

constexpr int packedLength = 7;

/// Gives one field the value of another; a text comes out unshared.
template <class Field> void copyUnshared(Field & own, Field const & other) {
    if constexpr (std::is_same_v<Field, cow_String>)
        own = other.CStr(); // the string itself would be shared
    else
        own = other;
}

} // namespace

odiC_CategorySpec::odiC_CategorySpec(int id, cow_String const & label, bool showDiff, int top, int bottom,
                                     cow_String const & topLabel, cow_String const & bottomLabel)
    : m_categoryId(id), m_categoryLabel(label), m_showDiffLocations(showDiff), m_topSectionId(top),
      m_bottomSectionId(bottom), m_topSectionLabel(topLabel), m_bottomSectionLabel(bottomLabel) {}

/// All fields of one spec, or of several side by side, in the order in which they are packed. The id comes last, so
/// that what stands before it is a packed odiC_CategorySelection.
template <class Visit, class... Self> void odiC_CategorySpec::forEachField(Visit visit, Self &... self) {
    visit(self.m_categoryLabel...);
    visit(self.m_showDiffLocations...);
    visit(self.m_topSectionId...);
    visit(self.m_topSectionLabel...);
    visit(self.m_bottomSectionId...);
    visit(self.m_bottomSectionLabel...);
    visit(self.m_categoryId...);
}

odiC_CategorySpec & odiC_CategorySpec::operator=(odiC_CategorySpec const & other) {
    if (this != &other) {
        odiC_CategorySpec created; // in whole before this spec changes: memory may run out
        forEachField([](auto & own, auto const & others) { copyUnshared(own, others); }, created, other);
        forEachField([](auto & own, auto & others) { std::swap(own, others); }, *this, created);
    }
    return *this;
}

void odiC_CategorySpec::reset(int id, cow_String const & label, bool showDiff, int top, int bottom,
                              cow_String const & topLabel, cow_String const & bottomLabel) {
    *this = odiC_CategorySpec(id, label, showDiff, top, bottom, topLabel, bottomLabel);
}

bool odiC_CategorySpec::operator==(odiC_CategorySpec const & other) const {
    return this == &other ||
           (m_categoryId == other.m_categoryId && m_categoryLabel == other.m_categoryLabel &&
            m_showDiffLocations == other.m_showDiffLocations && m_topSectionId == other.m_topSectionId &&
            m_bottomSectionId == other.m_bottomSectionId && m_topSectionLabel == other.m_topSectionLabel &&
            m_bottomSectionLabel == other.m_bottomSectionLabel);
}

int odiC_CategorySpec::operator-(odiC_CategorySpec const & other) const {
    if (m_categoryId != other.m_categoryId)
        return odiC_difference(m_categoryId, other.m_categoryId);
    if (m_showDiffLocations != other.m_showDiffLocations)
        return m_showDiffLocations ? 1 : -1;
    if (m_topSectionId != other.m_topSectionId)
        return odiC_difference(m_topSectionId, other.m_topSectionId);
    return odiC_difference(m_bottomSectionId, other.m_bottomSectionId);
}

void odiC_CategorySpec::PackTuple(omu_PrimTuple & target) const {
    omu_PrimTuple tuple(packedLength, '(');
    forEachField(odiC_FieldWriter{tuple}, *this);
    target.Put(tuple);
}

void odiC_CategorySpec::UnpackTuple(omu_PrimTuple & source, int count, odiC_CategorySpec **& specs) {
    for (int i = 0; i < count; ++i) {
        omu_PrimTuple tuple('(');
        source.Get(tuple);
        if (tuple.Length() != packedLength)
            continue;
        std::unique_ptr<odiC_CategorySpec> spec(new odiC_CategorySpec);
        tuple.Begin();
        forEachField(odiC_FieldReader{tuple}, *spec);
        tuple.End("");
        int const slot = spec->m_categoryId;
        if (slot < 0 || slot >= count)
            continue;
        delete specs[slot];
        specs[slot] = spec.release();
    }
}

void odiC_CategorySpec::Print(cow_String & out) const {
    out.Append("    category: '" + m_categoryLabel + "' Id: " + cow_String(m_categoryId) + "\n");
    out.Append("    show different locations: ").Append(m_showDiffLocations ? "True\n" : "False\n");
    out.Append("    top section '" + m_topSectionLabel + "' Id: " + cow_String(m_topSectionId) + "\n");
    out.Append("    bottom section '" + m_bottomSectionLabel + "' Id: " + cow_String(m_bottomSectionId) + "\n");
}
