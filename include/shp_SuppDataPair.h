#ifndef shp_SuppDataPair_h
#define shp_SuppDataPair_h

#include "QVRShpCore_Export.h"
#include "cls_Uid.h"
#include "cls_xoList.h"
#include "cow_COW.h"
#include "cow_Direct.h"
#include "cow_List.h"
#include "cow_ListIter.h"
#include "g3d_Point.h"
#include "mem_AllocationOperators.h"
#include "shp_SuppDataPairEnm.h"

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A point of a rigid surface's profile and what it means there: one entry of the flat list of
/// shp_AnalyticRigidSurfaceData.
class QVRSHPCORE_API shp_SuppDataPair final : public mem_AllocationOperators {
public:
    /// The point (0, 0, 0, 1) with the meaning 4, which is none: such a pair cannot be stored.
    shp_SuppDataPair() = default;
    shp_SuppDataPair(shp_SuppDataPair const &) = default;
    /// A point with its meaning and a null identity.
    shp_SuppDataPair(g3d_Point const & point, shp_SuppDataPairEnm meaning) : value(point), dataType(meaning) {}
    /// Reads a stored pair. A missing point is (0, 0, 0, 1); a meaning that is no name of shp_SuppDataPairEnm raises
    /// nex_CmdException<atr_String, 2>, and so does a missing one.
    explicit shp_SuppDataPair(cls_ReadVisitor const & reader);
    ~shp_SuppDataPair() = default;
    shp_SuppDataPair & operator=(shp_SuppDataPair const &) = default;

    /// The class number, as TypeId.
    virtual unsigned int DynTypeId() const;
    /// Stores the pair, unless the writer has it already. A meaning without a name raises
    /// nex_CmdException<atr_String, 2>.
    virtual void DBWrite(cls_WriteVisitor const & writer) const;

    static unsigned int TypeId() { return 0x33f0002; }
    /// Registers the class's stored form; the start of the library calls it.
    static void InitializeMetadata(cls_ClassRegistrar & registrar);
    /// A pair from `new`, read.
    static shp_SuppDataPair * Ctor(cls_ReadVisitor & reader);
    /// Deletes a holder from `new` together with its share of the object. `holder` is in truth a
    /// cow_COW<shp_SuppDataPair, cow_Direct<shp_SuppDataPair>>.
    static void CowDtor(cow_COW<int, cow_Direct<int>> * holder);

    g3d_Point value;                                                    ///< the point
    shp_SuppDataPairEnm dataType = static_cast<shp_SuppDataPairEnm>(4); ///< one past the last that has a name
    cls_Uid uid;                                                        ///< persistent identity
};

extern template class cow_List<shp_SuppDataPair>;
extern template class cow_ListIter<shp_SuppDataPair>;
extern template class cls_xoList<shp_SuppDataPair>;
extern template QVRSHPCORE_API cls_xoList<shp_SuppDataPair> cls_xoListFromCow(cow_List<shp_SuppDataPair> const &);

#endif
