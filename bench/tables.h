#ifndef bench_tables_h
#define bench_tables_h

#include <cstdint>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace bench {

/// One timed function, with the time for one operation in each pass.
struct Timing {
    std::string name, item, element, who;
    std::int64_t operations;
    std::vector<double> nanoseconds;
};

/// One row of an item's table.
struct Case {
    std::string item, element;
    std::vector<std::pair<std::string, std::string>> remarks; ///< heading and text of further columns
    bool meetsRequirements = true;
};

/// In the order in which they were registered.
std::vector<Timing> & allTimings();
std::vector<Case> & cases();

/// Writes all items that were timed, as tables in Markdown: medians over the passes, of times and of ratios, and
/// what the targets say of them.
void writeTables(std::ostream & out);

} // namespace bench

#endif
