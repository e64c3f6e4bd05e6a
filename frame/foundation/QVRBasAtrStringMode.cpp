#include "QVRBasAtrStringMode.h"

#include <climits>
#include <clocale>
#include <cstring>
#include <cuchar>
#include <utility>

namespace {

constexpr char unknownCharacter[] = "?";

/// True where UTF-8 text is also the locale's text, or where the locale is too plain to say anything about it.
bool localeTakesUtf8() {
    char const * const name = std::setlocale(LC_CTYPE, nullptr);
    if (name == nullptr || std::strcmp(name, "C") == 0 || std::strcmp(name, "POSIX") == 0)
        return true;
    char32_t character = 0;
    std::mbstate_t state{};
    return std::mbrtoc32(&character, "\xc3\xa9", 2, &state) == 2 && character == 0xe9;
}

/// Reads one character of UTF-8 and moves `bytes` behind it; false, and one byte further, where there is no well-formed
/// one. The bytes are zero-terminated.
bool readUtf8(unsigned char const *& bytes, char32_t & character) {
    struct Form {
        unsigned char mask, lead;
        char32_t least;
    };
    static constexpr Form forms[] = {{0x80, 0x00, 0}, {0xe0, 0xc0, 0x80}, {0xf0, 0xe0, 0x800}, {0xf8, 0xf0, 0x10000}};
    constexpr int longest = 4;

    unsigned char const first = *bytes++;
    for (int trailing = 0; trailing < longest; ++trailing) {
        Form const & form = forms[trailing];
        if ((first & form.mask) != form.lead)
            continue;
        char32_t value = static_cast<char32_t>(first & ~form.mask);
        for (int i = 0; i < trailing; ++i) {
            if ((bytes[i] & 0xc0) != 0x80)
                return false;
            value = value << 6 | (bytes[i] & 0x3fu);
        }
        if (value < form.least || value > 0x10ffff || (value >= 0xd800 && value <= 0xdfff))
            return false;
        bytes += trailing;
        character = value;
        return true;
    }
    return false;
}

/// Writes one character as UTF-8; returns the number of bytes.
int writeUtf8(char32_t character, char (&bytes)[4]) {
    if (character < 0x80) {
        bytes[0] = static_cast<char>(character);
        return 1;
    }
    int const trailing = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    static constexpr unsigned int leads[] = {0, 0xc0, 0xe0, 0xf0};
    for (int i = trailing; i > 0; --i, character >>= 6)
        bytes[i] = static_cast<char>(0x80 | (character & 0x3f));
    bytes[0] = static_cast<char>(leads[trailing] | character);
    return trailing + 1;
}

} // namespace

atr_StringBase & atr_StringBase::UTF8ToLocale() {
    if (localeTakesUtf8())
        return *this;
    atr_StringBase converted;
    std::mbstate_t state{};
    auto const * bytes = reinterpret_cast<unsigned char const *>(text);
    while (*bytes != '\0') {
        char encoded[MB_LEN_MAX];
        char32_t character = 0;
        std::size_t const count =
            readUtf8(bytes, character) ? std::c32rtomb(encoded, character, &state) : std::size_t(-1);
        if (count != std::size_t(-1)) {
            converted.appendBytes(encoded, static_cast<int>(count));
        } else {
            state = std::mbstate_t{};
            converted.Append(unknownCharacter);
        }
    }
    return *this = std::move(converted);
}

atr_StringBase & atr_StringBase::LocaleToUTF8() {
    if (localeTakesUtf8())
        return *this;
    atr_StringBase converted;
    std::mbstate_t state{};
    char const * const end = text + Length();
    for (char const * bytes = text; bytes != end;) {
        char32_t character = 0;
        std::size_t const count = std::mbrtoc32(&character, bytes, static_cast<std::size_t>(end - bytes), &state);
        if (count != 0 && count <= static_cast<std::size_t>(end - bytes)) {
            char encoded[4];
            converted.appendBytes(encoded, writeUtf8(character, encoded));
            bytes += count;
        } else {
            state = std::mbstate_t{};
            converted.Append(unknownCharacter);
            ++bytes;
        }
    }
    return *this = std::move(converted);
}

atr_String QVRBasAtrStringMode::Utf8ToModal(atr_String text, QVRBasStringMode mode) {
    if (mode.IsLocale())
        text.UTF8ToLocale();
    return text;
}

atr_String QVRBasAtrStringMode::ModalToUTF8(atr_String text, QVRBasStringMode mode) {
    if (mode.IsLocale())
        text.LocaleToUTF8();
    return text;
}
