#ifndef QVRShpCore_Export_h
#define QVRShpCore_Export_h

/// The one macro of the library: what bears it can be used by callers, everything else stays hidden.
#if defined(_WIN32)
#if defined(QVRShpCore_EXPORTS)
#define QVRSHPCORE_API __declspec(dllexport)
#else
#define QVRSHPCORE_API __declspec(dllimport)
#endif
#else
#define QVRSHPCORE_API __attribute__((visibility("default")))
#endif

#endif
