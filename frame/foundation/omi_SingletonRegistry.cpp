#include "omi_SingletonRegistry.h"

#include "omi_AtExit.h"

#include <algorithm>

namespace {

constinit omi_SingletonRegistry * registry = nullptr;

} // namespace

omi_SingletonRegistry * omi_SingletonRegistry::Instance() noexcept {
    if (registry == nullptr) {
        try {
            registry = new omi_SingletonRegistry;
        } catch (...) {
            return nullptr;
        }
        omi_freeAtUnload(release);
    }
    return registry;
}

void omi_SingletonRegistry::release() {
    delete registry;
    registry = nullptr;
}

void omi_SingletonRegistry::Add(char const * name, void * singleton) {
    auto const entry = std::find_if(entries.begin(), entries.end(), [name](Entry const & e) { return e.name == name; });
    if (entry != entries.end())
        entry->singleton = singleton;
    else
        entries.push_back({name, singleton});
}

void omi_SingletonRegistry::Remove(char const * name) noexcept {
    std::erase_if(entries, [name](Entry const & e) { return e.name == name; });
}

void * omi_SingletonRegistry::Find(char const * name) const noexcept {
    auto const entry = std::find_if(entries.begin(), entries.end(), [name](Entry const & e) { return e.name == name; });
    return entry != entries.end() ? entry->singleton : nullptr;
}
