// Steps and their frames: what two descriptions have in common, and the way through a tuple.

#include "memory_refusals.h"
#include "odiC_StepFrameDesc.h"
#include "packed_tuples.h"

#include <bit>
#include <limits>

namespace {

using Step = odiC_StepFrameDesc;
using Texts = cow_List<cow_String>;
using Numbers = cow_List<float>;

Step preload(float value3 = 3, cow_String const & label = "Step-1", Texts const & frames = Texts("a", "b", "b")) {
    omi_BlkBitVect mask;
    mask.SetBit(1);
    mask.SetBit(0xffffffffu);
    return Step(label, "Preload", 0.1f, 1e-30f, value3, odiC_StepDomainEnm{2}, "b", frames, Numbers(0.0f, 0.3f), mask,
                true);
}

// None but the label counts for the order.
TEST(Step, IsOneTupleAndOrderedByItsLabel) {
    auto const elements = elementsOf("Step-1", "Preload", double{0.1f}, double{1e-30f}, 3.0, 2, "b",
                                     Texts("a", "b", "b"), Numbers(0.0f, 0.3f), 1, Texts("0:2", "134217727:80000000"));
    EXPECT_TRUE(*packed(preload()) == tupleOf(elements));
    auto const others = elementsOf("Step-2", "", double{-0.1f}, 0.0, -std::numeric_limits<double>::infinity(), -7, "c",
                                   Texts("a", "b"), Numbers(0.0f, 1.0f / 3), 0, Texts("134217727:80000000"));
    expectEachElementToCount(elements, others, Step::UnpackTuple);
    EXPECT_STREQ(packed(Step())->AsRepr().CStr(), "('', '', 0.0, -1.0, -1.0, 0, '', [], [], 0, [])");
    EXPECT_TRUE(preload() < preload(3, "\xc3") && preload(3, "\xc3") > preload()) << "bytes are unsigned";
    EXPECT_FALSE(preload(2) < preload(3) || preload(3) > preload(2) || preload(2) == preload(3));

    float const undefined = std::numeric_limits<float>::quiet_NaN();
    Step const odd = preload(undefined), copy = odd;
    EXPECT_TRUE(odd == odd && odd != copy);
    EXPECT_EQ(std::bit_cast<int>(Step::UnpackTuple(*packed(odd)).StepValue3()), std::bit_cast<int>(undefined));
}

TEST(Step, FindsItsDefaultFrame) {
    EXPECT_EQ(preload().DefFrameId(), 1) << "the first of two";
    EXPECT_EQ(preload(0, "", Texts("a")).DefFrameId(), -99);
}

TEST(Step, LeaksNothingWhenMemoryRunsOut) {
    std::unique_ptr<omu_PrimTuple> tuple;
    EXPECT_GT(refuseEachAllocation([&] { tuple = packed(preload()); }, [] {}), 3);
    EXPECT_GT(refuseEachAllocation([&] { Step::UnpackTuple(*tuple); }, [] {}), 3);
    int const within = refuseEachAllocation([] { Step(); }, [] {});
    EXPECT_EQ(refuseEachAllocation([] { delete new Step; }, [] {}), within + 1) << "the object comes from there, too";
}

} // namespace
