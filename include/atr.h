#ifndef atr_h
#define atr_h

#include "atr_translate.h"
#include "cow_String.h"

/// The translation of a text without placeholders, in the encoding that `mode` names.
QVRSHPCORE_API atr_String atr(char const * format, QVRBasStringMode mode);

/// How a value goes to atr_SubstituteFormat: as it is, except that a cow_String gives its characters and an enumerator
/// its number.
inline int atr_argument(int value) {
    return value;
}
inline char const * atr_argument(char const * value) {
    return value;
}
inline char const * atr_argument(cow_String const & value) {
    return value.CStr();
}
inline atr_StringBase const & atr_argument(atr_StringBase const & value) {
    return value;
}

/// A translated message: each argument takes the place of the placeholder with its position. The types are named, for
/// the mode comes last: `atr<int, char const *>("%d nodes in %s", count, label, mode)`. Format, texts and result are
/// encoded as `mode` says.
template <class... A> atr_String atr(char const * format, A... args, QVRBasStringMode mode) {
    atr_translate message(format, mode);
    int position = 0;
    (atr_SubstituteFormat(message, ++position, atr_argument(args), mode), ...);
    return message.Result(mode);
}

extern template QVRSHPCORE_API atr_String atr<int, int>(char const *, int, int, QVRBasStringMode);
extern template QVRSHPCORE_API atr_String atr<int, int, int, char const *, int, atr_String>(char const *, int, int, int,
                                                                                            char const *, int,
                                                                                            atr_String,
                                                                                            QVRBasStringMode);
extern template QVRSHPCORE_API atr_String atr<int, cow_String>(char const *, int, cow_String, QVRBasStringMode);
extern template QVRSHPCORE_API atr_String atr<char const *>(char const *, char const *, QVRBasStringMode);
extern template QVRSHPCORE_API atr_String atr<char const *, int>(char const *, char const *, int, QVRBasStringMode);
extern template QVRSHPCORE_API atr_String atr<char const *, char const *>(char const *, char const *, char const *,
                                                                          QVRBasStringMode);
extern template QVRSHPCORE_API atr_String atr<cow_String>(char const *, cow_String, QVRBasStringMode);
extern template QVRSHPCORE_API atr_String atr<cow_String, cow_String>(char const *, cow_String, cow_String,
                                                                      QVRBasStringMode);

#endif
