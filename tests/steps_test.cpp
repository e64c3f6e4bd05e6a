// Steps and their frames: what two descriptions have in common, and the way through a tuple.

#include "memory_refusals.h"
#include "nex_PrimException.h"
#include "odiC_StepFrameDesc.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <memory>
#include <vector>

namespace {

using PrimException = nex_PrimException<atr_String, 1>;

/// The arguments of a description, to be varied one by one.
struct Step {
    cow_String label = "Step-1", description = "Preload";
    float value1 = 0.1f, value2 = 1e-30f, value3 = 3;
    int domain = 2;
    cow_String defaultFrame = "b";
    cow_List<cow_String> frameLabels{"a", "b", "b"};
    cow_List<float> frameValues{0.0f, 0.3f, 1.0f / 3};
    omi_BlkBitVect mask;
    bool flag = true;

    Step() {
        mask.SetBit(1);
        mask.SetBit(0xffffffffu);
    }
    odiC_StepFrameDesc Made() const {
        return {label,        description, value1,      value2, value3, static_cast<odiC_StepDomainEnm>(domain),
                defaultFrame, frameLabels, frameValues, mask,   flag};
    }
};

/// `step` with each of its eleven fields changed in turn.
std::vector<odiC_StepFrameDesc> variants() {
    std::vector<odiC_StepFrameDesc> made;
    auto add = [&made](auto change) {
        Step step;
        change(step);
        made.push_back(step.Made());
    };
    add([](Step & s) { s.label = "Step-2"; });
    add([](Step & s) { s.description = ""; });
    add([](Step & s) { s.value1 = -s.value1; });
    add([](Step & s) { s.value2 = std::numeric_limits<float>::denorm_min(); });
    add([](Step & s) { s.value3 = -std::numeric_limits<float>::infinity(); });
    add([](Step & s) { s.domain = -7; });
    add([](Step & s) { s.defaultFrame = "c"; });
    add([](Step & s) { s.frameLabels.RemoveLast(); });
    add([](Step & s) { s.frameValues.Get(1) = 0.25f; });
    add([](Step & s) { s.mask.ClearBit(1); });
    add([](Step & s) { s.flag = false; });
    return made;
}

// The packed form with its types, and the way back: the same bits, from wherever the tuple had been read to.
TEST(Step, TravelsAsATuple) {
    odiC_StepFrameDesc const step = Step().Made();
    std::unique_ptr<omu_PrimTuple> const packed(step.PackTuple());
    EXPECT_STREQ(packed->AsRepr().CStr(),
                 "('Step-1', 'Preload', 0.10000000149011612, 1.0000000031710769e-30, 3.0, 2, 'b', ['a', 'b', 'b'], "
                 "[0.0, 0.3, 0.33333334], 1, ['0:2', '134217727:80000000'])");
    cow_String skipped;
    packed->Get(skipped);
    EXPECT_TRUE(odiC_StepFrameDesc::UnpackTuple(*packed) == step);

    std::vector<odiC_StepFrameDesc> steps = variants();
    steps.emplace_back();
    for (odiC_StepFrameDesc const & variant : steps) {
        std::unique_ptr<omu_PrimTuple> const tuple(variant.PackTuple());
        EXPECT_TRUE(odiC_StepFrameDesc::UnpackTuple(*tuple) == variant) << tuple->AsRepr().CStr();
        tuple->Put(0);
        EXPECT_THROW(odiC_StepFrameDesc::UnpackTuple(*tuple), PrimException);
    }
    Step undefined;
    undefined.value3 = std::numeric_limits<float>::quiet_NaN();
    odiC_StepFrameDesc const odd = undefined.Made(), copy = odd;
    EXPECT_TRUE(odd == odd);
    EXPECT_TRUE(odd != copy);
    std::unique_ptr<omu_PrimTuple> const tuple(odd.PackTuple());
    EXPECT_EQ(std::bit_cast<int>(odiC_StepFrameDesc::UnpackTuple(*tuple).StepValue3()),
              std::bit_cast<int>(undefined.value3));
}

// A tuple that ends early, or holds something else.
TEST(Step, RefusesTuplesOfAnotherShape) {
    omu_PrimTuple tuple('(');
    for (char const * text : {"label", "description", "1.0"}) {
        EXPECT_THROW(odiC_StepFrameDesc::UnpackTuple(tuple), PrimException);
        tuple.Put(text);
    }
    EXPECT_THROW(odiC_StepFrameDesc::UnpackTuple(tuple), PrimException);
}

// Each field counts for equality, none but the label for the order.
TEST(Step, ComparesAllFieldsAndOrdersByLabel) {
    std::vector<odiC_StepFrameDesc> steps = variants();
    steps.push_back(Step().Made());
    for (std::size_t i = 0; i < steps.size(); ++i)
        for (std::size_t j = 0; j < steps.size(); ++j) {
            SCOPED_TRACE(testing::Message() << i << " and " << j);
            EXPECT_EQ(steps[i] == steps[j], i == j);
            EXPECT_EQ(steps[i] != steps[j], i != j);
            EXPECT_EQ(steps[i] < steps[j], i != 0 && j == 0);
            EXPECT_EQ(steps[i] > steps[j], i == 0 && j != 0);
        }
    EXPECT_TRUE(steps.back() == Step().Made()) << "lists that are not shared";
    Step high, low;
    high.label = "\xc3";
    EXPECT_TRUE(low.Made() < high.Made()) << "bytes are unsigned";
}

TEST(Step, FindsItsDefaultFrame) {
    odiC_StepFrameDesc const none;
    EXPECT_EQ(none.DefFrameId(), -99);
    Step step;
    EXPECT_EQ(step.Made().DefFrameId(), 1) << "the first of two";
    step.defaultFrame = "";
    EXPECT_EQ(step.Made().DefFrameId(), -99);
    step.frameLabels.Append("");
    EXPECT_EQ(step.Made().DefFrameId(), 3);
}

TEST(Step, LeaksNothingWhenMemoryRunsOut) {
    odiC_StepFrameDesc const step = Step().Made();
    std::unique_ptr<omu_PrimTuple> packed;
    EXPECT_GT(refuseEachAllocation([&] { packed.reset(step.PackTuple()); }, [] {}), 3);
    EXPECT_GT(refuseEachAllocation([&] { odiC_StepFrameDesc::UnpackTuple(*packed); }, [] {}), 3);
    EXPECT_TRUE(odiC_StepFrameDesc::UnpackTuple(*packed) == step);
}

} // namespace
