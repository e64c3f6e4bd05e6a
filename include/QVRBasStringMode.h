#ifndef QVRBasStringMode_h
#define QVRBasStringMode_h

/// The encoding of a text: mode 0 is UTF-8, every other mode is the encoding of the process's locale. A mode that goes
/// with a text says how that text is encoded; a mode that goes to a function that makes a text says how it is wanted.
class QVRBasStringMode {
public:
    /// 0 for UTF-8, any other number for the encoding of the locale.
    constexpr QVRBasStringMode(int mode = 0) : locale(mode != 0) {}

    /// False for UTF-8.
    constexpr bool IsLocale() const { return locale; }

private:
    bool locale;
};

#endif
