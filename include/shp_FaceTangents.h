#ifndef shp_FaceTangents_h
#define shp_FaceTangents_h

class uti_CoordCont3D;

/// Two tangents `t1[3]`, `t2[3]` of one face from the positions of its nodes, in face order; not normalised, zero for
/// an element type whose faces have none.
using shp_FaceTangents = void (*)(uti_CoordCont3D const & coords, unsigned int face, float * t1, float * t2);

#endif
