// GetShape survives the failure of any single allocation: nothing leaks, nothing breaks, the next request succeeds.

#include "../catalogued_shapes.h"
#include "../memory_refusals.h"

#include <cstdlib>
#include <vector>

// The program is linked with --wrap for these, so that every block of the library (and none of the test's) counts.
extern "C" {
void * __real_malloc(std::size_t size);
void * __real_realloc(void * block, std::size_t size);
void __real_free(void * block);
void * __wrap_malloc(std::size_t size);
void * __wrap_realloc(void * block, std::size_t size);
void __wrap_free(void * block);
}

namespace {

int liveBlocks = 0;

} // namespace

void * __wrap_malloc(std::size_t size) {
    void * const block = __real_malloc(size);
    liveBlocks += block ? 1 : 0;
    return block;
}

void * __wrap_realloc(void * block, std::size_t size) {
    void * const moved = __real_realloc(block, size);
    liveBlocks += !block && moved ? 1 : 0;
    return moved;
}

void __wrap_free(void * block) {
    liveBlocks -= block ? 1 : 0;
    __real_free(block);
}

class AllocationFailure : public testing::TestWithParam<char const *> {};

TEST_P(AllocationFailure, LeavesNothingBehindAndTheNextRequestSucceeds) {
    int before = 0;
    std::vector<unsigned int> numbers; // of the shape at the next request
    auto const prepare = [&] {
        omi_SingletonBase<shp_ShapeDictionary>::Finalize();
        dictionary();
        before = liveBlocks;
    };
    prepare();
    auto const afterRefusal = [&] {
        EXPECT_EQ(liveBlocks, before);
        EXPECT_EQ(dictionary().GetShape(GetParam()), &shapeOf(GetParam()));
        numbers.push_back(shapeOf(GetParam()).shapeRef);
        prepare();
    };
    EXPECT_GT(refuseEachAllocation([] { shapeOf(GetParam()); }, afterRefusal), 4) << "the library allocates past it";
    std::vector<unsigned int> expected(numbers.size());
    expected.back() = 1; // a shape that stands, but cannot be kept, uses up its number
    EXPECT_EQ(numbers, expected);
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
}

// One label of each family, a CAXA and a layered one.
INSTANTIATE_TEST_SUITE_P(Families, AllocationFailure,
                         testing::Values("ARSR", "MASS", "B32", "STRI65", "S8R", "C3D10M", "C3D5", "C3D15", "C3D20R",
                                         "CAXA82", "C3D8C2"));

TEST(AllocationFailure, OfTheDictionaryLeavesNothingBehindAndFinalizeAllowsAnother) {
    dictionary(); // the registry keeps the room that it once had
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
    int const before = liveBlocks;
    auto const afterRefusal = [&] {
        omi_SingletonBase<shp_ShapeDictionary>::Finalize();
        ASSERT_EQ(liveBlocks, before);
    };
    EXPECT_GT(refuseEachAllocation([] { dictionary(); }, afterRefusal), 50) << "the library allocates past it";
    EXPECT_TRUE(dictionary().Keys().IsMember("C3D8"));
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
    EXPECT_EQ(liveBlocks, before);
}

TEST(AllocationFailure, DoesNotHappenWithABuiltLabelOfTheCatalogue) {
    for (char const * label : {"C3D20R", "c3d20r", "DASHPOT1", "c3D15vHC3", "b21", "s4"}) {
        cow_String const text = label;
        dictionary().GetShape(text);
        MemoryRefusal const noMemory;
        EXPECT_NE(dictionary().GetShape(text), nullptr) << label;
    }
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
}
