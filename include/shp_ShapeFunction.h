#ifndef shp_ShapeFunction_h
#define shp_ShapeFunction_h

/// Value or partial derivative of one node's shape function at the isoparametric point (g, h, r). Coordinates that
/// the shape does not have are ignored.
using shp_ShapeFunction = float (*)(float g, float h, float r);

#endif
