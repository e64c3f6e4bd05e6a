#ifndef parallel_report_h
#define parallel_report_h

#include "nodal_average.h"

#include <algorithm>
#include <chrono>

/// `[N [PARTS]]`: cells in each direction, and how many threads or processes.
struct ParallelArguments {
    /// Raises Refusal (command_line.h) if they are at fault.
    ParallelArguments(int argc, char ** argv, char const * usage, int defaultParts);

    int cells = 140;
    int parts;
};

/// One run over the mesh.
struct ParallelReport {
    /// Takes in the results of the next part.
    void add(BlockMesh const & mesh, NodalStresses const & result);
    void print(int parts, char const * kind) const;

    double seconds = 0;
    double error = 0;
    std::uint64_t bits = 0;
};

void printMesh(BlockMesh const & mesh);

/// Says how much faster the second run was, and whether the results are the same. Returns the exit status.
int compare(ParallelReport const & serial, ParallelReport const & parallel);

/// The shortest time of three runs; `prepare()` comes before each and is not timed.
template <class Prepare, class Work> double bestSecondsOf(Prepare prepare, Work work) {
    double best = 0;
    for (int run = 0; run < 3; ++run) {
        prepare();
        auto const start = std::chrono::steady_clock::now();
        work();
        double const seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        best = run == 0 ? seconds : std::min(best, seconds);
    }
    return best;
}

#endif
