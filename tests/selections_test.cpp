// Selecting a variable for display: what a selection keeps together, how it owns its section points, how selections
// compare, and how they travel as tuples.

#include "memory_refusals.h"
#include "nex_CmdException.h"
#include "odiC_CategorySpec.h"
#include "odiC_VariableDesc.h"
#include "odiC_VariableSelection.h"
#include "packed_tuples.h"

#include <climits>
#include <limits>
#include <string>
#include <tuple>

namespace {

using Selection = odiC_VariableSelection;
using Spec = odiC_CategorySpec;
using CmdException = nex_CmdException<atr_String, 2>;
constexpr unsigned int noId = 0xffffffff;

omu_PrimTuple const none(0, '('); // in a slot without a spec
omu_PrimTuple spec(int id, char const * label, int showDiff = 0, int top = 3) {
    return tupleOf(label, showDiff, top, "SPOS", 1, "SNEG", id);
}

/// The packed form of a selection with these specs.
Elements stress(omu_PrimTuple const & specs = tupleOf("", none, none, spec(2, "beam"))) {
    return elementsOf("S", 2, 8, 0, 1, "Mises", 6u, 1, specs, 0, -1.5, double{1e30f}, 0, 0);
}
Selection unpack(Elements const & elements) {
    omu_PrimTuple tuple = tupleOf(elements);
    return Selection::UnpackTuple(tuple);
}

/// Each with one element changed, which puts the selection behind the unchanged one and before those that follow.
std::vector<Elements> const changed = {
    with(stress(), 0, "S\xc3\xa9"),
    with(stress(), 1, 17),
    with(stress(), 2, 9),
    with(stress(), 3, 1),
    with(stress(), 4, 2),
    with(stress(), 5, "Tresca"),
    with(stress(), 6, 7u),
    stress(tupleOf("", none, none, spec(2, "beam", 1))),
    stress(tupleOf("", none, none, spec(2, "beam"), none)),
    stress(tupleOf("PLY-1", none, none, spec(2, "beam"))),
    stress(tupleOf("", spec(0, "plate"), none, none)),
    stress(tupleOf("", none, spec(1, "shell"), none)),
    stress(tupleOf("", none, none, spec(2, "beam", 0, 4))),
    with(stress(), 9, 1),
    with(stress(), 10, -1.25),
    with(stress(), 11, std::numeric_limits<double>::infinity()),
    with(stress(), 12, 1),
    with(stress(), 13, 1),
};

TEST(Selection, EarlierFieldsOutweighLaterOnesAndAllButOneArePacked) {
    std::vector<Selection> falling;
    for (Elements const & elements : changed) {
        falling.push_back(unpack(elements));
        EXPECT_TRUE(*packed(falling.back()) == tupleOf(elements)) << tupleOf(elements).AsRepr().CStr();
    }
    Selection const plain = unpack(stress());
    falling.emplace_back("S", res_OutputPosition_INTEGRATION_POINT, res_DataType_TENSOR, res_StorageType_FLOAT,
                         calC_VariableRefinementType_INVARIANT, "Mises", 6, false, -1.5f, 1e30f, false, false, true);
    falling.back().CopyCategorySpec(plain);
    EXPECT_TRUE(*packed(falling.back()) == *packed(plain)) << "the local flag is left out";
    falling.push_back(plain);
    expectFallingOrder(falling);
}

TEST(Selection, TakesWhatTheDescriptionSaysAndMakesTheRefinementWhole) {
    odiC_VariableDesc desc("S", "Stress", res_OutputPosition_INTEGRATION_POINT, "", res_DataType_TENSOR, "",
                           res_StorageType_FLOAT, true, -1.5f, 1e30f, QVRBasStringMode());
    desc.SetDerived(true);
    for (auto const & [label, id, isWhole] : {std::tuple("", 5u, false), {"S11", noId, false}, {"S11", 5u, true}}) {
        Selection const selection(desc, calC_VariableRefinementType_INVARIANT, label, id, false);
        auto const expected = elementsOf("S", 2, 8, 0, 1, isWhole ? label : "", isWhole ? id : noId, 0, tupleOf(""), 1,
                                         -1.5, double{1e30f}, 1, 0);
        EXPECT_EQ(packed(selection)->AsRepr(), tupleOf(expected).AsRepr());
    }
}

TEST(Selection, EqualityHasItsExceptions) {
    Selection const plain = unpack(stress()), nameless = unpack(with(stress(), 0, ""));
    EXPECT_EQ(plain, unpack(stress(tupleOf("", none, none, spec(2, "another label")))));
    EXPECT_TRUE(nameless == Selection() && nameless - Selection() != 0 && plain != nameless && nameless != plain);
    Selection const unclamped = unpack(with(stress(), 11, std::numeric_limits<double>::quiet_NaN()));
    EXPECT_TRUE(unclamped == unclamped && unclamped != Selection(unclamped) && unclamped - plain == 0);
}

TEST(Selection, OwnsItsSpecs) {
    Selection const original = unpack(stress(tupleOf("PLY-1", spec(0, "shell"), none, spec(2, "beam", 1))));
    Selection copy(original);
    copy = *&copy;
    copy.CopyCategorySpec(copy);
    copy.CopyCategorySpec(copy.CategorySpecs(), 3, copy.PlyName());
    EXPECT_TRUE(*packed(copy) == *packed(original));
    EXPECT_EQ(copy.CompareCategorySpec(original.CategorySpecs(), 1, "PLY-1"), 2);
    for (int slot : {2, 3, -1}) {
        Spec const one(slot, "beam", true, 3, 1, "SPOS", "SNEG");
        copy.CopyCategorySpec(&one, 3);
        EXPECT_TRUE(copy.CategorySpecCount() == 3 && copy.PlyName().Empty());
        EXPECT_EQ(copy.CategorySpecs()[2] != nullptr, slot == 2);
        EXPECT_EQ(copy.ShowDifferentLocations(), slot == 2);
    }
    copy.CopyCategorySpec(nullptr, 1);
    EXPECT_EQ(copy.CategorySpecs()[0], nullptr);
    copy.CopyCategorySpec(nullptr, 0, "PLY-1");
    EXPECT_TRUE(copy.CategorySpecs() == nullptr && copy.PlyName().Empty());

    copy = original;
    for (int count : {1, 0}) { // the second is freed at once
        auto ** array = static_cast<Spec **>(mem_Malloc(sizeof(Spec *)));
        array[0] = count > 0 ? new Spec(*original.CategorySpecs()[0]) : nullptr;
        copy.AdoptCategorySpec(array, count);
        EXPECT_TRUE(copy.CategorySpecCount() == count && copy.PlyName().Empty());
        EXPECT_EQ(copy.CategorySpecs(), count > 0 ? array : nullptr);
    }
}

TEST(Selection, RunningOutOfMemoryChangesNothing) {
    Selection const original = unpack(stress(tupleOf("PLY-1", spec(0, "shell"), none, spec(2, "beam", 1))));
    Selection copy;
    std::function<void()> const works[] = {[&] { copy = original; }, [&] { copy.CopyCategorySpec(original); },
                                           [&] { copy.CopyCategorySpec(original.CategorySpecs()[2], 4); },
                                           [&] { copy = Selection::UnpackTuple(*packed(original)); }};
    for (auto const & work : works) {
        copy = unpack(stress());
        EXPECT_GT(refuseEachAllocation(work, [&] { EXPECT_EQ(copy, unpack(stress())); }), 1);
    }
}

TEST(SelectionTuple, OneShapeIsRead) {
    expectOnlyThisShape(stress(), Selection::UnpackTuple);
    for (std::size_t i = 0; i < 7; ++i) { // when a spec has been read already
        omu_PrimTuple const wrong = tupleOf(with(elementsOf("beam", 0, 3, "SPOS", 1, "SNEG", 2), i, cow_List<float>()));
        EXPECT_THROW(unpack(stress(tupleOf("", spec(0, "shell"), wrong))), PrimException);
    }
    for (omu_PrimTuple const & specs : {tupleOf("", spec(0, "shell"), "no tuple"), tupleOf(none, none)})
        EXPECT_THROW(unpack(stress(specs)), PrimException);
    auto const expectRead = [](omu_PrimTuple const & specs, omu_PrimTuple const & expected, int count) {
        EXPECT_TRUE(*packed(unpack(stress(specs))) == tupleOf(with(stress(expected), 7, count)));
    };
    expectRead(tupleOf("PLY-1"), tupleOf(""), 0); // a ply without slots is dropped
    // Specs go to the slot of their id, where the last counts; with no such slot they are dropped.
    expectRead(tupleOf("", spec(2, "gone"), spec(2, "a"), spec(0, "a")), tupleOf("", spec(0, "a"), none, spec(2, "a")),
               2);
    expectRead(tupleOf("", spec(-1, ""), spec(4, ""), spec(INT_MIN, ""), tupleOf(2)),
               tupleOf("", none, none, none, none), 0);
    // With a ply name, one spec per category label is written.
    expectRead(tupleOf("PLY-1", spec(0, "a"), spec(1, "a"), spec(2, "b"), spec(3, "a")),
               tupleOf("PLY-1", spec(0, "a"), none, spec(2, "b"), none), 2);
}

TEST(Selection, Prints) {
    auto const expectPrint = [](Elements const & elements, std::string const & expected) {
        EXPECT_EQ(unpack(elements).Print().CStr(), "Label:           'S'\nOutput Position: INTEGRATION_POINT\n"
                                                   "Data Type:       TENSOR\nStorage Type:    FLOAT\n" +
                                                       expected);
    };
    expectPrint(stress(none), "Invariant:       'Mises'\nNo category information specified.\n");
    expectPrint(with(stress(none), 4, 2), "Component:       'Mises'\nNo category information specified.\n");
    expectPrint(with(stress(tupleOf("PLY-1", spec(0, "shell"))), 4, 3), "PlyName: PLY-1\n");
    expectPrint(with(stress(tupleOf("", spec(0, "shell", 1), none, spec(2, "beam"))), 4, 0),
                "Categories:\n"
                "    category: 'shell' Id: 0\n    show different locations: True\n"
                "    top section 'SPOS' Id: 3\n    bottom section 'SNEG' Id: 1\n"
                "    category: 'beam' Id: 2\n    show different locations: False\n"
                "    top section 'SPOS' Id: 3\n    bottom section 'SNEG' Id: 1\n");
    EXPECT_THROW(unpack(with(stress(), 1, 11)).Print(), CmdException) << "a position without a name";
}

TEST(CategorySpec, DifferencesLeaveOutTheLabelsAndAssignmentDoesNotShareThem) {
    std::vector<Spec> const all = {// each differs from the first in one field
                                   {0, "c", true, 1, 5, "T", "B"},  {3, "c", true, 1, 5, "T", "B"},
                                   {0, "c", false, 1, 5, "T", "B"}, {0, "c", true, 2, 5, "T", "B"},
                                   {0, "c", true, 1, 6, "T", "B"},  {0, "d", true, 1, 5, "T", "B"},
                                   {0, "c", true, 1, 5, "U", "B"},  {0, "c", true, 1, 5, "T", ""}};
    int const differences[] = {0, 3, -1, 1, 1, 0, 0, 0};
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_TRUE(all[i] - all[0] == differences[i] && all[0] - all[i] == -differences[i]) << i;
        EXPECT_TRUE((all[i] == Spec(all[0])) == (i == 0) && (all[i] != Spec(all[0])) == (i != 0)) << i;
    }
    EXPECT_EQ(Spec(INT_MAX, "", false, 0, 0, "", "") - Spec(-1, "", false, 0, 0, "", ""), INT_MIN);

    Spec copy(all[0]);
    EXPECT_EQ(copy.categoryLabel().CStr(), all[0].categoryLabel().CStr());
    EXPECT_GT(refuseEachAllocation([&] { copy = all[5]; }, [&] { EXPECT_EQ(copy, all[0]); }), 2);
    EXPECT_NE(copy.categoryLabel().CStr(), all[5].categoryLabel().CStr());
    copy = *&copy;
    EXPECT_EQ(copy, all[5]);
    copy.reset(7, copy.BottomSectionLabel(), false, 8, 9, copy.categoryLabel(), copy.TopSectionLabel());
    EXPECT_EQ(copy, Spec(7, "B", false, 8, 9, "d", "T"));
}

} // namespace
