// parallel_stress [N [THREADS]]
//
// Carries stresses from the integration points of N x N x N elements (C3D8) to their nodes, and takes the mean at each
// node: with one thread, then with THREADS threads that share one shp_Shape. Prints the times, how far the result is
// from the exact stress, and a fingerprint of its bits. 140 and 2 unless given.
//
// Exit status: 0; 1 if the two results differ in a bit or are wrong; 2 if the arguments are at fault.

#include "command_line.h"
#include "nodal_average.h"
#include "parallel_report.h"

#include <memory>
#include <thread>

namespace {

/// Calls `work(p)` for each part, with a thread for each but the first.
template <class Work> void forEachPart(int count, Work work) {
    std::vector<std::jthread> threads;
    for (int p = 1; p < count; ++p)
        threads.emplace_back(work, p);
    work(0);
}

/// The mesh in as many parts as there are threads, with room for the results.
struct Analysis {
    Analysis(BlockMesh const & mesh, shp_Topology const & shape, int threads)
        : inputs(static_cast<std::size_t>(threads)), results(inputs.size()), listed(inputs.size()) {
        forEachPart(threads, [&](int p) {
            inputs[static_cast<std::size_t>(p)] = std::make_unique<PartResults>(mesh, partOf(mesh, p, threads), shape);
        });
    }

    void clear() {
        forEachPart(static_cast<int>(inputs.size()), [&](int p) {
            auto const part = static_cast<std::size_t>(p);
            results[part] = std::make_unique<NodalStresses>(inputs[part]->part);
        });
    }

    void run(shp_Topology const & shape) {
        int const count = static_cast<int>(inputs.size());
        forEachPart(count, [&](int p) {
            auto const part = static_cast<std::size_t>(p);
            listed[part] = results[part]->addElements(shape, *inputs[part]);
        });
        forEachPart(count, [&](int p) {
            NodalStresses & own = *results[static_cast<std::size_t>(p)];
            for (std::vector<SeamStress> const & entries : listed)
                own.addListed(entries);
            own.divide();
        });
    }

    std::vector<std::unique_ptr<PartResults>> inputs;
    std::vector<std::unique_ptr<NodalStresses>> results;
    std::vector<std::vector<SeamStress>> listed;
};

ParallelReport carry(BlockMesh const & mesh, shp_Topology const & shape, int threads) {
    Analysis analysis(mesh, shape, threads);
    ParallelReport report;
    report.seconds = bestSecondsOf([&] { analysis.clear(); }, [&] { analysis.run(shape); });
    for (auto const & result : analysis.results)
        report.add(mesh, *result);
    report.print(threads, "thread");
    return report;
}

} // namespace

int main(int argc, char ** argv) {
    return runProgram("parallel_stress", [&] {
        ParallelArguments const arguments(argc, argv, "parallel_stress [N [THREADS]]", 2);
        BlockMesh const mesh = {arguments.cells};
        shp_Shape const & shape = shapeToMesh("C3D8");
        printMesh(mesh);
        ParallelReport const serial = carry(mesh, shape, 1);
        return compare(serial, carry(mesh, shape, arguments.parts));
    });
}
