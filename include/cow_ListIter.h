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
        position = list.firstOffset;
        slot = position & (blockSize - 1);
        loadBlock();
    }
    /// Goes to the next element.
    void Next() {
        ++position;
        if (++slot == blockSize) {
            slot = 0;
            loadBlock();
        }
    }
    /// Whether the iterator has passed the last element, and whether it has not.
    bool IsDone() const { return position >= endPosition; }
    bool NotDone() const { return !IsDone(); }

    /// The element and its index. There must be one (not checked).
    T const & CurrentItem() const { return currentBlockItems[slot]; }
    int ArrayIndex() const { return position - list.firstOffset; }

private:
    void loadBlock() { currentBlockItems = IsDone() ? nullptr : list.blocks[position >> list.blockShift]->items; }

    cow_List<T> list;
    T const * currentBlockItems = nullptr; ///< null at the end
    int endPosition;                       ///< behind the last element
    int blockSize;
    int position = 0; ///< counted as cow_List counts its positions
    int slot = 0;     ///< index inside the block
};

extern template class cow_ListIter<unsigned int>;
extern template class cow_ListIter<float>;
extern template class cow_ListIter<cow_String>;
extern template class cow_ListIter<g3d_Point>;
extern template class cow_ListIter<g3d_Vector>;
extern template class cow_ListIter<uti_Coord3D>;

#endif
