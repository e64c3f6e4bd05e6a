// Categories of section points: what they offer, what is chosen from them, and both as tuples.

#include "memory_refusals.h"
#include "nex_PrimException.h"
#include "odiC_CategoryDesc.h"
#include "odiC_CategorySelection.h"
#include "odiC_CategorySpec.h"
#include "odiC_FloatMask.h"
#include "omu_PrimTuple.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

namespace {

using PrimException = nex_PrimException<atr_String, 1>;

odiC_CategoryDesc plies(std::initializer_list<char const *> labels) {
    cow_Map<cow_String, unsigned int> map;
    unsigned int index = 0;
    for (char const * label : labels)
        map.Insert(label, ++index);
    return odiC_CategoryDesc("plies", map, true, 1);
}

/// Selections in falling order, each of which differs from the last in one field.
std::vector<odiC_CategorySelection> selections() {
    return {{"\xff", false, 0, "a", 0, "a"}, {"a", true, 0, "a", 0, "a"},  {"a", false, 9, "a", 0, "a"},
            {"a", false, 0, "a", 9, "a"},    {"a", false, 0, "z", 0, "a"}, {"a", false, 0, "a", 0, "z"},
            {"a", false, 0, "a", 0, "a"}};
}
/// Specs, each of which differs from the first in one field.
std::vector<odiC_CategorySpec> specs() {
    return {{0, "cat", true, 1, 5, "T", "B"}, {3, "cat", true, 1, 5, "T", "B"}, {0, "cat", false, 1, 5, "T", "B"},
            {0, "cat", true, 2, 5, "T", "B"}, {0, "cat", true, 1, 6, "T", "B"}, {0, "caz", true, 1, 5, "T", "B"},
            {0, "cat", true, 1, 5, "U", "B"}, {0, "cat", true, 1, 5, "T", "B'"}};
}

/// An array of specs as a variable selection holds it.
struct Slots {
    explicit Slots(int count) : specs(static_cast<std::size_t>(count)) {}
    ~Slots() {
        std::for_each(specs.begin(), specs.end(), [](auto * spec) { delete spec; });
    }
    Slots(Slots const &) = delete;
    Slots & operator=(Slots const &) = delete;
    void unpack(omu_PrimTuple & source) {
        odiC_CategorySpec ** first = specs.data();
        odiC_CategorySpec::UnpackTuple(source, static_cast<int>(specs.size()), first);
    }
    std::vector<odiC_CategorySpec *> specs;
};

using Element = std::function<void(omu_PrimTuple &)>;

template <class Value> Element put(Value value) {
    return [value](omu_PrimTuple & tuple) { tuple.Put(value); };
}

omu_PrimTuple tupleOf(std::vector<Element> const & elements) {
    omu_PrimTuple tuple('(');
    for (Element const & element : elements)
        element(tuple);
    return tuple;
}

/// That a tuple is read as it is, and refused without, with twice, and with another in place of each of its elements.
template <class Unpack> void expectOnlyThisShape(std::vector<Element> const & elements, Unpack unpack) {
    EXPECT_NO_THROW(unpack(tupleOf(elements)));
    for (std::ptrdiff_t i = 0; i < std::ssize(elements); ++i) {
        auto missing = elements, surplus = elements, wrong = elements;
        missing.erase(missing.begin() + i);
        surplus.insert(surplus.begin() + i, elements[static_cast<std::size_t>(i)]);
        wrong[static_cast<std::size_t>(i)] = put(cow_List<float>());
        for (auto const & changed : {missing, surplus, wrong})
            EXPECT_THROW(unpack(tupleOf(changed)), PrimException) << "element " << i;
    }
}

std::unique_ptr<omu_PrimTuple> packed(odiC_CategoryDesc const & category) {
    return std::unique_ptr<omu_PrimTuple>(category.PackTuple());
}

TEST(Categories, SectionPointsAreLookedUpBothWays) {
    odiC_CategoryDesc category = plies({"SNEG", "SMID", "SPOS"});
    odiC_CategoryDesc const before = category;
    category.AddSection("SMID", 2); // known: nothing changes
    category.RemoveSection("absent");
    EXPECT_EQ(category, before);
    category.AddSection("SMID", 3000000000u);
    category.AddSection("EXTRA", 3);
    EXPECT_EQ(category.SectionPointMap().Size(), 4);
    EXPECT_EQ(static_cast<unsigned int>(category["SMID"]), 3000000000u);
    EXPECT_EQ(category[static_cast<int>(3000000000u)], "SMID");
    EXPECT_EQ(category["absent"], -1);
    EXPECT_EQ(category[2], "");
    // Two points share index 3: the first in iteration order answers.
    EXPECT_EQ(category[3], category.SectionPointLabels().ConstGet(category.SectionPointIndices().FindMember(3)));
    category.RemoveSection("SNEG");
    EXPECT_EQ(category["SNEG"], -1);
    EXPECT_EQ(before["SNEG"], 1) << "a copy is not written through";
    EXPECT_EQ(before["SMID"], 2);
}

TEST(Categories, DescriptionsAreEqualInTheSameTreeOrderOnly) {
    odiC_CategoryDesc const forward = plies({"SNEG", "SMID", "SPOS"});
    EXPECT_EQ(forward, plies({"SNEG", "SMID", "SPOS"}));
    cow_Map<cow_String, unsigned int> reversed; // the same pairs
    reversed.Insert("SPOS", 3);
    reversed.Insert("SMID", 2);
    reversed.Insert("SNEG", 1);
    EXPECT_NE(forward, odiC_CategoryDesc("plies", reversed, true, 1));

    auto const & map = forward.SectionPointMap();
    for (odiC_CategoryDesc const & other :
         {odiC_CategoryDesc("plier", map, true, 1), odiC_CategoryDesc("plies", map, false, 1),
          odiC_CategoryDesc("plies", map, true, 2), plies({"SNEG", "SMID"}), plies({"SNEG", "SMID", "SPOT"})})
        EXPECT_NE(forward, other);
    // The order knows the label alone.
    odiC_CategoryDesc const twin("plies", map, false, 1);
    EXPECT_FALSE(forward < twin || forward > twin || forward == twin);
    odiC_CategoryDesc const high("pli\xe9", map, true, 1);
    EXPECT_TRUE(forward < high && high > forward && !(high < forward) && !(forward > high));
}

TEST(Categories, DifferencesOfSelectionsAreAntisymmetricAndAgreeWithEquality) {
    auto const all = selections();
    int const differences[] = {1, 1, 9, 9, 1, 1, 0};
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(all[i] - selections().back(), differences[i]);
        for (std::size_t k = 0; k < all.size(); ++k) {
            EXPECT_EQ(all[i] - all[k] > 0, i < k) << "earlier fields decide against later ones";
            EXPECT_EQ(all[i] - all[k], -(all[k] - all[i]));
            EXPECT_EQ(all[i] == selections()[k], i == k);
            EXPECT_EQ(all[i] != all[k], i != k);
            EXPECT_EQ(all[i] > all[k], i == 0 && k != 0) << "the label alone";
            EXPECT_EQ(all[i] < all[k], k == 0 && i != 0);
        }
    }
    EXPECT_EQ(odiC_CategorySelection("", false, INT_MIN, "", 0, "") - odiC_CategorySelection("", false, 1, "", 0, ""),
              INT_MAX);
}

TEST(Categories, SelectionsOfOneLocationLeaveOutTheTopPair) {
    for (bool const separate : {false, true}) {
        odiC_CategorySelection const a("cat", separate, 1, "T", 5, "B");
        for (odiC_CategorySelection const & b :
             {odiC_CategorySelection("cat", separate, 2, "T", 5, "B"), {"cat", separate, 1, "U", 5, "B"}}) {
            EXPECT_NE(a, b);
            EXPECT_EQ(a.IsEqual(b), !separate);
            EXPECT_EQ(a.Print() == b.Print(), !separate);
        }
        for (odiC_CategorySelection const & b : {odiC_CategorySelection("caz", separate, 1, "T", 5, "B"),
                                                 {"cat", !separate, 1, "T", 5, "B"},
                                                 {"cat", separate, 1, "T", 6, "B"},
                                                 {"cat", separate, 1, "T", 5, "C"}})
            EXPECT_FALSE(a.IsEqual(b));
    }
}

TEST(Categories, DifferencesOfSpecsLeaveOutTheLabels) {
    auto const all = specs();
    for (auto const & a : all)
        for (auto const & b : all) {
            EXPECT_EQ(a - b, -(b - a));
            EXPECT_EQ(a == odiC_CategorySpec(b), &a == &b);
            EXPECT_EQ(a != b, &a != &b);
        }
    int const differences[] = {0, 3, -1, 1, 1, 0, 0, 0};
    for (std::size_t i = 0; i < all.size(); ++i)
        EXPECT_EQ(all[i] - all[0], differences[i]) << i;
    EXPECT_EQ(odiC_CategorySpec(INT_MAX, "", false, 0, 0, "", "") - odiC_CategorySpec(-1, "", false, 0, 0, "", ""),
              INT_MIN);
}

TEST(Categories, AssignedSpecsShareNoLabels) {
    odiC_CategorySpec const source(1, "cat", true, 2, 3, "T", "B");
    odiC_CategorySpec const copy(source);
    EXPECT_EQ(copy.categoryLabel().CStr(), source.categoryLabel().CStr());
    odiC_CategorySpec assigned(0, "x", false, 0, 0, "y", "z");
    assigned = source;
    EXPECT_EQ(assigned, source);
    EXPECT_NE(assigned.categoryLabel().CStr(), source.categoryLabel().CStr());
    EXPECT_NE(assigned.BottomSectionLabel().CStr(), source.BottomSectionLabel().CStr());
    odiC_CategorySpec & itself = assigned;
    assigned = itself;
    EXPECT_EQ(assigned, source);
    assigned.reset(7, assigned.BottomSectionLabel(), false, 8, 9, assigned.categoryLabel(), assigned.TopSectionLabel());
    EXPECT_EQ(assigned, odiC_CategorySpec(7, "B", false, 8, 9, "cat", "T"));
}

TEST(Categories, Print) {
    odiC_CategoryDesc category = plies({"one"});
    EXPECT_EQ(category.Print(), "  Category: 'plies'\n    allows both top and bottom locations\n"
                                "    Default section = 'one'\n    Section point #1: 'one'\n");
    category.SetAllowTopAndBottom(false);
    category.AddSection("one", 4000000000u);
    category.SetDefaultSectionPoint(static_cast<int>(4000000000u));
    EXPECT_EQ(category.Print(), "  Category: 'plies'\n    allows only one location\n"
                                "    Default section = 'one'\n    Section point #4000000000: 'one'\n");

    EXPECT_EQ(odiC_CategorySelection("c", true, 1, "T", -5, "B").Print(),
              "  Category:   'c'\n    Top:      1  'T'\n    Bottom:   -5  'B'\n");
    EXPECT_EQ(odiC_CategorySelection("c", false, 1, "T", 5, "B").Print(), "  Category:   'c'\n    Both:     5  'B'\n");

    cow_String text = "before\n";
    odiC_CategorySpec(4, "c", true, 1, 2, "T", "B").Print(text);
    odiC_CategorySpec(4, "c", false, 1, 2, "T", "B").Print(text);
    cow_String const head = "    category: 'c' Id: 4\n    show different locations: ";
    cow_String const tail = "    top section 'T' Id: 1\n    bottom section 'B' Id: 2\n";
    EXPECT_EQ(text, "before\n" + head + "True\n" + tail + head + "False\n" + tail);
}

TEST(CategoriesDeathTest, PrintNeedsADefaultAmongTheSectionPoints) {
    EXPECT_DEATH(odiC_CategoryDesc().Print(), "");
}

TEST(CategoryTuples, ElementsStandInTheirOrder) {
    EXPECT_EQ(packed(plies({"one"}))->AsRepr(), "('plies', (('one', 1)), 1, 1)");
    EXPECT_EQ(odiC_CategorySelection("c", true, 1, "T", 2, "B").PackTuple().AsRepr(), "('c', 1, 1, 'T', 2, 'B')");
    omu_PrimTuple target('(');
    odiC_CategorySpec(9, "c", true, 1, 2, "T", "B").PackTuple(target);
    EXPECT_EQ(target.AsRepr(), "(('c', 1, 1, 'T', 2, 'B', 9))");
}

TEST(CategoryTuples, RoundTrips) {
    odiC_CategoryDesc many("many", cow_Map<cow_String, unsigned int>(), true, 0);
    for (unsigned int i = 0; i < 200; ++i) {
        many.AddSection("P" + cow_String(i * 7919 % 200), i);
        if (i % 3 == 0)
            many.RemoveSection("P" + cow_String(i * 31 % 200));
    }
    cow_Map<cow_String, odiC_CategoryDesc> map;
    for (odiC_CategoryDesc const & category : {many, plies({"a", "b"}), odiC_CategoryDesc()}) {
        EXPECT_EQ(odiC_CategoryDesc::UnpackTuple(*packed(category)), category);
        map.Insert(category.CategoryLabel(), category);
    }
    std::unique_ptr<omu_PrimTuple> const mapTuple(odiC_CategoryDesc::PackTupleMap(map));
    auto const unpacked = odiC_CategoryDesc::UnpackTupleMap(*mapTuple);
    EXPECT_EQ(unpacked.Size(), 3);
    cow_ConstMapIterator<cow_String, odiC_CategoryDesc> it(map);
    for (it.First(); !it.IsDone(); it.Next())
        EXPECT_EQ(it.CurrentValue(), unpacked.ConstGet(it.CurrentKey()));

    omu_PrimTuple selectionTuples('(');
    for (odiC_CategorySelection const & selection : selections()) {
        omu_PrimTuple tuple = selection.PackTuple();
        EXPECT_EQ(odiC_CategorySelection::UnpackTuple(tuple), selection);
        selectionTuples.Put(tuple);
    }
    auto const byLabel = odiC_CategorySelection::UnpackTupleMap(selectionTuples);
    EXPECT_EQ(byLabel.Size(), 2);
    EXPECT_EQ(byLabel.ConstGet("a"), selections().back()) << "of equal labels the last counts";
}

TEST(CategoryTuples, SpecsGoToTheSlotOfTheirId) {
    auto const all = specs();
    omu_PrimTuple source('(');
    all[1].PackTuple(source); // id 3
    source.Put(omu_PrimTuple('('));
    all[0].PackTuple(source);
    all[5].PackTuple(source); // id 0 again
    Slots slots(4);
    slots.unpack(source);
    EXPECT_EQ(*slots.specs[0], all[5]);
    EXPECT_EQ(slots.specs[1], nullptr);
    EXPECT_EQ(slots.specs[2], nullptr);
    EXPECT_EQ(*slots.specs[3], all[1]);
    source.End("");

    omu_PrimTuple outside('(');
    for (int id : {-1, 3, INT_MIN})
        odiC_CategorySpec(id, "", false, 0, 0, "", "").PackTuple(outside);
    Slots three(3);
    three.unpack(outside); // under AddressSanitizer
    EXPECT_EQ(three.specs, std::vector<odiC_CategorySpec *>(3));
}

TEST(CategoryTuples, OtherShapesAreRefused) {
    auto const pairs = put(tupleOf({put(tupleOf({put("one"), put(1u)}))}));
    auto const description = [](omu_PrimTuple tuple) { odiC_CategoryDesc::UnpackTuple(tuple); };
    auto const selection = [](omu_PrimTuple tuple) { odiC_CategorySelection::UnpackTuple(tuple); };
    expectOnlyThisShape({put("plies"), pairs, put(1), put(1)}, description);
    expectOnlyThisShape({put("one"), put(1u)}, [&](omu_PrimTuple const & pair) {
        description(tupleOf({put("plies"), put(tupleOf({put(pair)})), put(1), put(1)}));
    });
    expectOnlyThisShape({put("c"), put(1), put(1), put("T"), put(2), put("B")}, selection);

    // A spec tuple of another length is left out, one of 7 with a wrong element refused; what came before it stays.
    std::vector<Element> const spec = {put("c"), put(1), put(1), put("T"), put(2), put("B"), put(1)};
    for (std::size_t i = 0; i < spec.size(); ++i) {
        auto wrong = spec;
        wrong[i] = put(cow_List<float>());
        omu_PrimTuple source = tupleOf({put(tupleOf(spec)), put(tupleOf({put(1)})), put(tupleOf(wrong))});
        Slots slots(3);
        EXPECT_THROW(slots.unpack(source), PrimException);
        EXPECT_EQ(*slots.specs[1], odiC_CategorySpec(1, "c", true, 1, 2, "T", "B"));
    }
}

TEST(CategoryTuples, NothingLeaksWhenMemoryRunsOut) {
    cow_Map<cow_String, odiC_CategoryDesc> map;
    map.Insert("plies", plies({"one", "two"}));
    map.Insert("none", odiC_CategoryDesc("none", cow_Map<cow_String, unsigned int>(), false, 0));
    auto const work = [&map] {
        std::unique_ptr<omu_PrimTuple> const tuple(odiC_CategoryDesc::PackTupleMap(map));
        odiC_CategoryDesc::UnpackTupleMap(*tuple);
        odiC_CategorySelection const selection("c", true, 1, "T", 2, "B");
        omu_PrimTuple selected = selection.PackTuple();
        odiC_CategorySelection::UnpackTuple(selected).Print();
        omu_PrimTuple source('(');
        odiC_CategorySpec(0, "c", true, 1, 2, "T", "B").PackTuple(source);
        odiC_CategorySpec(0, "d", true, 1, 2, "T", "B").PackTuple(source);
        Slots slots(2);
        slots.unpack(source);
    };
    EXPECT_GT(refuseEachAllocation(work, [] {}), 30); // leaks are the sanitizer's to find
}

TEST(FloatMask, GivesTheLogarithm) {
    for (int i = 1; i < 1 << 24; i += 1 + i / 1000)
        ASSERT_EQ(getPower(getFloatMask(i)), std::bit_width(static_cast<unsigned int>(i)) - 1) << i;
}

} // namespace
