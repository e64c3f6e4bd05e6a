#ifndef cow_ConstMapIterator_h
#define cow_ConstMapIterator_h

#include "cow_Map.h"
#include "mem_Alloc.h"

#include <cstddef>

/// Walks a cow_Map:
///
///     cow_ConstMapIterator<cow_String, unsigned int> it(map);
///     for (it.First(); !it.IsDone(); it.Next())
///         use(it.CurrentKey(), it.CurrentValue());
///
/// The order is that of the map's tree from the root down, not the order of the keys; maps with the same entries may
/// be walked in different orders. The iterator holds a share of the map, so that it walks the entries as they were when
/// it was made. It counts as a copy of the map where threads are concerned.
template <class K, class V> class QVRSHPCORE_API cow_ConstMapIterator {
public:
    /// Before First there is nothing to walk.
    explicit cow_ConstMapIterator(cow_Map<K, V> const & walkedMap) : map(walkedMap) {}
    ~cow_ConstMapIterator() { mem_Free(nodes); }
    cow_ConstMapIterator(cow_ConstMapIterator const &) = delete;
    cow_ConstMapIterator & operator=(cow_ConstMapIterator const &) = delete;

    /// Goes to the first entry.
    void First() {
        mem_Free(nodes);
        nodes = nullptr;
        index = 0;
        nodes = static_cast<Node const **>(mem_Malloc(sizeof(Node *) * (static_cast<std::size_t>(map.size) + 1)));
        int count = 0;
        Nodes(map.root, count);
        nodes[count] = nullptr;
    }
    /// Goes to the next entry; stays at the end.
    void Next() {
        if (!IsDone())
            ++index;
    }
    /// Whether there is no entry to stand on: behind the last one, and before First.
    bool IsDone() const { return nodes == nullptr || nodes[index] == nullptr; }

    /// Key and value of the entry on which the iterator stands. There must be one (not checked).
    K const & CurrentKey() const { return nodes[index]->key; }
    V const & CurrentValue() const { return nodes[index]->value; }

private:
    using Node = cow_MapNode<K, V>;

    /// Adds an entry and all below it: the entry, then its left side, then its right side.
    void Nodes(typename Node::Holder const & holder, int & count) {
        if (Node const * const node = holder.ConstGet()) {
            nodes[count++] = node;
            Nodes(node->left, count);
            Nodes(node->right, count);
        }
    }

    cow_Map<K, V> map;
    int index = 0;
    Node const ** nodes = nullptr; ///< all entries in order, then a null
};

extern template class cow_ConstMapIterator<cow_String, unsigned int>;

#endif
