#include "cow_Map.h"

#include "cow_ConstMapIterator.h"

int cow_MapBit(cow_String const & key, int level) {
    int const length = key.Length();
    if (level > length)
        return 0;
    int const fromEnd = level / 2;
    return key[level % 2 == 0 ? fromEnd : length - fromEnd - 1] & 1;
}

template class cow_MapAbsent<unsigned int>;
template class cow_CountedHld<cow_MapNode<cow_String, unsigned int>>;
template class cow_COW<cow_MapNode<cow_String, unsigned int>, cow_Direct<cow_MapNode<cow_String, unsigned int>>>;
template class cow_MapNode<cow_String, unsigned int>;
template class cow_Map<cow_String, unsigned int>;
template class cow_ConstMapIterator<cow_String, unsigned int>;
