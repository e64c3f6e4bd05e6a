#include "odiC_VariableSelection.h"

#include "odiC_CategorySpec.h"
#include "odiC_FieldPacking.h"
#include "odiC_VariableDesc.h"
#include "omi_Btree.h"
#include "omu_PrimTuple.h"
#include "res_PrimEnums.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace {

/// -1, 0 or 1; 0 where one of the clamps is not a number.
int compareClamps(float left, float right) {
    return left > right ? 1 : right > left ? -1 : 0;
}

int compareSlots(odiC_CategorySpec const * left, odiC_CategorySpec const * right) {
    if (left == nullptr || right == nullptr)
        return (left != nullptr ? 1 : 0) - (right != nullptr ? 1 : 0);
    return *left - *right;
}

template <class Enumeration> void appendLine(cow_String & text, char const * title, Enumeration value) {
    text.Append(title);
    text.Append(omu_PrimEnum<Enumeration, 1>(value).AsString(0));
    text.Append("\n");
}

void appendQuotedLine(cow_String & text, char const * title, cow_String const & value) {
    text.Append(title);
    text.Append("'");
    text.Append(value);
    text.Append("'\n");
}

} // namespace

/// `count` null slots.
odiC_VariableSelection::SpecArray::SpecArray(int count) {
    if (count <= 0)
        return;
    // NOLINTNEXTLINE(bugprone-sizeof-expression): the slots are pointers
    auto const size = static_cast<std::size_t>(count) * sizeof *categorySpecs;
    categorySpecs = static_cast<odiC_CategorySpec **>(mem_OperatorNewThrowBuiltin(size));
    categorySpecCount = count;
    std::fill_n(categorySpecs, count, nullptr);
}

/// Copies of an array's elements.
odiC_VariableSelection::SpecArray::SpecArray(odiC_CategorySpec const * const * array, int count, cow_String const & ply)
    : SpecArray(count) {
    for (int i = 0; i < categorySpecCount; ++i)
        if (array[i] != nullptr)
            categorySpecs[i] = new odiC_CategorySpec(*array[i]);
    if (categorySpecCount > 0)
        plyName = ply;
}

odiC_VariableSelection::SpecArray & odiC_VariableSelection::SpecArray::operator=(SpecArray && other) noexcept {
    SpecArray taken(std::move(other));
    swap(taken);
    return *this;
}

odiC_VariableSelection::SpecArray::~SpecArray() {
    for (int i = 0; i < categorySpecCount; ++i)
        delete categorySpecs[i];
    mem_Free(categorySpecs);
}

void odiC_VariableSelection::SpecArray::swap(SpecArray & other) noexcept {
    std::swap(categorySpecs, other.categorySpecs);
    std::swap(categorySpecCount, other.categorySpecCount);
    std::swap(plyName, other.plyName);
}

omu_PrimTuple odiC_VariableSelection::SpecArray::pack(int & numWritten) const {
    omu_PrimTuple tuple(categorySpecCount + 1, '(');
    tuple.Put(plyName);
    numWritten = 0;
    omi_Btree<cow_String, int> labelsWritten; // used with a ply name only: it leaves one spec per category label
    for (int i = 0; i < categorySpecCount; ++i) {
        odiC_CategorySpec const * const spec = categorySpecs[i];
        bool const isWritten = spec != nullptr && (plyName.Empty() || labelsWritten.Insert(spec->categoryLabel(), 0));
        if (isWritten) {
            spec->PackTuple(tuple);
            ++numWritten;
        } else {
            tuple.Put(omu_PrimTuple(0, '('));
        }
    }
    return tuple;
}

odiC_VariableSelection::SpecArray odiC_VariableSelection::SpecArray::unpack(omu_PrimTuple & tuple) {
    SpecArray specs(tuple.Length() - 1);
    if (specs.categorySpecCount == 0)
        return specs; // a ply name without slots is dropped
    tuple.Begin();
    tuple.Get(specs.plyName);
    odiC_CategorySpec::UnpackTuple(tuple, specs.categorySpecCount, specs.categorySpecs);
    tuple.End("");
    return specs;
}

template <class Visit, class Self> void odiC_VariableSelection::forEachField(Visit visit, Self & self) {
    visit(self.variableLabel);
    visit(self.outputPosition);
    visit(self.dataType);
    visit(self.storageType);
    visit(self.refinementType);
    visit(self.refinementLabel);
    visit(self.refinementId);
    visit(self.specs);
    visit(self.isComplex);
    visit(self.minClamp);
    visit(self.maxClamp);
    visit(self.isDerived);
    visit(self.isSurfaceVariable);
}

odiC_VariableSelection::odiC_VariableSelection() = default;

odiC_VariableSelection::odiC_VariableSelection(cow_String const & label, res_OutputPositionEnm position,
                                               res_DataTypeEnm data, res_StorageTypeEnm storage,
                                               calC_VariableRefinementTypeEnm refinement,
                                               cow_String const & refinedLabel, unsigned int refinedId, bool complex,
                                               float least, float greatest, bool derived, bool onSurface, bool local)
    : variableLabel(label), outputPosition(position), dataType(data), storageType(storage), refinementType(refinement),
      refinementLabel(refinedLabel), refinementId(refinedId), isComplex(complex), minClamp(least), maxClamp(greatest),
      isDerived(derived), isSurfaceVariable(onSurface), localFlag(local) {
    normaliseRefinement();
}

odiC_VariableSelection::odiC_VariableSelection(odiC_VariableDesc const & desc,
                                               calC_VariableRefinementTypeEnm refinement,
                                               cow_String const & refinedLabel, unsigned int refinedId, bool local)
    : odiC_VariableSelection(desc.VariableLabel(), desc.OutputPosition(), desc.DataType(), desc.StorageType(),
                             refinement, refinedLabel, refinedId, desc.IsComplex(), desc.MinClamp(), desc.MaxClamp(),
                             desc.IsDerived(), desc.IsSurfaceVariable(), local) {}

odiC_VariableSelection::odiC_VariableSelection(odiC_VariableSelection const &) = default;

odiC_VariableSelection & odiC_VariableSelection::operator=(odiC_VariableSelection const & other) {
    if (this != &other)
        *this = odiC_VariableSelection(other);
    return *this;
}

odiC_VariableSelection::odiC_VariableSelection(odiC_VariableSelection &&) noexcept = default;
odiC_VariableSelection & odiC_VariableSelection::operator=(odiC_VariableSelection &&) noexcept = default;
odiC_VariableSelection::~odiC_VariableSelection() = default;

/// Label and id of the refinement are both set or neither is.
void odiC_VariableSelection::normaliseRefinement() {
    if (refinementLabel.Empty())
        refinementId = noRefinement;
    if (refinementId == noRefinement)
        refinementLabel.Erase();
}

bool odiC_VariableSelection::operator==(odiC_VariableSelection const & other) const {
    if (this == &other)
        return true;
    if (IsNull() || other.IsNull())
        return IsNull() && other.IsNull();
    return variableLabel == other.variableLabel && outputPosition == other.outputPosition &&
           dataType == other.dataType && storageType == other.storageType && refinementType == other.refinementType &&
           refinementLabel == other.refinementLabel && refinementId == other.refinementId &&
           specs.categorySpecCount == other.specs.categorySpecCount && isComplex == other.isComplex &&
           minClamp == other.minClamp && maxClamp == other.maxClamp && isDerived == other.isDerived &&
           isSurfaceVariable == other.isSurfaceVariable && localFlag == other.localFlag &&
           CompareCategorySpec(other) == 0;
}

int odiC_VariableSelection::operator-(odiC_VariableSelection const & other) const {
    if (int const order = variableLabel.Compare(other.variableLabel))
        return order;
    if (int const order = odiC_difference(outputPosition, other.outputPosition))
        return order;
    if (int const order = odiC_difference(dataType, other.dataType))
        return order;
    if (int const order = odiC_difference(storageType, other.storageType))
        return order;
    if (int const order = odiC_difference(refinementType, other.refinementType))
        return order;
    if (int const order = refinementLabel.Compare(other.refinementLabel))
        return order;
    if (unsigned int const order = refinementId - other.refinementId)
        return static_cast<int>(order);
    if (int const order = ShowDifferentLocations() - other.ShowDifferentLocations())
        return order;
    if (int const order = CompareCategorySpec(other))
        return order;
    if (int const order = isComplex - other.isComplex)
        return order;
    if (int const order = compareClamps(minClamp, other.minClamp))
        return order;
    if (int const order = compareClamps(maxClamp, other.maxClamp))
        return order;
    if (int const order = isDerived - other.isDerived)
        return order;
    if (int const order = isSurfaceVariable - other.isSurfaceVariable)
        return order;
    return localFlag - other.localFlag;
}

bool odiC_VariableSelection::ShowDifferentLocations() const {
    return std::any_of(specs.categorySpecs, specs.categorySpecs + specs.categorySpecCount,
                       [](odiC_CategorySpec const * spec) { return spec != nullptr && spec->showDiffLocations(); });
}

void odiC_VariableSelection::ClearCategorySpec() {
    specs = SpecArray();
}

void odiC_VariableSelection::AdoptCategorySpec(odiC_CategorySpec **& array, int count) {
    ClearCategorySpec();
    if (count > 0) {
        specs.categorySpecs = array;
        specs.categorySpecCount = count;
    } else {
        mem_Free(array);
    }
}

void odiC_VariableSelection::CopyCategorySpec(odiC_VariableSelection const & other) {
    specs = SpecArray(other.specs);
}

void odiC_VariableSelection::CopyCategorySpec(odiC_CategorySpec const * const * array, int count,
                                              cow_String const & ply) {
    specs = SpecArray(array, count, ply);
}

void odiC_VariableSelection::CopyCategorySpec(odiC_CategorySpec const * spec, int count) {
    SpecArray created(count);
    if (spec != nullptr && spec->categoryId() >= 0 && spec->categoryId() < created.categorySpecCount)
        created.categorySpecs[spec->categoryId()] = new odiC_CategorySpec(*spec);
    specs = std::move(created);
}

int odiC_VariableSelection::CompareCategorySpec(odiC_VariableSelection const & other) const {
    return CompareCategorySpec(other.specs.categorySpecs, other.specs.categorySpecCount, other.specs.plyName);
}

int odiC_VariableSelection::CompareCategorySpec(odiC_CategorySpec const * const * array, int count,
                                                cow_String const & ply) const {
    if (int const order = odiC_difference(specs.categorySpecCount, count))
        return order;
    if (count == 0)
        return 0;
    if (int const order = specs.plyName.Compare(ply))
        return order;
    for (int i = 0; i < count; ++i)
        if (int const order = compareSlots(specs.categorySpecs[i], array[i]))
            return order;
    return 0;
}

cow_String odiC_VariableSelection::Print() const {
    cow_String text;
    appendQuotedLine(text, "Label:           ", variableLabel);
    appendLine(text, "Output Position: ", outputPosition);
    appendLine(text, "Data Type:       ", dataType);
    appendLine(text, "Storage Type:    ", storageType);
    if (refinementType == calC_VariableRefinementType_INVARIANT)
        appendQuotedLine(text, "Invariant:       ", refinementLabel);
    if (refinementType == calC_VariableRefinementType_COMPONENT)
        appendQuotedLine(text, "Component:       ", refinementLabel);
    if (specs.categorySpecCount < 1) {
        text.Append("No category information specified.\n");
    } else if (!specs.plyName.Empty()) {
        text.Append("PlyName: ");
        text.Append(specs.plyName);
        text.Append("\n");
    } else {
        text.Append("Categories:\n");
        for (int i = 0; i < specs.categorySpecCount; ++i)
            if (specs.categorySpecs[i] != nullptr)
                specs.categorySpecs[i]->Print(text);
    }
    return text;
}

omu_PrimTuple * odiC_VariableSelection::PackTuple() const {
    auto tuple = odiC_newTuple(14);
    odiC_FieldWriter const write{*tuple};
    auto const pack = [&]<class Field>(Field const & field) {
        if constexpr (std::is_same_v<Field, SpecArray>) {
            int numWritten = 0;
            omu_PrimTuple const packed = field.pack(numWritten);
            write(numWritten);
            write(packed);
        } else {
            write(field);
        }
    };
    forEachField(pack, *this);
    return tuple.release();
}

odiC_VariableSelection odiC_VariableSelection::UnpackTuple(omu_PrimTuple & tuple) {
    odiC_VariableSelection selection;
    omu_PrimTuple packedSpecs('(');
    odiC_FieldReader const read{tuple};
    auto const unpack = [&]<class Field>(Field & field) {
        if constexpr (std::is_same_v<Field, SpecArray>) {
            int numWritten = 0; // read past: the slots tell it
            read(numWritten);
            read(packedSpecs);
        } else {
            read(field);
        }
    };
    tuple.Begin();
    forEachField(unpack, selection);
    tuple.End("");
    selection.normaliseRefinement();
    selection.specs = SpecArray::unpack(packedSpecs);
    return selection;
}
