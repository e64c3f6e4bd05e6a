// Every row of every decision list is reached by some label of the catalogue, or stands below with the reason why not.

#include "decision_trace.h"

#include "../catalogued_shapes.h"
#include "shp_InterpolationTables.h"

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
    {"shp_HexWeights.cpp", "getFacialNdWghtTblPtr", 4, "cylindrical hexahedra have 12 or 24 nodes"},
    {"shp_HexWeights.cpp", "getFcWghtTblPtr", 4, "no hexahedron is integrated at its nodes"},
    {"shp_HexWeights.cpp", "getNdWghtTblPtr", 6, "18-node hexahedra have 9 or 18 points"},
    {"shp_InterpolationLocations.cpp", "getIntPntLocTblPtr", 2, "points and rigid surfaces have one point"},
    {"shp_InterpolationWeights.cpp", "getFcWghtTblPtr", 1, "points and rigid surfaces have one point"},
    {"shp_InterpolationWeights.cpp", "getNdWghtTblPtr", 0, "no 1-node label is integrated at its nodes"},
    {"shp_InterpolationWeights.cpp", "getNdWghtTblPtr", 5, "no 8-node label is integrated at its nodes"},
    {"shp_InterpolationWeights.cpp", "getNdWghtTblPtr", 10, "points and rigid surfaces have one point"},
    {"shp_InterpolationWeights.cpp", "planarFaceWeights", 4, "no line, triangle or quadrilateral has 5 points"},
    {"shp_InterpolationWeights.cpp", "planarFaceWeights", 7, "no line, triangle or quadrilateral has 8 points"},
    {"shp_InterpolationWeights.cpp", "planarFaceWeights", 9, "every planar label's point count has a row"},
    {"shp_PrismWeights.cpp", "getFacialNdWghtTblPtr", 4, "cylindrical prisms have 9 or 18 nodes"},
    {"shp_QuadFunctions.cpp", "shp_quadSets", 9, "6-node quadrilaterals are of one of the special kinds"},
    {"shp_QuadWeights.cpp", "getFacialNdWghtTblPtr", 8, "only infinite ones come so far, and these have 4 points"},
    {"shp_QuadWeights.cpp", "getFacialNdWghtTblPtr", 9, "only infinite ones come so far, and these have 4 points"},
    {"shp_QuadWeights.cpp", "getFacialNdWghtTblPtr", 10, "only infinite ones come so far, and these have 4 points"},
    {"shp_TetraLocations.cpp", "getIntPntLocTblPtr", 1, "nodal integration is settled before the family is asked"},
    {"shp_Topology.cpp", "numbersOfShape", 2, "the keys of thermal fluid pipes say 2 nodes"},
    {"shp_Topology.cpp", "numbersOfShape", 24, "every label has a shape"},
};

bool isListed(std::string const & file, std::string const & function, std::size_t row) {
    return std::any_of(std::begin(unreachedRows), std::end(unreachedRows), [&](UnreachedRow const & listed) {
        return file == listed.file && function == listed.function && row == listed.row;
    });
}

/// Builds every shape, and asks what is only asked later, at run time.
void askEverythingForEveryLabel() {
    omi_BtreeIterator<cow_String, void *> labels(dictionary().Keys());
    for (bool more = labels.First(); more; more = labels.Next()) {
        countDecisionsFor(labels.CurrentKey().CStr());
        shp_Shape const & shape = *dictionary().GetShape(labels.CurrentKey());
        for (int face = 0; face < shape.NumFacesPerElem(); ++face)
            shp_InterpolationTables::getFacialNdWghtTblPtr(shape.options, face);
        countDecisionsFor("");
    }
}

} // namespace

TEST(DecisionLists, EveryRowIsReachedOrListedAsUnreachable) {
    askEverythingForEveryLabel();
    std::size_t rows = 0, reached = 0;
    for (auto const & [list, labels] : labelsOfRows())
        for (std::size_t row = 0; row < labels.size(); ++row, ++rows) {
            reached += labels[row].empty() ? 0 : 1;
            EXPECT_EQ(labels[row].empty(), isListed(list.first, list.second, row))
                << list.first << ", " << list.second << ", row " << row << " is reached by "
                << (labels[row].empty() ? "no label" : *labels[row].begin());
        }
    for (UnreachedRow const & listed : unreachedRows) {
        auto const found = labelsOfRows().find({listed.file, listed.function});
        EXPECT_TRUE(found != labelsOfRows().end() && listed.row < found->second.size())
            << listed.file << ", " << listed.function << ", row " << listed.row << " is listed (" << listed.reason
            << ") but does not exist";
    }
    std::printf("%zu decision lists, %zu rows, %zu reached\n", labelsOfRows().size(), rows, reached);
}
