#ifndef box_grid_h
#define box_grid_h

#include <g3d_Storage.h>

#include <array>
#include <vector>

/// A box along the axes, its bounds included.
struct Box {
    std::array<double, 3> low;
    std::array<double, 3> high;

    bool holds(g3d_Storage const & point) const;
    /// True when the box has a point of the straight segment from `start` to `end`.
    bool meets(g3d_Storage const & start, g3d_Storage const & end) const;
};

/// Many boxes, entered into the cells of a uniform grid, so that those at one point are found without asking all.
class BoxGrid {
public:
    explicit BoxGrid(std::vector<Box> allBoxes);

    std::vector<Box> const & boxes() const { return all; }
    /// The numbers of the boxes that hold `point`, ascending.
    std::vector<int> at(g3d_Storage const & point) const;
    /// The numbers of the boxes that the segment meets, ascending. Asks every box.
    std::vector<int> along(g3d_Storage const & start, g3d_Storage const & end) const;

private:
    int column(int axis, double coordinate) const;
    std::size_t cellAt(std::array<int, 3> const & columns) const;
    template <class Visit> void forEachCellOf(Box const & box, Visit visit) const;

    std::vector<Box> all;
    Box bounds{};                     ///< of all boxes
    std::array<int, 3> columns{};     ///< cells in each direction
    std::vector<std::size_t> firstOf; ///< entries of cell c: from firstOf[c] to firstOf[c + 1] in `entries`
    std::vector<int> entries;
};

#endif
