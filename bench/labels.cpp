// From a label to its shape, and what it costs to have the catalogue and the shapes.

#include "harness.h"
#include "subjects.h"

#include <LongKey.h>
#include <omi_BtreeIterator.h>
#include <shp_Shape.h>
#include <shp_ShapeDictionary.h>

#include <cctype>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace bench {

namespace {

using Dictionary = omi_Singleton<shp_ShapeDictionary>;

/// The labels of the catalogue in their order, as each side holds its texts, and their keys.
struct Labels {
    Labels() {
        omi_BtreeIterator<cow_String, void *> all(Dictionary::Instance().Keys());
        for (bool isLabel = all.First(); isLabel; isLabel = all.Next()) {
            plainUpper.emplace_back(all.CurrentKey().CStr());
            plainLower.push_back(plainUpper.back());
            for (char & c : plainLower.back())
                c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            upper.emplace_back(plainUpper.back().c_str());
            lower.emplace_back(plainLower.back().c_str());
            keys.push_back(*static_cast<LongKey const *>(all.CurrentValue()));
        }
    }
    int count() const { return static_cast<int>(upper.size()); }

    std::vector<std::string> plainUpper, plainLower;
    std::vector<cow_String> upper, lower;
    std::vector<LongKey> keys;
};

/// What a caller would write to have shapes by label.
using Map = std::unordered_map<std::string, shp_Shape const *>;

shp_Shape const * find(Map const & shapes, std::string const & label) {
    std::string upper = label;
    for (char & c : upper)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    auto const found = shapes.find(upper);
    return found == shapes.end() ? nullptr : found->second;
}

shp_Shape const * lookUp(cow_String const & label) {
    return Dictionary::Instance().GetShape(label);
}

void timeLookUp(std::shared_ptr<Labels const> const & labels) {
    constexpr char item[] = "look-up by label";
    // The addresses that the map holds last until the catalogue is filled again.
    auto const shapes = std::make_shared<Map>();
    auto const refresh = [=] {
        for (int i = 0; i < labels->count(); ++i)
            (*shapes)[labels->plainUpper[i]] = lookUp(labels->upper[i]);
    };
    refresh();
    int different = 0;
    for (int i = 0; i < labels->count(); ++i)
        different += lookUp(labels->lower[i]) != find(*shapes, labels->plainLower[i]) ||
                     lookUp(labels->upper[i]) != find(*shapes, labels->plainUpper[i]) || !lookUp(labels->upper[i]);
    mustAgree(item, "both cases", unorderedMap, different, 0);

    // Not in the order of the catalogue, which the processor would learn.
    auto const order = [count = labels->count()](int i) { return i * 331 % count; };
    auto const ourLookUp = [=](std::vector<cow_String> const & texts) {
        return [=, &texts](int i) {
            shp_Shape const * shape = lookUp(texts[order(i)]);
            benchmark::DoNotOptimize(shape);
        };
    };
    auto const mapLookUp = [=](std::vector<std::string> const & texts) {
        return [=, &texts](int i) {
            shp_Shape const * shape = find(*shapes, texts[order(i)]);
            benchmark::DoNotOptimize(shape);
        };
    };
    timeEach(item, "upper case", ours, labels->count(), ourLookUp(labels->upper));
    timeEach(item, "lower case", ours, labels->count(), ourLookUp(labels->lower));
    timeEach(item, "upper case", unorderedMap, labels->count(), mapLookUp(labels->plainUpper));
    timeEach(item, "lower case", unorderedMap, labels->count(), mapLookUp(labels->plainLower));
    // From the text of a literal, of which each makes its own kind of text first.
    timeEach(item, "from a char const *", ours, labels->count(), [=](int i) {
        shp_Shape const * shape = lookUp(labels->plainUpper[order(i)].c_str());
        benchmark::DoNotOptimize(shape);
    });
    timeEach(item, "from a char const *", unorderedMap, labels->count(), [=](int i) {
        shp_Shape const * shape = find(*shapes, labels->plainUpper[order(i)].c_str());
        benchmark::DoNotOptimize(shape);
    });
}

void timeCatalogue(std::shared_ptr<Labels const> const & labels) {
    constexpr char item[] = "catalogue of 862 labels, a label";
    auto const empty = [] { omi_SingletonBase<shp_ShapeDictionary>::Finalize(); };
    auto const fill = [] { benchmark::DoNotOptimize(&Dictionary::Instance()); };
    timePrepared(item, "filling", ours, labels->count(), empty, fill);

    auto const keys = std::make_shared<std::unordered_map<std::string, LongKey>>();
    timePrepared(
        item, "filling", unorderedMap, labels->count(), [=] { *keys = {}; },
        [=] {
            for (int i = 0; i < labels->count(); ++i)
                keys->emplace(labels->plainUpper[i], labels->keys[i]);
            benchmark::ClobberMemory();
        });
    timePrepared(
        item, "first GetShape", ours, labels->count(),
        [=] {
            empty();
            fill();
        },
        [=] {
            for (cow_String const & label : labels->upper)
                benchmark::DoNotOptimize(lookUp(label));
        });
}

} // namespace

void timeLabels() {
    auto const labels = std::make_shared<Labels const>();
    timeLookUp(labels);
    timeCatalogue(labels);
}

} // namespace bench
