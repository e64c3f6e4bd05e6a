#include "typ_ArchCompTable.h"

#include "mem_AllocationOperators.h"
#include "mem_Allocator.h"
#include "omi_AtExit.h"

#include <algorithm>
#include <vector>

namespace {

struct Component {
    unsigned short number;
    typ_ArchCompEntry entry;
};

/// Entered in the order of starts: a few, so that a search from the front will do.
struct Components : mem_AllocationOperators {
    std::vector<Component, mem_Allocator<Component>> list;

    Component * find(unsigned short number) {
        auto const found = std::ranges::find(list, number, &Component::number);
        return found != list.end() ? &*found : nullptr;
    }
};

// The first entries come before this file's initialisers would have run.
constinit Components * components = nullptr;

void release() {
    delete components;
    components = nullptr;
}

} // namespace

void typ_ArchCompTable::InsertEntry(unsigned short component, typ_ArchCompEntry entry) {
    if (components == nullptr) {
        components = new Components;
        omi_freeAtUnload(release);
    }
    if (Component * const known = components->find(component))
        known->entry = entry;
    else
        components->list.push_back({component, entry});
}

typ_ArchCompEntry typ_ArchCompTable::Find(unsigned short component) noexcept {
    Component const * const known = components != nullptr ? components->find(component) : nullptr;
    return known != nullptr ? known->entry : typ_ArchCompEntry();
}

typ_Entry const * typ_ArchCompTable::FindRow(std::uint32_t reference) noexcept {
    return Find(static_cast<unsigned short>(reference >> 16)).Row(reference & 0xffff);
}

unsigned int typ_ArchCompTable::NumEntries() noexcept {
    return components != nullptr ? static_cast<unsigned int>(components->list.size()) : 0;
}
