// The allocation functions, their failure hook, and the life of singletons.

#include "QVRBasException.h"
#include "mem_AllocationOperators.h"
#include "mem_AllocationOperatorsTiny.h"
#include "mem_Allocator.h"
#include "mem_OutOfMemoryException.h"
#include "omi_Singleton.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <limits>
#include <typeinfo>
#include <vector>

namespace {

constexpr std::size_t tooMuch = std::numeric_limits<std::size_t>::max();

bool refuseAll(std::size_t) {
    return true;
}

struct Large : mem_AllocationOperators {
    double data[100];
};
struct Small : mem_AllocationOperatorsTiny {
    char data;
};

TEST(Memory, EveryRefusalIsRaisedAsOutOfMemory) {
    void * (*const allocators[])(std::size_t) = {mem_OperatorNewThrow, mem_OperatorNewThrowBuiltin,
                                                 mem_OperatorNewTinyThrow, mem_Malloc};
    for (auto const allocate : allocators) {
        EXPECT_THROW(allocate(tooMuch), mem_OutOfMemoryException);
        void * const empty = allocate(0);
        EXPECT_NE(empty, nullptr);
        mem_Free(empty);
    }
    mem_SetFailureHook(refuseAll);
    for (auto const allocate : allocators)
        EXPECT_THROW(allocate(1), QVRBasException);
    EXPECT_THROW(delete new Large, mem_OutOfMemoryException);
    EXPECT_THROW(delete new Small, mem_OutOfMemoryException);
    EXPECT_THROW((std::vector<int, mem_Allocator<int>>(3)), mem_OutOfMemoryException);
    mem_SetFailureHook(nullptr);
    EXPECT_THROW(mem_Allocator<double>().allocate(tooMuch / 2), mem_OutOfMemoryException);
    delete new Large;
    mem_Free(nullptr);
}

TEST(Memory, ReallocationKeepsTheBytes) {
    char * block = static_cast<char *>(mem_Realloc(nullptr, 8));
    std::memcpy(block, "seven..", 8);
    mem_SetFailureHook(refuseAll);
    EXPECT_THROW(mem_Realloc(block, 1 << 20), mem_OutOfMemoryException);
    mem_SetFailureHook(nullptr);
    EXPECT_THROW(mem_Realloc(block, tooMuch), mem_OutOfMemoryException);
    EXPECT_STREQ(block, "seven..") << "a refused block stays as it was";
    block = static_cast<char *>(mem_Realloc(block, 1 << 20));
    EXPECT_STREQ(block, "seven..");
    mem_SetFailureHook(refuseAll);
    EXPECT_EQ(mem_Realloc(block, 0), nullptr) << "to give memory back needs none";
    mem_SetFailureHook(nullptr);
}

// Singletons.

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
    Twice() {
        static bool isNested = false;
        if (!isNested) {
            isNested = true;
            static Twice second;
        }
    }
};

bool isRegistered(char const * typeName) {
    return omi_SingletonRegistry::Instance()->Find(typeName) != nullptr;
}

TEST(Singleton, LivesFromFirstInstanceToFinalize) {
    EXPECT_FALSE(isRegistered(typeid(Recorder).name()));
    Recorder & first = omi_Singleton<Recorder>::Instance();
    first.calls = 5;
    EXPECT_EQ(&omi_Singleton<Recorder>::Instance(), &first);
    EXPECT_TRUE(isRegistered(typeid(Recorder).name()));

    omi_SingletonBase<Recorder>::Finalize();
    EXPECT_EQ(Recorder::destroyed, 1);
    EXPECT_FALSE(isRegistered(typeid(Recorder).name()));
    omi_SingletonBase<Recorder>::Finalize();
    EXPECT_EQ(Recorder::destroyed, 1);

    EXPECT_EQ(omi_Singleton<Recorder>::Instance().calls, 0) << "a new one";
    omi_SingletonBase<Recorder>::Finalize();
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
    registry.Remove(name);
    name[0] = 'a';
    registry.Remove(name);
    EXPECT_EQ(registry.Find(name), nullptr);
}

} // namespace
