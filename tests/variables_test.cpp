// Descriptions of result variables: their lists in order, their categories, comparing, printing, packing.

#include "memory_refusals.h"
#include "nex_CmdException.h"
#include "nex_PrimException.h"
#include "odiC_VariableDesc.h"
#include "omu_PrimTuple.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cstddef>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using PrimException = nex_PrimException<atr_String, 1>;
using CmdException = nex_CmdException<atr_String, 2>;
using Entries = std::vector<std::pair<std::string, unsigned int>>;

odiC_VariableDesc stress(float lowerClamp = -1.5f) {
    odiC_VariableDesc variable("S", "Stress", res_OutputPosition_INTEGRATION_POINT, "Points", res_DataType_TENSOR,
                               "tensor", res_StorageType_DOUBLE, true, lowerClamp, 8, QVRBasStringMode());
    variable.AddInvariant("Max", 0);
    variable.AddInvariant("Mises", 6);
    variable.AddComponent("S22", 2);
    variable.AddComponent("S11", 1);
    variable.AddSection("Ply", "bottom", 1, true, false);
    variable.AddSection("Ply", "top", 5, true, true);
    variable.SetDerived(true);
    return variable;
}

Entries entries(cow_List<cow_String> const & labels, cow_List<unsigned int> const & ids) {
    EXPECT_EQ(labels.Length(), ids.Length());
    Entries all;
    for (int i = 0; i < ids.Length(); ++i)
        all.emplace_back(labels.ConstGet(i).CStr(), ids.ConstGet(i));
    return all;
}
Entries components(odiC_VariableDesc const & v) {
    return entries(v.ComponentLabels(), v.ComponentIds());
}
Entries invariants(odiC_VariableDesc const & v) {
    return entries(v.InvariantLabels(), v.InvariantIds());
}

odiC_VariableDesc roundTrip(odiC_VariableDesc const & variable, QVRBasStringMode mode = {}) {
    std::unique_ptr<omu_PrimTuple> const tuple(variable.PackTuple(mode));
    return odiC_VariableDesc::UnpackTuple(*tuple, mode);
}

/// The packed form element by element.
using Put = std::function<void(omu_PrimTuple &)>;
template <class Value> Put put(Value const & value) {
    return [value](omu_PrimTuple & target) { target.Put(value); };
}
omu_PrimTuple tupleOf(std::vector<Put> const & elements) {
    omu_PrimTuple tuple(static_cast<int>(elements.size()), '(');
    for (Put const & element : elements)
        element(tuple);
    return tuple;
}
Put pairs(Entries const & all) {
    std::vector<Put> elements;
    for (auto const & [label, id] : all)
        elements.push_back(put(tupleOf({put(label.c_str()), put(id)})));
    return put(tupleOf(elements));
}
Put oneCategory(int byDefault) {
    return put(tupleOf({put(tupleOf({put("Ply"), pairs({{"bottom", 1}, {"top", 5}}), put(1), put(byDefault)}))}));
}
std::vector<Put> const stressElements = {put("S"),
                                         put("Stress"),
                                         put(2),
                                         put("Points"),
                                         put(8),
                                         put("tensor"),
                                         put(1),
                                         pairs({{"Mises", 6}, {"Max", 0}}),
                                         pairs({{"S11", 1}, {"S22", 2}}),
                                         oneCategory(5),
                                         put(1),
                                         put(1),
                                         put(-1.5),
                                         put(8.0),
                                         put(0)};
/// An element with another value for each.
std::vector<Put> const otherElements = {put("T"),
                                        put("Strain"),
                                        put(1),
                                        put("Nodes"),
                                        put(4),
                                        put(""),
                                        put(0),
                                        pairs({{"Mises", 6}, {"Min", 0}}),
                                        pairs({{"S11", 1}, {"S22", 3}}),
                                        oneCategory(1),
                                        put(0),
                                        put(0),
                                        put(-1.0),
                                        put(9.0),
                                        put(-7)};

odiC_VariableDesc unpack(std::vector<Put> const & elements) {
    omu_PrimTuple tuple = tupleOf(elements);
    return odiC_VariableDesc::UnpackTuple(tuple, QVRBasStringMode());
}

TEST(Variables, ListsStayUniqueAndInOrderWhateverIsAdded) {
    std::vector<unsigned int> const shown = {6, 3, 12, 4, 5, 0, 11, 1, 2, 7, 8, 9, 10};
    auto const rank = [&](unsigned int id) {
        auto const found = std::find(shown.begin(), shown.end(), id);
        return found == shown.end() ? 0 : found - shown.begin() + 1;
    };
    auto const add = [](Entries & model, std::string const & label, unsigned int id, auto comesBefore) {
        auto const hasId = [&](auto const & entry) { return entry.second == id; };
        auto const hasLabel = [&](auto const & entry) { return entry.first == label; };
        if (std::any_of(model.begin(), model.end(), hasId) && std::any_of(model.begin(), model.end(), hasLabel))
            return;
        std::erase_if(model, [&](auto const & entry) { return hasId(entry) || hasLabel(entry); });
        model.emplace_back(label, id);
        std::stable_sort(model.begin(), model.end(),
                         [&](auto const & a, auto const & b) { return comesBefore(a.second, b.second); });
    };
    std::mt19937 random(1);
    for (int run = 0; run < 100; ++run) {
        odiC_VariableDesc variable;
        Entries expectedInvariants, expectedComponents;
        for (int step = 0; step < 40; ++step) {
            odiC_VariableDesc const sharer(variable);
            Entries const before = components(variable);
            unsigned int const id = random() % 40 == 0 ? 0xffffffffu : static_cast<unsigned int>(random() % 17);
            std::string const label = "label" + std::to_string(random() % 17);
            variable.AddInvariant(label.c_str(), id);
            variable.AddComponent(label.c_str(), id);
            add(expectedInvariants, label, id, [&](auto a, auto b) { return rank(a) < rank(b); });
            add(expectedComponents, label, id, [](auto a, auto b) { return a < b; });
            ASSERT_EQ(invariants(variable), expectedInvariants);
            ASSERT_EQ(components(variable), expectedComponents);
            ASSERT_EQ(components(sharer), before);
        }
    }
    odiC_VariableDesc moved = stress();
    moved.AddComponent(moved.ComponentLabels()[0], 9); // the label is the very text that makes way
    EXPECT_EQ(components(moved), (Entries{{"S22", 2}, {"S11", 9}}));
}

TEST(Variables, SectionPointsKeepTheirIndexAndTheFirstIsTheDefault) {
    odiC_VariableDesc variable = stress();
    odiC_VariableDesc const sharer(variable);
    variable.AddSection("Ply", "top", 7, false, true);
    odiC_CategoryDesc const ply = variable.CategoryMap().ConstGet("Ply");
    EXPECT_EQ(ply["top"], 5);
    EXPECT_EQ(ply.DefaultSectionPoint(), 7);
    EXPECT_FALSE(ply.AllowTopAndBottom());
    EXPECT_EQ(sharer, stress());
    variable.AddSection("Layer", "mid", 3, true, false);
    variable.AddSection("Layer", "low", 4, true, false);
    odiC_CategoryDesc const layer = variable.CategoryMap().ConstGet("Layer");
    EXPECT_EQ(layer.CategoryLabel(), "Layer");
    EXPECT_EQ(layer.DefaultSectionPoint(), 3);
    EXPECT_EQ(layer["low"], 4);
    EXPECT_FALSE(variable.IsCategoryMapEqual(sharer.CategoryMap()));
    variable.SetCategoryMap(sharer.CategoryMap());
    EXPECT_TRUE(variable.IsCategoryMapEqual(stress().CategoryMap()));
    cow_Map<cow_String, odiC_CategoryDesc> renamed;
    renamed.Insert("Other", stress().CategoryMap().ConstGet("Ply"));
    EXPECT_FALSE(variable.IsCategoryMapEqual(renamed));
    variable.SetCategoryMap(renamed);
    EXPECT_NE(variable, stress());
}

TEST(Variables, EqualityAsksForEveryFieldAndOrderForThreeTexts) {
    odiC_VariableDesc const variable = stress();
    EXPECT_EQ(unpack(stressElements), variable);
    for (std::size_t i = 0; i < stressElements.size(); ++i) {
        std::vector<Put> elements = stressElements;
        elements[i] = otherElements[i];
        odiC_VariableDesc const other = unpack(elements);
        EXPECT_NE(other, variable) << i;
        EXPECT_EQ(other < variable, i == 1 || i == 3) << i; // "Strain" and "Nodes" come first
        EXPECT_EQ(other > variable, i == 0) << i;
        EXPECT_EQ((variable < other), (other > variable)) << i;
        EXPECT_EQ((variable > other), (other < variable)) << i;
    }
    odiC_VariableDesc const notANumber = stress(std::numeric_limits<float>::quiet_NaN());
    EXPECT_TRUE(notANumber == notANumber);
    EXPECT_FALSE(notANumber == odiC_VariableDesc(notANumber));
    EXPECT_EQ(stress(0.0f), stress(-0.0f));

    odiC_VariableDesc const high("\xc3", "", {}, "", {}, "", {}, false, 0, 0, {});
    cow_List<odiC_VariableDesc> list(high, variable, odiC_VariableDesc());
    list.Sort();
    EXPECT_TRUE(list.ConstGet(0) == odiC_VariableDesc() && list.ConstGet(1) == variable && list.ConstGet(2) == high);
}

TEST(Variables, PrintedForm) {
    EXPECT_STREQ(stress().Print().CStr(), "Label:           'S'\n"
                                          "Description:     'Stress'\n"
                                          "Output Position: INTEGRATION_POINT\n"
                                          "Data Type:       TENSOR\n"
                                          "Storage Type:    DOUBLE\n"
                                          "Invariants:\n6:  'Mises'\n0:  'Max'\n"
                                          "Components:\n1:  'S11'\n2:  'S22'\n"
                                          "Categories:\n"
                                          "  Category: 'Ply'\n"
                                          "    allows both top and bottom locations\n"
                                          "    Default section = 'top'\n"
                                          "    Section point #1: 'bottom'\n"
                                          "    Section point #5: 'top'\n");
    EXPECT_STREQ(odiC_VariableDesc().Print().CStr(), "Label:           ''\n"
                                                     "Description:     ''\n"
                                                     "Output Position: UNDEFINED_POSITION\n"
                                                     "Data Type:       NUM_DATA_TYPE\n"
                                                     "Storage Type:    FLOAT\n");
    for (std::size_t const i : {2u, 4u, 6u}) {
        std::vector<Put> elements = stressElements;
        elements[i] = put(99);
        EXPECT_THROW(unpack(elements).Print(), CmdException) << i;
    }
    odiC_VariableDesc withoutDefault = stress();
    withoutDefault.AddSection("Ply", "top", 7, true, true);
    EXPECT_DEATH(withoutDefault.Print(), "");
}

TEST(Variables, PackedFormIsReadBackInOrder) {
    std::unique_ptr<omu_PrimTuple> const tuple(stress().PackTuple(QVRBasStringMode()));
    std::vector<Put> elements = stressElements;
    EXPECT_TRUE(*tuple == tupleOf(elements)) << tuple->AsRepr().CStr(); // types and values, nested ones too
    int second = 0;
    tuple->Begin();
    for (int reading = 0; reading < 2; ++reading)
        EXPECT_EQ(odiC_VariableDesc::UnpackTuple(*tuple, QVRBasStringMode()), stress());
    EXPECT_THROW(tuple->Get(second), PrimException); // it has been read to its end

    elements[7] = pairs({{"Max", 0}, {"gone", 6}, {"Mises", 6}, {"Max", 6}});
    elements[8] = pairs({{"S22", 2}, {"S11", 4}, {"S11", 1}});
    elements[10] = put(-3);
    EXPECT_EQ(unpack(elements), stress());

    std::mt19937 random(2);
    for (int run = 0; run < 200; ++run) {
        odiC_VariableDesc variable(std::to_string(run).c_str(), "", {}, "", {}, "", {}, false, 0, 1e-45f, {});
        for (int i = static_cast<int>(random() % 12); i > 0; --i)
            variable.AddSection(std::to_string(random() % 50).c_str(), std::to_string(random()).c_str(),
                                static_cast<unsigned int>(random()), i % 2 == 0, i % 3 == 0);
        EXPECT_EQ(roundTrip(variable), variable);
    }
    EXPECT_EQ(roundTrip(odiC_VariableDesc()), odiC_VariableDesc());
}

TEST(Variables, PositionLabelTravelsInTheEncodingOfTheMode) {
    if (std::setlocale(LC_CTYPE, "en_US.ISO-8859-1") == nullptr)
        GTEST_SKIP() << "no locale with another encoding";
    QVRBasStringMode const locale(1);
    odiC_VariableDesc const variable("", "", {}, "\xfc", {}, "", {}, false, 0, 0, locale);
    EXPECT_EQ(variable.OutputPositionLabel(QVRBasStringMode()), "\xc3\xbc");
    EXPECT_EQ(variable.OutputPositionLabel(locale), "\xfc");
    EXPECT_EQ(roundTrip(variable, locale), variable);
    std::unique_ptr<omu_PrimTuple> const tuple(variable.PackTuple(locale));
    EXPECT_EQ(odiC_VariableDesc::UnpackTuple(*tuple, QVRBasStringMode()).OutputPositionLabel({}), "\xfc");
    std::setlocale(LC_CTYPE, "C");
}

TEST(Variables, TuplesOfAnotherShapeAreRefused) {
    for (std::size_t i = 0; i < stressElements.size(); ++i) {
        std::vector<Put> missing = stressElements, surplus = stressElements, wrong = stressElements;
        auto const at = static_cast<std::ptrdiff_t>(i);
        missing.erase(missing.begin() + at);
        surplus.insert(surplus.begin() + at, stressElements[i]);
        wrong[i] = put(cow_List<float>(1));
        EXPECT_THROW(unpack(missing), PrimException) << i;
        EXPECT_THROW(unpack(surplus), PrimException) << i;
        EXPECT_THROW(unpack(wrong), PrimException) << i;
    }
    omu_PrimTuple const badPairs[] = {tupleOf({put("a")}), tupleOf({put("a"), put(1), put(1)}),
                                      tupleOf({put(1), put("a")}), tupleOf({put("a"), put(1.0)})};
    for (std::size_t const i : {7u, 8u, 9u})
        for (omu_PrimTuple const & bad : badPairs) {
            std::vector<Put> elements = stressElements;
            elements[i] = put(tupleOf({put(tupleOf({put("S11"), put(1)})), put(bad)}));
            EXPECT_THROW(unpack(elements), PrimException) << i << bad.AsRepr().CStr();
        }
}

TEST(Variables, RefusedMemoryLeavesADescriptionAsItWas) {
    odiC_VariableDesc variable = stress();
    cow_String const label("S33"), point("middle");
    auto const isUnchanged = [&] { EXPECT_EQ(variable, stress()); };
    EXPECT_GT(refuseEachAllocation([&] { variable.AddComponent(label, 2); }, isUnchanged), 1);
    variable = stress();
    EXPECT_GT(refuseEachAllocation([&] { variable.AddInvariant(label, 6); }, isUnchanged), 1);
    variable = stress();
    EXPECT_GT(refuseEachAllocation([&] { variable.AddSection("Ply", point, 9, false, true); }, isUnchanged), 1);
    variable = stress();
    EXPECT_GT(refuseEachAllocation([&] { variable.AddSection("Layer", point, 9, false, true); }, isUnchanged), 1);
    variable = stress();
    EXPECT_GT(refuseEachAllocation([&] { roundTrip(variable); }, isUnchanged), 20);
    EXPECT_GT(refuseEachAllocation([&] { variable.Print(); }, isUnchanged), 5);
}

} // namespace
