#ifndef shp_Shape_h
#define shp_Shape_h

#include "QVRShpCore_Export.h"
#include "atr_String.h"
#include "cow_String.h"
#include "shp_InverseTopoTable.h"
#include "shp_Topology.h"

/// All that the library knows of one element label: the topology with its interpolation tables, and the inverse tables.
/// Made by shp_ShapeDictionary::GetShape, which owns it; immutable once built, and so free to be read by any thread.
class QVRSHPCORE_API shp_Shape : public shp_Topology, public shp_InverseTopoTable {
public:
    /// Builds the shape of `key`. `label` is kept as it is given: upper case is the caller's business.
    shp_Shape(cow_String const & label, LongKey const & key);
    shp_Shape(shp_Shape const &) = delete;
    shp_Shape & operator=(shp_Shape const &) = delete;
    ~shp_Shape() override;

    /// Sets `shapeRef`; the dictionary does so when it makes the shape.
    void SetShapeRef(unsigned int ref) { shapeRef = ref; }

    /// The report PrintTopology. None of these four reports writes the label.
    void PrintMembers(aio_ostream & stream) const { PrintTopology(stream); }
    /// The report PrintTopologyTable: one row.
    void PrintMembersInTable(aio_ostream & stream) const { PrintTopologyTable(stream); }
    /// The report PrintWeights.
    void PrintWeightsInTable(aio_ostream & stream) const { PrintWeights(stream); }
    /// The report PrintInverse.
    void PrintInverseTable(aio_ostream & stream) const { PrintInverse(*this, stream); }

    /// The label. Threads that share the shape read it by CStr(): a copy counts on an integer that all copies share.
    atr_String label;
    unsigned int shapeRef = 0; ///< number of this shape in its dictionary, from 0 in the order of first use
};

#endif
