#ifndef QVRBasAtrStringMode_h
#define QVRBasAtrStringMode_h

#include "QVRBasStringMode.h"
#include "QVRShpCore_Export.h"
#include "atr_String.h"

/// Takes a text from UTF-8 to the encoding that a mode names, and back.
class QVRSHPCORE_API QVRBasAtrStringMode {
public:
    /// Each gives the text in the other encoding, as it is in mode 0. What cannot be read or expressed becomes "?".
    static atr_String Utf8ToModal(atr_String text, QVRBasStringMode mode);
    static atr_String ModalToUTF8(atr_String text, QVRBasStringMode mode);
};

#endif
