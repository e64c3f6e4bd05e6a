#include "cls_Uid.h"

#include <bit>
#include <chrono>

namespace {

template <class Clock> std::uint64_t now() noexcept {
    return static_cast<std::uint64_t>(Clock::now().time_since_epoch().count());
}

/// Where a process begins to count: two that start in the same instant differ in what the second clock says and in
/// where the system has put them.
std::uint64_t start() noexcept {
    int const place = 0;
    std::uint64_t mixed = now<std::chrono::steady_clock>() ^ std::rotl(std::bit_cast<std::uintptr_t>(&place), 32);
    mixed = (mixed ^ mixed >> 30) * 0xbf58476d1ce4e5b9u; // the finaliser of splitmix64 (Steele, Lea and Flood, 2014)
    mixed = (mixed ^ mixed >> 27) * 0x94d049bb133111ebu;
    return mixed ^ mixed >> 31;
}

constinit bool hasStarted = false;
constinit std::uint64_t count = 0;

} // namespace

// The count keeps identities of one process apart; the time, those of a process and of its copies after a fork, too.
cls_Uid cls_Uid::AllocateUid() noexcept {
    if (!hasStarted) {
        count = start();
        hasStarted = true;
    }
    if (++count == 0)
        ++count;
    return cls_Uid(now<std::chrono::system_clock>(), count);
}
