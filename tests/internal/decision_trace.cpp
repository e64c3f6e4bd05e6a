#include "decision_trace.h"

#include "shp_DecisionList.h"

namespace {

std::map<std::pair<std::string, std::string>, std::vector<std::set<std::string>>> labels;
std::string currentLabel;

} // namespace

std::map<std::pair<std::string, std::string>, std::vector<std::set<std::string>>> const & labelsOfRows() {
    return labels;
}

void countDecisionsFor(std::string label) {
    currentLabel = std::move(label);
}

void shp_traceDecision(char const * file, char const * function, std::size_t numRows, std::size_t row) {
    if (currentLabel.empty())
        return;
    std::string const path = file;
    auto & rows = labels[{path.substr(path.find_last_of('/') + 1), function}];
    rows.resize(numRows);
    if (row < numRows)
        rows[row].insert(currentLabel);
}

std::size_t shp_rowAt(char const *, char const *, std::size_t, std::size_t place) {
    return place;
}
