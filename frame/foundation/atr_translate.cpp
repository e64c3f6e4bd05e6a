#include "atr_translate.h"

#include "QVRBasAtrStringMode.h"

#include <utility>

namespace {

constinit atr_translate::Translation installedTranslation = nullptr;

atr_String translated(atr_String text) {
    if (installedTranslation)
        if (char const * translation = installedTranslation(text.CStr()))
            return atr_String(translation);
    return text;
}

bool isPlaceholderAt(char const * format) {
    return format[0] == '%' && (format[1] == 's' || format[1] == 'd');
}

constexpr int placeholderLength = 2;

} // namespace

atr_translate::atr_translate(char const * format, QVRBasStringMode mode) {
    atr_String const text = translated(QVRBasAtrStringMode::ModalToUTF8(format, mode));
    char const * next = text.CStr();
    while (*next != '\0') {
        bool const isPlaceholder = isPlaceholderAt(next);
        char const * const start = next;
        if (isPlaceholder)
            next += placeholderLength;
        else
            while (*next != '\0' && !isPlaceholderAt(next))
                ++next;
        pieces.push_back({atr_String(start, static_cast<int>(next - start)), isPlaceholder});
    }
}

void atr_translate::Substitute(int position, atr_StringBase const & value, QVRBasStringMode mode) {
    int placeholder = 0;
    for (Piece & piece : pieces)
        if (piece.isPlaceholder && ++placeholder == position)
            piece.text = QVRBasAtrStringMode::ModalToUTF8(atr_String(value), mode);
}

atr_String atr_translate::Result(QVRBasStringMode mode) const {
    atr_String message;
    for (Piece const & piece : pieces)
        message.Append(piece.text);
    return QVRBasAtrStringMode::Utf8ToModal(std::move(message), mode);
}

atr_translate::Translation atr_translate::SetTranslation(Translation translation) noexcept {
    return std::exchange(installedTranslation, translation);
}

void atr_SubstituteFormat(atr_translate & message, int position, int value, QVRBasStringMode mode) {
    message.Substitute(position, atr_StringBase(value), mode);
}

void atr_SubstituteFormat(atr_translate & message, int position, char const * value, QVRBasStringMode mode) {
    message.Substitute(position, atr_StringBase(value), mode);
}

void atr_SubstituteFormat(atr_translate & message, int position, atr_StringBase const & value, QVRBasStringMode mode) {
    message.Substitute(position, value, mode);
}

atr_String atr_raw(char const * text, QVRBasStringMode) {
    return atr_String(text);
}
