// bench [--commit=TEXT] [--write=FILE] [--passes=N] [Google Benchmark's options]
// Times this library and its peers N times, one after the other in each pass, prints tables of medians and ratios, and
// with --write puts them into a document, between its two marks. Ends with 1 when results do not agree; a target that
// is not met is only said.

#include "subjects.h"
#include "tables.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr char beginMark[] = "<!-- bench: begin -->\n";
constexpr char endMark[] = "<!-- bench: end -->\n";

/// Keeps the times of all passes, and says now and then how far the run is.
class Collector : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(Context const &) override { return true; }
    void ReportRuns(std::vector<Run> const & runs) override {
        for (Run const & run : runs) {
            if (run.run_type != Run::RT_Iteration)
                continue;
            for (bench::Timing & timing : bench::allTimings())
                if (timing.name == run.run_name.function_name)
                    timing.nanoseconds.push_back(run.GetAdjustedCPUTime() / static_cast<double>(timing.operations));
        }
    }
    void Finalize() override { std::cerr << '.' << std::flush; }
};

std::string processorName() {
    std::ifstream information("/proc/cpuinfo");
    for (std::string line; std::getline(information, line);)
        if (line.starts_with("model name"))
            return line.substr(line.find(':') + 2);
    return "unknown processor";
}

std::string today() {
    std::time_t const now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    char text[20];
    std::strftime(text, sizeof text, "%Y-%m-%d", std::gmtime(&now));
    return text;
}

std::string description(std::string const & commit) {
    std::ostringstream out;
    out << "- Machine: " << processorName() << ", " << std::thread::hardware_concurrency() << " cores\n"
        << "- Library: " << BENCH_LIBRARY_FLAGS << "\n"
        << "- Callers and hand-written code: " << BENCH_CALLER_FLAGS << "\n"
        << "- Peers: " << BENCH_PEERS << "\n"
        << "- Date: " << today() << ", commit: " << commit << "\n";
    return out.str();
}

bool replaceBetweenMarks(std::string const & path, std::string const & text) {
    std::ostringstream whole;
    whole << std::ifstream(path).rdbuf();
    std::string document = whole.str();
    std::size_t const begin = document.find(beginMark), end = document.find(endMark);
    if (begin == std::string::npos || end == std::string::npos || end < begin) {
        std::cerr << path << " does not have the two marks\n";
        return false;
    }
    std::size_t const from = begin + std::strlen(beginMark);
    document.replace(from, end - from, text);
    std::ofstream file(path);
    file << document;
    return static_cast<bool>(file.flush());
}

} // namespace

int main(int argc, char ** argv) {
    std::string commit = "unknown", target;
    int passes = 15;
    std::string shortRuns = "--benchmark_min_time=0.02";
    std::vector<char *> arguments = {argv[0], shortRuns.data()};
    for (int i = 1; i < argc; ++i) {
        std::string const argument = argv[i];
        if (argument.starts_with("--commit="))
            commit = argument.substr(9);
        else if (argument.starts_with("--write="))
            target = argument.substr(8);
        else if (argument.starts_with("--passes="))
            passes = std::atoi(argument.c_str() + 9);
        else
            arguments.push_back(argv[i]);
    }
    if (passes < 1) {
        std::cerr << "--passes wants a number of at least 1\n";
        return 1;
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 1;

    bench::timeShapeRows();
    bench::timeJacobians();
    bench::timeToSpace();
    bench::timeLocation();
    bench::timeLines();
    bench::timeExtrapolation();
    bench::timeFacesAndCentroids();
    bench::timeLabels();
    bench::timeContainers();
    bench::timePacking();

    Collector collector;
    for (int pass = 0; pass < passes; ++pass)
        benchmark::RunSpecifiedBenchmarks(&collector);
    std::cerr << '\n';

    std::ostringstream text;
    text << description(commit);
    bench::writeTables(text);
    std::cout << text.str();
    return target.empty() || replaceBetweenMarks(target, "\n" + text.str() + "\n") ? 0 : 1;
}
