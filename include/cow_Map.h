#ifndef cow_Map_h
#define cow_Map_h

#include "cow_MapAbsent.h"
#include "cow_MapNode.h"
#include "cow_String.h"

#include <cstring>

template <class K, class V> class QVRSHPCORE_API cow_ConstMapIterator;

/// The branch bit of a key at a depth of the tree behind a cow_Map: the lowest bit of a character, taken by turns from
/// the front and from the back of the key, so that labels that differ only at their end part early. 0 when `level`,
/// which is not negative, is above the key's length.
QVRSHPCORE_API int cow_MapBit(cow_String const & key, int level);

/// Values by key, copied in constant time: copies share all entries until one of them writes. A write to one entry
/// copies the entries on the way to it, one for each level of the tree, and no others. Keys are cow_String; ConstGet
/// and Get need a default constructor of `V`.
///
/// The tree is a digital search tree: each entry stands on the path that the bits of its key (cow_MapBit) name. Its
/// shape, and with it the order in which cow_ConstMapIterator walks, depends on the order of insertions and removals.
/// Keys whose characters all have the same lowest bits make a chain; copying and destroying it takes stack for each
/// link.
///
/// When memory runs out, or a value's copy raises, the exception passes and nothing leaks. An insertion then has
/// changed nothing; a removal may have moved some values toward the root already.
///
/// Threads: the counts are plain numbers. No map and no copy of it is shared between threads while one of them writes,
/// copies or destroys one, and every look-up and iteration counts as copying.
template <class K, class V> class QVRSHPCORE_API cow_Map {
public:
    /// Sets the value of `key`. Always true.
    bool Insert(K const & key, V const & value);
    /// True if `key` was there; it no longer is.
    bool Remove(K const & key);

    /// Whether `key` is there.
    bool IsMember(K const & key) const { return find(key) != nullptr; }
    /// The value of `key`, to be read. For a key that is not there, a default-constructed value.
    template <class U = V> V const & ConstGet(K const & key) const {
        Node const * const found = find(key);
        return found != nullptr ? found->value : cow_MapAbsent<U>::Value();
    }
    /// The value of `key`, to be written: this map's alone. The key must be there; for one that is not, a value that
    /// belongs to no map and has its default again at the next such call.
    template <class U = V> V & Get(K const & key) {
        Node * const found = holderOf(key)->Get();
        return found != nullptr ? found->value : cow_MapAbsent<U>::Scratch();
    }

    /// The number of entries.
    int Size() const noexcept { return size; }
    /// Whether there is none.
    bool IsEmpty() const noexcept { return root.IsNull(); }

private:
    friend class cow_ConstMapIterator<K, V>;
    using Node = cow_MapNode<K, V>;
    using Holder = typename Node::Holder;

    static bool isEqual(K const & left, K const & right) { return std::strcmp(left.CStr(), right.CStr()) == 0; }
    Node const * find(K const & key) const;
    Holder * holderOf(K const & key);
    static Holder * childOf(Holder & holder);

    Holder root;
    int size = 0;
};

template <class K, class V> bool cow_Map<K, V>::Insert(K const & key, V const & value) {
    Holder * const holder = holderOf(key);
    if (Node * const node = holder->Get()) {
        node->value = value;
    } else {
        *holder = new Node(key, value);
        ++size;
    }
    return true;
}

template <class K, class V> bool cow_Map<K, V>::Remove(K const & key) {
    if (!IsMember(key))
        return false;
    Holder * holder = holderOf(key);
    // The chain that will move up becomes this map's alone first: after that nothing needs memory.
    for (Holder * chain = holder; chain != nullptr;)
        chain = childOf(*chain);
    // A child moves up along its own path, so that its key is still found on it.
    while (Holder * const child = childOf(*holder)) {
        Node * const node = holder->Get();
        node->value = child->ConstGet()->value;
        node->key = child->ConstGet()->key;
        holder = child;
    }
    *holder = nullptr;
    --size;
    return true;
}

/// The entry of a key, or null. The share keeps the path alive, whatever a comparison does.
template <class K, class V> typename cow_Map<K, V>::Node const * cow_Map<K, V>::find(K const & key) const {
    Holder walked(root);
    for (int level = 0; Node const * const node = walked.ConstGet(); ++level) {
        if (isEqual(node->key, key))
            return node;
        walked = cow_MapBit(key, level) != 0 ? node->right : node->left;
    }
    return nullptr;
}

/// The holder of the entry of a key, or the empty one where it belongs. All entries above it are this map's alone then.
template <class K, class V> typename cow_Map<K, V>::Holder * cow_Map<K, V>::holderOf(K const & key) {
    Holder * holder = &root;
    for (int level = 0; holder->HasValue() && !isEqual(holder->ConstGet()->key, key); ++level) {
        Node * const node = holder->Get();
        holder = cow_MapBit(key, level) != 0 ? &node->right : &node->left;
    }
    return holder;
}

/// Makes an entry this map's alone and gives the holder of its child, the right one if it has two; null without a
/// child.
template <class K, class V> typename cow_Map<K, V>::Holder * cow_Map<K, V>::childOf(Holder & holder) {
    Node * const node = holder.Get();
    if (node->right.HasValue())
        return &node->right;
    return node->left.HasValue() ? &node->left : nullptr;
}

extern template class cow_CountedHld<cow_MapNode<cow_String, unsigned int>>;
extern template class cow_COW<cow_MapNode<cow_String, unsigned int>, cow_Direct<cow_MapNode<cow_String, unsigned int>>>;
extern template class cow_MapNode<cow_String, unsigned int>;
extern template class cow_Map<cow_String, unsigned int>;

#endif
