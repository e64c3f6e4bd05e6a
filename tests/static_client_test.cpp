// A client whose static objects use the library before main, and again at process exit, and which leaves its shapes
// alive: the library must be up before the first and must not go before the last of them.

#include "QVRShpCore_Module.h"
#include "omi_Singleton.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <initializer_list>

namespace {

class EarlyClient {
public:
    EarlyClient() : countersAtStart(QVRShpCore_counters()), shape(shapeOf("C3D20R")) {}

    /// Runs after main: a failure here can only show in the exit status.
    ~EarlyClient() {
        bool const isUp = QVRShpCore_counters().moduleStartCount == 1 && shapeOf("C3D20R") == shape &&
                          shapeOf("CAXA84") != nullptr && shape->NumNodesPerElem() == 20;
        if (!isUp) {
            std::fputs("the library was gone before its client\n", stderr);
            std::_Exit(EXIT_FAILURE);
        }
    }

    static shp_Shape const * shapeOf(char const * label) {
        return omi_Singleton<shp_ShapeDictionary>::Instance().GetShape(label);
    }

    QVRShpCore_Counters const countersAtStart;
    shp_Shape const * const shape;
};

EarlyClient const earlyClient;

TEST(StaticClient, FindsTheLibraryStartedBeforeMain) {
    EXPECT_EQ(earlyClient.countersAtStart.moduleStartCount, 1);
    EXPECT_EQ(earlyClient.countersAtStart.loadLevel, 9);
    ASSERT_NE(earlyClient.shape, nullptr);
    EXPECT_EQ(EarlyClient::shapeOf("c3d20r"), earlyClient.shape);
}

TEST(StaticClient, LeavesAShapeOfEachFamilyAliveAtExit) {
    for (char const * label : {"MASS", "B31", "S3", "CPE8R", "C3D10", "C3D5", "C3D15", "C3D8C1", "CAXA41"})
        EXPECT_NE(EarlyClient::shapeOf(label), nullptr) << label;
}

} // namespace
