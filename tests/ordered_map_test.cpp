// The ordered map against std::map: contents, order, the shape of the tree, and what a failed allocation leaves behind.

#include "memory_refusals.h"
#include "omi_BtreeIterator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>

namespace {

using Tree = omi_Btree<cow_String, int>;
using Model = std::map<std::string, int>;

enum Order { ascending, descending, shuffled }; // the last with repetitions

/// Calls `visit(key)` for `count` keys.
template <class Visit> void forEachKey(int count, Order order, Visit visit) {
    std::mt19937 engine(static_cast<unsigned>(count) + 7);
    for (int i = 0; i < count; ++i) {
        int const drawn = static_cast<int>(engine() % static_cast<unsigned>(count));
        int const number = order == ascending ? i : order == descending ? count - i : drawn;
        visit("KEY" + std::to_string(100000 + number));
    }
}

/// Every leaf as deep as every other, every node but those of the last keys at least half full, no children behind the
/// last.
int checkedDepth(Tree::Node const * node, bool isLast) {
    if (node == nullptr)
        return 0;
    EXPECT_GE(node->count, isLast ? 1 : Tree::Node::maxKeys / 2);
    EXPECT_LE(node->count, Tree::Node::maxKeys);
    int const depth = checkedDepth(node->children[0], false);
    for (int i = 1; i <= Tree::Node::maxKeys; ++i)
        EXPECT_EQ(checkedDepth(node->children[i], isLast && i == node->count), i <= node->count ? depth : 0);
    return depth + 1;
}

void expectSame(Tree const & tree, Model const & model) {
    EXPECT_EQ(tree.Length(), static_cast<int>(model.size()));
    omi_BtreeIterator<cow_String, int> it(tree), other(tree);
    EXPECT_FALSE(it.Next()) << "stands still before First";
    bool isEntry = it.First();
    for (auto const & [key, value] : model) {
        ASSERT_TRUE(isEntry && it.CurrentKey() == key.c_str() && it.CurrentValue() == value) << key;
        EXPECT_TRUE(other.First()); // iterators are independent
        isEntry = it.Next();
    }
    EXPECT_FALSE(isEntry || it.Next()) << "the end is left again";
    checkedDepth(tree.Root(), true);
}

TEST(OrderedMap, AgreesWithStdMapInEveryOrderOfInsertion) {
    for (int const count : {0, 1, 2, 14, 15, 16, 17, 63, 64, 127, 128, 255, 256, 300, 862, 5000})
        for (Order const order : {ascending, descending, shuffled}) {
            Tree tree;
            Model model;
            forEachKey(count, order, [&, value = 0](std::string const & key) mutable {
                bool const isNew = model.emplace(key, ++value).second;
                EXPECT_EQ(tree.Insert(key.c_str(), value), isNew);
            });
            expectSame(tree, model);
            forEachKey(2 * count, ascending, [&](std::string const & key) {
                EXPECT_EQ(tree.IsMember(key.c_str()), model.contains(key));
                EXPECT_EQ(tree.ConstGet(key.c_str()), model.contains(key) ? model[key] : -1);
            });
        }
    omi_Btree<cow_String, void *> pointers;
    EXPECT_EQ(pointers.ConstGet("C3D8"), nullptr);
}

// What leaks is the sanitizer's to find.
TEST(OrderedMap, AFailedInsertionLeavesTheTreeAsItWas) {
    for (Order const order : {ascending, descending, shuffled}) {
        Tree tree;
        Model model;
        int mostRefusals = 0;
        forEachKey(700, order, [&](std::string const & text) {
            cow_String const key = text.c_str();
            auto const insert = [&] { tree.Insert(key, 1); };
            int const refusals = refuseEachAllocation(insert, [&] { expectSame(tree, model); });
            mostRefusals = std::max(mostRefusals, refusals);
            EXPECT_TRUE(model.emplace(text, 1).second || refusals == 0) << "a present key allocates nothing";
        });
        EXPECT_GE(mostRefusals, 3) << "no insertion has split a leaf, an inner node and the root at once";
    }
}

} // namespace
