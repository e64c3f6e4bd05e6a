// The generated script, run by the interpreter that it is written for.

#include "catalogued_shapes.h"

#include "aio_ostream.h"

#include <cstdio>
#include <fstream>
#include <map>

#include <unistd.h>

TEST(GeneratedScript, GivesTheNodeCountOfEveryLabel) {
    // One name per process: tests run side by side.
    std::string const path = testing::TempDir() + "script_test_" + std::to_string(getpid()) + ".py";
    {
        std::ofstream script(path);
        aio_ostream stream(script);
        dictionary().PrintLabelToNodecountTable(stream);
        script << "for label, count in shp_NodesPerElement.items():\n    print(label, count)\n";
    }
    std::map<std::string, int> counts;
    FILE * const output = popen(("\"" PYTHON_INTERPRETER "\" \"" + path + "\"").c_str(), "r");
    ASSERT_NE(output, nullptr);
    char label[64];
    for (int count; std::fscanf(output, "%63s %d", label, &count) == 2;)
        counts[label] = count;
    EXPECT_EQ(pclose(output), 0);
    std::remove(path.c_str());

    EXPECT_EQ(counts.size(), 862u + 1);
    EXPECT_EQ(counts.at("unsupported"), 0);
    forEachShape([&](shp_Shape const & shape) { EXPECT_EQ(counts.at(shape.label.CStr()), shape.NumNodesPerElem()); });
}
