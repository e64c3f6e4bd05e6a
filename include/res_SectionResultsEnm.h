#ifndef res_SectionResultsEnm_h
#define res_SectionResultsEnm_h

#include "QVRShpCore_Export.h"

/// Which section points of a shell, beam or layered section a result is shown for.
enum QVRSHPCORE_API res_SectionResultsEnm : int {
    res_SectionResults_USE_BOTTOM = 0,
    res_SectionResults_USE_TOP = 1,
    res_SectionResults_USE_BOTTOM_AND_TOP = 2,
    res_SectionResults_USE_ENVELOPE = 3
};

#endif
