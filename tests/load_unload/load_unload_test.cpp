// The library comes and goes a thousand times, by itself and beneath a client that leaves shapes alive. This program is
// not linked with it. CMake gives the paths QVRSHPCORE_LIBRARY_PATH and LOAD_UNLOAD_CLIENT_PATH.

#include "load_unload_client.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <malloc.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace {

constexpr char libraryPath[] = QVRSHPCORE_LIBRARY_PATH;
constexpr char clientPath[] = LOAD_UNLOAD_CLIENT_PATH;
constexpr int numLoads = 1000;
constexpr int numWarmUpLoads = 100; ///< the loader's own tables have their final size after these

template <class Function> Function functionOf(void * handle, char const * name) {
    return reinterpret_cast<Function>(dlsym(handle, name));
}

bool isLoaded(char const * path) {
    void * const handle = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr)
        dlclose(handle);
    return handle != nullptr;
}

/// Mappings and bytes of heap of this process.
struct Footprint {
    long mappings = 0;
    std::size_t heap = 0;

    static Footprint now() {
        std::ifstream maps("/proc/self/maps");
        long const lines = std::count(std::istreambuf_iterator<char>(maps), std::istreambuf_iterator<char>(), '\n');
        return {lines, mallinfo2().uordblks};
    }
};

/// Runs `load` many times; afterwards the process must be no larger than after the warm-up.
template <class Load> void expectNoGrowth(Load load) {
    Footprint early;
    for (int i = 0; i < numLoads; ++i) {
        if (i == numWarmUpLoads)
            early = Footprint::now();
        load();
        if (testing::Test::HasFatalFailure())
            return;
    }
    Footprint const late = Footprint::now();
    constexpr std::size_t smallestBlock = 32; // what the C library and the loader keep at hand varies by less
    EXPECT_LT(late.heap, early.heap + (numLoads - numWarmUpLoads) * smallestBlock / 2) << "some bytes in each load";
    EXPECT_LT(late.mappings, early.mappings + (numLoads - numWarmUpLoads) / 10) << "a sanitizer maps memory of its own";
}

TEST(LoadUnload, LibraryAloneComesAndGoes) {
    ASSERT_FALSE(isLoaded(libraryPath));
    expectNoGrowth([] {
        void * const handle = dlopen(libraryPath, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(handle, nullptr) << dlerror();
        auto const start = functionOf<void (*)()>(handle, "QVRShpCore_initializeC");
        auto const stop = functionOf<void (*)()>(handle, "QVRShpCore_finalizeC");
        ASSERT_TRUE(start != nullptr && stop != nullptr);
        start();
        stop();
        ASSERT_EQ(dlclose(handle), 0);
        ASSERT_FALSE(isLoaded(libraryPath)) << "something keeps the library resident";
    });
}

TEST(LoadUnload, EveryLoadBeneathAClientStartsAfresh) {
    ASSERT_FALSE(isLoaded(libraryPath));
    expectNoGrowth([] {
        void * const handle = dlopen(clientPath, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(handle, nullptr) << dlerror();
        ASSERT_TRUE(isLoaded(libraryPath));
        auto const use = functionOf<load_unload_useFunction>(handle, "load_unload_use");
        ASSERT_NE(use, nullptr);
        load_unload_Report const report = use();
        constexpr int freshCounters[6] = {1, 1, 1, 1, 9, 0};
        ASSERT_TRUE(std::equal(std::begin(freshCounters), std::end(freshCounters), report.counters));
        ASSERT_EQ(report.numShapes, 7);
        ASSERT_EQ(report.firstShapeRef, 0);
        ASSERT_EQ(report.numPersistent, 5);
        ASSERT_EQ(dlclose(handle), 0);
        ASSERT_FALSE(isLoaded(clientPath));
        ASSERT_FALSE(isLoaded(libraryPath)) << "something keeps the library resident";
    });
}

} // namespace
