#ifndef QVRShpCore_Module_h
#define QVRShpCore_Module_h

#include "QVRShpCore_Export.h"

/// Start and stop of the library and of its parts.
///
/// Starts and stops are counted: the first start does the work, the stop that takes the count from 1 to 0 undoes it,
/// all others only count. A stop too many is not reported; it takes the count below 0 and makes the next start a no-op.
/// Every call takes the caller's `level`, the running number of started modules: whoever does real work adds 1 to it,
/// or takes 1 from it. Loading the library starts it, so that callers need none of these functions.
///
/// Nothing here is safe for concurrent use.

/// Starts the library: the five modules of the foundation, then QVRShpOdi and QVRShpShp, then the specific step. A full
/// first start adds 9 to `level`.
QVRSHPCORE_API void QVRShpCore_initialize(int & level);

/// Stops the library in the reverse order; the last stop takes 9 from `level` and destroys the shape dictionary with
/// every shape.
QVRSHPCORE_API void QVRShpCore_finalize(int & level);

/// The same two for callers from other languages, on a level of the library's own.
extern "C" QVRSHPCORE_API void QVRShpCore_initializeC();
extern "C" QVRSHPCORE_API void QVRShpCore_finalizeC();

/// The specific step, which has no work but its place in the count.
QVRSHPCORE_API void QVRShpCore_specific_initialize(int & level);
QVRSHPCORE_API void QVRShpCore_specific_finalize(int & level);

/// The results metadata.
QVRSHPCORE_API void QVRShpOdi_initialize(int & level);
QVRSHPCORE_API void QVRShpOdi_finalize(int & level);

/// The element shapes. The last finalize destroys the shape dictionary; the dictionary itself comes into being at its
/// first use, not here.
QVRSHPCORE_API void QVRShpShp_initialize(int & level);
QVRSHPCORE_API void QVRShpShp_finalize(int & level);

/// The modules of the foundation: geometry, basic utilities, shared containers, text and streams, memory.
QVRSHPCORE_API void QVRKelGeom_initialize(int & level);
QVRSHPCORE_API void QVRKelGeom_finalize(int & level);
QVRSHPCORE_API void QVRKelBasicUtils_initialize(int & level);
QVRSHPCORE_API void QVRKelBasicUtils_finalize(int & level);
QVRSHPCORE_API void QVRBasShared_initialize(int & level);
QVRSHPCORE_API void QVRBasShared_finalize(int & level);
QVRSHPCORE_API void QVRBasCoreUtils_initialize(int & level);
QVRSHPCORE_API void QVRBasCoreUtils_finalize(int & level);
QVRSHPCORE_API void QVRBasAlloc_initialize(int & level);
QVRSHPCORE_API void QVRBasAlloc_finalize(int & level);

/// What the operating system calls when the library comes (`reason` 1: start) and goes (`reason` 0: stop); every other
/// reason, such as a thread that comes or goes, does nothing. Returns 1.
QVRSHPCORE_API int QVRShpCore_libraryEntry(void * handle, unsigned long reason, void * reserved);

/// The process-wide counters, for diagnosis. All are 0 before the library is loaded.
struct QVRShpCore_Counters {
    int moduleStartCount;   ///< outstanding starts of QVRShpCore, in whatever form
    int specificStartCount; ///< outstanding specific steps, that of the start included
    int odiStartCount;      ///< outstanding starts of QVRShpOdi
    int shpStartCount;      ///< outstanding starts of QVRShpShp
    int loadLevel;          ///< the level that loading and unloading count on
    int cEntryLevel;        ///< the level that the functions without arguments count on
};

/// A copy of the counters as they stand.
QVRSHPCORE_API QVRShpCore_Counters QVRShpCore_counters();

#endif
