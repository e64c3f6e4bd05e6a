// mpirun -np RANKS parallel_stress_mpi [N]
//
// The same as parallel_stress with processes instead of threads. Each holds its part of the mesh alone; what its
// elements bring to nodes of the rank before it is sent there. Rank 0 then carries the whole mesh by itself, and
// compares.
//
// Exit status: 0; 1 if the results differ in a bit or are wrong; 2 if the arguments are at fault.

#include "command_line.h"
#include "parallel_report.h"

#define OMPI_SKIP_MPICXX 1
#include <mpi.h>

namespace {

/// Starts and ends the communication.
struct Communication {
    Communication(int & argc, char **& argv) {
        MPI_Init(&argc, &argv);
        MPI_Comm_rank(MPI_COMM_WORLD, &rank);
        MPI_Comm_size(MPI_COMM_WORLD, &size);
    }
    ~Communication() { MPI_Finalize(); }
    Communication(Communication const &) = delete;
    Communication & operator=(Communication const &) = delete;

    int rank, size;
};

constexpr int seamTag = 1, fingerprintTag = 2;

/// A part has layers of its own, so that only neighbours share nodes: what goes to an earlier part goes to the one
/// before.
void exchange(Communication const & world, std::vector<SeamStress> const & listed, NodalStresses & own) {
    MPI_Request request = MPI_REQUEST_NULL;
    if (world.rank > 0)
        MPI_Isend(listed.data(), static_cast<int>(listed.size() * sizeof(SeamStress)), MPI_BYTE, world.rank - 1,
                  seamTag, MPI_COMM_WORLD, &request);
    if (world.rank + 1 < world.size) {
        MPI_Status status;
        int bytes = 0;
        MPI_Probe(world.rank + 1, seamTag, MPI_COMM_WORLD, &status);
        MPI_Get_count(&status, MPI_BYTE, &bytes);
        std::vector<SeamStress> received(static_cast<std::size_t>(bytes) / sizeof(SeamStress));
        MPI_Recv(received.data(), bytes, MPI_BYTE, world.rank + 1, seamTag, MPI_COMM_WORLD, MPI_STATUS_IGNORE);
        own.addListed(received);
    }
    MPI_Wait(&request, MPI_STATUS_IGNORE);
}

/// Carries this rank's part. On the last rank, the report has the fingerprint of all nodes, and the largest error.
ParallelReport carry(Communication const & world, BlockMesh const & mesh, shp_Topology const & shape) {
    MeshPart const part = partOf(mesh, world.rank, world.size);
    PartResults const input(mesh, part, shape);
    NodalStresses result(part);
    ParallelReport report;
    auto const prepare = [&] {
        result = NodalStresses(part);
        MPI_Barrier(MPI_COMM_WORLD);
    };
    report.seconds = bestSecondsOf(prepare, [&] {
        exchange(world, result.addElements(shape, input), result);
        result.divide();
        MPI_Barrier(MPI_COMM_WORLD);
    });

    // The fingerprint goes from rank to rank, in the order of the nodes, and back to the first.
    if (world.rank > 0)
        MPI_Recv(&report.bits, 1, MPI_UINT64_T, world.rank - 1, fingerprintTag, MPI_COMM_WORLD, MPI_STATUS_IGNORE);
    report.add(mesh, result);
    if (world.rank + 1 < world.size)
        MPI_Send(&report.bits, 1, MPI_UINT64_T, world.rank + 1, fingerprintTag, MPI_COMM_WORLD);
    MPI_Bcast(&report.bits, 1, MPI_UINT64_T, world.size - 1, MPI_COMM_WORLD);
    double const error = report.error;
    MPI_Reduce(&error, &report.error, 1, MPI_DOUBLE, MPI_MAX, 0, MPI_COMM_WORLD);
    return report;
}

ParallelReport carryAlone(BlockMesh const & mesh, shp_Topology const & shape) {
    MeshPart const part = partOf(mesh, 0, 1);
    PartResults const input(mesh, part, shape);
    NodalStresses result(part);
    ParallelReport report;
    report.seconds = bestSecondsOf([&] { result = NodalStresses(part); },
                                   [&] {
                                       result.addElements(shape, input);
                                       result.divide();
                                   });
    report.add(mesh, result);
    return report;
}

} // namespace

int main(int argc, char ** argv) {
    Communication const world(argc, argv);
    return runProgram("parallel_stress_mpi", [&] {
        ParallelArguments const arguments(argc, argv, "mpirun -np RANKS parallel_stress_mpi [N]", world.size);
        BlockMesh const mesh = {arguments.cells};
        shp_Shape const & shape = shapeToMesh("C3D8");
        ParallelReport const together = carry(world, mesh, shape);
        int status = 0;
        if (world.rank == 0) {
            printMesh(mesh);
            ParallelReport const alone = carryAlone(mesh, shape);
            alone.print(1, "rank");
            together.print(world.size, "rank");
            status = compare(alone, together);
        }
        MPI_Bcast(&status, 1, MPI_INT, 0, MPI_COMM_WORLD);
        return status;
    });
}
