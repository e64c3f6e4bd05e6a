#ifndef shp_ArchEntry_h
#define shp_ArchEntry_h

#include "QVRShpCore_Export.h"
#include "typ_ArchCompEntry.h"

/// The persistent types of component 831, the element shapes. The start of QVRShpShp enters them into
/// typ_ArchCompTable. The rows live as long as the library.
QVRSHPCORE_API typ_ArchCompEntry shp_ArchEntry();

#endif
