#ifndef shp_AnalyticSurfaceSegment_h
#define shp_AnalyticSurfaceSegment_h

#include "QVRShpCore_Export.h"
#include "cls_Uid.h"
#include "cls_xo1DArrayList.h"
#include "cow_COW.h"
#include "cow_Direct.h"
#include "cow_List.h"
#include "cow_ListIter.h"
#include "g3d_Point.h"
#include "mem_AllocationOperators.h"
#include "omn_FixedString.h"

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// One link in the profile of a shp_AnalyticSurface: the start of the chain, or a line, an arc or a parabola that goes
/// on from where the link before it ends.
///
/// A copy shares the points until one side writes, and has the identity of its original. The number of points is not
/// checked against the type here; who reads them does that.
class QVRSHPCORE_API shp_AnalyticSurfaceSegment final : public mem_AllocationOperators {
public:
    /// The kind of link, with the points that it has in `data`.
    enum QVRSHPCORE_API TypeEnm : int {
        START = 0,   ///< 1: the first point of the chain
        LINE = 1,    ///< 1: the end point
        CIRCLE = 2,  ///< 2
        PARABOLA = 3 ///< 2
    };

    /// A START without points and with a null identity.
    shp_AnalyticSurfaceSegment() = default;
    shp_AnalyticSurfaceSegment(shp_AnalyticSurfaceSegment const &) = default;
    /// The same as the copy.
    shp_AnalyticSurfaceSegment(shp_AnalyticSurfaceSegment && other) noexcept
        : shp_AnalyticSurfaceSegment(static_cast<shp_AnalyticSurfaceSegment const &>(other)) {}
    /// Reads a stored segment. A missing list is empty; a type that is no name of TypeEnm raises
    /// nex_CmdException<atr_String, 2>, and so does a missing one.
    explicit shp_AnalyticSurfaceSegment(cls_ReadVisitor const & reader);
    ~shp_AnalyticSurfaceSegment() = default;
    shp_AnalyticSurfaceSegment & operator=(shp_AnalyticSurfaceSegment const &) = default;

    /// Any two segments are equal. What searches or compares lists of them takes every segment for every other, and
    /// users of such lists rely on that.
    bool operator==(shp_AnalyticSurfaceSegment const &) const { return true; }
    bool operator!=(shp_AnalyticSurfaceSegment const &) const { return false; }
    /// Does nothing: any segment is valid.
    void AssertValid() const {}

    /// A copy. The caller owns it.
    virtual shp_AnalyticSurfaceSegment * Copy() const;
    /// The class number, as TypeId.
    virtual unsigned int DynTypeId() const;
    /// Stores the segment, unless the writer has it already.
    virtual void DBWrite(cls_WriteVisitor const & writer) const;

    static unsigned int TypeId() { return 0x33f0003; }
    /// Names of the stored attributes.
    static constexpr omn_FixedString typeCmd() { return "type"; }
    static constexpr omn_FixedString dataCmd() { return "data"; }
    /// Registers the class's stored form; the start of the library calls it.
    static void InitializeMetadata(cls_ClassRegistrar & registrar);
    /// A segment from `new`, read.
    static shp_AnalyticSurfaceSegment * Ctor(cls_ReadVisitor & reader);
    /// Deletes a holder from `new` together with its share of the object. `holder` is in truth a
    /// cow_COW<shp_AnalyticSurfaceSegment, cow_Direct<shp_AnalyticSurfaceSegment>>.
    static void CowDtor(cow_COW<int, cow_Direct<int>> * holder);

    TypeEnm type = START;              ///< what its points mean
    cls_xo1DArrayList<g3d_Point> data; ///< its points
    cls_Uid uid;                       ///< persistent identity
};

extern template class cow_List<shp_AnalyticSurfaceSegment>;
extern template class cow_ListIter<shp_AnalyticSurfaceSegment>;
extern template class cls_xoList<shp_AnalyticSurfaceSegment>;
extern template class cls_xo1DArrayList<shp_AnalyticSurfaceSegment>;

#endif
