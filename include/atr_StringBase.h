#ifndef atr_StringBase_h
#define atr_StringBase_h

#include "QVRShpCore_Export.h"
#include "mem_Alloc.h"

#include <compare>
#include <cstring>
#include <utility>

/// The text that both string classes stand on: a pointer to zero-terminated bytes and a pointer to a counted
/// representation that owns them. Copying takes constant time and shares the representation; the first write through
/// one of the sharers gives it a representation of its own. A default text is empty, has no representation and costs
/// no allocation, so that a static one needs no initialiser at run time.
///
/// A text never contains a zero byte, and a null `char const *` is the empty text wherever one is accepted. Counts are
/// plain integers: texts that share a representation must not be copied, written or destroyed by two threads at once.
/// Positions and lengths are bytes. Every operation that needs memory raises mem_OutOfMemoryException when there is
/// none, and then leaves the text as it was.
class QVRSHPCORE_API atr_StringBase {
public:
    constexpr atr_StringBase() noexcept = default;
    /// A copy of `source`.
    atr_StringBase(char const * source);
    /// The first `length` bytes of `source`, fewer when it ends before; all of it when `length` is negative.
    atr_StringBase(char const * source, int length);
    /// The decimal text of a number.
    explicit atr_StringBase(int number);
    explicit atr_StringBase(unsigned int number);
    atr_StringBase(atr_StringBase const & other) noexcept : text(other.text), representation(other.representation) {
        if (representation)
            ++representation->references;
    }
    atr_StringBase(atr_StringBase && other) noexcept
        : text(std::exchange(other.text, "")), representation(std::exchange(other.representation, nullptr)) {}
    atr_StringBase & operator=(atr_StringBase const & other) noexcept { return *this = atr_StringBase(other); }
    atr_StringBase & operator=(atr_StringBase && other) noexcept {
        // The other text may end with this one, or be this one: it is taken out before anything is released.
        char const * const newText = std::exchange(other.text, "");
        Representation * const newRepresentation = std::exchange(other.representation, nullptr);
        release();
        text = newText;
        representation = newRepresentation;
        return *this;
    }
    ~atr_StringBase() { release(); }

    /// The length in bytes, and whether it is 0.
    int Length() const { return representation ? representation->length : constantLength(); }
    bool Empty() const { return *text == '\0'; }
    /// The zero-terminated text, never null. Valid until this text is written, assigned or destroyed.
    char const * CStr() const { return text; }
    /// The byte at `index`; index Length() reads the terminating zero, and so does every index outside the text.
    char operator[](int index) const { return index >= 0 && index < Length() ? text[index] : '\0'; }

    /// -1, 0 or 1: the order of the first unequal bytes, taken as unsigned; a text comes before its continuations.
    int Compare(atr_StringBase const & other) const { return Compare(other.text); }
    int Compare(char const * other) const;

    /// The position of the first `sought` that begins at `start` or later; Length() when there is none. A `start`
    /// before the text counts as 0. An empty `sought` is found at `start`.
    int Find(char const * sought, int start = 0) const;

    /// Adds at the end. The source may be (part of) this text.
    atr_StringBase & Append(atr_StringBase const & other);
    atr_StringBase & Append(char const * source);
    /// Adds the first `count` bytes of `source`, fewer when it ends before; all of it when `count` is negative. The two
    /// further numbers are ignored.
    atr_StringBase & append(char const * source, int count, int ignored1, int ignored2);

    /// Makes the text empty.
    atr_StringBase & Erase() noexcept;
    /// Removes what of the bytes `position` to `position + count - 1` lies in the text; nothing for a `count` below 1.
    atr_StringBase & Erase(int position, int count);
    /// The same as Erase.
    atr_StringBase & Delete() noexcept { return Erase(); }
    atr_StringBase & Delete(int position, int count) { return Erase(position, count); }

    /// Turns the letters a to z into A to Z, in whatever locale; all other bytes stay.
    atr_StringBase & ToUpper();

    /// Converts between UTF-8 and the encoding of the process's locale (LC_CTYPE), in place. Nothing happens where that
    /// encoding is UTF-8 or the locale is the plain "C" one. What cannot be read or expressed becomes "?".
    atr_StringBase & UTF8ToLocale();
    atr_StringBase & LocaleToUTF8();

    /// Comparisons by bytes, as Compare.
    friend bool operator==(atr_StringBase const & left, atr_StringBase const & right) {
        return left.text == right.text || std::strcmp(left.text, right.text) == 0;
    }
    friend bool operator==(atr_StringBase const & left, char const * right) { return left.Compare(right) == 0; }
    friend std::strong_ordering operator<=>(atr_StringBase const & left, atr_StringBase const & right) {
        return std::strcmp(left.text, right.text) <=> 0;
    }
    friend std::strong_ordering operator<=>(atr_StringBase const & left, char const * right) {
        return left.Compare(right) <=> 0;
    }

private:
    friend struct atr_ConstantText;

    /// Constant text without a representation: nothing is allocated and nothing is counted.
    struct Constant {
        char const * text;
    };
    constexpr explicit atr_StringBase(Constant constant) noexcept : text(constant.text) {}

    /// The owner of a text: `capacity + 1` bytes of text follow it in the same block.
    struct Representation {
        int references;
        int length;
        int capacity;
        char * bytes() { return reinterpret_cast<char *>(this + 1); }
    };

    static Representation * copyOf(char const * source, int length, long long capacity);
    int constantLength() const;
    void adopt(Representation * created) noexcept;
    void release() noexcept {
        if (representation && --representation->references == 0)
            mem_Free(representation);
    }
    void unshare();
    void appendBytes(char const * source, int count);

    char const * text = ""; ///< the bytes of the representation, or constant text where there is none
    Representation * representation = nullptr;
};

#endif
