// Any bytes as a label: only what the catalogue has, in whatever case, gives a shape, and each label gives one.

#include "input.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace {

/// The catalogue a second time, for look-ups that do not go through the library.
std::unordered_map<std::string_view, shp_Shape const *> const & shapeByLabel() {
    static auto const map = [] {
        std::unordered_map<std::string_view, shp_Shape const *> labels;
        for (shp_Shape const * shape : allShapes())
            labels.emplace(shape->label.CStr(), shape);
        return labels;
    }();
    return map;
}

std::string upperCase(std::string text) {
    for (char & letter : text)
        if ('a' <= letter && letter <= 'z')
            letter = static_cast<char>(letter - 'a' + 'A');
    return text;
}

void check(std::string const & text) {
    auto const known = shapeByLabel().find(upperCase(text));
    shp_Shape const * const expected = known != shapeByLabel().end() ? known->second : nullptr;
    shp_Shape const * const shape = dictionary().GetShape(text.c_str());
    require(shape == expected, expected ? "a known label gives its shape" : "an unknown label gives null",
            text.c_str());
    require(!shape || upperCase(text) == shape->label.CStr(), "a shape has the label by which it was asked for",
            text.c_str());
}

/// A label of the catalogue in a mixture of cases.
std::string knownLabel(Input & input) {
    std::string label = allShapes()[input.below(allShapes().size())]->label.CStr();
    std::uint64_t lower = input.bits(2);
    for (char & letter : label) {
        if ('A' <= letter && letter <= 'Z' && (lower & 1) != 0)
            letter = static_cast<char>(letter - 'A' + 'a');
        lower = lower >> 1 | lower << 15;
    }
    return label;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
    std::string const text(data, data + size);
    check(text.c_str()); // up to the first zero

    Input input(data, size);
    std::string label = knownLabel(input);
    check(label);
    check(label + text.c_str());
    label[input.below(label.size())] = static_cast<char>(input.byte() | 1);
    check(label);
    return 0;
}
