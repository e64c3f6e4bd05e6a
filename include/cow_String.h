#ifndef cow_String_h
#define cow_String_h

#include "atr_StringBase.h"

/// Plain text in ASCII or UTF-8, not translated, copied in constant time. Its operations are those of atr_StringBase.
class QVRSHPCORE_API cow_String : public atr_StringBase {
public:
    constexpr cow_String() noexcept = default;
    /// A null pointer is the empty text.
    cow_String(char const * source) : atr_StringBase(source) {}
    /// The first `length` bytes of `source`, fewer when it ends before; all of it when `length` is negative.
    cow_String(char const * source, int length) : atr_StringBase(source, length) {}
    /// The decimal text of a number.
    explicit cow_String(int number) : atr_StringBase(number) {}
    explicit cow_String(unsigned int number) : atr_StringBase(number) {}
    /// Shares the text of `other`, whichever kind of string that is.
    explicit cow_String(atr_StringBase const & other) noexcept : atr_StringBase(other) {}

    /// The text of both, one behind the other.
    friend cow_String operator+(cow_String left, cow_String const & right) {
        left.Append(right);
        return left;
    }
    /// The same with zero-terminated bytes.
    friend cow_String operator+(cow_String left, char const * right) {
        left.Append(right);
        return left;
    }
};

#endif
