#ifndef shp_ArsDataHolder_h
#define shp_ArsDataHolder_h

#include "shp_AnalyticRigidSurfaceData.h"
#include "shp_AnalyticSurface.h"

/// An analytic rigid surface in the older representation, the newer, both or none, for readers who do not care which.
class QVRSHPCORE_API shp_ArsDataHolder {
public:
    /// Whether there is a surface.
    bool hasValue() const { return oldData.HasValue() || newData.HasValue(); }

    /// The profile as pairs of point and meaning: those of the older representation, then those of the newer. The list
    /// shares the older's storage and has its identity; without it, the identity is fresh. An arc and a parabola have
    /// two pairs each, a segment of an unknown type none. Without a surface raises nex_PrimException<atr_String, 1>; a
    /// segment with too few points ends the process.
    cls_xoList<shp_SuppDataPair> ConstGetDataPairList() const;

    /// Entry `index` of the local coordinate system: a vector of the older representation, or the place of a point of
    /// the newer, which goes first where both are held. Without a surface, and for an index above the number of the
    /// newer's points, raises nex_PrimException<atr_String, 1>; every other index that is not in a list that is held
    /// ends the process, one that equals the number of points included.
    g3d_Vector ConstGetLocalCoordDef(int index) const;

    /// The older representation and the newer; each may be empty.
    cow_COW<shp_AnalyticRigidSurfaceData, cow_Virtual<shp_AnalyticRigidSurfaceData>> oldData;
    cow_COW<shp_AnalyticSurface, cow_Direct<shp_AnalyticSurface>> newData;
};

#endif
