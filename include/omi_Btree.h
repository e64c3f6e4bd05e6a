#ifndef omi_Btree_h
#define omi_Btree_h

#include "QVRShpCore_Export.h"
#include "cow_String.h"
#include "mem_AllocationOperators.h"

#include <type_traits>
#include <utility>

/// What omi_Btree::ConstGet gives for a key that is not in the tree: a null pointer, a zero value, but -1 for `int`.
template <class V> struct omi_BtreeAbsent {
    /// The value.
    static V value() { return V(); }
};

/// The same for `int`: -1.
template <> struct omi_BtreeAbsent<int> {
    /// The value.
    static int value() { return -1; }
};

/// A node of omi_Btree: up to `maxKeys` entries in ascending key order. A leaf has no children (all null); an inner
/// node has one more child than entries, child i holding the keys before entry i and child i + 1 those behind it.
template <class K, class V> class QVRSHPCORE_API omi_BtreeNode : public mem_AllocationOperators {
public:
    static constexpr int maxKeys = 15;  ///< odd: a full node can split into two halves around its middle entry
    static constexpr int maxDepth = 24; ///< more levels than a tree can have whose entries fit the address space

    int count = 0; ///< entries in use
    /// Keys ascend; entry i is keys[i] with values[i].
    K keys[maxKeys] = {};
    V values[maxKeys] = {};
    /// All null in a leaf.
    omi_BtreeNode * children[maxKeys + 1] = {};

    /// Whether no entry fits in, and whether there are no children.
    bool isFull() const { return count == maxKeys; }
    bool isLeaf() const { return children[0] == nullptr; }

    /// The first entry whose key is not before `key` (`count` when there is none); `isFound` tells whether it is `key`.
    int Find(K const & key, bool & isFound) const;

    /// Puts an entry at `position`, and behind it the child of the keys that follow. The node must not be full.
    void insert(int position, K && key, V && value, omi_BtreeNode * rightChild) noexcept;

    /// Moves the entries of a full node behind the one at `middle`, which stays the caller's to move up, into the empty
    /// node `right`.
    void splitInto(omi_BtreeNode & right, int middle = maxKeys / 2) noexcept;
};

/// Ordered map with unique keys, a B-tree. Keys are ordered by `<`; moving a key or value must not raise. Keys that
/// come in ascending order are inserted quickest, and fill the nodes. The tree does not own what its values point to.
template <class K, class V> class QVRSHPCORE_API omi_Btree {
    static_assert(std::is_nothrow_move_assignable_v<K> && std::is_nothrow_move_assignable_v<V>);

public:
    /// For iterators: what the tree is made of.
    using Node = omi_BtreeNode<K, V>;

    omi_Btree() = default;
    ~omi_Btree();
    omi_Btree(omi_Btree const &) = delete;
    omi_Btree & operator=(omi_Btree const &) = delete;

    /// Adds an entry. False, and nothing changed, when the key is there already. If memory runs out, the tree stays as
    /// it was. Iterators on the tree must be set to First again.
    bool Insert(K const & key, V value);

    /// The value of `key`; when it is absent, null for a pointer and -1 for `int`.
    V ConstGet(K const & key) const;

    /// Whether `key` is there.
    bool IsMember(K const & key) const;

    /// Number of entries.
    int Length() const { return length; }

    /// The topmost node, or null: for iterators.
    Node const * Root() const { return root; }

private:
    struct Step {
        Node * node;
        int position;
    };
    /// Nodes that are allocated before an insertion changes anything, so that it cannot fail half-way.
    class SpareNodes {
    public:
        explicit SpareNodes(int number);
        ~SpareNodes();
        SpareNodes(SpareNodes const &) = delete;
        SpareNodes & operator=(SpareNodes const &) = delete;
        Node * take() noexcept;

    private:
        Node * first = nullptr; ///< chained by child 0
    };

    V const * find(K const & key) const;
    static void destroy(Node * node) noexcept;

    Node * root = nullptr;
    Node * lastLeaf = nullptr; ///< that of the greatest key
    int length = 0;
};

template <class K, class V> int omi_BtreeNode<K, V>::Find(K const & key, bool & isFound) const {
    int first = 0;
    int last = count;
    while (first < last) {
        int const middle = (first + last) / 2;
        if (keys[middle] < key)
            first = middle + 1;
        else
            last = middle;
    }
    isFound = first < count && !(key < keys[first]);
    return first;
}

template <class K, class V>
void omi_BtreeNode<K, V>::insert(int position, K && key, V && value, omi_BtreeNode * rightChild) noexcept {
    for (int i = count; i > position; --i) {
        keys[i] = std::move(keys[i - 1]);
        values[i] = std::move(values[i - 1]);
        children[i + 1] = children[i];
    }
    keys[position] = std::move(key);
    values[position] = std::move(value);
    children[position + 1] = rightChild;
    ++count;
}

template <class K, class V> void omi_BtreeNode<K, V>::splitInto(omi_BtreeNode & right, int middle) noexcept {
    for (int i = middle + 1; i < maxKeys; ++i) {
        right.keys[i - middle - 1] = std::move(keys[i]);
        right.values[i - middle - 1] = std::move(values[i]);
    }
    for (int i = middle + 1; i <= maxKeys; ++i)
        right.children[i - middle - 1] = std::exchange(children[i], nullptr);
    right.count = maxKeys - middle - 1;
    count = middle + 1;
}

template <class K, class V> omi_Btree<K, V>::SpareNodes::SpareNodes(int number) {
    try {
        for (int i = 0; i < number; ++i) {
            Node * const node = new Node;
            node->children[0] = first;
            first = node;
        }
    } catch (...) {
        omi_Btree::destroy(first);
        throw;
    }
}

template <class K, class V> omi_Btree<K, V>::SpareNodes::~SpareNodes() {
    omi_Btree::destroy(first);
}

template <class K, class V> typename omi_Btree<K, V>::Node * omi_Btree<K, V>::SpareNodes::take() noexcept {
    Node * const node = first;
    first = std::exchange(node->children[0], nullptr);
    return node;
}

template <class K, class V> omi_Btree<K, V>::~omi_Btree() {
    destroy(root);
}

template <class K, class V> bool omi_Btree<K, V>::Insert(K const & key, V value) {
    Node * const last = lastLeaf;
    bool const isBehindAll = last != nullptr && last->keys[last->count - 1] < key;
    if (isBehindAll && !last->isFull()) {
        last->keys[last->count] = K(key);
        last->values[last->count] = std::move(value);
        ++last->count;
        ++length;
        return true;
    }

    Step path[Node::maxDepth];
    int depth = 0;
    for (Node * node = root; node != nullptr;) {
        bool isFound = false;
        int const position = isBehindAll ? node->count : node->Find(key, isFound);
        if (isFound)
            return false;
        path[depth++] = {node, position};
        node = node->children[position];
    }

    // Where all further keys are to be expected behind this one, a node that splits is left as it is.
    int const middle = isBehindAll ? Node::maxKeys - 1 : Node::maxKeys / 2;
    int splits = 0;
    while (splits < depth && path[depth - 1 - splits].node->isFull())
        ++splits;
    bool const needsRoot = splits == depth;
    SpareNodes spareNodes(splits + (needsRoot ? 1 : 0));
    K movedKey(key);

    // Nothing raises from here on.
    Node * rightChild = nullptr;
    while (depth > 0) {
        auto const [node, position] = path[--depth];
        if (!node->isFull()) {
            node->insert(position, std::move(movedKey), std::move(value), rightChild);
            break;
        }
        Node * const right = spareNodes.take();
        node->splitInto(*right, middle);
        if (position <= middle)
            node->insert(position, std::move(movedKey), std::move(value), rightChild);
        else
            right->insert(position - middle - 1, std::move(movedKey), std::move(value), rightChild);
        --node->count;
        movedKey = std::move(node->keys[node->count]);
        value = std::move(node->values[node->count]);
        rightChild = right;
    }
    if (needsRoot) {
        Node * const top = spareNodes.take();
        top->children[0] = root;
        top->insert(0, std::move(movedKey), std::move(value), rightChild);
        root = top;
    }
    lastLeaf = root;
    while (!lastLeaf->isLeaf())
        lastLeaf = lastLeaf->children[lastLeaf->count];
    ++length;
    return true;
}

template <class K, class V> V omi_Btree<K, V>::ConstGet(K const & key) const {
    V const * const value = find(key);
    return value != nullptr ? *value : omi_BtreeAbsent<V>::value();
}

template <class K, class V> bool omi_Btree<K, V>::IsMember(K const & key) const {
    return find(key) != nullptr;
}

template <class K, class V> V const * omi_Btree<K, V>::find(K const & key) const {
    for (Node const * node = root; node != nullptr;) {
        bool isFound = false;
        int const position = node->Find(key, isFound);
        if (isFound)
            return &node->values[position];
        node = node->children[position];
    }
    return nullptr;
}

template <class K, class V> void omi_Btree<K, V>::destroy(Node * node) noexcept {
    if (node == nullptr)
        return;
    for (int i = 0; i <= node->count; ++i)
        destroy(node->children[i]);
    delete node;
}

extern template class omi_BtreeNode<cow_String, void *>;
extern template class omi_BtreeNode<cow_String, int>;
extern template class omi_Btree<cow_String, void *>;
extern template class omi_Btree<cow_String, int>;

#endif
