#ifndef load_unload_client_h
#define load_unload_client_h

/// What the loadable client hands out, as plain C: its user must not be linked with the library.
struct load_unload_Report {
    int counters[6]; ///< as in QVRShpCore_Counters, in its order
    int numShapes;   ///< how many of the client's labels have a shape
    int firstShapeRef;
    int numPersistent; ///< how many of the library's persistent classes are registered
};

extern "C" {
/// Builds shapes, leaves them alive, and says what it found.
using load_unload_useFunction = load_unload_Report (*)();
}

#endif
