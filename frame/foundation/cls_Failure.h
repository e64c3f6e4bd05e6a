#ifndef cls_Failure_h
#define cls_Failure_h

// What archives share when they fail.

#include "atr_translate.h"
#include "cow_String.h"
#include "nex_PrimException.h"

/// So many objects may stand around one in an archive, each a part of the next: enough for any data, and little enough
/// for the stack.
constexpr int cls_maxDepth = 200;

/// The name of a class, or its number in hexadecimal where it is not registered.
cow_String cls_nameOfClass(unsigned int typeNumber);

/// Raises a nex_PrimException with the translated text, each argument in the place of its placeholder.
template <class... Arguments>
[[noreturn]] void cls_raise(char const * file, int line, char const * format, Arguments const &... arguments) {
    atr_translate text(format);
    int position = 0;
    (atr_SubstituteFormat(text, ++position, arguments), ...);
    nex_PrimException<atr_String, 1>(text.Result()).Throw(file, line);
}

#endif
