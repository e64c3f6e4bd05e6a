#ifndef odm_PositionEnm_h
#define odm_PositionEnm_h

/// Where a result stands, as output databases store it, a bit each. 16 is stored for a position without a bit of its
/// own; 2048 and 4096 are legal, too.
enum odm_PositionEnm : int {
    odm_Position_NODAL = 32,
    odm_Position_INTEGRATION_POINT = 128,
    odm_Position_ELEMENT_NODAL = 256,
    odm_Position_ELEMENT_CENTROID = 512,
    odm_Position_ELEMENT_FACE = 1024
};

#endif
