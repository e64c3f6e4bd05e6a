// The ordered map against std::map: contents, order, the shape of the tree, and what a failed allocation leaves behind.

#include "cow_String.h"
#include "mem_Alloc.h"
#include "mem_OutOfMemoryException.h"
#include "omi_Btree.h"
#include "omi_BtreeIterator.h"

#include <gtest/gtest.h>

#include <malloc.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using Tree = omi_Btree<cow_String, int>;
using Node = Tree::Node;
using Model = std::map<std::string, int>;

std::string keyText(int number) {
    return "KEY" + std::to_string(number);
}

/// Every leaf as deep as every other, every node but the root at least half full, keys ascending within their bounds.
int checkedDepth(Node const * node, bool isRoot) {
    if (node == nullptr)
        return 0;
    EXPECT_GE(node->count, isRoot ? 1 : Node::maxKeys / 2);
    EXPECT_LE(node->count, Node::maxKeys);
    int const depth = checkedDepth(node->children[0], false);
    for (int i = 1; i <= Node::maxKeys; ++i) {
        if (i <= node->count)
            EXPECT_EQ(checkedDepth(node->children[i], false), depth);
        else
            EXPECT_EQ(node->children[i], nullptr);
    }
    return depth + 1;
}

void expectSame(Tree const & tree, Model const & model) {
    EXPECT_EQ(tree.Length(), static_cast<int>(model.size()));
    omi_BtreeIterator<cow_String, int> it(tree);
    bool isEntry = it.First();
    for (auto const & [key, value] : model) {
        ASSERT_TRUE(isEntry);
        EXPECT_EQ(it.CurrentKey(), key.c_str());
        EXPECT_EQ(it.CurrentValue(), value);
        isEntry = it.Next();
    }
    EXPECT_FALSE(isEntry);
    EXPECT_FALSE(it.Next()) << "the end is left again";
    EXPECT_EQ(it.First(), !model.empty());
    checkedDepth(tree.Root(), true);
}

std::vector<int> ascending(int count) {
    std::vector<int> numbers;
    for (int i = 0; i < count; ++i)
        numbers.push_back(1000000 + i);
    return numbers;
}

std::vector<int> descending(int count) {
    std::vector<int> numbers = ascending(count);
    std::reverse(numbers.begin(), numbers.end());
    return numbers;
}

/// With repetitions.
std::vector<int> random(int count) {
    std::mt19937 engine(static_cast<unsigned>(count) + 7);
    std::vector<int> numbers;
    for (int i = 0; i < count; ++i)
        numbers.push_back(static_cast<int>(engine() % static_cast<unsigned>(count)));
    return numbers;
}

TEST(OrderedMap, AgreesWithStdMapInEveryOrderOfInsertion) {
    for (int const count : {0, 1, 2, 14, 15, 16, 17, 63, 64, 127, 128, 255, 256, 300, 862, 5000})
        for (auto const order : {ascending, descending, random}) {
            Tree tree;
            Model model;
            int value = 0;
            for (int const number : order(count)) {
                std::string const key = keyText(number);
                bool const isNew = model.emplace(key, ++value).second;
                EXPECT_EQ(tree.Insert(key.c_str(), value), isNew);
            }
            expectSame(tree, model);
            for (int number = 0; number < 2 * count; ++number) {
                auto const entry = model.find(keyText(number));
                EXPECT_EQ(tree.IsMember(keyText(number).c_str()), entry != model.end());
                EXPECT_EQ(tree.ConstGet(keyText(number).c_str()), entry != model.end() ? entry->second : -1);
            }
        }
}

TEST(OrderedMap, PointerFormHasNullForWhatIsAbsent) {
    omi_Btree<cow_String, void *> tree;
    EXPECT_EQ(tree.ConstGet("C3D8"), nullptr);
    int first = 0, second = 0;
    EXPECT_TRUE(tree.Insert("C3D8", &first));
    EXPECT_FALSE(tree.Insert("C3D8", &second));
    EXPECT_EQ(tree.ConstGet("C3D8"), &first);
    EXPECT_EQ(tree.ConstGet("C3D"), nullptr);
    EXPECT_EQ(tree.ConstGet("C3D8R"), nullptr);
}

TEST(OrderedMap, IteratorsAreIndependentAndStandStillBeforeFirst) {
    Tree tree;
    for (int const number : ascending(40))
        tree.Insert(keyText(number).c_str(), number);
    omi_BtreeIterator<cow_String, int> slow(tree), fast(tree);
    EXPECT_FALSE(slow.Next());
    ASSERT_TRUE(slow.First());
    ASSERT_TRUE(fast.First());
    while (fast.Next()) {
    }
    EXPECT_EQ(slow.CurrentValue(), 1000000);
    ASSERT_TRUE(slow.Next());
    EXPECT_EQ(slow.CurrentValue(), 1000001);
}

// Failed allocations.

int allocationsToGo = 0;
bool refuseAtZero(std::size_t) {
    return allocationsToGo-- == 0;
}

/// Inserts with a refusal at the first allocation, then the second, and so on, until the insertion succeeds.
/// Returns how often it was refused.
template <class WhenRefused>
int insertAgainstRefusals(Tree & tree, cow_String const & key, int value, WhenRefused whenRefused) {
    for (int refusals = 0;; ++refusals) {
        allocationsToGo = refusals;
        mem_SetFailureHook(refuseAtZero);
        bool isRefused = false;
        try {
            tree.Insert(key, value);
        } catch (mem_OutOfMemoryException const &) {
            isRefused = true;
        }
        mem_SetFailureHook(nullptr);
        if (!isRefused)
            return refusals;
        whenRefused();
    }
}

TEST(OrderedMap, FailedInsertionLeavesTheTreeAsItWas) {
    for (auto const order : {ascending, descending, random}) {
        Tree tree;
        Model model;
        int mostRefusals = 0;
        for (int const number : order(700)) {
            std::string const text = keyText(number);
            cow_String const key = text.c_str();
            int const refusals = insertAgainstRefusals(tree, key, number, [&] { expectSame(tree, model); });
            mostRefusals = std::max(mostRefusals, refusals);
            EXPECT_TRUE(refusals == 0 || !model.contains(text)) << "a present key allocates nothing";
            model.emplace(text, number);
        }
        expectSame(tree, model);
        EXPECT_GE(mostRefusals, 3) << "no insertion has split a leaf, an inner node and the root at once";
    }
}

TEST(OrderedMap, FailedInsertionsLeakNothing) {
    std::vector<cow_String> keys;
    for (int const number : ascending(700))
        keys.push_back(keyText(number).c_str());
    auto const fillAndDestroy = [&keys] {
        Tree tree;
        for (cow_String const & key : keys)
            insertAgainstRefusals(tree, key, 1, [] {});
    };
    fillAndDestroy(); // blocks that the C library keeps at hand count as used
    std::size_t const before = mallinfo2().uordblks;
    fillAndDestroy();
    EXPECT_EQ(mallinfo2().uordblks, before);
}

} // namespace
