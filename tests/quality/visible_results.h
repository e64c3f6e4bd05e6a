#ifndef visible_results_h
#define visible_results_h

#include <cstdint>

/// A number made from everything that a user of the library can read from or compute with its labels: tables as far as
/// their shapes say, functions, reports, and the operations on bent elements. Equal numbers before and after a change
/// mean that no result shows the change.
std::uint64_t visibleResults();

#endif
