#include "tables.h"
#include "targets.h"

#include <algorithm>
#include <cstdio>
#include <functional>

namespace bench {

namespace {

using Row = std::vector<std::string>;

double medianOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    std::size_t const middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

std::string formatted(char const * format, double number) {
    char text[40];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

std::string ratioText(double ratio) {
    return formatted(ratio < 0.1 ? "%.3f" : "%.2f", ratio);
}

std::string nanoseconds(double time) {
    return formatted(time < 10 ? "%.2f" : time < 100 ? "%.1f" : "%.0f", time);
}

Timing const * find(Case const & entry, std::string_view who) {
    for (Timing const & timing : allTimings())
        if (timing.item == entry.item && timing.element == entry.element && timing.who == who)
            return &timing;
    return nullptr;
}

bool isTimed(Timing const * timing) {
    return timing && !timing->nanoseconds.empty();
}

/// Everyone who was timed in an item, ourselves first.
Row competitorsIn(std::string const & item) {
    Row result = {ours};
    for (Timing const & timing : allTimings())
        if (timing.item == item && std::find(result.begin(), result.end(), timing.who) == result.end())
            result.push_back(timing.who);
    return result;
}

/// Our time over a peer's, in the middle of the passes: within a pass both were timed at once, at the same pace of the
/// machine. Of all peers the best one's. 0 when there is none.
double ratioTo(Case const & entry, std::string_view peer) {
    Timing const * const own = find(entry, ours);
    if (!isTimed(own))
        return 0;
    double greatest = 0;
    for (std::string const & who : competitorsIn(entry.item)) {
        Timing const * const timing = find(entry, who);
        if (who == ours || (peer != bestPeer && peer != who) || !isTimed(timing))
            continue;
        std::vector<double> ratios(own->nanoseconds.size());
        std::transform(own->nanoseconds.begin(), own->nanoseconds.end(), timing->nanoseconds.begin(), ratios.begin(),
                       std::divides());
        greatest = std::max(greatest, medianOf(std::move(ratios)));
    }
    return greatest;
}

Target const * targetOf(Case const & entry) {
    for (Target const & target : targets)
        if (entry.item.starts_with(target.item) && entry.element.starts_with(target.element))
            return &target;
    return nullptr;
}

/// True when a peer of this case is not there.
bool lacksPeer(Case const & entry) {
    std::vector<Timing> const & all = allTimings();
    return std::any_of(all.begin(), all.end(), [&](Timing const & timing) {
        return timing.item == entry.item && timing.element == entry.element && timing.operations == 0;
    });
}

/// The target in words, and whether it is met.
std::pair<std::string, std::string> verdictOn(Case const & entry) {
    Target const * const target = targetOf(entry);
    if (!target || target->limits[0].peer.empty())
        return {};
    std::string text;
    bool isMet = entry.meetsRequirements, isMeasured = true;
    for (Limit const & limit : target->limits) {
        if (limit.peer.empty())
            continue;
        double const ratio = ratioTo(entry, limit.peer);
        isMeasured = isMeasured && ratio > 0 && (limit.peer != bestPeer || !lacksPeer(entry));
        isMet = isMet && ratio <= limit.ratio;
        text += (text.empty() ? "" : ", ") + formatted("%.2f ", limit.ratio) + std::string(limit.peer);
    }
    return {text, !isMeasured ? "not measured" : isMet ? "yes" : "NO"};
}

void addTimes(Case const & entry, Row const & competitors, Row & row) {
    for (std::string const & who : competitors) {
        Timing const * const timing = find(entry, who);
        bool const isRun = isTimed(timing);
        row.push_back(isRun                               ? nanoseconds(medianOf(timing->nanoseconds))
                      : timing && timing->operations == 0 ? "not installed"
                                                          : "");
        if (who != ours)
            row.push_back(isRun && isTimed(find(entry, ours)) ? ratioText(ratioTo(entry, who)) : "");
    }
}

void write(std::ostream & out, std::vector<Row> const & rows) {
    std::vector<std::size_t> widths(rows[0].size());
    for (Row const & row : rows)
        for (std::size_t c = 0; c < row.size(); ++c)
            widths[c] = std::max(widths[c], row[c].size());
    for (std::size_t r = 0; r < rows.size(); ++r) {
        for (std::size_t c = 0; c < widths.size(); ++c)
            out << "| " << rows[r][c] << std::string(widths[c] - rows[r][c].size() + 1, ' ');
        out << "|\n";
        if (r > 0)
            continue;
        for (std::size_t c = 0; c < widths.size(); ++c)
            out << (c == 0 ? "| " : "| ") << std::string(widths[c], '-') << (c == 0 ? " " : ":");
        out << "|\n";
    }
}

void writeItem(std::ostream & out, std::string const & item) {
    Row const competitors = competitorsIn(item);
    Row headings = {item + ", ns"};
    for (std::string const & who : competitors) {
        headings.push_back(who);
        if (who != ours)
            headings.push_back("ratio");
    }
    std::size_t const firstRemark = headings.size();
    std::vector<Row> rows;
    bool hasTarget = false;
    for (Case const & entry : cases()) {
        if (entry.item != item)
            continue;
        Row row = {entry.element};
        addTimes(entry, competitors, row);
        for (auto const & [heading, text] : entry.remarks) {
            if (std::find(headings.begin() + static_cast<std::ptrdiff_t>(firstRemark), headings.end(), heading) ==
                headings.end())
                headings.push_back(heading);
            row.push_back(text);
        }
        rows.push_back(row);
        hasTarget = hasTarget || !verdictOn(entry).first.empty();
    }
    std::size_t const columns = headings.size();
    for (Row & row : rows)
        row.resize(columns);
    if (hasTarget) {
        headings.insert(headings.end(), {"target", "met"});
        auto row = rows.begin();
        for (Case const & entry : cases())
            if (entry.item == item) {
                auto const [text, isMet] = verdictOn(entry);
                row->insert(row->end(), {text, isMet});
                ++row;
            }
    }
    rows.insert(rows.begin(), headings);
    write(out, rows);
}

} // namespace

void writeTables(std::ostream & out) {
    Row items;
    for (Timing const & timing : allTimings())
        if (isTimed(&timing) && std::find(items.begin(), items.end(), timing.item) == items.end())
            items.push_back(timing.item);
    for (std::string const & item : items) {
        out << '\n';
        writeItem(out, item);
    }
}

} // namespace bench
