#ifndef atr_ConstantText_h
#define atr_ConstantText_h

#include "atr_StringBase.h"

/// Makes texts of bytes that last: without an allocation, and without a count of their sharers.
struct atr_ConstantText {
    static atr_StringBase of(char const * text) noexcept { return atr_StringBase(atr_StringBase::Constant{text}); }
};

#endif
