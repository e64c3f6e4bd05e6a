#ifndef cow_MapNode_h
#define cow_MapNode_h

#include "cow_COW.h"
#include "cow_Direct.h"
#include "mem_AllocationOperators.h"

/// An entry of a cow_Map, and the root of the entries below it. A copy shares what is below.
template <class K, class V> class QVRSHPCORE_API cow_MapNode : public mem_AllocationOperators {
public:
    /// Shares what is below until one side writes.
    using Holder = cow_COW<cow_MapNode, cow_Direct<cow_MapNode>>;

    /// An entry with none below it.
    cow_MapNode(K const & nodeKey, V const & nodeValue) : key(nodeKey), value(nodeValue) {}

    K key;        ///< of the entry
    V value;      ///< of the entry
    Holder left;  ///< entries whose branch bit at this node's depth is 0
    Holder right; ///< and those for which it is 1
};

#endif
