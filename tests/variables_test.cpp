// Descriptions of result variables: their lists in order, their categories, comparing, printing, packing.

#include "memory_refusals.h"
#include "nex_CmdException.h"
#include "odiC_VariableDesc.h"
#include "packed_tuples.h"

#include <algorithm>
#include <clocale>
#include <limits>
#include <random>
#include <string>
#include <utility>

namespace {

using Variable = odiC_VariableDesc;
using CmdException = nex_CmdException<atr_String, 2>;
using Entries = std::vector<std::pair<std::string, unsigned int>>;

Variable stress(float lowerClamp = -1.5f) {
    Variable variable("S", "Stress", res_OutputPosition_INTEGRATION_POINT, "Points", res_DataType_TENSOR, "tensor",
                      res_StorageType_DOUBLE, true, lowerClamp, 8, QVRBasStringMode());
    variable.AddInvariant("Max", 0);
    variable.AddInvariant("Mises", 6);
    variable.AddComponent("S22", 2);
    variable.AddComponent("S11", 1);
    variable.AddSection("Ply", "bottom", 1, true, false);
    variable.AddSection("Ply", "top", 5, true, true);
    variable.SetDerived(true);
    return variable;
}

omu_PrimTuple pairs(Entries const & entries) {
    omu_PrimTuple all('(');
    for (auto const & [label, id] : entries)
        all.Put(tupleOf(label.c_str(), id));
    return all;
}
omu_PrimTuple oneCategory(int byDefault) {
    return tupleOf(tupleOf("Ply", pairs({{"bottom", 1}, {"top", 5}}), 1, byDefault));
}
/// The packed form of `stress`, and another value for each element.
Elements const elements = elementsOf("S", "Stress", 2, "Points", 8, "tensor", 1, pairs({{"Mises", 6}, {"Max", 0}}),
                                     pairs({{"S11", 1}, {"S22", 2}}), oneCategory(5), 1, 1, -1.5, 8.0, 0);

Elements const others = elementsOf("T", "Strain", 1, "Nodes", 4, "", 0, pairs({{"Mises", 6}, {"Min", 0}}),
                                   pairs({{"S11", 1}, {"S22", 3}}), oneCategory(1), 0, 0, -1.0, 9.0, 1);

Variable unpack(omu_PrimTuple & tuple) {
    return Variable::UnpackTuple(tuple, QVRBasStringMode());
}
template <class Value> Variable changedStress(std::size_t place, Value const & value) {
    omu_PrimTuple tuple = tupleOf(with(elements, place, value));
    return unpack(tuple);
}
/// What adding an entry does to a list.
template <class Rank> void add(Entries & list, std::string const & label, unsigned int id, Rank rank) {
    auto const hasId = [&](auto const & entry) { return entry.second == id; };
    auto const hasLabel = [&](auto const & entry) { return entry.first == label; };
    if (std::any_of(list.begin(), list.end(), hasId) && std::any_of(list.begin(), list.end(), hasLabel))
        return;
    std::erase_if(list, [&](auto const & entry) { return hasId(entry) || hasLabel(entry); });
    list.emplace_back(label, id);
    std::stable_sort(list.begin(), list.end(),
                     [&](auto const & a, auto const & b) { return rank(a.second) < rank(b.second); });
}
std::string printed(std::string heading, Entries const & list) {
    for (auto const & [label, id] : list)
        heading += std::to_string(id) + ":  '" + label + "'\n";
    return list.empty() ? "" : heading;
}

TEST(Variables, ListsStayUniqueAndInOrderWhateverIsAdded) {
    std::vector<unsigned int> const shown = {6, 3, 12, 4, 5, 0, 11, 1, 2, 7, 8, 9, 10};
    auto const rank = [&](unsigned int id) {
        auto const found = std::find(shown.begin(), shown.end(), id);
        return found == shown.end() ? -1 : found - shown.begin();
    };
    std::mt19937 random(1);
    for (int run = 0; run < 100; ++run) {
        Variable variable;
        Entries invariants, components;
        for (int step = 0; step < 40; ++step) {
            Variable const sharer(variable);
            cow_String const before = sharer.Print();
            unsigned int const id = random() % 40 == 0 ? 0xffffffffu : static_cast<unsigned int>(random() % 17);
            std::string const label = "label" + std::to_string(random() % 17);
            variable.AddInvariant(label.c_str(), id);
            variable.AddComponent(label.c_str(), id);
            add(invariants, label, id, rank);
            add(components, label, id, [](unsigned int x) { return x; });
            ASSERT_EQ(variable.Print().CStr(), Variable().Print().CStr() + printed("Invariants:\n", invariants) +
                                                   printed("Components:\n", components));
            ASSERT_EQ(sharer.Print(), before);
        }
    }
    Variable moved = stress();
    moved.AddComponent(moved.ComponentLabels()[0],
                       9); // the label is the very text that makes way
    EXPECT_EQ(moved, changedStress(8, pairs({{"S22", 2}, {"S11", 9}})));
}

TEST(Variables, SectionPointsKeepTheirIndexAndTheFirstIsTheDefault) {
    Variable variable = stress();
    Variable const sharer(variable);
    variable.AddSection("Ply", "top", 7, false, true);
    variable.AddSection("Layer", "mid", 3, true, false);
    variable.AddSection("Layer", "low", 4, true, false);
    auto const changed = variable.CategoryMap();
    EXPECT_STREQ(packed(changed.ConstGet("Ply"))->AsRepr().CStr(), "('Ply', (('bottom', 1), ('top', 5)), 0, 7)");
    EXPECT_STREQ(packed(changed.ConstGet("Layer"))->AsRepr().CStr(), "('Layer', (('mid', 3), ('low', 4)), 1, 3)");
    EXPECT_TRUE(sharer == stress() && sharer.IsCategoryMapEqual(stress().CategoryMap()));
    cow_Map<cow_String, odiC_CategoryDesc> renamed;
    renamed.Insert("Other", stress().CategoryMap().ConstGet("Ply"));
    for (auto const & other : {changed, renamed}) {
        variable.SetCategoryMap(other);
        EXPECT_FALSE(variable == stress() || variable.IsCategoryMapEqual(sharer.CategoryMap()));
    }
}

// Three texts count for the order.
TEST(Variables, AreOneTupleAndOrderedByTheirTexts) {
    EXPECT_TRUE(*std::unique_ptr<omu_PrimTuple>(stress().PackTuple({})) == tupleOf(elements));
    EXPECT_EQ(changedStress(0, "S"), stress());
    expectEachElementToCount(elements, others, unpack);
    for (std::size_t const place : {0u, 1u, 3u}) { // bytes are unsigned
        Variable const higher = changedStress(place, "\xc3");
        EXPECT_TRUE(stress() < higher && higher > stress() && !(higher < stress() || stress() > higher)) << place;
    }
    Variable const notANumber = stress(std::numeric_limits<float>::quiet_NaN()), copy = notANumber;
    EXPECT_TRUE(notANumber == notANumber && notANumber != copy && stress(0.0f) == stress(-0.0f));
    EXPECT_FALSE(stress(1) < stress() || stress(1) > stress() || stress(1) == stress());
}

// Pairs that arrive in another order, or twice, get into theirs.
TEST(Variables, PackedListsAreAddedOneByOne) {
    EXPECT_EQ(changedStress(7, pairs({{"Max", 0}, {"gone", 6}, {"Mises", 6}, {"Max", 6}})), stress());
    EXPECT_EQ(changedStress(10, -3), stress());
    for (std::size_t const list : {7u, 8u, 9u})
        for (auto const & pair : {tupleOf("a"), tupleOf("a", 1, 1), tupleOf(1, "a")})
            EXPECT_THROW(changedStress(list, tupleOf(pair)), PrimException) << list << pair.AsRepr().CStr();
    EXPECT_STREQ(std::unique_ptr<omu_PrimTuple>(Variable().PackTuple({}))->AsRepr().CStr(),
                 "('', '', 0, '', 15, '', 0, (), (), (), 0, 0, -3.4028234663852886e+38, "
                 "3.4028234663852886e+38, 0)");
}

TEST(Variables, PrintedForm) {
    EXPECT_EQ(stress().Print(),
              cow_String("Label:           'S'\nDescription:     'Stress'\nOutput Position: INTEGRATION_POINT\n"
                         "Data Type:       TENSOR\nStorage Type:    "
                         "DOUBLE\nInvariants:\n6:  'Mises'\n0:  'Max'\n"
                         "Components:\n1:  'S11'\n2:  'S22'\nCategories:\n") +
                  stress().CategoryMap().ConstGet("Ply").Print());
    for (std::size_t const i : {2u, 4u, 6u})
        EXPECT_THROW(changedStress(i, 99).Print(), CmdException) << i;
    EXPECT_DEATH(changedStress(9, oneCategory(7)).Print(), "");
}

TEST(Variables, PositionLabelTravelsInTheEncodingOfTheMode) {
    if (std::setlocale(LC_CTYPE, "en_US.ISO-8859-1") == nullptr)
        GTEST_SKIP() << "no locale with another encoding";
    QVRBasStringMode const locale(1);
    Variable const variable("", "", {}, "\xfc", {}, "", {}, false, 0, 0, locale);
    std::unique_ptr<omu_PrimTuple> const tuple(variable.PackTuple(locale));
    EXPECT_TRUE(variable.OutputPositionLabel({}) == "\xc3\xbc" && variable.OutputPositionLabel(locale) == "\xfc");
    EXPECT_TRUE(Variable::UnpackTuple(*tuple, locale) == variable && unpack(*tuple).OutputPositionLabel({}) == "\xfc");
    std::setlocale(LC_CTYPE, "C");
}

TEST(Variables, RefusedMemoryLeavesADescriptionAsItWas) {
    Variable variable;
    std::function<void()> const works[] = {[&] { variable.AddComponent("S33", 2); },
                                           [&] { variable.AddInvariant("S33", 6); },
                                           [&] { variable.AddSection("Ply", "middle", 9, false, true); },
                                           [&] { variable.AddSection("Layer", "middle", 9, false, true); },
                                           [&] { unpack(*std::unique_ptr<omu_PrimTuple>(variable.PackTuple({}))); }};
    for (auto const & work : works) {
        variable = stress();
        EXPECT_GT(refuseEachAllocation(work, [&] { EXPECT_EQ(variable, stress()); }), 1);
    }
}

} // namespace
