// Lists of 1,000 strings and maps of 1,000 result labels beside other containers of the same strings: one kind of
// string in all, so that the containers are compared; and with the strings that go with them, as far as they are other.

#include "harness.h"
#include "subjects.h"

#include <cow_ConstMapIterator.h>
#include <cow_List.h>
#include <cow_ListIter.h>
#include <cow_Map.h>
#include <cow_String.h>
#if BENCH_QT
#include <QList>
#include <QString>
#endif

#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace bench {

namespace {

constexpr int length = 1000;
constexpr char listItem[] = "list of 1,000 strings";
constexpr char mapItem[] = "map of 1,000 labels";

/// Labels as results have them: most differ at the end only.
std::string labelOf(int i) {
    return "STRESS" + std::to_string(i % 10) + "_SP" + std::to_string(i);
}

/// What is the same for all lists but for names.
template <class List> struct Ordinary {
    static void append(List & list, typename List::value_type const & text) { list.push_back(text); }
    static auto const & at(List const & list, int i) { return list[i]; }
    static auto & write(List & list, int i) { return list[i]; }
    static int find(List const & list, typename List::value_type const & text) {
        return static_cast<int>(std::find(list.begin(), list.end(), text) - list.begin());
    }
    template <class Visit> static void walk(List const & list, Visit visit) {
        for (auto const & text : list)
            visit(text);
    }
};

struct Shared {
    using List = cow_List<cow_String>;
    static void append(List & list, cow_String const & text) { list.Append(text); }
    static cow_String const & at(List const & list, int i) { return list.ConstGet(i); }
    static cow_String & write(List & list, int i) { return list.Get(i); }
    static int find(List const & list, cow_String const & text) { return list.FindMember(text); }
    template <class Visit> static void walk(List const & list, Visit visit) {
        for (cow_ListIter<cow_String> it(list); it.NotDone(); it.Next())
            visit(it.CurrentItem());
    }
};

char const * bytes(cow_String const & text) {
    return text.CStr();
}
char const * bytes(std::string const & text) {
    return text.c_str();
}

#if BENCH_QT
QChar const * bytes(QString const & text) {
    return text.constData();
}
#endif

template <class List, class Way, class Text> void timeList(char const * who, std::vector<Text> const & source) {
    auto const texts = std::make_shared<std::vector<Text> const>(source);
    auto const list = std::make_shared<List>();
    for (Text const & text : source)
        Way::append(*list, text);
    auto const other = std::make_shared<Text const>("another text");

    int different = 0, i = 0;
    Way::walk(*list, [&](Text const & text) { different += !(text == source[static_cast<std::size_t>(i++)]); });
    List changed(*list);
    Way::write(changed, 500) = *other;
    for (int k = 0; k < length; ++k)
        different += Way::find(*list, source[static_cast<std::size_t>(k)]) != k ||
                     !(Way::at(*list, k) == source[static_cast<std::size_t>(k)]) ||
                     (Way::at(changed, k) == Way::at(*list, k)) == (k == 500);
    mustAgree(listItem, "contents", who, different + i - length, 0);

    timeWhole(listItem, "append", who, length, [=] {
        List grown;
        for (Text const & text : *texts)
            Way::append(grown, text);
        benchmark::DoNotOptimize(grown);
    });
    timeWhole(listItem, "read through an iterator", who, length, [=] {
        Way::walk(*list, [](Text const & text) {
            auto start = bytes(text);
            benchmark::DoNotOptimize(start);
        });
    });
    timeWhole(listItem, "read by index", who, length, [=] {
        for (int k = 0; k < length; ++k) {
            auto start = bytes(Way::at(*list, k));
            benchmark::DoNotOptimize(start);
        }
    });
    timeEach(listItem, "FindMember", who, 64, [=](int k) {
        int found = Way::find(*list, (*texts)[static_cast<std::size_t>(k * 15)]);
        benchmark::DoNotOptimize(found);
    });
    timeEach(listItem, "copy", who, 64, [=](int) {
        List copy(*list);
        benchmark::DoNotOptimize(copy);
    });
    timeEach(listItem, "copy and write one element", who, 64, [=](int k) {
        List copy(*list);
        Way::write(copy, k * 15) = *other;
        benchmark::DoNotOptimize(copy);
    });
}

void timeLists() {
    std::vector<cow_String> shared;
    std::vector<std::string> plain;
    for (int i = 0; i < length; ++i) {
        plain.push_back(labelOf(i));
        shared.emplace_back(plain.back().c_str());
    }
    timeList<cow_List<cow_String>, Shared>(ours, shared);
#if BENCH_QT
    timeList<QList<cow_String>, Ordinary<QList<cow_String>>>(qt, shared);
    std::vector<QString> qtTexts;
    for (std::string const & text : plain)
        qtTexts.push_back(QString::fromStdString(text));
    timeList<QList<QString>, Ordinary<QList<QString>>>("QList of QString", qtTexts);
#else
    for (char const * element : {"append", "copy", "copy and write one element"})
        notInstalled(listItem, element, qt);
#endif
    timeList<std::vector<cow_String>, Ordinary<std::vector<cow_String>>>(vector, shared);
    timeList<std::deque<cow_String>, Ordinary<std::deque<cow_String>>>(deque, shared);
    timeList<std::vector<std::string>, Ordinary<std::vector<std::string>>>("std::vector of std::string", plain);
}

template <class Map, class Way> void timeMap(char const * who) {
    auto const labels = std::make_shared<std::vector<cow_String>>();
    for (int i = 0; i < length; ++i)
        labels->emplace_back(labelOf(i * 331 % length).c_str());
    auto const map = std::make_shared<Map>();
    for (int i = 0; i < length; ++i)
        Way::insert(*map, (*labels)[static_cast<std::size_t>(i)], i);

    long sum = 0, different = 0;
    Way::walk(*map, [&](unsigned value) { sum += value; });
    for (int i = 0; i < length; ++i)
        different += Way::find(*map, (*labels)[static_cast<std::size_t>(i)]) != static_cast<unsigned>(i);
    mustAgree(mapItem, "contents", who, static_cast<double>(different + sum - length * (length - 1) / 2), 0);

    timeWhole(mapItem, "insert", who, length, [=] {
        Map grown;
        for (int i = 0; i < length; ++i)
            Way::insert(grown, (*labels)[static_cast<std::size_t>(i)], i);
        benchmark::DoNotOptimize(grown);
    });
    timeEach(mapItem, "look-up", who, length, [=](int i) {
        unsigned value = Way::find(*map, (*labels)[static_cast<std::size_t>(i)]);
        benchmark::DoNotOptimize(value);
    });
    timeWhole(mapItem, "walk", who, length,
              [=] { Way::walk(*map, [](unsigned value) { benchmark::DoNotOptimize(value); }); });
    timeEach(mapItem, "copy", who, 16, [=](int) {
        Map copy(*map);
        benchmark::DoNotOptimize(copy);
    });
    timeEach(mapItem, "copy and write one entry", who, 16, [=](int i) {
        Map copy(*map);
        Way::write(copy, (*labels)[static_cast<std::size_t>(i * 61)]) = 7;
        benchmark::DoNotOptimize(copy);
    });
}

struct SharedMap {
    using Map = cow_Map<cow_String, unsigned int>;
    static void insert(Map & map, cow_String const & key, int value) { map.Insert(key, static_cast<unsigned>(value)); }
    static unsigned find(Map const & map, cow_String const & key) { return map.ConstGet(key); }
    static unsigned & write(Map & map, cow_String const & key) { return map.Get(key); }
    template <class Visit> static void walk(Map const & map, Visit visit) {
        cow_ConstMapIterator<cow_String, unsigned int> it(map);
        for (it.First(); !it.IsDone(); it.Next())
            visit(it.CurrentValue());
    }
};

struct OrdinaryMap {
    using Map = std::map<cow_String, unsigned int>;
    static void insert(Map & map, cow_String const & key, int value) { map[key] = static_cast<unsigned>(value); }
    static unsigned find(Map const & map, cow_String const & key) { return map.find(key)->second; }
    static unsigned & write(Map & map, cow_String const & key) { return map.find(key)->second; }
    template <class Visit> static void walk(Map const & map, Visit visit) {
        for (auto const & [key, value] : map)
            visit(value);
    }
};

} // namespace

void timeContainers() {
    timeLists();
    timeMap<SharedMap::Map, SharedMap>(ours);
    timeMap<OrdinaryMap::Map, OrdinaryMap>(map);
}

} // namespace bench
