// GetShape survives the failure of any single allocation: nothing leaks, nothing breaks, the next request succeeds.

#include "mem_Alloc.h"
#include "mem_OutOfMemoryException.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"

#include <gtest/gtest.h>

#include <cstdlib>

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
int allocationsUntilFailure = 0;

bool failsNow(std::size_t) {
    return --allocationsUntilFailure == 0;
}

shp_ShapeDictionary & dictionary() {
    return omi_Singleton<shp_ShapeDictionary>::Instance();
}

/// True if the request failed for want of memory at its n-th allocation, false if it succeeded before that.
bool requestFailsAt(int n, cow_String const & label) {
    allocationsUntilFailure = n;
    mem_SetFailureHook(failsNow);
    bool failed = false;
    try {
        EXPECT_NE(dictionary().GetShape(label), nullptr);
    } catch (mem_OutOfMemoryException const &) {
        failed = true;
    }
    mem_SetFailureHook(nullptr);
    return failed;
}

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
    char const * const label = GetParam();
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
    bool failed = true;
    int n = 0;
    while (failed) {
        ++n;
        dictionary();
        int const before = liveBlocks;
        failed = requestFailsAt(n, label);
        if (failed) {
            EXPECT_EQ(liveBlocks, before) << label << ", allocation " << n;
        }
        shp_Shape const * const shape = dictionary().GetShape(label);
        ASSERT_NE(shape, nullptr) << label << ", after allocation " << n;
        EXPECT_EQ(dictionary().GetShape(label), shape);
        omi_SingletonBase<shp_ShapeDictionary>::Finalize();
    }
    EXPECT_GT(n, 5) << "the library allocates past the hook";
}

// One label of each family, a CAXA and a layered one.
INSTANTIATE_TEST_SUITE_P(Families, AllocationFailure,
                         testing::Values("ARSR", "MASS", "B32", "STRI65", "S8R", "C3D10M", "C3D5", "C3D15", "C3D20R",
                                         "CAXA82", "C3D8C2"));

/// True if the dictionary's construction failed for want of memory at its n-th allocation.
static bool constructionFailsAt(int n) {
    allocationsUntilFailure = n;
    mem_SetFailureHook(failsNow);
    bool failed = false;
    try {
        dictionary();
    } catch (mem_OutOfMemoryException const &) {
        failed = true;
    }
    mem_SetFailureHook(nullptr);
    return failed;
}

TEST(AllocationFailure, OfTheDictionaryLeavesNothingBehindAndFinalizeAllowsAnother) {
    dictionary(); // the registry keeps the room that it once had
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
    int const before = liveBlocks;
    int n = 1;
    for (; constructionFailsAt(n); ++n) {
        omi_SingletonBase<shp_ShapeDictionary>::Finalize();
        ASSERT_EQ(liveBlocks, before) << "allocation " << n;
    }
    EXPECT_GT(n, 50) << "the library allocates past the hook";
    EXPECT_TRUE(dictionary().Keys().IsMember("C3D8"));
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
    EXPECT_EQ(liveBlocks, before);
}

TEST(AllocationFailure, DoesNotHappenWithABuiltLabelOfTheCatalogue) {
    for (char const * label : {"C3D20R", "c3d20r", "DASHPOT1", "c3D15vHC3", "b21", "s4"}) {
        dictionary().GetShape(label);
        EXPECT_FALSE(requestFailsAt(1, label)) << label;
    }
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
}
