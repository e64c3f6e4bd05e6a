#ifndef typ_ArchCompEntry_h
#define typ_ArchCompEntry_h

#include "typ_Entry.h"

/// The table of one component: a view, so that the rows must outlive it. Row 0 is the header.
class typ_ArchCompEntry {
public:
    /// An entry without rows.
    constexpr typ_ArchCompEntry() noexcept = default;
    /// `rows` has `numRows` rows.
    constexpr typ_ArchCompEntry(typ_Entry const * rows, unsigned int numRows) noexcept
        : firstRow(rows), rowCount(numRows) {}

    /// The header included.
    constexpr unsigned int NumRows() const noexcept { return rowCount; }
    /// The row of that number; null when the table ends before it.
    constexpr typ_Entry const * Row(unsigned int row) const noexcept {
        return row < rowCount ? firstRow + row : nullptr;
    }

private:
    typ_Entry const * firstRow = nullptr;
    unsigned int rowCount = 0;
};

#endif
