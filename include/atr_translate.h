#ifndef atr_translate_h
#define atr_translate_h

#include "QVRBasStringMode.h"
#include "QVRShpCore_Export.h"
#include "atr_String.h"
#include "mem_Allocator.h"

#include <vector>

/// A message made from a translated format. The format's placeholders "%s" and "%d" are numbered together from 1, in
/// the order of the translated text; either takes any kind of value. The format is cut at them once, so that text that
/// is put in is never searched again.
class QVRSHPCORE_API atr_translate {
public:
    /// Gives the translation of a text, both in UTF-8, or null where there is none. The result is copied at once.
    using Translation = char const * (*)(char const * text);

    /// Translates `format`, which is encoded as `mode` says.
    explicit atr_translate(char const * format, QVRBasStringMode mode = QVRBasStringMode());

    /// Puts `value`, encoded as `mode` says, in the place of the placeholder at `position`, or of the value that stands
    /// there already. A position that the format does not have is ignored.
    void Substitute(int position, atr_StringBase const & value, QVRBasStringMode mode);

    /// The message, encoded as `mode` asks. A placeholder without a value stays as it is written.
    atr_String Result(QVRBasStringMode mode = QVRBasStringMode()) const;

    /// Installs the process's translation, and returns the one before it. Null, which is the state at load, leaves
    /// every text as it is. Not safe while another thread makes messages.
    static Translation SetTranslation(Translation translation) noexcept;

private:
    struct Piece {
        atr_String text; ///< UTF-8; of a placeholder, its value or how it is written
        bool isPlaceholder;
    };
    std::vector<Piece, mem_Allocator<Piece>> pieces;
};

/// Puts a value in the place of the placeholder at `position`; see atr_translate::Substitute.
QVRSHPCORE_API void atr_SubstituteFormat(atr_translate & message, int position, int value,
                                         QVRBasStringMode mode = QVRBasStringMode());
QVRSHPCORE_API void atr_SubstituteFormat(atr_translate & message, int position, char const * value,
                                         QVRBasStringMode mode = QVRBasStringMode());
QVRSHPCORE_API void atr_SubstituteFormat(atr_translate & message, int position, atr_StringBase const & value,
                                         QVRBasStringMode mode = QVRBasStringMode());

/// `text` as it stands, not translated and in the encoding that it has, which is what `mode` names.
QVRSHPCORE_API atr_String atr_raw(char const * text, QVRBasStringMode mode = QVRBasStringMode());

#endif
