// Copy-on-write containers: against plain models, through failures too, and what is shared and what is not.

#include "container_models.h"
#include "cow_ArrayCOW.h"
#include "cow_Virtual.h"

#include <gtest/gtest.h>

#include <csignal>
#include <limits>
#include <random>

namespace {

/// Drawn by a generator, the same at each run.
auto drawing(unsigned seed) {
    return
        [engine = std::mt19937(seed)](int n) mutable { return static_cast<int>(engine() % static_cast<unsigned>(n)); };
}

cow_List<unsigned int> counted(int length, int capacity = 0) {
    cow_List<unsigned int> list(cow_listConstruct, capacity);
    for (int i = 0; i < length; ++i)
        list.Append(static_cast<unsigned int>(i));
    return list;
}

template <class T> std::vector<T const *> addresses(cow_List<T> const & list) {
    std::vector<T const *> found;
    for (int i = 0; i < list.Length(); ++i)
        found.push_back(&list.ConstGet(i));
    return found;
}

template <class T> std::vector<int> movedElements(cow_List<T> const & list, std::vector<T const *> const & before) {
    std::vector<int> moved;
    for (int i = 0; i < list.Length(); ++i)
        if (&list.ConstGet(i) != before[static_cast<std::size_t>(i)])
            moved.push_back(i);
    return moved;
}

TEST(Containers, FollowPlainModelsThroughRandomOperationsAndFailures) {
    int const alive = Tracked::alive;
    runListModel(drawing(1), 300000);
    EXPECT_EQ(Tracked::alive, alive);
    runMapModel(drawing(2), 300000);
    EXPECT_LE(Tracked::alive, alive + 2); // the values of absent keys stay
}

TEST(Containers, BlockSizeFollowsTheCapacity) {
    struct {
        int capacity, blockSize;
    } const rows[] = {{0, 16}, {1, 16}, {255, 16}, {256, 32}, {511, 32}, {512, 64}, {1000, 64}, {100000, 8192}};
    for (auto const & [capacity, blockSize] : rows) {
        auto list = counted(3 * blockSize, capacity);
        for (int i = 0; i + 1 < list.Length(); ++i)
            EXPECT_EQ(&list[i] + 1 == &list[i + 1], (i + 1) % blockSize != 0) << capacity << ", element " << i;
        list.Resize(0); // goes back to blocks of 16
        list.Fill(64, 1);
        for (int i = 0; i + 1 < list.Length(); ++i)
            EXPECT_EQ(&list[i] + 1 == &list[i + 1], (i + 1) % 16 != 0) << capacity << ", element " << i;
    }
}

TEST(Containers, AWriteCopiesOneBlockAndOnlyWhileItIsShared) {
    auto list = counted(1000);
    auto const before = addresses(list);
    auto copy = list;
    EXPECT_TRUE(movedElements(copy, before).empty());
    copy.Get(500) = 7;
    auto const moved = movedElements(copy, before);
    ASSERT_EQ(moved.size(), 16u);
    EXPECT_EQ(moved.front(), 496);
    EXPECT_EQ(moved.back(), 511);
    EXPECT_EQ(list.ConstGet(500), 500u);

    list[500] = 8; // the other sharer of that block is gone
    EXPECT_TRUE(movedElements(list, before).empty());
    {
        cow_ListIter<unsigned int> const it(list);
        list[0] = 9;
        EXPECT_EQ(it.CurrentItem(), 0u);
        EXPECT_EQ(movedElements(list, before).size(), 16u);
    }
    auto const after = addresses(list);
    list[1] = 9;
    list.Append(1000);
    EXPECT_EQ(addresses(list)[1], after[1]);
    for (int i = 0; i < 500; ++i)
        list.Prepend(0);
    EXPECT_EQ(&list.ConstGet(501), after[1]);
}

TEST(Containers, TheShorterSideMoves) {
    for (int const length : {4, 5, 80})
        for (int i = 1; i < length; ++i) {
            bool const isTail = i >= length - i; // the tie is the tail's
            auto list = counted(length);
            auto const before = addresses(list);
            list.InsertIndex(i, 77);
            EXPECT_EQ(&list.ConstGet(0) == before.front(), isTail);
            EXPECT_EQ(&list.ConstGet(length) == before.back(), !isTail);
            list = counted(length);
            auto const again = addresses(list);
            list.RemoveIndex(i);
            EXPECT_EQ(&list.ConstGet(0) == again.front(), isTail);
            EXPECT_EQ(&list.ConstGet(length - 2) == again.back(), !isTail);
        }
}

TEST(Containers, AMapWriteCopiesThePathToItsEntry) {
    cow_Map<cow_String, unsigned int> map;
    PlainTree model;
    auto draw = drawing(3);
    for (int i = 0; i < 300; ++i) {
        std::string const key = "S" + std::to_string(draw(1000));
        map.Insert(key.c_str(), 1);
        model.insert(key, 1);
    }
    for (auto const & [path, entry] : model.entries) {
        auto copy = map;
        copy.Get(entry.key.c_str()) = 2;
        for (auto const & [otherPath, other] : model.entries) {
            bool const isMoved = &copy.ConstGet(other.key.c_str()) != &map.ConstGet(other.key.c_str());
            EXPECT_EQ(isMoved, path.compare(0, otherPath.size(), otherPath) == 0) << entry.key << ' ' << other.key;
        }
        EXPECT_EQ(map.ConstGet(entry.key.c_str()), 1u);
    }
}

TEST(Containers, TheValueOfNoKeyIsMadeWhenThereIsMemory) {
    cow_Map<cow_String, cow_List<float>> map;
    cow_String const absent("absent");
    EXPECT_EQ(refuseEachAllocation([&] { map.ConstGet(absent); }, [] {}), 2); // the list, and what it holds
    EXPECT_TRUE(map.ConstGet(absent).IsEmpty());
}

TEST(Containers, ElementsNeedOnlyWhatAnOperationUses) {
    class Plain { // no default constructor, no comparison
    public:
        explicit Plain(int number) : value(number) {}
        int value;
    };
    cow_List<Plain> list(Plain(1), Plain(2), Plain(3));
    list.InsertIndex(1, Plain(4));
    EXPECT_EQ(list.Slice(1, 2).Last().value, 4);

    cow_List<cow_List<float>> nested(cow_List<float>(1.0f, 2.0f), cow_List<float>(0.0f));
    nested.Get(0) = nested.ConstGet(1); // the assigned list lies beside the one that goes
    EXPECT_TRUE(nested.ConstGet(0) == nested.ConstGet(1));
    cow_List<cow_String> const texts("e", "a", "d", "b", "c");
    auto sorted = texts, none = cow_List<cow_String>();
    sorted.Sort();
    none.Sort();
    EXPECT_TRUE(none.IsEmpty());
    EXPECT_TRUE(cow_List<cow_String>("e", "a", "d", "b") == texts.Slice(0, 4));
    EXPECT_TRUE(sorted[0] == "a" && sorted[4] == "e" && texts[0] == "e");
}

TEST(Containers, ASharedNotANumberEqualsItself) {
    cow_List<float> const list(1.0f, std::numeric_limits<float>::quiet_NaN());
    auto copy = list;
    EXPECT_TRUE(copy == list);
    copy[0] = 1.0f;
    EXPECT_FALSE(copy == list);
}

TEST(Containers, HoldersCopyByTheirPolicyBeforeTheFirstWrite) {
    struct Link {
        virtual ~Link() = default;
        virtual Link * Copy() const { return new Link(*this); }
        virtual int kind() const { return 0; }
        Tracked value;
        cow_COW<Link, cow_Virtual<Link>> next;
    };
    struct Derived : Link {
        Link * Copy() const override { return new Derived(*this); }
        int kind() const override { return 1; }
    };
    using Holder = cow_ArrayCOW<Link, cow_Virtual<Link>>;
    int const alive = Tracked::alive;
    {
        Holder holder(new Derived);
        Holder copy(holder);
        EXPECT_EQ(copy.ConstGet(), holder.ConstGet());
        copy.Get()->value = 5;
        EXPECT_EQ(copy.ConstGet()->kind(), 1);
        EXPECT_NE(copy.ConstGet(), holder.ConstGet());
        EXPECT_EQ(holder.ConstGet()->value.value, 0);
        EXPECT_TRUE(holder.Exclusive() && copy.Exclusive());
        Link const * const own = copy.ConstGet();
        EXPECT_EQ(copy.Get(), own);

        cow_COW<Link, cow_Virtual<Link>> chain(new Link);
        chain.Get()->next = new Derived;
        chain = chain.ConstGet()->next; // what is assigned goes with what is dropped
        EXPECT_EQ(chain.ConstGet()->kind(), 1);
        copy = *&copy;
        copy = copy.Get();
        EXPECT_EQ(copy.ConstGet(), own);
        copy.DropReference();
        copy.DropReference();
        copy = holder;
        copy = nullptr;
        EXPECT_TRUE(copy.IsNull() && copy.Get() == nullptr && holder.HasValue() && holder.Exclusive());

        Holder(new Link).Delete();
        cow_List<Holder> list(holder, holder);
        list.Get(1).Get()->value = 6;
        EXPECT_EQ(list.ConstGet(0).ConstGet()->value.value, 0);
    }
    EXPECT_EQ(Tracked::alive, alive);
}

TEST(ContainersDeathTest, AnIndexOutsideTheListEndsTheProcessSilently) {
    using List = cow_List<float>;
    List three(1.0f, 2.0f, 3.0f);
    void (*const outside[])(List &) = {
        [](List & list) { list.CheckIndex(3); },
        [](List & list) { list.ConstGet(-1); },
        [](List & list) { list.Get(3); },
        [](List & list) { std::as_const(list)[3]; },
        [](List & list) { list.RemoveIndex(-1); },
        [](List & list) { list.InsertIndex(-1, 0.0f); },
        [](List & list) { list.InsertIndex(4, 0.0f); },
        [](List & list) { (list = List()).Last(); },
        [](List & list) { (list = List()).Pop(); },
        [](List & list) { (list = List()).RemoveLast(); },
    };
    for (auto const access : outside)
        EXPECT_EXIT(access(three), testing::KilledBySignal(SIGABRT), "^$");
}

} // namespace
