#include "atr_StringBase.h"

#include "mem_OutOfMemoryException.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstring>
#include <new>

namespace {

/// The bytes that a caller means: at most `count` (negative: any number), and no more than there are.
int boundedLength(char const * source, int count) {
    if (source == nullptr)
        return 0;
    if (count < 0) {
        std::size_t const length = std::strlen(source);
        if (length > INT_MAX)
            mem_raiseOutOfMemory();
        return static_cast<int>(length);
    }
    int length = 0;
    while (length < count && source[length] != '\0')
        ++length;
    return length;
}

/// Room for the digits and the sign of any 32-bit number.
constexpr int numberSize = 12;

} // namespace

atr_StringBase::Representation * atr_StringBase::copyOf(char const * source, int length, long long capacity) {
    constexpr long long mostBytes = INT_MAX - static_cast<int>(sizeof(Representation)) - 1;
    if (capacity > mostBytes)
        mem_raiseOutOfMemory();
    void * block = mem_OperatorNewThrowBuiltin(sizeof(Representation) + static_cast<std::size_t>(capacity) + 1);
    auto * created = new (block) Representation{.references = 1, .length = length, .capacity = int(capacity)};
    std::memcpy(created->bytes(), source, static_cast<std::size_t>(length));
    created->bytes()[length] = '\0';
    return created;
}

int atr_StringBase::constantLength() const {
    return static_cast<int>(std::strlen(text));
}

void atr_StringBase::adopt(Representation * created) noexcept {
    release();
    representation = created;
    text = created->bytes();
}

void atr_StringBase::unshare() {
    if (!representation || representation->references > 1)
        adopt(copyOf(text, Length(), Length()));
}

atr_StringBase::atr_StringBase(char const * source) : atr_StringBase(source, -1) {}

atr_StringBase::atr_StringBase(char const * source, int length) {
    appendBytes(source, boundedLength(source, length));
}

atr_StringBase::atr_StringBase(int number) {
    char digits[numberSize];
    appendBytes(digits, static_cast<int>(std::to_chars(digits, digits + numberSize, number).ptr - digits));
}

atr_StringBase::atr_StringBase(unsigned int number) {
    char digits[numberSize];
    appendBytes(digits, static_cast<int>(std::to_chars(digits, digits + numberSize, number).ptr - digits));
}

int atr_StringBase::Compare(char const * other) const {
    int const order = std::strcmp(text, other ? other : "");
    return (order > 0) - (order < 0);
}

int atr_StringBase::Find(char const * sought, int start) const {
    int const length = Length();
    int const from = std::max(start, 0);
    if (from >= length)
        return length;
    char const * const found = std::strstr(text + from, sought ? sought : "");
    return found ? static_cast<int>(found - text) : length;
}

void atr_StringBase::appendBytes(char const * source, int count) {
    if (count == 0)
        return;
    int const length = Length();
    long long const needed = static_cast<long long>(length) + count;
    bool const isOwned = representation && representation->references == 1;
    if (isOwned && needed <= representation->capacity) {
        std::memmove(representation->bytes() + length, source, static_cast<std::size_t>(count));
    } else {
        // A text that grows again gets room to spare. The source may lie in the old block, which adopt releases.
        long long const capacity = isOwned ? std::max(needed, std::min(2LL * length, INT_MAX / 2LL)) : needed;
        Representation * const grown = copyOf(text, length, capacity);
        std::memcpy(grown->bytes() + length, source, static_cast<std::size_t>(count));
        adopt(grown);
    }
    representation->length = static_cast<int>(needed);
    representation->bytes()[needed] = '\0';
}

atr_StringBase & atr_StringBase::Append(atr_StringBase const & other) {
    if (Empty())
        return *this = other;
    appendBytes(other.text, other.Length());
    return *this;
}

atr_StringBase & atr_StringBase::Append(char const * source) {
    appendBytes(source, boundedLength(source, -1));
    return *this;
}

atr_StringBase & atr_StringBase::append(char const * source, int count, int, int) {
    appendBytes(source, boundedLength(source, count));
    return *this;
}

atr_StringBase & atr_StringBase::Erase() noexcept {
    return *this = atr_StringBase();
}

atr_StringBase & atr_StringBase::Erase(int position, int count) {
    int const length = Length();
    int const first = std::max(position, 0);
    long long const end = static_cast<long long>(position) + count;
    int const last = static_cast<int>(std::clamp<long long>(end, 0, length));
    if (first >= last)
        return *this;
    unshare();
    char * const bytes = representation->bytes();
    std::memmove(bytes + first, bytes + last, static_cast<std::size_t>(length - last) + 1);
    representation->length = length - (last - first);
    return *this;
}

atr_StringBase & atr_StringBase::ToUpper() {
    if (Empty())
        return *this;
    unshare();
    for (char * byte = representation->bytes(); *byte != '\0'; ++byte)
        if (*byte >= 'a' && *byte <= 'z')
            *byte = static_cast<char>(*byte - 'a' + 'A');
    return *this;
}
