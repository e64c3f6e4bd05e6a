#ifndef decision_trace_h
#define decision_trace_h

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// What a decision list was asked so far.
struct DecisionCount {
    std::vector<std::set<std::string>> labelsOfRow; ///< per row: the labels that reached it
    std::set<std::string> labelsWithoutRow;         ///< labels that no row fitted
};

/// The decision lists that were asked, by (source file, asking function).
std::map<std::pair<std::string, std::string>, DecisionCount> const & decisionCounts();

/// The label on whose behalf the tables are asked from now on.
void countDecisionsFor(std::string label);

#endif
