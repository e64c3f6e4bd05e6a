// Selecting a variable for display: what a selection keeps together, how it owns its section points, how selections
// compare, and how they travel as tuples.

#include "memory_refusals.h"
#include "nex_CmdException.h"
#include "nex_PrimException.h"
#include "odiC_CategorySpec.h"
#include "odiC_VariableDesc.h"
#include "odiC_VariableSelection.h"
#include "omu_PrimTuple.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using Selection = odiC_VariableSelection;
using Spec = odiC_CategorySpec;
using PrimException = nex_PrimException<atr_String, 1>;
using CmdException = nex_CmdException<atr_String, 2>;
constexpr unsigned int noId = 0xffffffff;

Spec specOf(int id, char const * label, bool showDiff = false, int top = 3) {
    return {id, label, showDiff, top, 1, "SPOS", "SNEG"};
}

/// What a selection is made of, to be changed one by one.
struct Wanted {
    cow_String label = "S", refinedLabel = "Mises", ply = {};
    int position = 2, data = 8, storage = 0, refinement = 1;
    unsigned int refinedId = 6;
    int count = 3;
    std::vector<Spec> specs = {};
    bool complex = false, derived = false, onSurface = false, local = false;
    float least = -1.5f, greatest = 1e30f;

    Selection make() const {
        Selection selection(label, static_cast<res_OutputPositionEnm>(position), static_cast<res_DataTypeEnm>(data),
                            static_cast<res_StorageTypeEnm>(storage),
                            static_cast<calC_VariableRefinementTypeEnm>(refinement), refinedLabel, refinedId, complex,
                            least, greatest, derived, onSurface, local);
        std::vector<Spec const *> slots(static_cast<std::size_t>(count), nullptr);
        for (Spec const & spec : specs)
            slots[static_cast<std::size_t>(spec.categoryId())] = &spec;
        selection.CopyCategorySpec(slots.data(), specs.empty() ? 0 : count, ply);
        return selection;
    }
};

Wanted shellStress(cow_String const & ply = "") {
    Wanted wanted;
    wanted.specs = {specOf(0, "shell", true), specOf(2, "beam", true)};
    wanted.ply = ply;
    return wanted;
}

/// Every category's choice is equal, labels included, and stands in an object of its own.
void expectOwnEqualSpecs(Selection const & left, Selection const & right) {
    ASSERT_EQ(left.CategorySpecCount(), right.CategorySpecCount());
    EXPECT_EQ(left.PlyName(), right.PlyName());
    for (int i = 0; i < left.CategorySpecCount(); ++i) {
        Spec const * const a = left.CategorySpecs()[i];
        Spec const * const b = right.CategorySpecs()[i];
        ASSERT_EQ(a == nullptr, b == nullptr) << i;
        EXPECT_TRUE(a == nullptr || (a != b && *a == *b)) << i;
    }
}

TEST(Selection, TakesWhatTheDescriptionSaysAndMakesTheRefinementWhole) {
    odiC_VariableDesc desc("S", "Stress", res_OutputPosition_INTEGRATION_POINT, "", res_DataType_TENSOR, "",
                           res_StorageType_FLOAT, true, -1.5f, 1e30f, QVRBasStringMode());
    desc.SetDerived(true);
    Wanted wanted;
    wanted.complex = wanted.derived = wanted.local = true;
    for (auto const & [label, id] : {std::pair("", 5u), {"S11", noId}, {"S11", noId - 1}}) {
        wanted.refinedLabel = label;
        wanted.refinedId = id;
        Selection const selection(desc, calC_VariableRefinementType_INVARIANT, label, id, true);
        EXPECT_TRUE(selection == wanted.make());
        EXPECT_EQ(selection.RefinementLabel(), id == noId - 1 ? label : "");
        EXPECT_EQ(selection.RefinementId(), id == noId - 1 ? id : noId);
    }
    Selection const none(odiC_VariableDesc(), calC_VariableRefinementType_NONE, "", noId, false);
    EXPECT_EQ(Selection() - none, 0);
}

/// Each puts a selection behind the unchanged one; an earlier one outweighs the later ones.
using Change = void (*)(Wanted &);
constexpr Change changes[] = {
    [](Wanted & w) { w.label = "S\xc3\xa9"; },
    [](Wanted & w) { w.position = 17; },
    [](Wanted & w) { ++w.data; },
    [](Wanted & w) { ++w.storage; },
    [](Wanted & w) { ++w.refinement; },
    [](Wanted & w) { w.refinedLabel = "Tresca"; },
    [](Wanted & w) { ++w.refinedId; },
    [](Wanted & w) { w.specs.push_back(specOf(2, "beam", true)); },
    [](Wanted & w) { ++w.count; },
    [](Wanted & w) { w.ply = "PLY-1"; },
    [](Wanted & w) { w.specs.push_back(specOf(0, "plate")); },
    [](Wanted & w) { w.specs.push_back(specOf(1, "shell")); },
    [](Wanted & w) { w.specs.push_back(specOf(2, "beam", false, 4)); },
    [](Wanted & w) { w.complex = true; },
    [](Wanted & w) { w.least = -1.25f; },
    [](Wanted & w) { w.greatest = std::numeric_limits<float>::infinity(); },
    [](Wanted & w) { w.derived = true; },
    [](Wanted & w) { w.onSurface = true; },
    [](Wanted & w) { w.local = true; },
};

TEST(Selection, EarlierFieldsOutweighLaterOnes) {
    std::vector<Selection> descending;
    Wanted plain;
    plain.specs = {specOf(2, "beam")};
    for (Change const change : changes) {
        Wanted changed = plain;
        change(changed);
        descending.push_back(changed.make());
    }
    descending.push_back(plain.make());
    for (std::size_t i = 0; i < descending.size(); ++i)
        for (std::size_t j = i + 1; j < descending.size(); ++j) {
            EXPECT_GT(descending[i] - descending[j], 0) << i << ' ' << j;
            EXPECT_LT(descending[j] - descending[i], 0) << i << ' ' << j;
            EXPECT_TRUE(descending[i] != descending[j]) << i << ' ' << j;
            EXPECT_EQ(descending[i] > descending[j], i == 0); // which looks at the label alone, as does:
            EXPECT_EQ(descending[j] < descending[i], i == 0);
        }
}

TEST(Selection, EqualityHasItsExceptions) {
    Wanted wanted = shellStress();
    Selection const stress = wanted.make();
    wanted.specs[0] = specOf(0, "another label", true);
    EXPECT_TRUE(stress == wanted.make());
    EXPECT_EQ(stress - wanted.make(), 0);
    wanted.label = "";
    Selection const nameless = wanted.make();
    EXPECT_FALSE(nameless != Selection());
    EXPECT_NE(nameless - Selection(), 0);
    EXPECT_TRUE(stress != nameless && nameless != stress);

    wanted.label = "S";
    wanted.greatest = std::numeric_limits<float>::quiet_NaN();
    Selection const unclamped = wanted.make();
    EXPECT_TRUE(unclamped == unclamped);
    EXPECT_TRUE(unclamped != Selection(unclamped));
    EXPECT_EQ(unclamped - stress, 0);
}

TEST(Selection, CopiesOwnTheirSpecs) {
    Selection const original = shellStress("PLY-1").make();
    Selection copy(original);
    EXPECT_TRUE(copy == original);
    expectOwnEqualSpecs(copy, original);
    Selection const & same = copy;
    Spec const * const * const kept = copy.CategorySpecs();
    copy = same;
    EXPECT_EQ(copy.CategorySpecs(), kept);
    copy.CopyCategorySpec(same);
    expectOwnEqualSpecs(copy, original);
    copy.CopyCategorySpec(same.CategorySpecs(), 3, same.PlyName());
    EXPECT_EQ(copy.CompareCategorySpec(original.CategorySpecs(), 3, "PLY-1"), 0);
    EXPECT_EQ(copy.CompareCategorySpec(original.CategorySpecs(), 1, "PLY-1"), 2);
    for (int slot : {2, 3, -1}) {
        Spec const spec = specOf(slot, "beam", true);
        copy.CopyCategorySpec(&spec, 3);
        EXPECT_TRUE(copy.CategorySpecCount() == 3 && copy.PlyName().Empty());
        EXPECT_EQ(copy.CategorySpecs()[2] != nullptr, slot == 2);
        EXPECT_EQ(copy.ShowDifferentLocations(), slot == 2);
    }
    copy = Selection();
    EXPECT_EQ(copy.CategorySpecs(), nullptr);
}

TEST(Selection, AdoptedSpecsAreTheCallersArray) {
    Selection selection = shellStress("PLY-1").make();
    for (int count : {2, 0}) { // the second is freed at once
        auto ** array = static_cast<Spec **>(mem_Malloc(2 * sizeof(Spec *)));
        Spec ** const given = array;
        array[0] = nullptr;
        array[1] = count > 0 ? new Spec(specOf(1, "beam")) : nullptr;
        selection.AdoptCategorySpec(array, count);
        EXPECT_EQ(array, given);
        EXPECT_EQ(selection.CategorySpecs(), count > 0 ? given : nullptr);
        EXPECT_EQ(selection.CategorySpecCount(), count);
        EXPECT_TRUE(selection.PlyName().Empty() && !selection.ShowDifferentLocations());
    }
}

using Elements = std::vector<std::function<void(omu_PrimTuple &)>>;

omu_PrimTuple tupleOf(Elements const & elements) {
    omu_PrimTuple tuple('(');
    for (auto const & put : elements)
        put(tuple);
    return tuple;
}

template <class Value> auto put(Value value) {
    return [value](omu_PrimTuple & tuple) { tuple.Put(value); };
}

Elements specElements(int id, char const * label) {
    return {put(label), put(1), put(3), put("SPOS"), put(1), put("SNEG"), put(id)};
}

Elements selectionElements(omu_PrimTuple const & specs) {
    return {put("S"), put(2), put(8),     put(0), put(1),    put("Mises"),
            put(6u),  put(2), put(specs), put(0), put(-1.5), put(double{1e30f}),
            put(0),   put(0)};
}

/// The ply name and the slots of shellStress().
Elements const shellAndBeam = {put(""), put(tupleOf(specElements(0, "shell"))), put(omu_PrimTuple('(')),
                               put(tupleOf(specElements(2, "beam")))};

TEST(SelectionTuple, RoundTripKeepsAllButTheLocalFlag) {
    std::unique_ptr<omu_PrimTuple> const stated(shellStress().make().PackTuple());
    EXPECT_TRUE(*stated == tupleOf(selectionElements(tupleOf(shellAndBeam)))) << stated->AsRepr().CStr();

    for (Change const change : changes) {
        Wanted wanted = shellStress();
        change(wanted);
        std::unique_ptr<omu_PrimTuple> const packed(wanted.make().PackTuple());
        Selection const back = Selection::UnpackTuple(*packed);
        EXPECT_EQ(back - wanted.make(), wanted.local ? -1 : 0);
        EXPECT_EQ(back == wanted.make(), !wanted.local);
        expectOwnEqualSpecs(back, wanted.make());
    }
}

TEST(SelectionTuple, PlyLeavesOneSpecPerCategoryLabel) {
    Wanted wanted = shellStress("PLY-1");
    wanted.count = 5;
    wanted.specs = {specOf(0, "shell"), specOf(1, "shell"), specOf(3, "beam"), specOf(4, "shell")};
    std::unique_ptr<omu_PrimTuple> const packed(wanted.make().PackTuple());
    std::string const text = packed->AsRepr().CStr();
    EXPECT_NE(text.find(", 6, 2, ('PLY-1', ('shell', 0,"), std::string::npos) << text;
    wanted.specs = {specOf(0, "shell"), specOf(3, "beam")};
    expectOwnEqualSpecs(Selection::UnpackTuple(*packed), wanted.make());

    omu_PrimTuple plyAlone = tupleOf(selectionElements(tupleOf({put("PLY-1")})));
    EXPECT_TRUE(Selection::UnpackTuple(plyAlone).PlyName().Empty());
}

TEST(SelectionTuple, WrongShapesRaise) {
    auto const expectRaise = [](Elements const & elements) {
        omu_PrimTuple tuple = tupleOf(elements);
        EXPECT_THROW(Selection::UnpackTuple(tuple), PrimException) << tuple.AsRepr().CStr();
    };
    Elements const whole = selectionElements(tupleOf(shellAndBeam));
    for (std::size_t i = 0; i < whole.size(); ++i) {
        Elements changed = whole;
        changed[i] = put(cow_List<float>());
        expectRaise(changed);
        changed.erase(changed.begin() + static_cast<std::ptrdiff_t>(i));
        expectRaise(changed);
    }
    Elements changed = whole;
    changed.push_back(put(0));
    expectRaise(changed);

    // In the last slot, when a spec has been read already; and a spec where the ply name belongs.
    Elements spec = specElements(2, "beam");
    spec[6] = put("no id");
    Elements specs = shellAndBeam;
    for (auto const & last : {Elements::value_type(put(tupleOf(spec))), Elements::value_type(put("no tuple"))}) {
        specs[3] = last;
        expectRaise(selectionElements(tupleOf(specs)));
    }
    expectRaise(selectionElements(tupleOf({shellAndBeam[1], shellAndBeam[1]})));
}

TEST(Selection, RunningOutOfMemoryChangesNothing) {
    Selection const source = shellStress("PLY-1").make();
    Wanted wanted = shellStress();
    wanted.label = "U";
    Selection const before = wanted.make();
    std::unique_ptr<omu_PrimTuple> const packed(source.PackTuple());
    Selection target;
    std::function<void()> const operations[] = {
        [&] { target = source; },
        [&] { target.CopyCategorySpec(source); },
        [&] { target.CopyCategorySpec(source.CategorySpecs()[2], 4); },
        [&] { target = Selection::UnpackTuple(*packed); },
        [&] { delete source.PackTuple(); },
    };
    for (auto const & operation : operations) {
        target = before;
        EXPECT_GT(refuseEachAllocation(operation, [&] { EXPECT_TRUE(target == before); }), 1);
    }
}

TEST(Selection, Prints) {
    Wanted wanted;
    auto const tail = [&](std::string const & expected) {
        EXPECT_EQ(wanted.make().Print().CStr(), "Label:           'S'\nOutput Position: INTEGRATION_POINT\n"
                                                "Data Type:       TENSOR\nStorage Type:    FLOAT\n" +
                                                    expected);
    };
    tail("Invariant:       'Mises'\nNo category information specified.\n");
    wanted.refinement = 2;
    tail("Component:       'Mises'\nNo category information specified.\n");
    wanted.refinement = 3;
    tail("No category information specified.\n");
    wanted.specs = {specOf(0, "shell", true), specOf(2, "beam")};
    cow_String both;
    wanted.specs[0].Print(both);
    wanted.specs[1].Print(both);
    tail(std::string("Categories:\n") + both.CStr());
    wanted.ply = "PLY-1";
    tail("PlyName: PLY-1\n");
    wanted.position = 11; // has no name
    EXPECT_THROW(wanted.make().Print(), CmdException);
}

} // namespace
