#ifndef odiC_ArchEntry_h
#define odiC_ArchEntry_h

#include "QVRShpCore_Export.h"
#include "typ_ArchCompEntry.h"

/// The persistent types of the results metadata, entered under the component number 676 when the library starts.
QVRSHPCORE_API typ_ArchCompEntry odiC_ArchEntry();

#endif
