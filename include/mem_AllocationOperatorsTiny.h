#ifndef mem_AllocationOperatorsTiny_h
#define mem_AllocationOperatorsTiny_h

#include "mem_AllocationOperators.h"

/// Base of classes of a few bytes, whose objects come from mem_OperatorNewTinyThrow.
class QVRSHPCORE_API mem_AllocationOperatorsTiny : public mem_AllocationBase<mem_OperatorNewTinyThrow> {};

#endif
