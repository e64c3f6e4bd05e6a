// Every row of every decision list is reached by some label of the catalogue, or stands below with the reason why not.

#include "decision_trace.h"

#include "omi_BtreeIterator.h"
#include "shp_InterpolationTables.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace {

struct UnreachedRow {
    char const * file;
    char const * function;
    std::size_t row; ///< from 0
    char const * reason;
};

UnreachedRow const unreachedRows[] = {
    {"", "", 0, ""},
};

bool isListed(std::string const & file, std::string const & function, std::size_t row) {
    return std::any_of(std::begin(unreachedRows), std::end(unreachedRows), [&](UnreachedRow const & listed) {
        return file == listed.file && function == listed.function && row == listed.row;
    });
}

/// Builds every shape, and asks what is only asked later, at run time.
void askEverythingForEveryLabel() {
    shp_ShapeDictionary & dictionary = omi_Singleton<shp_ShapeDictionary>::Instance();
    omi_BtreeIterator<cow_String, void *> labels(dictionary.Keys());
    for (bool more = labels.First(); more; more = labels.Next()) {
        countDecisionsFor(labels.CurrentKey().CStr());
        shp_Shape const & shape = *dictionary.GetShape(labels.CurrentKey());
        for (int face = 0; face < shape.NumFacesPerElem(); ++face)
            shp_InterpolationTables::getFacialNdWghtTblPtr(shape.options, face);
        countDecisionsFor("");
    }
}

} // namespace

TEST(DecisionLists, EveryRowIsReachedOrListedAsUnreachable) {
    askEverythingForEveryLabel();
    std::size_t rows = 0, reached = 0;
    for (auto const & [list, count] : decisionCounts()) {
        auto const & [file, function] = list;
        for (std::size_t row = 0; row < count.labelsOfRow.size(); ++row, ++rows) {
            bool const isReached = !count.labelsOfRow[row].empty();
            reached += isReached ? 1 : 0;
            EXPECT_NE(isReached, isListed(file, function, row))
                << file << ", " << function << ", row " << row
                << (isReached ? " is listed as unreachable, but reached by " + *count.labelsOfRow[row].begin()
                              : std::string(" is reached by no label and not listed"));
        }
    }
    for (UnreachedRow const & listed : unreachedRows) {
        auto const found = decisionCounts().find({listed.file, listed.function});
        EXPECT_TRUE(found != decisionCounts().end() && listed.row < found->second.labelsOfRow.size())
            << listed.file << ", " << listed.function << ", row " << listed.row << " is listed but does not exist";
    }
    std::printf("%zu decision lists, %zu rows, %zu reached\n", decisionCounts().size(), rows, reached);
}
