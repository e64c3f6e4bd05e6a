#ifndef shp_Options_h
#define shp_Options_h

#include "LongKey.h"
#include "QVRShpCore_Export.h"

/// The decoded key of an element type: what every table choice looks at.
class QVRSHPCORE_API shp_Options {
public:
    /// Decodes `key`. Of several bits of one group the lowest counts; a group without a bit gives 0.
    explicit shp_Options(LongKey const & key);

    int Shape() const { return shape; }           ///< shape family, 1 to 9 (shp_keyPoint to shp_keyPyramid), or 0
    int NumNodes() const { return numNodes; }     ///< node count, or 0
    int NumIntPnts() const { return numIntPnts; } ///< integration point count, or 0
    int Mode() const { return mode; }             ///< 1 to 4 for CAXA elements and layered solids, else 0
    bool Is2D() const { return is2D; }            ///< element of a two-dimensional model

    /// True if the key has this bit (a shp_KeyBit, or any other number).
    bool IsType(int bitNumber) const { return key.hasBit(static_cast<unsigned int>(bitNumber)); }

    /// Overwrites the node count and leaves the key alone: NumNodes() and IsType() may disagree afterwards.
    void SetNumNodes(int nodes) { numNodes = nodes; }

private:
    int shape = 0;
    int numNodes = 0;
    int numIntPnts = 0;
    int mode = 0;
    bool is2D;
    LongKey key;
};

#endif
