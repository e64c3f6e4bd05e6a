#ifndef omi_BtreeIterator_h
#define omi_BtreeIterator_h

#include "omi_Btree.h"

/// Walks an omi_Btree in ascending key order:
///
///     omi_BtreeIterator<cow_String, void *> it(tree);
///     for (bool isEntry = it.First(); isEntry; isEntry = it.Next())
///         use(it.CurrentKey(), it.CurrentValue());
///
/// The tree must outlive the iterator. After an insertion the walk begins again with First.
template <class K, class V> class QVRSHPCORE_API omi_BtreeIterator {
public:
    /// Stands on no entry until First.
    explicit omi_BtreeIterator(omi_Btree<K, V> const & walkedTree) : tree(walkedTree) {}

    /// Goes to the smallest key; false when the tree is empty.
    bool First();

    /// Goes to the next key. False behind the last one, and then again at each further call, as before First.
    bool Next();

    /// Key and value of the entry on which the iterator stands. Only after First or Next has given true (not checked).
    K const & CurrentKey() const { return path[depth - 1].node->keys[path[depth - 1].position]; }
    V CurrentValue() const { return path[depth - 1].node->values[path[depth - 1].position]; }

private:
    using Node = omi_BtreeNode<K, V>;
    struct Step {
        Node const * node;
        int position;
    };

    void descend(Node const * node);

    omi_Btree<K, V> const & tree;
    /// From the root to the node of the current entry; in the nodes above it, position is the child that the walk is
    /// in, which is the entry to be visited when the walk comes back up.
    Step path[Node::maxDepth] = {};
    int depth = 0;
};

template <class K, class V> bool omi_BtreeIterator<K, V>::First() {
    depth = 0;
    descend(tree.Root());
    return depth > 0;
}

template <class K, class V> bool omi_BtreeIterator<K, V>::Next() {
    if (depth == 0)
        return false;
    Step & current = path[depth - 1];
    ++current.position;
    descend(current.node->children[current.position]);
    while (depth > 0 && path[depth - 1].position == path[depth - 1].node->count)
        --depth;
    return depth > 0;
}

template <class K, class V> void omi_BtreeIterator<K, V>::descend(Node const * node) {
    for (; node != nullptr; node = node->children[0])
        path[depth++] = {node, 0};
}

extern template class omi_BtreeIterator<cow_String, void *>;
extern template class omi_BtreeIterator<cow_String, int>;

#endif
