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
    void First() {
        int const slot = list.firstOffset & (blockSize - 1);
        enterBlock(list.firstOffset - slot, slot);
    }
    /// Goes to the next element; at the end only the index goes on.
    void Next() {
        if (currentBlockItems == nullptr)
            ++blockPosition;
        else if (++current == blockEnd)
            enterBlock(endPosition - blockPosition > blockSize ? blockPosition + blockSize : endPosition, 0);
    }
    /// Whether the iterator has passed the last element, and whether it has not.
    bool IsDone() const { return currentBlockItems == nullptr; }
    bool NotDone() const { return !IsDone(); }

    /// The element. There must be one (not checked).
    T const & CurrentItem() const { return *current; }
    /// The index of the element; at the end the length of the list, and one more for each step from there.
    int ArrayIndex() const { return blockPosition + static_cast<int>(current - currentBlockItems) - list.firstOffset; }

private:
    /// Stands on a slot of the block that begins at `position`, or at the end. Positions are counted as cow_List counts
    /// them.
    void enterBlock(int position, int slot) {
        if (position + slot >= endPosition) {
            currentBlockItems = current = blockEnd = nullptr;
            blockPosition = endPosition;
            return;
        }
        currentBlockItems = list.blocks[position >> list.blockShift]->items;
        current = currentBlockItems + slot;
        blockEnd = currentBlockItems + std::min(endPosition - position, blockSize);
        blockPosition = position;
    }

    cow_List<T> list;
    T const * currentBlockItems = nullptr; ///< null at the end
    int endPosition;                       ///< behind the last element
    int blockSize;
    int blockPosition = 0;        ///< of the block's first slot; at the end the iterator's own
    T const * current = nullptr;  ///< points at the element; null at the end
    T const * blockEnd = nullptr; ///< behind the last element of the block; null at the end
};

extern template class cow_ListIter<unsigned int>;
extern template class cow_ListIter<float>;
extern template class cow_ListIter<cow_String>;
extern template class cow_ListIter<g3d_Point>;
extern template class cow_ListIter<g3d_Vector>;
extern template class cow_ListIter<uti_Coord3D>;

#endif
