#include "cow_List.h"

#include "cow_ListIter.h"
#include "g3d_Point.h"
#include "g3d_Vector.h"
#include "uti_Coord3D.h"

template class cow_List<unsigned int>;
template class cow_List<float>;
template class cow_List<cow_String>;
template class cow_List<g3d_Point>;
template class cow_List<g3d_Vector>;
template class cow_List<uti_Coord3D>;

template class cow_ListIter<unsigned int>;
template class cow_ListIter<float>;
template class cow_ListIter<cow_String>;
template class cow_ListIter<g3d_Point>;
template class cow_ListIter<g3d_Vector>;
template class cow_ListIter<uti_Coord3D>;

template bool operator==(cow_List<unsigned int> const &, cow_List<unsigned int> const &);
template bool operator==(cow_List<float> const &, cow_List<float> const &);
template bool operator==(cow_List<cow_String> const &, cow_List<cow_String> const &);
