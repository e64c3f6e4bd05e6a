#ifndef aio_ostream_h
#define aio_ostream_h

#include "QVRShpCore_Export.h"
#include "aio_ios.h"

#include <cstddef>
#include <iosfwd>

class atr_StringBase;

/// A text stream over a std::ostream, which must outlive it. What it writes depends on neither the locale nor the
/// format flags of that stream, whose error state tells how writing went.
class QVRSHPCORE_API aio_ostream : public aio_ios {
public:
    /// Writes to `target`.
    explicit aio_ostream(std::ostream & target) : stream(target) {}
    aio_ostream(aio_ostream const &) = delete;
    aio_ostream & operator=(aio_ostream const &) = delete;

    /// Items: each is filled up to the width that was set for it. A null text is an empty one.
    aio_ostream & print(char const * text);
    /// A decimal number, filled up to the width that was set.
    aio_ostream & print_int(int number);
    /// The shorter of fixed and scientific notation with the stream's precision, without trailing zeros.
    aio_ostream & print_double(double number);
    /// "0x" and lower-case hexadecimal digits.
    aio_ostream & print_address(void const * address);

    /// Writes one byte as it is. It is no item: a width that was set stays for the next one.
    aio_ostream & put(char byte);
    /// Hands what has been written to the file or device behind the stream.
    aio_ostream & flush();

    /// Each is one item, written as `print` and its like write it; a manipulator is called with the stream.
    aio_ostream & operator<<(char const * text) { return print(text); }
    aio_ostream & operator<<(atr_StringBase const & text);
    aio_ostream & operator<<(int number) { return print_int(number); }
    aio_ostream & operator<<(double number) { return print_double(number); }
    aio_ostream & operator<<(void const * address) { return print_address(address); }
    aio_ostream & operator<<(aio_ostream & (*manipulator)(aio_ostream &)) { return manipulator(*this); }
    /// A character would be written as its number: `put` writes it.
    aio_ostream & operator<<(char) = delete;

private:
    aio_ostream & item(char const * bytes, std::size_t count);

    std::ostream & stream;
};

/// Ends a line: a line feed, and a flush.
QVRSHPCORE_API aio_ostream & aio_endl(aio_ostream & stream);

/// Sets the width of the stream's next item.
QVRSHPCORE_API aio_ostream & aio_setwidth(aio_ostream & stream, int width);

/// The same as a manipulator: `stream << aio_setwidth(18) << label`.
struct aio_widthManipulator {
    int width; ///< in bytes
};
constexpr aio_widthManipulator aio_setwidth(int width) {
    return {width};
}
inline aio_ostream & operator<<(aio_ostream & stream, aio_widthManipulator manipulator) {
    return aio_setwidth(stream, manipulator.width);
}

#endif
