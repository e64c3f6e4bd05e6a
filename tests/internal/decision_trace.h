#ifndef decision_trace_h
#define decision_trace_h

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// The decision lists that were asked, by (source file, asking function): for each row the labels that reached it.
std::map<std::pair<std::string, std::string>, std::vector<std::set<std::string>>> const & labelsOfRows();

/// The label on whose behalf the tables are asked from now on.
void countDecisionsFor(std::string label);

#endif
