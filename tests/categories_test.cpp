// Categories of section points: what they offer, what is chosen from them, and both as tuples.

#include "memory_refusals.h"
#include "odiC_CategoryDesc.h"
#include "odiC_CategorySelection.h"
#include "odiC_FloatMask.h"
#include "packed_tuples.h"

#include <bit>
#include <climits>
#include <initializer_list>

namespace {

using Selection = odiC_CategorySelection;

odiC_CategoryDesc plies(std::initializer_list<char const *> labels) {
    odiC_CategoryDesc category("plies", {}, true, 1);
    unsigned int index = 0;
    for (char const * label : labels)
        category.AddSection(label, ++index);
    return category;
}

TEST(Categories, SectionPointsAreLookedUpBothWays) {
    odiC_CategoryDesc category = plies({"SNEG", "SMID", "SPOS"});
    odiC_CategoryDesc const before = category;
    category.AddSection("SMID", 3000000000u);
    category.AddSection("EXTRA", 3);
    category.RemoveSection("SNEG");
    EXPECT_TRUE(category["SMID"] == static_cast<int>(3000000000u) && category["SNEG"] == -1);
    EXPECT_TRUE(category[static_cast<int>(3000000000u)] == "SMID" && category[1] == "");
    // Two points share index 3: the first in iteration order answers.
    EXPECT_EQ(category[3], category.SectionPointLabels().ConstGet(category.SectionPointIndices().FindMember(3)));
    EXPECT_EQ(before, plies({"SNEG", "SMID", "SPOS"})) << "a copy is not written through";
}

TEST(Categories, EqualityKnowsTheTreeAndTheOrderTheLabelAlone) {
    odiC_CategoryDesc const plain = plies({"SNEG", "SMID"}), twin("plies", plain.SectionPointMap(), false, 1),
                            later("plies", plain.SectionPointMap(), true, 2),
                            higher("pli\xe9", plain.SectionPointMap(), true, 1);
    odiC_CategoryDesc backward("plies", {}, true, 1); // the same points
    backward.AddSection("SMID", 2);
    backward.AddSection("SNEG", 1);
    for (odiC_CategoryDesc const & other : {twin, later, higher, backward, plies({"SNEG", "SPOS"})})
        EXPECT_NE(plain, other);
    EXPECT_FALSE(plain < twin || plain > twin);
    EXPECT_TRUE(plain < higher && higher > plain && !(higher < plain) && !(plain > higher));
}

TEST(Categories, SelectionsOfOneLocationLeaveOutTheTopPair) {
    EXPECT_EQ(Selection("", false, INT_MIN, "", 0, "") - Selection("", false, 1, "", 0, ""), INT_MAX);
    for (bool const separate : {false, true}) {
        // Each differs from the last in one field.
        std::vector<Selection> const all = {{"\xff", separate, 0, "a", 0, "a"}, {"a", !separate, 0, "a", 0, "a"},
                                            {"a", separate, 9, "a", 0, "a"},    {"a", separate, 0, "a", 9, "a"},
                                            {"a", separate, 0, "z", 0, "a"},    {"a", separate, 0, "a", 0, "z"},
                                            {"a", separate, 0, "a", 0, "a"}};
        int const differences[] = {1, separate ? -1 : 1, 9, 9, 1, 1, 0};
        for (std::size_t i = 0; i < all.size(); ++i) {
            bool const isSame = i == 6 || (!separate && (i == 2 || i == 4));
            EXPECT_EQ(all[i].IsEqual(Selection(all[6])), isSame) << i;
            EXPECT_EQ(all[i].Print() == all[6].Print(), isSame) << i;
            EXPECT_EQ(all[i] - all[6], differences[i]);
        }
        if (!separate)
            expectFallingOrder(all);
    }
}

TEST(Categories, Print) {
    odiC_CategoryDesc category = plies({"one", "two"});
    EXPECT_EQ(category.Print(), "  Category: 'plies'\n    allows both top and bottom locations\n"
                                "    Default section = 'one'\n    Section point #1: 'one'\n"
                                "    Section point #2: 'two'\n");
    category = odiC_CategoryDesc("plies", {}, false, static_cast<int>(4000000000u));
    EXPECT_DEATH(category.Print(), "") << "the default is no section point";
    category.AddSection("one", 4000000000u);
    EXPECT_EQ(category.Print(), "  Category: 'plies'\n    allows only one location\n"
                                "    Default section = 'one'\n    Section point #4000000000: 'one'\n");
    EXPECT_EQ(Selection("c", true, 1, "T", -5, "B").Print(),
              "  Category:   'c'\n    Top:      1  'T'\n    Bottom:   -5  'B'\n");
    EXPECT_EQ(Selection("c", false, 1, "T", 5, "B").Print(), "  Category:   'c'\n    Both:     5  'B'\n");
}

TEST(CategoryTuples, OneShapeIsReadBack) {
    odiC_CategoryDesc many("plies", {}, true, 1);
    many.AddSection("far", UINT_MAX);
    for (unsigned int i = 0; i < 60; ++i) {
        many.AddSection("P" + cow_String(i * 7919 % 60), i);
        if (i % 3 == 0)
            many.RemoveSection("P" + cow_String(i * 31 % 60));
    }
    cow_Map<cow_String, odiC_CategoryDesc> map;
    map.Insert("plies", many);
    map.Insert("", odiC_CategoryDesc());
    auto const throughTuple = [&] {
        std::unique_ptr<omu_PrimTuple> const tuple(odiC_CategoryDesc::PackTupleMap(map));
        return odiC_CategoryDesc::UnpackTupleMap(*tuple);
    };
    EXPECT_EQ(throughTuple().ConstGet("plies"), many);
    EXPECT_TRUE(throughTuple().IsMember("") && throughTuple().ConstGet("") == odiC_CategoryDesc());
    EXPECT_GT(refuseEachAllocation(throughTuple, [] {}), 500); // leaks are the sanitizer's to find

    auto const one = elementsOf("plies", tupleOf(tupleOf("one", 1u)), 1, 7);
    odiC_CategoryDesc const unpackedOne("plies", plies({"one"}).SectionPointMap(), true, 7);
    expectOnlyThisShape(one, odiC_CategoryDesc::UnpackTuple);
    expectOnlyThisShape(elementsOf("one", 1u), [&](omu_PrimTuple const & pair) {
        omu_PrimTuple tuple = tupleOf(with(one, 1, tupleOf(pair)));
        odiC_CategoryDesc::UnpackTuple(tuple);
    });
    omu_PrimTuple twice = tupleOf(*packed(many), tupleOf(one));
    EXPECT_EQ(odiC_CategoryDesc::UnpackTupleMap(twice).ConstGet("plies"), unpackedOne) << "the last counts";

    auto const selection = elementsOf("c", 1, 3, "T", 2, "B");
    expectOnlyThisShape(selection, Selection::UnpackTuple);
    omu_PrimTuple both = tupleOf(Selection().PackTuple(), tupleOf("c", 0, 0, "", 0, ""), tupleOf(selection));
    auto const byLabel = Selection::UnpackTupleMap(both);
    EXPECT_TRUE(byLabel.Size() == 2 && byLabel.ConstGet("") == Selection("", false, -1, "", -1, ""));
    EXPECT_EQ(byLabel.ConstGet("c"), Selection("c", true, 3, "T", 2, "B"));
}

TEST(FloatMask, GivesTheLogarithm) {
    for (int i = 1; i < 1 << 24; i += 1 + i / 1000)
        ASSERT_EQ(getPower(getFloatMask(i)), std::bit_width(static_cast<unsigned int>(i)) - 1) << i;
}

} // namespace
