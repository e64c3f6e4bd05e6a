#ifndef shp_MessageTypes_h
#define shp_MessageTypes_h

#include "QVRShpCore_Export.h"
#include "res_OutputPositionEnm.h"

/// The library's messages to the user. Each goes to the message sink (wip_WIP.h) as an error, and the caller goes on
/// when it returns.
class QVRSHPCORE_API shp_MessageTypes {
public:
    /// "Average volume/area negative."
    static void ErrorAvrgVolumeAreaNegative();
    /// "<methodName>: Unsupported position <position as a number>".
    static void ErrorUnsupportedPositionOnMethod(char const * methodName, res_OutputPositionEnm position);
};

#endif
