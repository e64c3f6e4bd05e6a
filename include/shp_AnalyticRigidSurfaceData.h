#ifndef shp_AnalyticRigidSurfaceData_h
#define shp_AnalyticRigidSurfaceData_h

#include "atr_String.h"
#include "cls_xo1DArrayList.h"
#include "cow_COW.h"
#include "cow_Virtual.h"
#include "g3d_Vector.h"
#include "shp_AnalyticRigidSurfEnm.h"
#include "shp_SuppDataPair.h"

/// An analytic rigid surface in the older of two representations: a flat list of points with their meaning, the vectors
/// of the local coordinate system, and the indices that attach the surface to a mesh. shp_AnalyticSurface is the newer,
/// and shp_ArsDataHolder reads both.
///
/// A copy shares the lists until one side writes, and has the identity of its original.
class QVRSHPCORE_API shp_AnalyticRigidSurfaceData final : public mem_AllocationOperators {
public:
    /// A Cylinder of the name "default" with three zero vectors, no points and indices of -1. The object and its list
    /// of points have fresh identities, the list of vectors a null one.
    shp_AnalyticRigidSurfaceData();
    shp_AnalyticRigidSurfaceData(shp_AnalyticRigidSurfaceData const &) = default;
    /// The same with an empty name and as many zero vectors as `type` has: three for a Cylinder, two for a Revolut,
    /// none for any other.
    explicit shp_AnalyticRigidSurfaceData(shp_AnalyticRigidSurfEnm type);
    /// Reads a stored surface. A missing number is 0, a missing list or name empty; a type that is no name of
    /// shp_AnalyticRigidSurfEnm raises nex_CmdException<atr_String, 2>, and so does a missing one.
    explicit shp_AnalyticRigidSurfaceData(cls_ReadVisitor const & reader);
    ~shp_AnalyticRigidSurfaceData() = default;
    shp_AnalyticRigidSurfaceData & operator=(shp_AnalyticRigidSurfaceData const &) = default;

    /// The profile.
    cls_xoList<shp_SuppDataPair> const & ConstGetDataPairList() const { return dataPairList; }
    /// A vector of the local system; the end of the process when there is none of that index.
    g3d_Vector const & ConstGetLocalCoordDef(int index) const { return localCoordDef.ConstGet(index); }

    /// A copy. The caller owns it.
    virtual shp_AnalyticRigidSurfaceData * Copy() const;
    /// Stores the surface, unless the writer has it already.
    virtual void DBWrite(cls_WriteVisitor const & writer) const;
    /// The class number, as TypeId.
    virtual unsigned int DynTypeId() const;

    static unsigned int TypeId() { return 0x33f0001; }
    /// Registers the class's stored form; the start of the library calls it.
    static void InitializeMetadata(cls_ClassRegistrar & registrar);
    /// A surface from `new`, read.
    static shp_AnalyticRigidSurfaceData * Ctor(cls_ReadVisitor & reader);
    /// Deletes a holder from `new` together with its share of the object. `holder` is in truth a
    /// cow_COW<shp_AnalyticRigidSurfaceData, cow_Virtual<shp_AnalyticRigidSurfaceData>>.
    static void CowDtor(cow_COW<int, cow_Direct<int>> * holder);

    int meshIndex = -1;                          ///< where the surface is attached: the mesh
    int classIndex = -1;                         ///< the class of elements in the mesh
    int elemIndex = -1;                          ///< the element in the class
    atr_String surfaceName;                      ///< under which users know it
    shp_AnalyticRigidSurfEnm surfaceType;        ///< how the profile makes the surface
    cls_xo1DArrayList<g3d_Vector> localCoordDef; ///< the vectors of the local system
    cls_xoList<shp_SuppDataPair> dataPairList;   ///< the profile
    cls_Uid uid;                                 ///< persistent identity
};

// Named where the class is: what a holder is made of would be hidden in a build that inlines nothing, if a source used
// one without this.
extern template class cow_CountedHld<shp_AnalyticRigidSurfaceData>;
extern template class cow_COW<shp_AnalyticRigidSurfaceData, cow_Virtual<shp_AnalyticRigidSurfaceData>>;

#endif
