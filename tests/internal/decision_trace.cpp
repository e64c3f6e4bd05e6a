#include "decision_trace.h"

#include "shp_DecisionList.h"

namespace {

std::map<std::pair<std::string, std::string>, DecisionCount> counts;
std::string currentLabel;

std::string fileName(std::string const & path) {
    return path.substr(path.find_last_of('/') + 1);
}

} // namespace

std::map<std::pair<std::string, std::string>, DecisionCount> const & decisionCounts() {
    return counts;
}

void countDecisionsFor(std::string label) {
    currentLabel = std::move(label);
}

void shp_traceDecision(char const * file, char const * function, std::size_t numRows, std::size_t row) {
    if (currentLabel.empty())
        return;
    DecisionCount & count = counts[{fileName(file), function}];
    count.labelsOfRow.resize(numRows);
    (row < numRows ? count.labelsOfRow[row] : count.labelsWithoutRow).insert(currentLabel);
}

std::size_t shp_rowAt(char const *, char const *, std::size_t, std::size_t place) {
    return place;
}
