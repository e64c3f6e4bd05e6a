#ifndef bench_harness_h
#define bench_harness_h

// What the benchmarks of all subjects share: they register timings by item, element and who is timed, add what else is
// worth a column, and say what the results must agree in before anything is timed. The tables are made from that.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <utility>

namespace bench {

// Who is timed. A timing by "ours" is divided by that of each peer.
inline constexpr char ours[] = "ours";
inline constexpr char handWritten[] = "hand-written";
inline constexpr char vtk[] = "VTK";
inline constexpr char eigen[] = "Eigen";
inline constexpr char qt[] = "QList";
inline constexpr char unorderedMap[] = "std::unordered_map";
inline constexpr char vector[] = "std::vector";
inline constexpr char deque[] = "std::deque";
inline constexpr char map[] = "std::map";

/// Makes a place in the tables for the timing of a name; one call of what is timed does so many operations.
void enter(std::string const & name, std::string const & item, std::string const & element, std::string const & who,
           std::int64_t operations);

/// Says in the tables that a peer was not there when the bench was built.
inline void notInstalled(std::string const & item, std::string const & element, std::string const & who) {
    enter("", item, element, who, 0);
}

/// Times `operation()`, which does `operations` operations; one call before that is not timed.
template <class Operation>
void timeWhole(std::string const & item, std::string const & element, std::string const & who, std::int64_t operations,
               Operation operation) {
    std::string const name = item + "/" + element + "/" + who;
    enter(name, item, element, who, operations);
    benchmark::RegisterBenchmark(name.c_str(), [operation = std::move(operation)](benchmark::State & state) mutable {
        operation();
        for (auto _ : state)
            operation();
    });
}

/// The same where each run needs something made, or thrown away, outside the time: `prepare()` comes before each run.
template <class Prepare, class Operation>
void timePrepared(std::string const & item, std::string const & element, std::string const & who,
                  std::int64_t operations, Prepare prepare, Operation operation) {
    std::string const name = item + "/" + element + "/" + who;
    enter(name, item, element, who, operations);
    benchmark::RegisterBenchmark(name.c_str(), [prepare = std::move(prepare),
                                                operation = std::move(operation)](benchmark::State & state) mutable {
        for (auto _ : state) {
            state.PauseTiming();
            prepare();
            state.ResumeTiming();
            operation();
        }
    });
}

/// Times `operation(i)` for i = 0 to count - 1, in a row. What it writes is taken to be used.
template <class Operation>
void timeEach(std::string const & item, std::string const & element, std::string const & who, int count,
              Operation operation) {
    timeWhole(item, element, who, count, [count, operation = std::move(operation)]() mutable {
        for (int i = 0; i < count; ++i) {
            operation(i);
            benchmark::ClobberMemory();
        }
    });
}

/// A further column of the item's table.
void remark(std::string const & item, std::string const & element, std::string const & heading,
            std::string const & text);

/// A further condition of the item's target, besides the times.
void require(std::string const & item, std::string const & element, bool isMet);

/// Ends the program, with a message, when two results differ by more than `allowed`.
void mustAgree(std::string const & item, std::string const & element, std::string const & who, double difference,
               double allowed);

} // namespace bench

#endif
