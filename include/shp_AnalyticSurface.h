#ifndef shp_AnalyticSurface_h
#define shp_AnalyticSurface_h

#include "atr_String.h"
#include "cow_COW.h"
#include "cow_Direct.h"
#include "shp_AnalyticSurfaceSegment.h"

class gsl_Matrix;

/// An analytic rigid surface: a plane profile of lines, arcs and parabolas, and how it makes a surface. The newer of
/// two representations; shp_AnalyticRigidSurfaceData is the older, and shp_ArsDataHolder reads both.
///
/// A copy shares the lists until one side writes, and has the identity of its original.
class QVRSHPCORE_API shp_AnalyticSurface final : public mem_AllocationOperators {
public:
    /// How the profile makes the surface.
    enum QVRSHPCORE_API TypeEnm : int { SEGMENTS = 0, CYLINDER = 1, REVOLUTION = 2, USER = 3 };

    /// SEGMENTS, radius 0, empty lists, an empty name and null identities.
    shp_AnalyticSurface() = default;
    shp_AnalyticSurface(shp_AnalyticSurface const &) = default;
    /// Reads a stored surface. A missing number is 0, a missing list or name empty; a type that is no name of TypeEnm
    /// raises nex_CmdException<atr_String, 2>, and so does a missing one.
    explicit shp_AnalyticSurface(cls_ReadVisitor const & reader);
    ~shp_AnalyticSurface() = default;
    shp_AnalyticSurface & operator=(shp_AnalyticSurface const &) = default;

    /// Does nothing: any surface is valid.
    void AssertValid() const {}

    /// Moves all points of the profile: each is widened to double, transformed and narrowed to the nearest float; its w
    /// stays. `localCoordData` stays in its old frame, and so does the fillet radius: stored surfaces rely on it.
    void SetTransform(gsl_Matrix const & matrix);

    /// A copy. The caller owns it.
    virtual shp_AnalyticSurface * Copy() const;
    /// The class number, as TypeId.
    virtual unsigned int DynTypeId() const;
    /// Stores the surface, unless the writer has it already.
    virtual void DBWrite(cls_WriteVisitor const & writer) const;

    /// 5, although the name stands in row 4 of the component's table: stored surfaces have this number.
    static unsigned int TypeId() { return 0x33f0005; }
    /// Names of the stored attributes.
    static constexpr omn_FixedString typeCmd() { return "type"; }
    static constexpr omn_FixedString filletRadiusCmd() { return "filletRadius"; }
    static constexpr omn_FixedString profileCmd() { return "profile"; }
    static constexpr omn_FixedString localCoordDataCmd() { return "localCoordData"; }
    static constexpr omn_FixedString nameCmd() { return "name"; }
    /// Registers the class's stored form; the start of the library calls it.
    static void InitializeMetadata(cls_ClassRegistrar & registrar);
    /// A surface from `new`, read.
    static shp_AnalyticSurface * Ctor(cls_ReadVisitor & reader);
    /// Deletes a holder from `new` together with its share of the object. `holder` is in truth a
    /// cow_COW<shp_AnalyticSurface, cow_Direct<shp_AnalyticSurface>>.
    static void CowDtor(cow_COW<int, cow_Direct<int>> * holder);

    TypeEnm type = SEGMENTS;                               ///< how the profile makes the surface
    double filletRadius = 0;                               ///< of the profile's corners
    cls_xo1DArrayList<shp_AnalyticSurfaceSegment> profile; ///< the chain, in order
    cls_xo1DArrayList<g3d_Point> localCoordData;           ///< the points that define the local coordinate system
    atr_String name;                                       ///< under which users know it
    cls_Uid uid;                                           ///< persistent identity
};

// Named where the class is: what a holder is made of would be hidden in a build that inlines nothing, if a source used
// one without this.
extern template class cow_CountedHld<shp_AnalyticSurface>;
extern template class cow_COW<shp_AnalyticSurface, cow_Direct<shp_AnalyticSurface>>;

#endif
