#include "atr.h"

atr_String atr(char const * format, QVRBasStringMode mode) {
    return atr_translate(format, mode).Result(mode);
}

template atr_String atr<int, int>(char const *, int, int, QVRBasStringMode);
template atr_String atr<int, int, int, char const *, int, atr_String>(char const *, int, int, int, char const *, int,
                                                                      atr_String, QVRBasStringMode);
template atr_String atr<int, cow_String>(char const *, int, cow_String, QVRBasStringMode);
template atr_String atr<char const *>(char const *, char const *, QVRBasStringMode);
template atr_String atr<char const *, int>(char const *, char const *, int, QVRBasStringMode);
template atr_String atr<char const *, char const *>(char const *, char const *, char const *, QVRBasStringMode);
template atr_String atr<cow_String>(char const *, cow_String, QVRBasStringMode);
template atr_String atr<cow_String, cow_String>(char const *, cow_String, cow_String, QVRBasStringMode);
