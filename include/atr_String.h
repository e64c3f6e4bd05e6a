#ifndef atr_String_h
#define atr_String_h

#include "atr_StringBase.h"

/// Text that may be translated, or held in the encoding of the locale (QVRBasStringMode.h). Its operations are those
/// of atr_StringBase.
class QVRSHPCORE_API atr_String : public atr_StringBase {
public:
    constexpr atr_String() noexcept = default;
    /// A null pointer is the empty text.
    atr_String(char const * source) : atr_StringBase(source) {}
    /// The first `length` bytes of `source`, fewer when it ends before; all of it when `length` is negative.
    atr_String(char const * source, int length) : atr_StringBase(source, length) {}
    /// The decimal text of a number.
    explicit atr_String(int number) : atr_StringBase(number) {}
    explicit atr_String(unsigned int number) : atr_StringBase(number) {}
    /// Shares the text of `other`, whichever kind of string that is.
    explicit atr_String(atr_StringBase const & other) noexcept : atr_StringBase(other) {}

    /// The text of both, one behind the other.
    friend atr_String operator+(atr_String left, atr_String const & right) {
        left.Append(right);
        return left;
    }
    /// The same with zero-terminated bytes.
    friend atr_String operator+(atr_String left, char const * right) {
        left.Append(right);
        return left;
    }
};

#endif
