#ifndef container_models_h
#define container_models_h

// Copy-on-write lists and maps beside plain models of them: several sharers and live iterators, of which all but the
// one written to must stay as they are. Now and then a copy or an allocation fails in the midst of an operation.
// Whoever runs a model draws its choices: `draw(n)` gives a number from 0 to n - 1.

#include "cow_ConstMapIterator.h"
#include "cow_ListIter.h"
#include "memory_refusals.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

inline void require(bool holds, char const * law) {
    if (!holds)
        throw std::logic_error(law);
}

/// An element that counts how many are alive, fails at a chosen copy, and can tell whether it was ever built.
class Tracked {
public:
    Tracked(int number = 0) : value(number) { ++alive; }
    Tracked(Tracked const & other) : value(other.value) {
        maybeFail();
        ++alive;
    }
    Tracked & operator=(Tracked const & other) {
        require(mark == built && other.mark == built, "assignment between live elements");
        maybeFail();
        value = other.value;
        return *this;
    }
    ~Tracked() {
        if (mark != built)
            std::abort();
        mark = 0;
        --alive;
    }
    static void * operator new(std::size_t size) { return mem_OperatorNewThrow(size); } // hides the placement form
    static void operator delete(void * block) { mem_Free(block); }

    bool operator==(Tracked const & other) const { return value == other.value; }
    bool operator<(Tracked const & other) const { return value < other.value; }

    int value;
    static inline int alive = 0;
    static inline int copiesUntilFailure = -1; ///< the copy that raises an int, counted from 1; never if below

private:
    static void maybeFail() {
        if (copiesUntilFailure > 0 && --copiesUntilFailure == 0)
            throw 1;
    }
    static constexpr int built = 0x5eed1ea5;
    int mark = built;
};

/// What became of an operation.
enum class Outcome { done, copyFailed, memoryFailed };

/// Does `work`, one time in eight with one of its copies or of its allocations failing.
template <class Draw, class Work> Outcome attempt(Draw & draw, Work work) {
    int const kind = draw(16);
    int const failing = kind < 2 ? 1 + draw(draw(2) == 0 ? 4 : 40) : 0;
    Outcome outcome = Outcome::done;
    try {
        std::optional<MemoryRefusal> refusal;
        if (kind == 0)
            refusal.emplace(failing);
        if (kind == 1)
            Tracked::copiesUntilFailure = failing;
        work();
    } catch (int) {
        outcome = Outcome::copyFailed;
    } catch (mem_OutOfMemoryException const &) {
        outcome = Outcome::memoryFailed;
    }
    Tracked::copiesUntilFailure = -1;
    return outcome;
}

using TrackedList = cow_List<Tracked>;

/// By index, from both sides of `const`, and by iterator.
inline void requireSame(TrackedList const & list, std::vector<int> const & model) {
    require(list.Length() == static_cast<int>(model.size()) && list.IsEmpty() == model.empty(), "length of a list");
    cow_ListIter<Tracked> it(list);
    for (int i = 0; i < list.Length(); ++i, it.Next()) {
        require(list[i].value == model[static_cast<std::size_t>(i)], "element by index");
        require(it.NotDone() && it.ArrayIndex() == i && &it.CurrentItem() == &list[i], "element by iterator");
    }
    require(it.IsDone() && it.ArrayIndex() == list.Length(), "end of an iterator");
    it.Next();
    require(it.IsDone() && it.ArrayIndex() == list.Length() + 1, "step from the end of an iterator");
}

/// One operation on `list` and the same on `model`. `other` may be `list`.
template <class Draw>
void operate(Draw & draw, TrackedList & list, std::vector<int> & model, TrackedList const & other,
             std::vector<int> const & otherModel) {
    int const length = list.Length();
    int const i = length > 0 ? draw(length) : 0;
    int const at = draw(length + 1);
    int const count = draw(70);
    int const v = draw(40);
    Tracked const x(v);
    auto const place = model.begin() + at;
    auto const isOther = [&](int value) { return std::count(otherModel.begin(), otherModel.end(), value) != 0; };
    switch (draw(length > 0 ? 18 : 10)) {
    case 0: list.Append(x), model.push_back(v); break;
    case 1: list.Prepend(x), model.insert(model.begin(), v); break;
    case 2: list.InsertIndex(at, x), model.insert(place, v); break;
    case 3: list.Fill(count, x), model.resize(static_cast<std::size_t>(std::max(count, length)), v); break;
    case 4: list.Resize(i - 3), model.resize(static_cast<std::size_t>(std::max(i - 3, 0))); break;
    case 5: list.Resize(length + count * 9); break;
    case 6: {
        std::vector<Tracked> const source(static_cast<std::size_t>(count), x);
        list.SetFromArray(source.data(), count), model.assign(source.size(), v);
        break;
    }
    case 7:
        if (std::vector<int> const added(otherModel); added.size() + model.size() < 300)
            list.Concatenate(other), model.insert(model.end(), added.begin(), added.end());
        break;
    case 8:
        require((list == other) == (model == otherModel), "equality");
        list = TrackedList(cow_listConstruct, draw(600)), model.clear();
        break;
    case 9:
        list.AppendUnlessMember(x);
        if (std::count(model.begin(), model.end(), v) == 0)
            model.push_back(v);
        break;
    case 10: list.InsertIndex(at, list.ConstGet(i)), model.insert(place, int(model[std::size_t(i)])); break;
    case 11: list.RemoveIndex(i), model.erase(model.begin() + i); break;
    case 12: require(list.Pop().value == model.back(), "last element"), model.pop_back(); break;
    case 13: list.Get(i) = x, model[std::size_t(i)] = v; break;
    case 14:
        list = list.Slice(i - 5, at + 5), model.resize(std::size_t(std::clamp(at + 5, std::max(i - 5, 0), length)));
        model.erase(model.begin(), model.begin() + std::max(i - 5, 0));
        break;
    case 15: list = list.Difference(other), std::erase_if(model, isOther); break;
    case 16: list.Sort(), std::sort(model.begin(), model.end()); break;
    case 17: {
        int number = 0;
        std::unique_ptr<Tracked[]> const array(list.GetCArray(number));
        require(std::equal(array.get(), array.get() + number, model.begin(), model.end()), "elements as an array");
        break;
    }
    default: break;
    }
    auto const found = std::find(model.begin(), model.end(), v);
    require(list.FindMember(x) == (found == model.end() ? -1 : static_cast<int>(found - model.begin())), "search");
    if (draw(2) == 0) {
        list.RemoveMember(x);
        if (found != model.end())
            model.erase(found);
    }
}

template <class Draw> void runListModel(Draw draw, int steps) {
    constexpr int sharers = 3;
    struct Walk {
        cow_ListIter<Tracked> it;
        std::vector<int> model;
    };
    TrackedList lists[sharers];
    std::vector<int> models[sharers];
    std::unique_ptr<Walk> walks[3];
    for (int step = 0; step < steps; ++step) {
        int const n = draw(sharers);
        int const other = draw(sharers);
        if (draw(8) == 0) {
            lists[n] = lists[other];
            models[n] = models[other];
        } else if (draw(8) == 0) {
            auto & walk = walks[draw(3)];
            walk.reset(draw(4) == 0 ? nullptr : new Walk{cow_ListIter<Tracked>(lists[n]), models[n]});
        } else {
            auto const operation = [&] { operate(draw, lists[n], models[n], lists[other], models[other]); };
            if (attempt(draw, operation) != Outcome::done) { // what was moved by then stays moved
                models[n].clear();
                for (cow_ListIter<Tracked> it(lists[n]); it.NotDone(); it.Next())
                    models[n].push_back(it.CurrentItem().value);
            }
        }
        requireSame(lists[n], models[n]);
        if (step % 16 != 15 && step + 1 != steps)
            continue;
        for (int k = 0; k < sharers; ++k)
            requireSame(lists[k], models[k]);
        for (auto & walk : walks)
            if (walk != nullptr) {
                walk->it.First();
                for (int const value : walk->model) {
                    require(walk->it.NotDone() && walk->it.CurrentItem().value == value, "iterator of old contents");
                    walk->it.Next();
                }
                require(walk->it.IsDone(), "end of old contents");
            }
    }
}

using TrackedMap = cow_Map<cow_String, Tracked>;

/// The tree behind a map, plainly: each entry under its path from the root, '0' for left and '1' for right. The order
/// of the paths is the order of iteration.
class PlainTree {
public:
    struct Entry {
        std::string key;
        int value;
    };
    std::map<std::string, Entry> entries;

    /// The path of a key, or where it would be inserted.
    std::string pathOf(std::string const & key) const {
        std::string path;
        for (auto it = entries.find(path); it != entries.end() && it->second.key != key; it = entries.find(path))
            path += bit(key, path.size());
        return path;
    }
    bool has(std::string const & key) const { return entries.count(pathOf(key)) != 0; }
    void insert(std::string const & key, int value) { entries[pathOf(key)] = {key, value}; }
    void remove(std::string const & key) {
        std::string path = pathOf(key);
        for (;;) {
            std::string child = path + '1';
            if (entries.count(child) == 0)
                child = path + '0';
            if (entries.count(child) == 0)
                break;
            entries[path] = entries[child];
            path = child;
        }
        entries.erase(path);
    }

private:
    static char bit(std::string const & key, std::size_t level) {
        if (level > key.size())
            return '0';
        std::string const fromItsSide = level % 2 == 0 ? key : std::string(key.rbegin(), key.rend());
        return fromItsSide.c_str()[level / 2] % 2 != 0 ? '1' : '0';
    }
};

inline void requireSame(cow_ConstMapIterator<cow_String, Tracked> & it, PlainTree const & model) {
    it.First();
    for (auto const & [path, entry] : model.entries) {
        require(!it.IsDone() && it.CurrentKey() == entry.key.c_str() && it.CurrentValue().value == entry.value,
                "entry of a map, in the tree's order");
        it.Next();
    }
    it.Next();
    require(it.IsDone(), "end of a map");
}

inline void requireSame(TrackedMap const & map, PlainTree const & model) {
    require(map.Size() == static_cast<int>(model.entries.size()) && map.IsEmpty() == model.entries.empty(), "map size");
    cow_ConstMapIterator<cow_String, Tracked> it(map);
    require(it.IsDone(), "beginning of a map");
    requireSame(it, model);
}

template <class Draw> void runMapModel(Draw draw, int steps) {
    constexpr int sharers = 3;
    struct Walk {
        cow_ConstMapIterator<cow_String, Tracked> it;
        PlainTree model;
    };
    TrackedMap maps[sharers];
    PlainTree models[sharers];
    std::unique_ptr<Walk> walk;
    for (int step = 0; step < steps; ++step) {
        int const n = draw(sharers);
        std::string key; // a few hundred keys, the empty one among them
        for (int length = draw(5); length > 0; --length)
            key += "ABCS"[draw(4)];
        cow_String const mapKey(key.c_str());
        bool const isThere = models[n].has(key);
        require(maps[n].IsMember(mapKey) == isThere, "membership");
        require(maps[n].ConstGet(mapKey).value == (isThere ? models[n].entries[models[n].pathOf(key)].value : 0),
                "value of a key");
        int const value = draw(1000);
        int const choice = draw(16);
        Outcome const outcome = attempt(draw, [&] {
            if (choice < 7) {
                require(maps[n].Insert(mapKey, value), "insertion");
                models[n].insert(key, value);
            } else if (choice < 12) {
                require(maps[n].Remove(mapKey) == isThere, "removal");
                if (isThere)
                    models[n].remove(key);
            } else if (choice < 14) {
                Tracked & written = maps[n].Get(mapKey);
                require(isThere || written.value == 0, "scratch value");
                written = value;
                if (isThere)
                    models[n].insert(key, value);
            } else if (choice < 15) {
                int const other = draw(sharers);
                maps[n] = maps[other];
                models[n] = models[other];
            } else {
                walk.reset(new Walk{cow_ConstMapIterator<cow_String, Tracked>(maps[n]), models[n]});
                walk->it.First();
            }
        });
        if (outcome == Outcome::copyFailed && 7 <= choice && choice < 12) { // the removal may be half done
            maps[n] = TrackedMap();
            models[n] = PlainTree();
        }
        if (step % 16 != 15 && step + 1 != steps)
            continue;
        for (int k = 0; k < sharers; ++k)
            requireSame(maps[k], models[k]);
        if (walk != nullptr)
            requireSame(walk->it, walk->model);
    }
}

#endif
