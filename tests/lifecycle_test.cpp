// Start and stop through all their forms: the counts, the levels, and when the dictionary goes.

#include "QVRShpCore_Module.h"
#include "omi_Singleton.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

namespace {

constexpr int fullStart = 9; ///< the module, its specific step, two sub-modules, five modules of the foundation

int ownLevel = 0; ///< the level of a caller of the `int &` forms

struct Form {
    char const * name;
    void (*start)();
    void (*stop)();
    int (*level)();
};

constexpr Form forms[] = {
    {"reference", [] { QVRShpCore_initialize(ownLevel); }, [] { QVRShpCore_finalize(ownLevel); },
     [] { return ownLevel; }},
    {"argument-free", [] { QVRShpCore_initializeC(); }, [] { QVRShpCore_finalizeC(); },
     [] { return QVRShpCore_counters().cEntryLevel; }},
    {"load notification", [] { QVRShpCore_libraryEntry(nullptr, 1, nullptr); },
     [] { QVRShpCore_libraryEntry(nullptr, 0, nullptr); }, [] { return QVRShpCore_counters().loadLevel; }},
};

bool isDictionaryAlive() {
    return omi_SingletonRegistry::Instance()->Find(typeid(shp_ShapeDictionary).name()) != nullptr;
}

shp_Shape const * shapeOf(char const * label) {
    return omi_Singleton<shp_ShapeDictionary>::Instance().GetShape(label);
}

void expectCounts(int module, int specific, int odi, int shp) {
    QVRShpCore_Counters const counters = QVRShpCore_counters();
    EXPECT_EQ(counters.moduleStartCount, module);
    EXPECT_EQ(counters.specificStartCount, specific);
    EXPECT_EQ(counters.odiStartCount, odi);
    EXPECT_EQ(counters.shpStartCount, shp);
}

/// Each test begins and ends as the load has left the library.
class Lifecycle : public testing::Test {
protected:
    void SetUp() override {
        ownLevel = 0;
        expectLoaded();
    }
    void TearDown() override { expectLoaded(); }

    static void expectLoaded() {
        expectCounts(1, 1, 1, 1);
        EXPECT_EQ(QVRShpCore_counters().loadLevel, fullStart);
        EXPECT_EQ(QVRShpCore_counters().cEntryLevel, 0);
    }
};

TEST_F(Lifecycle, FurtherStartsOnlyCountUntilTheLastStop) {
    shp_Shape const * const shape = shapeOf("C3D8");
    for (Form const & first : forms)
        for (Form const & second : forms) {
            SCOPED_TRACE(std::string(first.name) + ", " + second.name);
            int const level = first.level();
            first.start();
            EXPECT_EQ(first.level(), level);
            expectCounts(2, 1, 1, 1);
            second.stop();
            expectCounts(1, 1, 1, 1);
            EXPECT_EQ(shapeOf("C3D8"), shape);
        }
    EXPECT_EQ(ownLevel, 0);
}

TEST_F(Lifecycle, LastStopTakesAwayWhatTheFirstStartAdded) {
    for (Form const & stopping : forms)
        for (Form const & starting : forms) {
            SCOPED_TRACE(std::string(stopping.name) + ", " + starting.name);
            int const levelBefore = stopping.level();
            stopping.stop();
            EXPECT_EQ(stopping.level(), levelBefore - fullStart);
            expectCounts(0, 0, 0, 0);

            int const stoppedLevel = starting.level();
            starting.start();
            EXPECT_EQ(starting.level(), stoppedLevel + fullStart);
            expectCounts(1, 1, 1, 1);

            // The levels go back by the same forms.
            starting.stop();
            stopping.start();
            EXPECT_EQ(stopping.level(), levelBefore);
        }
}

TEST_F(Lifecycle, LastStopDestroysTheDictionaryAndTheNextOneCountsAgain) {
    ASSERT_NE(shapeOf("C3D8"), nullptr);
    EXPECT_EQ(shapeOf("S4R")->shapeRef, shapeOf("C3D8")->shapeRef + 1);
    EXPECT_TRUE(isDictionaryAlive());
    QVRShpCore_libraryEntry(nullptr, 0, nullptr);
    EXPECT_FALSE(isDictionaryAlive());
    QVRShpCore_libraryEntry(nullptr, 1, nullptr);
    EXPECT_FALSE(isDictionaryAlive()) << "it comes with its first use, not with the start";
    EXPECT_EQ(shapeOf("S4R")->shapeRef, 0u);
}

TEST_F(Lifecycle, SurplusStopMakesTheNextStartANoOp) {
    int level = 100;
    QVRShpCore_libraryEntry(nullptr, 0, nullptr);
    QVRShpCore_finalize(level);
    expectCounts(-1, 0, 0, 0);
    QVRShpCore_initialize(level);
    expectCounts(0, 0, 0, 0);
    EXPECT_EQ(level, 100);
    QVRShpCore_libraryEntry(nullptr, 1, nullptr);
}

TEST_F(Lifecycle, PartsStartedBeforehandAreNotCountedAgain) {
    struct Part {
        void (*start)(int &);
        void (*stop)(int &);
    };
    constexpr Part parts[] = {
        {QVRShpCore_specific_initialize, QVRShpCore_specific_finalize},
        {QVRShpOdi_initialize, QVRShpOdi_finalize},
        {QVRShpShp_initialize, QVRShpShp_finalize},
        {QVRKelGeom_initialize, QVRKelGeom_finalize},
        {QVRKelBasicUtils_initialize, QVRKelBasicUtils_finalize},
        {QVRBasShared_initialize, QVRBasShared_finalize},
        {QVRBasCoreUtils_initialize, QVRBasCoreUtils_finalize},
        {QVRBasAlloc_initialize, QVRBasAlloc_finalize},
    };
    QVRShpCore_libraryEntry(nullptr, 0, nullptr);
    for (Part const & part : parts) {
        int partLevel = 0, level = 0;
        part.start(partLevel);
        EXPECT_EQ(partLevel, 1);
        QVRShpCore_initialize(level);
        EXPECT_EQ(level, fullStart - 1);
        QVRShpCore_finalize(level);
        EXPECT_EQ(level, 0);
        part.stop(partLevel);
        EXPECT_EQ(partLevel, 0);
        part.stop(partLevel);
        part.start(partLevel);
        EXPECT_EQ(partLevel, 0) << "a stop too many swallows the next start";
    }
    QVRShpCore_libraryEntry(nullptr, 1, nullptr);
}

TEST_F(Lifecycle, DictionaryGoesWithTheShapesPartAlone) {
    shapeOf("C3D8");
    int level = 0;
    QVRShpShp_initialize(level);
    QVRShpShp_finalize(level);
    QVRShpOdi_finalize(level);
    EXPECT_TRUE(isDictionaryAlive());
    QVRShpShp_finalize(level);
    EXPECT_FALSE(isDictionaryAlive());
    EXPECT_EQ(level, -2);
    QVRShpOdi_initialize(level);
    QVRShpShp_initialize(level);
}

TEST_F(Lifecycle, ThreadsThatComeAndGoDoNothing) {
    for (unsigned long const reason : {2ul, 3ul, 4ul, ~0ul}) {
        EXPECT_EQ(QVRShpCore_libraryEntry(nullptr, reason, nullptr), 1);
        expectLoaded();
    }
    EXPECT_EQ(QVRShpCore_libraryEntry(nullptr, 1, nullptr), 1);
    EXPECT_EQ(QVRShpCore_libraryEntry(nullptr, 0, nullptr), 1);
}

} // namespace
