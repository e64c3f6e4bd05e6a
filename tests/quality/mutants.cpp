// mutants [--every N] [--jobs N] [--quick] tables | decisions
//
// Changes the library's constant tables one entry at a time, and its decision lists one row at a time (left out, or
// exchanged with the next), each in a process of its own, and runs the laws until one fails. Prints a line for each
// change that none of them noticed, and the counts at the end. A survivor is "unseen" when no result of any label
// changes either, and "MISSED" otherwise. The comparison with the stored tables is asked last, and what it alone
// notices is listed as "stored"; with --quick it is asked first, and laws only about what results show, so that only
// the sum of both counts.

#include "constant_tables.h"
#include "shp_DecisionList.h"
#include "shp_InterpolationTables.h"
#include "visible_results.h"

#include "catalogued_shapes.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

/// The list that is looked for, and the order of its rows; without a function, every list is as it is.
struct DecisionChange {
    std::string file, function;
    std::size_t row = 0;
    bool isExchange = false;
};

DecisionChange decisionChange;
std::uint64_t topologiesBuilt = 0;
std::map<std::pair<std::string, std::string>, std::size_t> decisionLists; ///< number of rows

std::string fileName(std::string const & path) {
    return path.substr(path.find_last_of('/') + 1);
}

/// How a process that met the change ends: with the number of the law that noticed, or with one of these.
enum Verdict { survived = 250, unseen, withoutEffect };

constexpr unsigned int secondsPerChange = 240;

/// Ends the process with the first failed expectation.
class EndAtFirstFailure : public testing::EmptyTestEventListener {
public:
    int law = 0;

    void OnTestPartResult(testing::TestPartResult const & result) override {
        if (result.failed())
            _exit(law);
    }
};

class Laws {
public:
    Laws() {
        testing::UnitTest const & all = *testing::UnitTest::GetInstance();
        for (int s = 0; s < all.total_test_suite_count(); ++s)
            for (int t = 0; t < all.GetTestSuite(s)->total_test_count(); ++t) {
                std::string const suite = all.GetTestSuite(s)->name();
                if (suite == "StoredTables")
                    stored = names.size();
                order.push_back(names.size());
                names.push_back(suite + "." + all.GetTestSuite(s)->GetTestInfo(t)->name());
            }
    }

    bool hold(std::size_t law) const {
        GTEST_FLAG_SET(filter, names[law]);
        return RUN_ALL_TESTS() == 0;
    }

    std::vector<std::string> names;
    std::vector<std::size_t> order; ///< in which they are asked
    std::size_t stored = 0;         ///< the comparison with the stored tables
};

/// Starts a process, quiet and bounded, that ends with what `work` gives.
template <class Work> pid_t start(Work work) {
    std::fflush(stdout);
    pid_t const process = fork();
    if (process != 0)
        return process;
    int const nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    rlimit const memory = {rlim_t{2} << 30, rlim_t{2} << 30}, noCore = {0, 0};
    setrlimit(RLIMIT_AS, &memory);
    setrlimit(RLIMIT_CORE, &noCore);
    alarm(secondsPerChange);
    _exit(work());
}

/// What `work` gives in a process of its own, or 0 when that crashes.
template <class Work> std::uint64_t inProcess(Work work) {
    std::size_t const size = sizeof(std::uint64_t);
    void * const shared = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto * const number = static_cast<std::uint64_t *>(shared);
    waitpid(start([&] {
                *number = work();
                return 0;
            }),
            nullptr, 0);
    std::uint64_t const result = *number;
    munmap(shared, size);
    return result;
}

/// Runs each law alone on the unchanged library: all must hold, and the quickest is to be asked first.
void timeLaws(Laws & laws, bool isStoredFirst) {
    std::vector<double> seconds;
    for (std::size_t law = 0; law < laws.names.size(); ++law) {
        auto const begin = std::chrono::steady_clock::now();
        std::uint64_t const built = inProcess([&] { return laws.hold(law) ? topologiesBuilt + 1 : 0; });
        if (built == 0) {
            std::fprintf(stderr, "%s fails on the unchanged library\n", laws.names[law].c_str());
            std::exit(1);
        }
        seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
        std::printf("law\t%s\telement types %d\n", laws.names[law].c_str(), static_cast<int>(built - 1));
    }
    seconds.at(laws.stored) = isStoredFirst ? -1.0 : secondsPerChange;
    std::sort(laws.order.begin(), laws.order.end(),
              [&](std::size_t a, std::size_t b) { return seconds[a] < seconds[b]; });
}

/// The results that users see after a change.
std::uint64_t resultsWith(std::function<bool()> const & change) {
    return inProcess([&] { return change(), visibleResults(); });
}

/// One thing to change in a table or list, its group.
struct Change {
    std::string group, what;
    std::function<bool()> make;
};

struct Tally {
    int changed = 0, noticed = 0, crashed = 0, unseen = 0, missed = 0, without = 0, stored = 0;
};

class Hunt {
public:
    Hunt(Laws const & l, int j, bool quick)
        : laws(l), jobs(j), isQuick(quick), unchanged(resultsWith([] { return true; })) {}

    Tally run(std::vector<Change> const & changes) {
        for (Change const & change : changes) {
            if (running.size() >= static_cast<std::size_t>(jobs))
                collect();
            running[begin(change)] = &change;
        }
        while (!running.empty())
            collect();
        return tally;
    }

private:
    pid_t begin(Change const & change) const {
        std::vector<std::size_t> order = laws.order;
        // What noticed the last change of a group probably notices the next.
        if (auto const known = noticedBy.find(change.group); known != noticedBy.end())
            std::rotate(order.begin(), std::find(order.begin(), order.end(), known->second),
                        std::find(order.begin(), order.end(), known->second) + 1);
        return start([&]() -> int {
            if (!change.make())
                return withoutEffect;
            auto * const listener = new EndAtFirstFailure;
            testing::UnitTest::GetInstance()->listeners().Append(listener);
            for (std::size_t law : order) {
                listener->law = static_cast<int>(law);
                if (!laws.hold(law))
                    return listener->law;
                if (isQuick && law == laws.stored && resultsWith([] { return true; }) == unchanged)
                    return unseen;
            }
            return survived;
        });
    }

    void collect() {
        int status = 0;
        pid_t const process = waitpid(-1, &status, 0);
        Change const * const change = running.at(process);
        running.erase(process);
        int const verdict = WEXITSTATUS(status);
        if (WIFEXITED(status) && verdict == withoutEffect) {
            ++tally.without;
            return;
        }
        ++tally.changed;
        if (!WIFEXITED(status)) {
            ++tally.crashed; // by a signal, endless, or out of memory: a test would have failed
        } else if (verdict == survived || verdict == unseen) {
            bool const isSeen = verdict == survived && resultsWith(change->make) != unchanged;
            ++(isSeen ? tally.missed : tally.unseen);
            std::printf("%s\t%s\t%s\n", isSeen ? "MISSED" : "unseen", change->group.c_str(), change->what.c_str());
        } else {
            ++tally.noticed;
            if (static_cast<std::size_t>(verdict) == laws.stored) {
                ++tally.stored;
                if (!isQuick)
                    std::printf("stored\t%s\t%s\n", change->group.c_str(), change->what.c_str());
                return;
            }
            noticedBy[change->group] = static_cast<std::size_t>(verdict);
        }
        if (tally.changed % 200 == 0)
            std::fprintf(stderr, "%d changes, %d not noticed\n", tally.changed, tally.unseen + tally.missed);
    }

    Laws const & laws;
    int jobs;
    bool isQuick;
    std::uint64_t unchanged;
    Tally tally;
    std::map<pid_t, Change const *> running;
    std::map<std::string, std::size_t> noticedBy; ///< per group: the last law
};

std::vector<Change> changesOfTables() {
    std::vector<ConstantTable> const tables = constantTables();
    std::printf("number of tables\t%zu\n", tables.size());
    std::vector<Change> changes;
    for (ConstantTable const & table : tables)
        for (std::size_t i = 0; i < table.entries.size(); ++i)
            changes.push_back({table.file + " " + table.name, "entry " + std::to_string(i),
                               [entry = table.entries[i]] { return entry.change(); }});
    return changes;
}

/// Asks for every decision of every label to see which lists there are; shapes are built anew by whoever changes one.
std::vector<Change> changesOfDecisions() {
    forEachShape([](shp_Shape const & shape) {
        for (int face = 0; face < shape.NumFacesPerElem(); ++face)
            shp_InterpolationTables::getFacialNdWghtTblPtr(shape.options, face);
    });
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
    std::vector<Change> changes;
    for (auto const & each : decisionLists) {
        auto const add = [&](std::size_t row, bool isExchange, std::string const & what) {
            DecisionChange const change = {each.first.first, each.first.second, row, isExchange};
            changes.push_back({change.file + " " + change.function, what, [change] {
                                   decisionChange = change;
                                   return true;
                               }});
        };
        for (std::size_t row = 0; row < each.second; ++row) {
            add(row, false, "row " + std::to_string(row) + " left out");
            if (row + 1 < each.second)
                add(row, true, "rows " + std::to_string(row) + " and " + std::to_string(row + 1) + " exchanged");
        }
    }
    return changes;
}

} // namespace

void shp_traceDecision(char const * file, char const * function, std::size_t numRows, std::size_t) {
    // The one list that every topology asks exactly once.
    topologiesBuilt += std::strcmp(function, "numbersOfShape") == 0 ? 1 : 0;
    decisionLists[{fileName(file), function}] = numRows;
}

std::size_t shp_rowAt(char const * file, char const * function, std::size_t numRows, std::size_t place) {
    std::size_t const row = decisionChange.row;
    bool const isNear = place == row || (decisionChange.isExchange && place == row + 1);
    if (decisionChange.function.empty() || !isNear || decisionChange.function != function ||
        decisionChange.file != fileName(file))
        return place;
    if (!decisionChange.isExchange)
        return numRows;
    return place == row ? row + 1 : row;
}

int main(int argc, char ** argv) {
    testing::InitGoogleTest(&argc, argv);
    int every = 1, jobs = 2;
    bool isQuick = false;
    std::string kind;
    for (int i = 1; i < argc; ++i) {
        std::string const argument = argv[i];
        if (argument == "--every" && i + 1 < argc)
            every = std::max(1, std::atoi(argv[++i]));
        else if (argument == "--jobs" && i + 1 < argc)
            jobs = std::max(1, std::atoi(argv[++i]));
        else if (argument == "--quick")
            isQuick = true;
        else
            kind = argument;
    }
    if (kind != "tables" && kind != "decisions")
        return std::fprintf(stderr, "mutants [--every N] [--jobs N] [--quick] tables | decisions\n"), 2;

    auto const nothing = [] { return true; };
    if (resultsWith(nothing) != resultsWith(nothing))
        return std::fprintf(stderr, "the results differ from run to run\n"), 1;
    Laws laws;
    timeLaws(laws, isQuick);
    std::vector<Change> const all = kind == "tables" ? changesOfTables() : changesOfDecisions();
    std::vector<Change> sample;
    for (std::size_t i = 0; i < all.size(); i += static_cast<std::size_t>(every))
        sample.push_back(all[i]);
    Tally const tally = Hunt(laws, jobs, isQuick).run(sample);
    std::printf("%s%s\tpossible %zu\tchanged %d\tnoticed %d\tby stored tables alone %d\tcrashed %d\tunseen "
                "%d\tmissed %d\twithout effect %d\n",
                kind.c_str(), isQuick ? " (quick)" : "", all.size(), tally.changed, tally.noticed, tally.stored,
                tally.crashed, tally.unseen, tally.missed, tally.without);
}
