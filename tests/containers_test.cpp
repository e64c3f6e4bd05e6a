// Copy-on-write containers: against plain models, through failures too, and what is shared and what is not.

#include "container_models.h"
#include "cow_ArrayCOW.h"
#include "cow_Virtual.h"

#include <gtest/gtest.h>

#include <csignal>
#include <limits>
#include <random>

namespace {

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

TEST(Containers, FollowPlainModelsThroughRandomOperationsAndFailures) {
    int const alive = Tracked::alive;
    runListModel(drawing(1), 300000);
    EXPECT_EQ(Tracked::alive, alive);
    runMapModel(drawing(2), 300000);
    EXPECT_LE(Tracked::alive, alive + 2); // the values of absent keys stay
}

TEST(Containers, BlockSizeFollowsTheCapacity) {
    auto const expectBlocks = [](cow_List<unsigned int> const & list, int size) {
        for (int i = 0; i + 1 < list.Length(); ++i)
            EXPECT_EQ(&list[i] + 1 == &list[i + 1], (i + 1) % size != 0) << size << ", element " << i;
    };
    for (auto const & [capacity, size] : {std::pair(0, 16), {255, 16}, {256, 32}, {511, 32}, {512, 64}, {1000, 64}}) {
        auto list = counted(3 * size, capacity);
        expectBlocks(list, size);
        list.Resize(0); // goes back to blocks of 16
        list.Fill(64, 1);
        expectBlocks(list, 16);
    }
}

TEST(Containers, AWriteCopiesOneBlockAndOnlyWhileItIsShared) {
    auto list = counted(1000);
    auto const before = addresses(list);
    auto copy = list;
    EXPECT_EQ(addresses(copy), before);
    copy.Get(500) = 7;
    auto moved = addresses(copy);
    for (std::size_t i = 0; i < moved.size(); ++i)
        EXPECT_EQ(moved[i] != before[i], 496 <= i && i < 512) << i;
    EXPECT_EQ(list.ConstGet(500), 500u);

    list[500] = 8; // the other sharer of that block is gone
    EXPECT_EQ(addresses(list), before);
    {
        cow_ListIter<unsigned int> const it(list);
        list[0] = 9;
        EXPECT_EQ(it.CurrentItem(), 0u);
    }
    unsigned int const * const after = &list.ConstGet(1);
    EXPECT_NE(after, before[1]);
    list[1] = 9;
    list.Append(1000);
    for (int i = 0; i < 500; ++i)
        list.Prepend(0);
    EXPECT_EQ(&list.ConstGet(501), after);
}

TEST(Containers, TheShorterSideMoves) {
    for (int const length : {4, 5, 80})
        for (int i = 1; i < length; ++i) {
            auto const movedEnds = [&](auto operation) {
                auto list = counted(length);
                auto const before = std::pair(&list.ConstGet(0), &list.Last());
                operation(list);
                return std::pair(&list.ConstGet(0) != before.first, &list.Last() != before.second);
            };
            bool const isTail = i >= length - i; // the tie is the tail's
            EXPECT_EQ(movedEnds([&](auto & list) { list.InsertIndex(i, 77); }), std::pair(!isTail, isTail)) << i;
            EXPECT_EQ(movedEnds([&](auto & list) { list.RemoveIndex(i); }), std::pair(!isTail, isTail)) << i;
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

    cow_List<float> const oddNumbers(1.0f, std::numeric_limits<float>::quiet_NaN());
    cow_List<cow_List<float>> nested(cow_List<float>(0.0f), oddNumbers);
    nested.Get(0) = nested.ConstGet(1); // the assigned list lies beside the one that goes
    EXPECT_TRUE(nested.ConstGet(0) == oddNumbers) << "while their blocks are shared";
    nested.Get(0)[0] = 1.0f;
    EXPECT_FALSE(nested.ConstGet(0) == oddNumbers);
    cow_List<cow_String> sorted("e", "a", "d", "b"), none;
    sorted.Sort();
    none.Sort();
    EXPECT_TRUE(sorted == cow_List<cow_String>("a", "b", "d", "e") && none.IsEmpty());
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
        Holder holder(new Derived), copy(holder);
        EXPECT_EQ(copy.ConstGet(), holder.ConstGet());
        copy.Get()->value = 5;
        EXPECT_TRUE(copy.ConstGet()->kind() == 1 && holder.ConstGet()->value.value == 0);
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
