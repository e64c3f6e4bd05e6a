#include "box_grid.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

using Coordinates = std::array<double, 3>;

Coordinates coordinates(g3d_Storage const & point) {
    return {point.X(), point.Y(), point.Z()};
}

Box boundsOf(std::vector<Box> const & boxes) {
    Box bounds = boxes.empty() ? Box{} : boxes.front();
    for (Box const & box : boxes)
        for (std::size_t d = 0; d < 3; ++d) {
            bounds.low[d] = std::min(bounds.low[d], box.low[d]);
            bounds.high[d] = std::max(bounds.high[d], box.high[d]);
        }
    return bounds;
}

/// Cells in each direction: as long as an average box in it.
std::array<int, 3> columnsFor(std::vector<Box> const & boxes, Box const & bounds) {
    constexpr double mostColumns = 256;
    std::array<int, 3> columns{};
    for (std::size_t d = 0; d < 3; ++d) {
        double total = 0;
        for (Box const & box : boxes)
            total += box.high[d] - box.low[d];
        double const average = total / static_cast<double>(std::max<std::size_t>(boxes.size(), 1));
        double const extent = bounds.high[d] - bounds.low[d];
        columns[d] = average > 0 ? static_cast<int>(std::clamp(extent / average, 1.0, mostColumns)) : 1;
    }
    return columns;
}

} // namespace

bool Box::holds(g3d_Storage const & point) const {
    Coordinates const p = coordinates(point);
    for (std::size_t d = 0; d < 3; ++d)
        if (!(p[d] >= low[d] && p[d] <= high[d]))
            return false;
    return true;
}

bool Box::meets(g3d_Storage const & start, g3d_Storage const & end) const {
    Coordinates const from = coordinates(start);
    Coordinates const to = coordinates(end);
    double entry = 0;
    double exit = 1;
    for (std::size_t d = 0; d < 3; ++d) {
        double const step = to[d] - from[d];
        if (step == 0) {
            if (!(from[d] >= low[d] && from[d] <= high[d]))
                return false;
            continue;
        }
        double const atLow = (low[d] - from[d]) / step;
        double const atHigh = (high[d] - from[d]) / step;
        entry = std::max(entry, std::min(atLow, atHigh));
        exit = std::min(exit, std::max(atLow, atHigh));
    }
    return entry <= exit;
}

BoxGrid::BoxGrid(std::vector<Box> allBoxes)
    : all(std::move(allBoxes)), bounds(boundsOf(all)), columns(columnsFor(all, bounds)) {
    std::size_t const cells = cellAt({0, 0, columns[2]});
    std::vector<std::size_t> counts(cells, 0);
    for (Box const & box : all)
        forEachCellOf(box, [&](std::size_t cell) { ++counts[cell]; });
    firstOf.assign(cells + 1, 0);
    std::partial_sum(counts.begin(), counts.end(), firstOf.begin() + 1);
    entries.resize(firstOf.back());
    std::vector<std::size_t> next = firstOf;
    for (std::size_t i = 0; i < all.size(); ++i)
        forEachCellOf(all[i], [&](std::size_t cell) { entries[next[cell]++] = static_cast<int>(i); });
}

std::vector<int> BoxGrid::at(g3d_Storage const & point) const {
    std::vector<int> found;
    if (all.empty() || !bounds.holds(point))
        return found;
    std::size_t const cell = cellAt({column(0, point.X()), column(1, point.Y()), column(2, point.Z())});
    for (std::size_t i = firstOf[cell]; i < firstOf[cell + 1]; ++i)
        if (all[static_cast<std::size_t>(entries[i])].holds(point))
            found.push_back(entries[i]);
    return found;
}

std::vector<int> BoxGrid::along(g3d_Storage const & start, g3d_Storage const & end) const {
    std::vector<int> found;
    for (std::size_t i = 0; i < all.size(); ++i)
        if (all[i].meets(start, end))
            found.push_back(static_cast<int>(i));
    return found;
}

/// The column of a coordinate within the bounds; rises with it.
int BoxGrid::column(int axis, double coordinate) const {
    auto const d = static_cast<std::size_t>(axis);
    double const extent = bounds.high[d] - bounds.low[d];
    double const fraction = extent > 0 ? (coordinate - bounds.low[d]) / extent : 0;
    return std::min(static_cast<int>(fraction * columns[d]), columns[d] - 1);
}

std::size_t BoxGrid::cellAt(std::array<int, 3> const & c) const {
    auto const size = [&](int d) { return static_cast<std::size_t>(columns[static_cast<std::size_t>(d)]); };
    return (static_cast<std::size_t>(c[2]) * size(1) + static_cast<std::size_t>(c[1])) * size(0) +
           static_cast<std::size_t>(c[0]);
}

template <class Visit> void BoxGrid::forEachCellOf(Box const & box, Visit visit) const {
    std::array<int, 3> first{}, last{}, c{};
    for (int d = 0; d < 3; ++d) {
        auto const i = static_cast<std::size_t>(d);
        first[i] = column(d, box.low[i]);
        last[i] = column(d, box.high[i]);
    }
    for (c[2] = first[2]; c[2] <= last[2]; ++c[2])
        for (c[1] = first[1]; c[1] <= last[1]; ++c[1])
            for (c[0] = first[0]; c[0] <= last[0]; ++c[0])
                visit(cellAt(c));
}
