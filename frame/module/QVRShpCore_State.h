#ifndef QVRShpCore_State_h
#define QVRShpCore_State_h

#include "QVRShpCore_Module.h"

/// The counters themselves. Constant-initialised: the start at load runs before any initialiser of this library.
extern QVRShpCore_Counters QVRShpCore_state;

#endif
