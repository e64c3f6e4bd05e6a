#ifndef cow_ListIter_h
#define cow_ListIter_h

#include "cow_List.h"

/// Walks a cow_List from front to back:
///
///     for (cow_ListIter<float> it(list); it.NotDone(); it.Next())
///         use(it.CurrentItem());
///
/// It holds a share of the list, so that it walks the elements as they were when it was made, whatever becomes of the
/// list. It counts as a copy of the list where threads are concerned.
template <class T> class QVRSHPCORE_API cow_ListIter {
public:
    /// Stands on the first element.
    explicit cow_ListIter(cow_List<T> const & walkedList)
        : list(walkedList), endPosition(list.firstOffset + list.length), blockSize(1 << list.blockShift) {
        First();
    }

    /// Goes back to the first element.
    void First() { goTo(list.firstOffset); }
    /// Goes to the next element.
    void Next() {
        if (++slot == endSlot)
            goTo(blockPosition + slot);
    }
    /// Whether the iterator has passed the last element, and whether it has not.
    bool IsDone() const { return currentBlockItems == nullptr; }
    bool NotDone() const { return !IsDone(); }

    /// The element and its index. There must be one (not checked).
    T const & CurrentItem() const { return currentBlockItems[slot]; }
    int ArrayIndex() const { return blockPosition + slot - list.firstOffset; }

private:
    /// Positions are counted as cow_List counts them.
    void goTo(int position) {
        slot = position & (blockSize - 1);
        blockPosition = position - slot;
        bool const isEnd = position >= endPosition;
        currentBlockItems = isEnd ? nullptr : list.blocks[position >> list.blockShift]->items;
        if (!isEnd)
            endSlot = std::min(endPosition - blockPosition, blockSize);
    }

    cow_List<T> list;
    T const * currentBlockItems = nullptr; ///< null at the end
    int endPosition;                       ///< behind the last element
    int blockSize;
    int blockPosition = 0; ///< of the block's first slot
    int slot = 0;          ///< index inside the block
    int endSlot = 0;       ///< behind the block's last element
};

extern template class cow_ListIter<unsigned int>;
extern template class cow_ListIter<float>;
extern template class cow_ListIter<cow_String>;
extern template class cow_ListIter<g3d_Point>;
extern template class cow_ListIter<g3d_Vector>;
extern template class cow_ListIter<uti_Coord3D>;

#endif
