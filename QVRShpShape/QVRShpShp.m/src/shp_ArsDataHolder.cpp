#include "shp_ArsDataHolder.h"

#include "atr_translate.h"
#include "nex_PrimException.h"

namespace {

[[noreturn]] void raise(atr_translate const & message, int line) {
    nex_PrimException<atr_String, 1>(message.Result()).Throw("QVRShpShape/QVRShpShp.m/src/shp_ArsDataHolder", line);
}

void requireValue(shp_ArsDataHolder const & holder, int line) {
    if (!holder.hasValue())
        raise(atr_translate("ARS data does not have a valid old/new representation"), line);
}

/// What a segment's type is in a list of pairs, and how many of its points go there.
struct PairForm {
    shp_SuppDataPairEnm meaning;
    int numPoints;
};

PairForm pairFormOf(shp_AnalyticSurfaceSegment::TypeEnm type) {
    switch (type) {
    case shp_AnalyticSurfaceSegment::START: return {shp_SuppDataPair_Start, 1};
    case shp_AnalyticSurfaceSegment::LINE: return {shp_SuppDataPair_Line, 1};
    case shp_AnalyticSurfaceSegment::CIRCLE: return {shp_SuppDataPair_Circl, 2};
    case shp_AnalyticSurfaceSegment::PARABOLA: return {shp_SuppDataPair_Parab, 2};
    }
    return {};
}

} // namespace

cls_xoList<shp_SuppDataPair> shp_ArsDataHolder::ConstGetDataPairList() const {
    requireValue(*this, 17);
    auto pairs = cls_xoListFromCow(cow_List<shp_SuppDataPair>());
    if (oldData.HasValue())
        pairs = oldData.ConstGet()->dataPairList;
    if (newData.HasValue()) {
        cow_List<shp_AnalyticSurfaceSegment> const & profile = newData.ConstGet()->profile;
        for (int i = 0; i < profile.Length(); ++i) {
            shp_AnalyticSurfaceSegment const & segment = profile.ConstGet(i);
            auto const [meaning, numPoints] = pairFormOf(segment.type);
            for (int point = 0; point < numPoints; ++point)
                pairs.Append(shp_SuppDataPair(segment.data.ConstGet(point), meaning));
        }
    }
    return pairs;
}

g3d_Vector shp_ArsDataHolder::ConstGetLocalCoordDef(int index) const {
    requireValue(*this, 61);
    g3d_Vector found;
    if (oldData.HasValue())
        found = oldData.ConstGet()->ConstGetLocalCoordDef(index);
    if (newData.HasValue()) {
        cow_List<g3d_Point> const & points = newData.ConstGet()->localCoordData;
        if (points.Length() < index) { // an index equal to the length is left to the list, whose error it gets
            atr_translate message("localcoord data requested for %d when size is %d");
            atr_SubstituteFormat(message, 1, index);
            atr_SubstituteFormat(message, 2, points.Length());
            raise(message, 72);
        }
        g3d_Point const & point = points.ConstGet(index);
        found.Set(point.X(), point.Y(), point.Z());
    }
    return found;
}

template class cow_CountedHld<shp_AnalyticRigidSurfaceData>;
template class cow_CountedHld<shp_AnalyticSurface>;
template class cow_COW<shp_AnalyticRigidSurfaceData, cow_Virtual<shp_AnalyticRigidSurfaceData>>;
template class cow_COW<shp_AnalyticSurface, cow_Direct<shp_AnalyticSurface>>;
