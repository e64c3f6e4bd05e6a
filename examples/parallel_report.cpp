#include "parallel_report.h"

#include "command_line.h"

#include <algorithm>
#include <charconv>
#include <cinttypes>
#include <cstdio>
#include <cstring>

namespace {

/// The exact stress is at most 80; results are carried in float.
constexpr double largestRounding = 1e-4;

int parseCount(char const * text, int most, char const * usage) {
    int count = 0;
    char const * const end = text + std::strlen(text);
    auto const [stop, error] = std::from_chars(text, end, count);
    if (error != std::errc{} || stop != end || count < 1 || count > most)
        throw Refusal(std::string("usage: ") + usage + ", whole numbers from 1 on; N is at most 400");
    return count;
}

} // namespace

ParallelArguments::ParallelArguments(int argc, char ** argv, char const * usage, int defaultParts)
    : parts(defaultParts) {
    if (argc > 1)
        cells = parseCount(argv[1], 400, usage);
    if (argc > 2)
        parts = parseCount(argv[2], 400, usage);
    if (argc > 3 || parts > cells)
        throw Refusal(std::string("usage: ") + usage + ", not more parts than N");
}

void ParallelReport::add(BlockMesh const & mesh, NodalStresses const & result) {
    error = std::max(error, largestError(mesh, result));
    bits = fingerprint(result, bits);
}

void ParallelReport::print(int parts, char const * kind) const {
    std::printf("%2d %s%s %8.3f s, largest error %.1e, fingerprint %016" PRIx64 "\n", parts, kind,
                parts == 1 ? ": " : "s:", seconds, error, bits);
    std::fflush(stdout);
}

void printMesh(BlockMesh const & mesh) {
    std::printf("%d elements, %d nodes, 8 integration points with 6 components each\n", mesh.numElements(),
                mesh.numNodes());
}

int compare(ParallelReport const & serial, ParallelReport const & parallel) {
    bool const isSame = serial.bits == parallel.bits, isRight = serial.error < largestRounding;
    std::printf("%.2f times as fast, %s\n", serial.seconds / parallel.seconds,
                isSame ? "the same to the last bit" : "NOT the same");
    if (!isRight)
        std::printf("The stresses are wrong.\n");
    return isSame && isRight ? 0 : 1;
}
