// Text and the stream that writes it. Strings share their bytes until one of them is written, so most of what can go
// wrong shows in another string than the one that was touched: a pool of strings is checked against std::string.

#include "aio_ostream.h"
#include "atr_String.h"
#include "cow_String.h"
#include "mem_Alloc.h"
#include "mem_OutOfMemoryException.h"
#include "omn_FixedString.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <locale>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

constinit cow_String startsWithoutInitialiser;

/// Refuses the allocation with the number `failing` (from 1) while it lives.
class FailAt {
public:
    explicit FailAt(int failing) {
        remaining = failing;
        mem_SetFailureHook([](std::size_t) { return --remaining == 0; });
    }
    ~FailAt() { mem_SetFailureHook(nullptr); }
    FailAt(FailAt const &) = delete;
    FailAt & operator=(FailAt const &) = delete;

private:
    static inline int remaining = 0;
};

/// Refuses every allocation while it lives.
class NoMemory {
public:
    NoMemory() {
        mem_SetFailureHook([](std::size_t) { return true; });
    }
    ~NoMemory() { mem_SetFailureHook(nullptr); }
    NoMemory(NoMemory const &) = delete;
    NoMemory & operator=(NoMemory const &) = delete;
};

/// The bytes of [position, position + count) that lie in the text are removed.
void eraseFromModel(std::string & text, long long position, long long count) {
    std::string kept;
    for (long long i = 0; i < static_cast<long long>(text.size()); ++i)
        if (i < position || i >= position + count)
            kept += text[static_cast<std::size_t>(i)];
    text = kept;
}

std::string formatted(void (*write)(aio_ostream &)) {
    std::ostringstream target;
    aio_ostream stream(target);
    write(stream);
    return target.str();
}

} // namespace

TEST(Strings, WritesStayWithTheOneThatIsWritten) {
    std::mt19937 random(20);
    auto const below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned int>(limit)); };
    constexpr int poolSize = 5;
    std::vector<cow_String> strings(poolSize);
    std::vector<std::string> models(poolSize);

    for (int step = 0; step < 20000; ++step) {
        auto const target = static_cast<std::size_t>(below(poolSize)),
                   source = static_cast<std::size_t>(below(poolSize));
        cow_String & text = strings[target];
        std::string & model = models[target];
        switch (below(10)) {
        case 0:
            text = strings[source];
            model = models[source];
            break;
        case 1:
            text.Append(strings[source]);
            model += std::string(models[source]);
            break;
        case 2: {
            auto const from = static_cast<std::size_t>(below(text.Length() + 1));
            text.Append(text.CStr() + from);
            model += model.substr(from);
            break;
        }
        case 3: {
            int const count = below(6) - 1;
            text.append("a\x80zK", count, below(9), below(9));
            model += std::string("a\x80zK").substr(0, count < 0 ? 4u : static_cast<std::size_t>(count));
            break;
        }
        case 4:
        case 5:
        case 6: {
            int const position = below(text.Length() + 5) - 2, count = below(text.Length() + 5) - 2;
            text.Erase(position, count);
            eraseFromModel(model, position, count);
            break;
        }
        case 7:
            text.ToUpper();
            for (char & byte : model)
                if (byte >= 'a' && byte <= 'z')
                    byte = static_cast<char>(byte - 32);
            break;
        case 8: {
            atr_String const other(strings[source]); // the other class shares the same bytes
            text = cow_String(other);
            model = models[source];
            break;
        }
        default:
            if (model.size() > 200 || below(8) == 0) {
                text.Erase();
                model.clear();
            } else {
                text = text + "x" + strings[source];
                model += "x" + models[source];
            }
        }
        for (std::size_t i = 0; i < poolSize; ++i) {
            ASSERT_EQ(models[i], strings[i].CStr()) << "string " << i << ", step " << step;
            ASSERT_EQ(static_cast<int>(models[i].size()), strings[i].Length());
        }
    }
}

TEST(Strings, CopiesTakeNoMemoryAndAMovedTextIsEmpty) {
    cow_String const text("twenty nodes, eight points");
    NoMemory const none;
    cow_String copy = text;
    EXPECT_EQ(text.CStr(), copy.CStr());
    atr_String const translated{copy};
    EXPECT_EQ(text.CStr(), translated.CStr());
    cow_String & alias = copy;
    copy = alias;
    copy = std::move(alias);
    EXPECT_EQ(copy, text);
    cow_String const moved = std::move(copy);
    EXPECT_TRUE(copy.Empty()); // NOLINT(bugprone-use-after-move): that is the question
    EXPECT_EQ(moved, text);
    EXPECT_TRUE(startsWithoutInitialiser.ToUpper().Erase().Append("").Empty());
}

TEST(Strings, ErasingOutOfRangeKeepsTheRest) {
    auto const erased = [](int position, int count) { return cow_String("abcdef").Erase(position, count); };
    EXPECT_EQ(erased(-2, 3), "bcdef");
    EXPECT_EQ(erased(4, INT_MAX), "abcd");
    EXPECT_EQ(erased(INT_MAX, INT_MAX), "abcdef");
    EXPECT_EQ(erased(INT_MIN, INT_MAX), "abcdef");
    EXPECT_EQ(erased(2, INT_MIN), "abcdef");
    EXPECT_EQ(cow_String("abcdef").Delete(1, 4), "af");
}

TEST(Strings, OrderIsThatOfUnsignedBytes) {
    std::string const texts[] = {"", "a", "ab", "b", "B", "\x01", "\x7f", "\x80", "\xff", "a\xff", "az"};
    for (std::string const & left : texts)
        for (std::string const & right : texts) {
            int const expected = (left > right) - (left < right); // compares as unsigned
            cow_String const text(left.c_str()), other(right.c_str());
            EXPECT_EQ(text.Compare(other), expected) << left << " : " << right;
            EXPECT_EQ(text.Compare(right.c_str()), expected);
            EXPECT_EQ(text < other, expected < 0);
            EXPECT_EQ(text > right.c_str(), expected > 0);
            EXPECT_EQ(left.c_str() != other, expected != 0);
            EXPECT_EQ(text == other, expected == 0);
        }
}

TEST(Strings, FindsWhatIsThereAndGivesTheLengthOtherwise) {
    std::string const text = "ababcab";
    cow_String const string(text.c_str());
    for (char const * sought : {"ab", "abc", "b", "", "ababcab", "ababcabx", "c"})
        for (int start = -1; start <= 9; ++start) {
            std::size_t const found = text.find(sought, static_cast<std::size_t>(std::max(start, 0)));
            EXPECT_EQ(string.Find(sought, start),
                      found == std::string::npos ? string.Length() : static_cast<int>(found))
                << sought << " from " << start;
        }
}

TEST(Strings, ReadNoFurtherThanTheyMay) {
    std::unique_ptr<char[]> const unterminated(new char[3]{'H', 'e', 'x'});
    EXPECT_EQ(cow_String(unterminated.get(), 3), "Hex");
    EXPECT_EQ(cow_String("pr").append(unterminated.get(), 2, 0, 0), "prHe");
    EXPECT_EQ(cow_String("short", 1000), "short");
    EXPECT_EQ(cow_String("short").Append("ly").append("er", 1000, 0, 0), "shortlyer");

    char const * const null = nullptr;
    EXPECT_EQ(cow_String(null).Append(null).append(null, 4, 0, 0), "");
    EXPECT_EQ(cow_String("x").Compare(null), 1);
    EXPECT_EQ(cow_String("x").Find(null), 0);

    cow_String const text("ab"), empty;
    EXPECT_EQ(text[2], '\0');
    EXPECT_EQ(empty[0], '\0');
    EXPECT_EQ(text[INT_MAX], '\0');
    EXPECT_EQ(text[-1], '\0');
}

TEST(Strings, NumbersAndConstantTextsBecomeText) {
    for (int number : {0, -1, 862, INT_MAX, INT_MIN})
        EXPECT_EQ(cow_String(number), std::to_string(number).c_str());
    EXPECT_EQ(atr_String(UINT_MAX), std::to_string(UINT_MAX).c_str());
    EXPECT_EQ(cow_String(omn_FixedString("C3D20R")), "C3D20R");
}

TEST(Strings, RunningOutOfMemoryChangesNothing) {
    int numFailures = 0;
    for (int failing = 1;; ++failing) {
        cow_String const original("integration point");
        cow_String grown = original, upper = original, cut = original;
        try {
            FailAt const fail(failing);
            for (int i = 0; i < 40; ++i) // grows several times, from a shared text at first
                grown.Append("0123456789");
            upper.ToUpper();
            cut.Erase(0, 12);
            break;
        } catch (mem_OutOfMemoryException const &) {
            ++numFailures;
            EXPECT_EQ((grown.Length() - original.Length()) % 10, 0);
            EXPECT_EQ(grown.Find("integration point"), 0);
            EXPECT_TRUE(upper == original || upper == "INTEGRATION POINT");
            EXPECT_EQ(cut, original);
            EXPECT_EQ(original, "integration point");
        }
    }
    EXPECT_GE(numFailures, 5);
    EXPECT_LT(numFailures, 15) << "growing 40 times must not allocate 40 times";
}

TEST(Strings, EncodingIsLeftAloneWhereTheLocaleIsPlainOrUtf8) {
    for (char const * locale : {"C", "C.UTF-8"}) {
        if (std::setlocale(LC_CTYPE, locale) == nullptr)
            continue;
        EXPECT_EQ(cow_String("K\xc3\xa4se \xff").UTF8ToLocale(), "K\xc3\xa4se \xff");
        EXPECT_EQ(cow_String("K\xc3\xa4se \xff").LocaleToUTF8(), "K\xc3\xa4se \xff");
    }
    std::setlocale(LC_CTYPE, "C");
}

TEST(Strings, EncodingGoesThroughTheLocaleOtherwise) {
    if (std::setlocale(LC_CTYPE, "en_US.ISO-8859-1") == nullptr)
        GTEST_SKIP() << "no Latin-1 locale is installed";
    std::string latin, utf8;
    for (int code = 1; code < 256; ++code) {
        latin += static_cast<char>(code);
        if (code < 0x80)
            utf8 += static_cast<char>(code);
        else
            utf8.append({static_cast<char>(0xc0 | code >> 6), static_cast<char>(0x80 | (code & 0x3f))});
    }
    EXPECT_EQ(cow_String(utf8.c_str()).UTF8ToLocale(), latin.c_str());
    EXPECT_EQ(cow_String(latin.c_str()).LocaleToUTF8(), utf8.c_str());
    // Not in Latin-1; overlong; a surrogate; cut short; a lone continuation; beyond the last character.
    EXPECT_EQ(cow_String("\xe2\x82\xac|\xf0\x9f\x98\x80|").UTF8ToLocale(), "?|?|");
    EXPECT_EQ(cow_String("\xc0\xaf|\xed\xa0\x80|\x80|\xf4\x90\x80\x80").UTF8ToLocale(), "\?\?|\?\?\?|?|\?\?\?\?");
    EXPECT_EQ(cow_String("a\xe2\x82").UTF8ToLocale(), "a\?\?");
    std::setlocale(LC_CTYPE, "C");
}

TEST(Streams, NumbersComeOutAsFromAPlainStandardStream) {
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    double const numbers[] = {
        0.0,     -0.0, 1.0,  -0.5773502691896258, 1e5, 1e6, 123456789.0, 1.0 / 3.0, 0.0001, 1e-5, 2.5e300, 5e-324, 1e22,
        -1e-300, 0.1f, 100.0};
    for (int precision : {-1, 0, 1, 6, 7, 17, 900})
        for (int flag : {0, 2, 4, 6})
            for (int width : {-3, 0, 2, 18})
                for (double number : numbers) {
                    std::ostringstream expected, target;
                    expected.imbue(std::locale::classic());
                    target.imbue(std::locale(target.getloc(), new Comma)); // must not show
                    expected.precision(precision < 0 ? 6 : precision);
                    expected.setf(flag == 2 ? std::ios::left : std::ios::right, std::ios::adjustfield);
                    aio_ostream stream(target);
                    stream.setf(flag, 6);
                    stream.precision(precision);
                    expected.width(width);
                    expected << number << '|' << 1234567;
                    stream << aio_setwidth(width) << number << "|" << 1234567;
                    ASSERT_EQ(target.str(), expected.str()) << "precision " << precision << ", width " << width;
                }
}

TEST(Streams, AWidthHoldsForOneItem) {
    EXPECT_EQ(formatted([](aio_ostream & stream) {
                  stream.setf(4, 6);
                  aio_setwidth(stream, 6);
                  stream.put(' ').print("ab").print("cd").put('|');
                  EXPECT_EQ(stream.setf(2, 6), 4);
                  stream << aio_setwidth(4) << -7 << atr_String("x") << aio_setwidth(1) << cow_String("longer");
                  stream << aio_setwidth(3) << static_cast<char const *>(nullptr) << aio_endl;
              }),
              "     abcd|-7  xlonger   \n");
}

TEST(Streams, EndOfLineReachesTheFileAtOnce) {
    struct Watched : std::stringbuf {
        int sync() override {
            flushed = str();
            return 0;
        }
        std::string flushed;
    } buffer;
    std::ostream target(&buffer);
    aio_ostream stream(target);
    stream << "line" << aio_endl << "rest";
    EXPECT_EQ(buffer.flushed, "line\n");
}

TEST(Streams, MasksKeepTheOtherFlags) {
    std::ostringstream target;
    aio_ostream stream(target);
    stream.setf(1 | 2, 7);
    EXPECT_EQ(stream.setf(4, 6), 3);
    EXPECT_EQ(stream.setf(0, 0), 5);
    EXPECT_EQ(stream.precision(7), 6);
    EXPECT_EQ(stream.precision(3), 7);
}

TEST(Streams, AddressesAreThoseOfThePointer) {
    int object = 0;
    std::ostringstream target;
    aio_ostream(target).print_address(&object) << " " << static_cast<void const *>(nullptr);
    std::istringstream source(target.str());
    void *first = nullptr, *second = &object;
    source >> first >> second;
    EXPECT_EQ(first, &object);
    EXPECT_EQ(second, nullptr);
}
