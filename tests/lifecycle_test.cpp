// Start and stop through all their forms: the counts, the levels, and when the dictionary goes.

#include "QVRShpCore_Module.h"
#include "catalogued_shapes.h"
#include "cls_MetadataRegistrar.h"
#include "typ_ArchCompTable.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace {

constexpr int fullStart = 9; ///< the module, its specific step, two sub-modules, five modules of the foundation

int ownLevel = 0; ///< the level of a caller of the `int &` forms

void load() {
    EXPECT_EQ(QVRShpCore_libraryEntry(nullptr, 1, nullptr), 1);
}
void unload() {
    EXPECT_EQ(QVRShpCore_libraryEntry(nullptr, 0, nullptr), 1);
}

struct Form {
    char const * name;
    void (*start)();
    void (*stop)();
    int (*level)();
};

constexpr Form forms[] = {
    {"reference", [] { QVRShpCore_initialize(ownLevel); }, [] { QVRShpCore_finalize(ownLevel); },
     [] { return ownLevel; }},
    {"argument-free", QVRShpCore_initializeC, QVRShpCore_finalizeC, [] { return QVRShpCore_counters().cEntryLevel; }},
    {"load notification", load, unload, [] { return QVRShpCore_counters().loadLevel; }},
};

bool isDictionaryAlive() {
    return omi_SingletonRegistry::Instance()->Find(typeid(shp_ShapeDictionary).name()) != nullptr;
}

void expectCounts(int module, int parts) {
    auto const [started, specific, odi, shp, loadLevel, cEntryLevel] = QVRShpCore_counters();
    EXPECT_EQ(started, module);
    EXPECT_TRUE(specific == parts && odi == parts && shp == parts);
}

/// Each test begins and ends as the load has left the library, with its registrations made once.
class Lifecycle : public testing::Test {
protected:
    void SetUp() override { expectLoaded(); }
    void TearDown() override { expectLoaded(); }

    static void expectLoaded() {
        EXPECT_TRUE(typ_ArchCompTable::Find(676).NumRows() == 2 && typ_ArchCompTable::Find(831).NumRows() == 13);
        EXPECT_EQ(typ_ArchCompTable::NumEntries(), 2u);
        auto const & classes = omi_Singleton<cls_MetadataRegistrar>::Instance();
        static int const numClasses = classes.Length();
        EXPECT_EQ(classes.Length(), numClasses);
        expectCounts(1, 1);
        EXPECT_EQ(QVRShpCore_counters().loadLevel, fullStart);
        EXPECT_TRUE(QVRShpCore_counters().cEntryLevel == 0 && ownLevel == 0);
    }
};

TEST_F(Lifecycle, FurtherStartsOnlyCountAndTheLastStopTakesAwayWhatTheFirstStartAdded) {
    for (Form const & first : forms)
        for (Form const & second : forms) {
            SCOPED_TRACE(std::string(first.name) + ", " + second.name);
            shp_Shape const * const shape = &shapeOf("C3D8");
            int const level = first.level();
            first.start();
            EXPECT_EQ(first.level(), level);
            expectCounts(2, 1);
            second.stop();
            expectCounts(1, 1);
            EXPECT_EQ(&shapeOf("C3D8"), shape);

            first.stop();
            EXPECT_EQ(first.level(), level - fullStart);
            expectCounts(0, 0);
            EXPECT_FALSE(isDictionaryAlive());
            int const stoppedLevel = second.level();
            second.start();
            EXPECT_EQ(second.level(), stoppedLevel + fullStart);
            expectCounts(1, 1);
            second.stop(); // the levels go back by the same forms
            first.start();
        }
}

TEST_F(Lifecycle, DictionaryGoesWithTheLastStopOfItsPartAndComesWithItsNextUse) {
    unsigned int const reference = shapeOf("C3D8").shapeRef;
    EXPECT_EQ(shapeOf("S4R").shapeRef, reference + 1);
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
    EXPECT_FALSE(isDictionaryAlive());
    EXPECT_EQ(shapeOf("S4R").shapeRef, 0u) << "the new one counts again";
}

TEST_F(Lifecycle, SurplusStopMakesTheNextStartANoOp) {
    int level = 100;
    unload();
    QVRShpCore_finalize(level);
    expectCounts(-1, 0);
    QVRShpCore_initialize(level);
    expectCounts(0, 0);
    EXPECT_EQ(level, 100);
    load();
}

TEST_F(Lifecycle, PartsStartedBeforehandAreNotCountedAgain) {
    using Step = void (*)(int & level);
    constexpr Step parts[][2] = {
        {QVRShpCore_specific_initialize, QVRShpCore_specific_finalize},
        {QVRShpOdi_initialize, QVRShpOdi_finalize},
        {QVRShpShp_initialize, QVRShpShp_finalize},
        {QVRKelGeom_initialize, QVRKelGeom_finalize},
        {QVRKelBasicUtils_initialize, QVRKelBasicUtils_finalize},
        {QVRBasShared_initialize, QVRBasShared_finalize},
        {QVRBasCoreUtils_initialize, QVRBasCoreUtils_finalize},
        {QVRBasAlloc_initialize, QVRBasAlloc_finalize},
    };
    unload();
    for (auto const & [start, stop] : parts) {
        int partLevel = 0, level = 0;
        start(partLevel);
        QVRShpCore_initialize(level);
        EXPECT_TRUE(partLevel == 1 && level == fullStart - 1);
        QVRShpCore_finalize(level);
        stop(partLevel);
        EXPECT_TRUE(partLevel == 0 && level == 0);
        stop(partLevel);
        start(partLevel);
        EXPECT_EQ(partLevel, 0) << "a stop too many swallows the next start";
    }
    load();
}

TEST_F(Lifecycle, ThreadsThatComeAndGoDoNothing) {
    for (unsigned long const reason : {2ul, 3ul, ~0ul})
        EXPECT_EQ(QVRShpCore_libraryEntry(nullptr, reason, nullptr), 1); // and all counts are as before: TearDown
}

} // namespace
