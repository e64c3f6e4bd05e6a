#ifndef omi_SingletonRegistry_h
#define omi_SingletonRegistry_h

#include "QVRShpCore_Export.h"
#include "mem_AllocationOperators.h"
#include "mem_Allocator.h"

#include <string>
#include <vector>

/// The singletons that are alive, by name. A name is an opaque key; singletons enter themselves under the text of their
/// run-time type name (see omi_Singleton.h).
class QVRSHPCORE_API omi_SingletonRegistry : public mem_AllocationOperators {
public:
    /// The registry, made by the first call; null when there is no memory for it. It lives until the library is
    /// unloaded.
    static omi_SingletonRegistry * Instance() noexcept;

    /// Enters `singleton` under a copy of `name`; a name that is there already gets the new address.
    void Add(char const * name, void * singleton);

    /// Takes the entry out; does nothing when there is none.
    void Remove(char const * name) noexcept;

    /// The address that stands under `name`, or null.
    void * Find(char const * name) const noexcept;

    omi_SingletonRegistry(omi_SingletonRegistry const &) = delete;
    omi_SingletonRegistry & operator=(omi_SingletonRegistry const &) = delete;

private:
    using Name = std::basic_string<char, std::char_traits<char>, mem_Allocator<char>>;
    struct Entry {
        Name name;
        void * singleton;
    };

    omi_SingletonRegistry() = default;
    ~omi_SingletonRegistry() = default;
    static void release();

    std::vector<Entry, mem_Allocator<Entry>> entries;
};

#endif
