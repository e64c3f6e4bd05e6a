#include "aio_ostream.h"

#include "atr_StringBase.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <utility>

namespace {

constexpr int defaultPrecision = 6;
constexpr int mostDigits = 767; ///< no double has more significant decimal digits
constexpr std::size_t doubleSize = mostDigits + 32;
constexpr std::size_t integerSize = 32;

void writeBlanks(std::ostream & stream, std::size_t count) {
    while (count-- > 0)
        stream.put(' ');
}

} // namespace

int aio_ios::setf(int flags, int mask) {
    return std::exchange(currentFlags, (currentFlags & ~mask) | (flags & mask));
}

int aio_ios::precision(int digits) {
    return std::exchange(currentPrecision, digits);
}

int aio_ios::width(int bytes) {
    return std::exchange(currentWidth, bytes);
}

aio_ostream & aio_ostream::item(char const * bytes, std::size_t count) {
    std::size_t const wanted = static_cast<std::size_t>(std::max(width(0), 0));
    std::size_t const filling = wanted > count ? wanted - count : 0;
    bool const isLeft = (currentFlags & aio_iosFlag_ADJUST) == aio_iosFlag_LEFT;
    if (!isLeft)
        writeBlanks(stream, filling);
    stream.write(bytes, static_cast<std::streamsize>(count));
    if (isLeft)
        writeBlanks(stream, filling);
    return *this;
}

aio_ostream & aio_ostream::print(char const * text) {
    return text ? item(text, std::strlen(text)) : item("", 0);
}

aio_ostream & aio_ostream::print_int(int number) {
    char digits[integerSize];
    return item(digits, static_cast<std::size_t>(std::to_chars(digits, digits + integerSize, number).ptr - digits));
}

aio_ostream & aio_ostream::print_double(double number) {
    char digits[doubleSize];
    int const wanted = currentPrecision < 0 ? defaultPrecision : std::min(currentPrecision, mostDigits);
    auto const end = std::to_chars(digits, digits + doubleSize, number, std::chars_format::general, wanted).ptr;
    return item(digits, static_cast<std::size_t>(end - digits));
}

aio_ostream & aio_ostream::print_address(void const * address) {
    char digits[integerSize] = "0x";
    auto const number = reinterpret_cast<std::uintptr_t>(address);
    auto const end = std::to_chars(digits + 2, digits + integerSize, number, 16).ptr;
    return item(digits, static_cast<std::size_t>(end - digits));
}

aio_ostream & aio_ostream::put(char byte) {
    stream.put(byte);
    return *this;
}

aio_ostream & aio_ostream::flush() {
    stream.flush();
    return *this;
}

aio_ostream & aio_ostream::operator<<(atr_StringBase const & text) {
    return item(text.CStr(), static_cast<std::size_t>(text.Length()));
}

aio_ostream & aio_endl(aio_ostream & stream) {
    return stream.put('\n').flush();
}

aio_ostream & aio_setwidth(aio_ostream & stream, int width) {
    stream.width(width);
    return stream;
}
