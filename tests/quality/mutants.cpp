// mutants [--every N] [--jobs N] [--quick] [tables | decisions]
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

#include <sys/resource.h>
#include <sys/wait.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
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
int topologiesBuilt = 0;
std::map<std::pair<std::string, std::string>, std::size_t> * decisionLists = nullptr; ///< number of rows

std::string fileName(std::string const & path) {
    return path.substr(path.find_last_of('/') + 1);
}

/// What a process that met the change says, by a byte on a pipe: the number of the law that noticed, or one of these.
constexpr unsigned char survived = 250, unseen = 251;

constexpr unsigned int secondsPerChange = 240;

/// Ends the process with the first failed expectation.
class EndAtFirstFailure : public testing::EmptyTestEventListener {
public:
    EndAtFirstFailure(int pipe) : output(pipe) {}
    unsigned char law = 0;

    void OnTestPartResult(testing::TestPartResult const & result) override {
        if (result.failed())
            finish(law);
    }
    void finish(unsigned char verdict) const {
        if (write(output, &verdict, 1) != 1)
            _exit(2);
        _exit(0);
    }

private:
    int output;
};

class Laws {
public:
    Laws() {
        testing::UnitTest const & all = *testing::UnitTest::GetInstance();
        for (int s = 0; s < all.total_test_suite_count(); ++s)
            for (int t = 0; t < all.GetTestSuite(s)->total_test_count(); ++t)
                names.push_back(std::string(all.GetTestSuite(s)->name()) + "." +
                                all.GetTestSuite(s)->GetTestInfo(t)->name());
        for (std::size_t i = 0; i < names.size(); ++i)
            order.push_back(i);
        stored = static_cast<std::size_t>(
            std::find_if(names.begin(), names.end(),
                         [](std::string const & name) { return name.rfind("StoredTables", 0) == 0; }) -
            names.begin());
    }

    bool hold(std::size_t law) const {
        GTEST_FLAG_SET(filter, names[law]);
        return RUN_ALL_TESTS() == 0;
    }

    std::vector<std::string> names;
    std::vector<std::size_t> order; ///< in which they are asked
    std::size_t stored = 0;         ///< the comparison with the stored tables
};

/// Runs `work` in a child; what it writes to the descriptor that it gets is read after it ends.
struct Child {
    pid_t process = 0;
    int input = -1;
};

template <class Work> Child start(Work work) {
    int ends[2];
    std::fflush(stdout);
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    Child child;
    child.process = fork();
    if (child.process == 0) {
        close(ends[0]);
        int const nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        rlimit const memory = {rlim_t{2} << 30, rlim_t{2} << 30}, noCore = {0, 0};
        setrlimit(RLIMIT_AS, &memory);
        setrlimit(RLIMIT_CORE, &noCore);
        alarm(secondsPerChange);
        work(ends[1]);
        _exit(3);
    }
    close(ends[1]);
    child.input = ends[0];
    return child;
}

template <class Number> std::vector<Number> readAll(Child const & child) {
    std::vector<Number> numbers;
    Number number;
    while (read(child.input, &number, sizeof number) == static_cast<ssize_t>(sizeof number))
        numbers.push_back(number);
    close(child.input);
    return numbers;
}

/// Runs each law alone on the unchanged library: all must hold, and the quickest is to be asked first.
void timeLaws(Laws & laws, bool isStoredFirst) {
    std::vector<double> seconds;
    for (std::size_t law = 0; law < laws.names.size(); ++law) {
        auto const begin = std::chrono::steady_clock::now();
        Child const child = start([&](int pipe) {
            bool const holds = laws.hold(law);
            _exit(holds && write(pipe, &topologiesBuilt, sizeof topologiesBuilt) > 0 ? 0 : 1);
        });
        int status = 0;
        waitpid(child.process, &status, 0);
        std::vector<int> const built = readAll<int>(child);
        if (status != 0 || built.empty()) {
            std::fprintf(stderr, "%s fails on the unchanged library\n", laws.names[law].c_str());
            std::exit(1);
        }
        seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
        std::printf("law\t%s\telement types %d\n", laws.names[law].c_str(), built[0]);
    }
    seconds.at(laws.stored) = isStoredFirst ? -1.0 : secondsPerChange;
    std::sort(laws.order.begin(), laws.order.end(),
              [&](std::size_t a, std::size_t b) { return seconds[a] < seconds[b]; });
}

/// The results that users see after a change.
std::uint64_t resultsWith(std::function<bool()> const & change) {
    Child const child = start([&](int pipe) {
        change();
        std::uint64_t const results = visibleResults();
        _exit(write(pipe, &results, sizeof results) == static_cast<ssize_t>(sizeof results) ? 0 : 1);
    });
    waitpid(child.process, nullptr, 0);
    std::vector<std::uint64_t> const results = readAll<std::uint64_t>(child);
    return results.empty() ? 0 : results[0];
}

/// One thing to change. `group` is the table or list: what noticed one of its changes probably notices the next.
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
            Child const child = begin(change);
            running[child.process] = {child, &change};
        }
        while (!running.empty())
            collect();
        return tally;
    }

private:
    Child begin(Change const & change) const {
        std::vector<std::size_t> order = laws.order;
        auto const known = noticedBy.find(change.group);
        if (known != noticedBy.end())
            for (std::size_t law : known->second)
                std::rotate(order.begin(), std::find(order.begin(), order.end(), law),
                            std::find(order.begin(), order.end(), law) + 1);
        return start([&](int pipe) {
            if (!change.make())
                _exit(4);
            auto * const listener = new EndAtFirstFailure(pipe);
            testing::UnitTest::GetInstance()->listeners().Append(listener);
            for (std::size_t law : order) {
                listener->law = static_cast<unsigned char>(law);
                if (!laws.hold(law))
                    listener->finish(listener->law);
                if (isQuick && law == laws.stored && resultsWith([] { return true; }) == unchanged)
                    listener->finish(unseen);
            }
            listener->finish(survived);
        });
    }

    void collect() {
        int status = 0;
        pid_t const process = waitpid(-1, &status, 0);
        auto const [child, change] = running.at(process);
        running.erase(process);
        std::vector<unsigned char> const verdict = readAll<unsigned char>(child);
        if (WIFEXITED(status) && WEXITSTATUS(status) == 4) {
            ++tally.without;
            return;
        }
        ++tally.changed;
        if (verdict.empty()) {
            ++tally.crashed; // by a signal, endless, or out of memory: a test would have failed
        } else if (verdict[0] == survived || verdict[0] == unseen) {
            bool const isSeen = verdict[0] == survived && resultsWith(change->make) != unchanged;
            ++(isSeen ? tally.missed : tally.unseen);
            std::printf("%s\t%s\t%s\n", isSeen ? "MISSED" : "unseen", change->group.c_str(), change->what.c_str());
        } else {
            ++tally.noticed;
            if (verdict[0] == laws.stored) {
                ++tally.stored;
                if (!isQuick)
                    std::printf("stored\t%s\t%s\n", change->group.c_str(), change->what.c_str());
                return;
            }
            auto & known = noticedBy[change->group];
            known.erase(std::remove(known.begin(), known.end(), verdict[0]), known.end());
            known.push_back(verdict[0]);
        }
        if (tally.changed % 200 == 0)
            std::fprintf(stderr, "%d changes, %d not noticed\n", tally.changed, tally.unseen + tally.missed);
    }

    Laws const & laws;
    int jobs;
    bool isQuick;
    std::uint64_t unchanged;
    Tally tally;
    std::map<pid_t, std::pair<Child, Change const *>> running;
    std::map<std::string, std::vector<std::size_t>> noticedBy; ///< per group: laws, the last to notice at the end
};

std::vector<Change> changesOfTables(std::vector<ConstantTable> const & tables) {
    std::vector<Change> changes;
    for (ConstantTable const & table : tables)
        for (std::size_t i = 0; i < table.entries.size(); ++i)
            changes.push_back({table.file + " " + table.name, "entry " + std::to_string(i),
                               [entry = table.entries[i]] { return entry.change(); }});
    return changes;
}

/// Asks for every decision of every label, in a child, and reads which lists there are.
std::vector<std::string> askedLists() {
    Child const child = start([](int pipe) {
        std::map<std::pair<std::string, std::string>, std::size_t> lists;
        decisionLists = &lists;
        forEachShape([](shp_Shape const & shape) {
            for (int face = 0; face < shape.NumFacesPerElem(); ++face)
                shp_InterpolationTables::getFacialNdWghtTblPtr(shape.options, face);
        });
        std::string text;
        for (auto const & [list, rows] : lists)
            text += list.first + " " + list.second + " " + std::to_string(rows) + "\n";
        for (std::size_t at = 0; at < text.size();) {
            ssize_t const written = write(pipe, text.data() + at, text.size() - at);
            if (written <= 0)
                _exit(1);
            at += static_cast<std::size_t>(written);
        }
        _exit(0);
    });
    std::vector<char> const text = readAll<char>(child);
    waitpid(child.process, nullptr, 0);
    std::vector<std::string> lines(1);
    for (char const letter : text)
        if (letter == '\n')
            lines.emplace_back();
        else
            lines.back() += letter;
    lines.pop_back();
    return lines;
}

std::vector<Change> changesOfDecisions() {
    std::vector<Change> changes;
    for (std::string const & line : askedLists()) {
        std::size_t const first = line.find(' '), second = line.rfind(' ');
        std::string const file = line.substr(0, first), function = line.substr(first + 1, second - first - 1);
        std::size_t const rows = std::stoul(line.substr(second + 1));
        auto const add = [&](std::size_t row, bool isExchange, std::string const & what) {
            changes.push_back({file + " " + function, what, [=] {
                                   decisionChange = {file, function, row, isExchange};
                                   return true;
                               }});
        };
        for (std::size_t row = 0; row < rows; ++row) {
            add(row, false, "row " + std::to_string(row) + " left out");
            if (row + 1 < rows)
                add(row, true, "rows " + std::to_string(row) + " and " + std::to_string(row + 1) + " exchanged");
        }
    }
    return changes;
}

} // namespace

void shp_traceDecision(char const * file, char const * function, std::size_t numRows, std::size_t) {
    // The one list that every topology asks exactly once.
    topologiesBuilt += std::strcmp(function, "numbersOfShape") == 0 ? 1 : 0;
    if (decisionLists)
        (*decisionLists)[{fileName(file), function}] = numRows;
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
    bool hasTables = true, hasDecisions = true;
    for (int i = 1; i < argc; ++i) {
        std::string const argument = argv[i];
        if (argument == "--every" && i + 1 < argc)
            every = std::max(1, std::atoi(argv[++i]));
        else if (argument == "--jobs" && i + 1 < argc)
            jobs = std::max(1, std::atoi(argv[++i]));
        else if (argument == "--quick")
            isQuick = true;
        else if (argument == "tables")
            hasDecisions = false;
        else if (argument == "decisions")
            hasTables = false;
        else
            return std::fprintf(stderr, "mutants [--every N] [--jobs N] [--quick] [tables | decisions]\n"), 2;
    }

    auto const nothing = [] { return true; };
    if (resultsWith(nothing) != resultsWith(nothing))
        return std::fprintf(stderr, "the results differ from run to run\n"), 1;
    Laws laws;
    timeLaws(laws, isQuick);
    auto const hunt = [&](char const * kind, std::vector<Change> const & all) {
        std::vector<Change> sample;
        for (std::size_t i = 0; i < all.size(); i += static_cast<std::size_t>(every))
            sample.push_back(all[i]);
        Tally const tally = Hunt(laws, jobs, isQuick).run(sample);
        std::printf("%s%s\tpossible %zu\tchanged %d\tnoticed %d\tby stored tables alone %d\tcrashed %d\tunseen "
                    "%d\tmissed %d\twithout effect %d\n",
                    kind, isQuick ? " (quick)" : "", all.size(), tally.changed, tally.noticed, tally.stored,
                    tally.crashed, tally.unseen, tally.missed, tally.without);
    };
    if (hasTables) {
        std::vector<ConstantTable> const tables = constantTables();
        std::printf("number of tables\t%zu\n", tables.size());
        hunt("tables", changesOfTables(tables));
    }
    if (hasDecisions)
        hunt("decisions", changesOfDecisions());
}
