#ifndef typ_ArchCompTable_h
#define typ_ArchCompTable_h

#include "QVRShpCore_Export.h"
#include "typ_ArchCompEntry.h"

/// The tables of all components with persistent types, by component number. The modules enter theirs when they start;
/// an entry stays until the library is unloaded. Not safe for concurrent use.
class QVRSHPCORE_API typ_ArchCompTable {
public:
    /// Enters the table of a component, in the place of an earlier one of the same number. Raises the exception for
    /// exhausted memory, and has then changed nothing.
    static void InsertEntry(unsigned short component, typ_ArchCompEntry entry);

    /// The table of a component; one without rows when none was entered.
    static typ_ArchCompEntry Find(unsigned short component) noexcept;
    /// The row that a reference names, or null.
    static typ_Entry const * FindRow(std::uint32_t reference) noexcept;
    /// How many components are entered.
    static unsigned int NumEntries() noexcept;

    typ_ArchCompTable() = delete;
};

#endif
