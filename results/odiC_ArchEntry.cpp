#include "odiC_ArchEntry.h"

#include <iterator>

typ_ArchCompEntry odiC_ArchEntry() {
    static constexpr typ_Entry rows[] = {
        {0, 1, nullptr},
        {4, typ_reference(31, 3), "odiC_Exception"},
    };
    return {rows, std::size(rows)};
}
