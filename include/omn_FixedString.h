#ifndef omn_FixedString_h
#define omn_FixedString_h

/// Holder of one pointer to constant text, which it neither copies nor owns: the text must outlive it.
class omn_FixedString {
public:
    /// Takes the pointer alone.
    constexpr omn_FixedString(char const * constantText) : text(constantText) {}

    /// The pointer.
    constexpr operator char const *() const { return text; }

private:
    char const * text;
};

#endif
