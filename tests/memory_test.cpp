// The allocation functions, their failure hook, and the life of singletons.

#include "mem_AllocationOperatorsTiny.h"
#include "mem_Allocator.h"
#include "memory_refusals.h"
#include "omi_Singleton.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <limits>
#include <typeinfo>
#include <vector>

namespace {

constexpr std::size_t tooMuch = std::numeric_limits<std::size_t>::max();

struct Large : mem_AllocationOperators {
    double data[100];
};
struct Small : mem_AllocationOperatorsTiny {
    char data;
};

TEST(Memory, EveryRefusalIsRaisedAsOutOfMemory) {
    for (auto const allocate :
         {mem_OperatorNewThrow, mem_OperatorNewThrowBuiltin, mem_OperatorNewTinyThrow, mem_Malloc}) {
        EXPECT_THROW(allocate(tooMuch), mem_OutOfMemoryException);
        void * const empty = allocate(0);
        EXPECT_NE(empty, nullptr);
        mem_Free(empty);
        MemoryRefusal const noMemory;
        EXPECT_THROW(allocate(1), mem_OutOfMemoryException);
    }
    EXPECT_THROW(mem_Allocator<double>().allocate(tooMuch / sizeof(double) + 2), mem_OutOfMemoryException);
    EXPECT_TRUE(mem_Allocator<double>() == mem_Allocator<int>()) << "each frees what the other has given";
    MemoryRefusal const noMemory;
    EXPECT_THROW(delete new Large, mem_OutOfMemoryException);
    EXPECT_THROW(delete new Small, mem_OutOfMemoryException);
    EXPECT_THROW((std::vector<int, mem_Allocator<int>>(3)), mem_OutOfMemoryException);
}

TEST(Memory, ReallocationKeepsTheBytes) {
    char * block = static_cast<char *>(mem_Realloc(nullptr, 8));
    std::memcpy(block, "seven..", 8);
    EXPECT_THROW(mem_Realloc(block, tooMuch), mem_OutOfMemoryException);
    auto const enlarge = [&] { block = static_cast<char *>(mem_Realloc(block, 1 << 20)); };
    EXPECT_EQ(refuseEachAllocation(enlarge, [&] { EXPECT_STREQ(block, "seven..") << "as it was"; }), 1);
    EXPECT_STREQ(block, "seven..");
    MemoryRefusal const noMemory;
    EXPECT_EQ(mem_Realloc(block, 0), nullptr) << "to give memory back needs none";
}

/// A singleton of this program's own, with virtual operations, so that its two parts have different addresses.
class Recorder : public omi_Singleton<Recorder> {
public:
    virtual ~Recorder() { ++destroyed; }
    int calls = 0;
    static inline int destroyed = 0;
};

/// Breaks the rule: its constructor makes a second object.
class Twice : public omi_Singleton<Twice> {
public:
    explicit Twice(bool isFirst = true) {
        if (isFirst)
            static Twice second(false);
    }
};

TEST(Singleton, LivesFromFirstInstanceToFinalize) {
    omi_SingletonRegistry & registry = *omi_SingletonRegistry::Instance();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(registry.Find(typeid(Recorder).name()), nullptr);
        EXPECT_EQ(omi_Singleton<Recorder>::Instance().calls++, 0) << "a new one";
        EXPECT_EQ(omi_Singleton<Recorder>::Instance().calls, 1);
        EXPECT_NE(registry.Find(typeid(Recorder).name()), nullptr);
        for (int time = 0; time < 2; ++time)
            omi_SingletonBase<Recorder>::Finalize();
        EXPECT_EQ(Recorder::destroyed, round + 1);
    }
}

TEST(SingletonDeathTest, SecondObjectOfTheClassEndsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(omi_Singleton<Twice>::Instance(), testing::KilledBySignal(SIGABRT), "");
}

TEST(SingletonRegistry, NamesAreCopiedAndUnique) {
    omi_SingletonRegistry & registry = *omi_SingletonRegistry::Instance();
    int first = 0, second = 0;
    char name[] = "a name that is too long to be kept inside the string object";
    registry.Add(name, &first);
    registry.Add(name, &second);
    EXPECT_EQ(registry.Find(name), &second);
    name[0] = 'A';
    EXPECT_EQ(registry.Find(name), nullptr);
    registry.Remove(name); // which is not there
    name[0] = 'a';
    registry.Remove(name);
    EXPECT_EQ(registry.Find(name), nullptr);
}

} // namespace
