#include "omi_Btree.h"
#include "omi_BtreeIterator.h"

template class omi_BtreeNode<cow_String, void *>;
template class omi_BtreeNode<cow_String, int>;
template class omi_Btree<cow_String, void *>;
template class omi_Btree<cow_String, int>;
template class omi_BtreeIterator<cow_String, void *>;
template class omi_BtreeIterator<cow_String, int>;
