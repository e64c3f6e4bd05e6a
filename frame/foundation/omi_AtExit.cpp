#include "omi_AtExit.h"

#include <cstdlib>
#include <iterator>

namespace {

using Release = void (*)();
constinit Release releases[32] = {};
constinit int numReleases = 0;

#if !defined(_WIN32)
// The unload notification has the priority 110: destructor functions run from the highest number to the lowest.
[[gnu::destructor(101)]] void onUnload() {
    omi_freeAll();
}
#endif

} // namespace

void omi_freeAll() noexcept {
    while (numReleases > 0)
        releases[--numReleases]();
}

void omi_freeAtUnload(void (*release)()) noexcept {
    for (int i = 0; i < numReleases; ++i)
        if (releases[i] == release)
            return;
    if (numReleases == static_cast<int>(std::size(releases)))
        std::abort();
    releases[numReleases++] = release;
}
