#include "cls_xo1DArrayList.h"

#include "g3d_Point.h"
#include "g3d_Vector.h"

template class cls_xoList<g3d_Point>;
template class cls_xoList<g3d_Vector>;
template class cls_xo1DArrayList<g3d_Point>;
template class cls_xo1DArrayList<g3d_Vector>;

template cls_xoList<g3d_Point> cls_xoListFromCow(cow_List<g3d_Point> const &);
template cls_xoList<g3d_Vector> cls_xoListFromCow(cow_List<g3d_Vector> const &);
