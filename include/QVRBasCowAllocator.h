#ifndef QVRBasCowAllocator_h
#define QVRBasCowAllocator_h

#include "mem_AllocationOperators.h"

/// Base of the shared representations behind copy-on-write values, which come from mem_OperatorNewTinyThrow.
class QVRSHPCORE_API QVRBasCowAllocator : public mem_AllocationBase<mem_OperatorNewTinyThrow> {};

#endif
