#ifndef input_h
#define input_h

// What all fuzz targets share: reading a fuzzer's bytes, the shapes of the catalogue, and the end of a broken law.

#include "omi_BtreeIterator.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

/// One input, called by libFuzzer, or for each file by the replay program. A crash, a sanitizer's report or a broken
/// law is a defect.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size);

/// Bytes that start again from the front when they run out: short inputs fill big elements.
class Input {
public:
    Input(std::uint8_t const * bytes, std::size_t count) : data(bytes), size(count) {}

    std::uint8_t byte() { return size == 0 ? std::uint8_t{0} : data[next++ % size]; }
    std::uint64_t bits(int bytes) {
        std::uint64_t value = 0;
        for (int i = 0; i < bytes; ++i)
            value = value << 8 | byte();
        return value;
    }
    /// A number below `count`.
    std::size_t below(std::size_t count) { return (count > 256 ? bits(2) : bits(1)) % count; }
    /// -1 to 1, both included, with 0 in the middle.
    double fraction() { return (byte() % 255 - 127) / 127.0; }

private:
    std::uint8_t const * data;
    std::size_t size;
    std::size_t next = 0;
};

/// Ends the program, for the fuzzer to keep the input, unless `holds`.
inline void require(bool holds, char const * law, char const * label) {
    if (holds)
        return;
    std::fprintf(stderr, "Broken law: %s (%s)\n", law, label);
    std::abort();
}

inline shp_ShapeDictionary & dictionary() {
    return omi_Singleton<shp_ShapeDictionary>::Instance();
}

/// The shapes of all labels, in ascending label order.
inline std::vector<shp_Shape const *> const & allShapes() {
    static std::vector<shp_Shape const *> const shapes = [] {
        std::vector<shp_Shape const *> all;
        omi_BtreeIterator<cow_String, void *> labels(dictionary().Keys());
        for (bool isLabel = labels.First(); isLabel; isLabel = labels.Next())
            all.push_back(dictionary().GetShape(labels.CurrentKey()));
        return all;
    }();
    return shapes;
}

/// Built before the first input, so that no input gets the credit for the branches that this takes.
inline bool const isCatalogueBuilt = !allShapes().empty();

#endif
