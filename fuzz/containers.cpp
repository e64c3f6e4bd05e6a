// Copy-on-write lists and maps under any sequence of operations, some of which fail half-way, beside plain models.

#include "../tests/container_models.h"
#include "input.h"

namespace {

/// Draws from the bytes of an input. Each time round they stand for other numbers, so that a short input goes far.
class Draw {
public:
    Draw(std::uint8_t const * bytes, std::size_t count) : data(bytes), size(count) {}

    int operator()(int n) {
        unsigned int const first = byte();
        return static_cast<int>((n > 256 ? first << 8 | byte() : first) % static_cast<unsigned int>(n));
    }

private:
    unsigned int byte() {
        auto const round = static_cast<unsigned int>(next / size);
        return (data[next++ % size] * (2 * round + 1) + 157 * round) % 256;
    }

    std::uint8_t const * data;
    std::size_t size;
    std::size_t next = 0;
};

/// Elements that are alive between inputs: none but the values that maps keep for absent keys.
int aliveBetweenInputs() {
    TrackedMap map;
    map.ConstGet("absent");
    map.Get("absent");
    return Tracked::alive;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    static int const alive = aliveBetweenInputs();
    if (size < 2)
        return 0;
    try {
        if (data[0] % 2 == 0)
            runListModel(Draw(data + 1, size - 1), 12);
        else
            runMapModel(Draw(data + 1, size - 1), 12);
    } catch (std::logic_error const & broken) {
        require(false, broken.what(), "");
    }
    require(Tracked::alive == alive, "every element is destroyed", "");
    return 0;
}
