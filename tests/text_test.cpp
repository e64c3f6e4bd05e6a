// Text and the stream that writes it. Strings share their bytes until one of them is written, so most of what can go
// wrong shows in another string than the one that was touched: a pool of strings is checked against std::string.

#include "aio_ostream.h"
#include "atr_String.h"
#include "cow_String.h"
#include "memory_refusals.h"
#include "omn_FixedString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <clocale>
#include <iomanip>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <utility>

namespace {

constinit cow_String startsWithoutInitialiser;

/// `text` without the bytes of [position, position + count) that lie in it.
std::string withoutBytes(std::string const & text, long long position, long long count) {
    std::string kept;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (auto const offset = static_cast<long long>(i) - position; offset < 0 || offset >= count)
            kept += text[i];
    return kept;
}

} // namespace

TEST(Strings, WritesStayWithTheOneThatIsWritten) {
    std::mt19937 random(20);
    auto const below = [&random](std::size_t limit) { return static_cast<int>(random() % limit); };
    cow_String strings[5];
    std::string models[5];
    for (int step = 0; step < 20000; ++step) {
        int const target = below(5), source = below(5);
        cow_String &text = strings[target], &other = strings[source];
        std::string &model = models[target], otherModel = models[source];
        std::size_t const half = model.size() / 2;
        int const position = below(model.size() + 5) - 2;
        int const count = model.size() > 200 ? INT_MAX : below(model.size() + 5) - 2;
        switch (below(8)) {
        case 0: text = std::move(other), models[source] = "", model = otherModel; break;
        case 1: text = other, model = otherModel; break;
        case 2: text.Append(other), model += otherModel; break;
        case 3: // a negative count means all
            text.append(text.CStr() + half, count, 7, 7), model += model.substr(half, static_cast<std::size_t>(count));
            break;
        case 4: text = text + "a\x80zK" + other, model += "a\x80zK" + otherModel; break;
        default: text.Erase(position, count), model = withoutBytes(model, position, count);
        }
        for (std::size_t i = 0; i < std::size(strings); ++i)
            ASSERT_EQ(models[i], strings[i].CStr()) << "string " << i << ", step " << step;
        ASSERT_EQ(static_cast<int>(model.size()), text.Length());
    }
}

TEST(Strings, OrderIsThatOfUnsignedBytesAndFindStartsAnywhere) {
    std::string const texts[] = {"", "a", "ab", "b", "B", "\x01", "\x7f", "\x80", "\xff", "a\xff", "ababcab", "abc"};
    for (std::string const & left : texts)
        for (std::string const & right : texts) {
            cow_String const text(left.c_str()), other(right.c_str());
            int const order = (left > right) - (left < right); // compares as unsigned
            EXPECT_EQ(text.Compare(other), order) << left << " : " << right;
            EXPECT_TRUE((text < other) == (order < 0) && (text > right.c_str()) == (order > 0)) << left << right;
            EXPECT_TRUE((left.c_str() != other) == (order != 0) && (text == other) == (order == 0)) << left << right;
            for (int start = -1; start <= 9; ++start) {
                std::size_t const found = left.find(right, static_cast<std::size_t>(std::max(start, 0)));
                EXPECT_EQ(text.Find(right.c_str(), start), static_cast<int>(std::min(found, left.size()))) << start;
            }
        }
}

TEST(Strings, ReadAndEraseNoFurtherThanTheyMay) {
    for (int position : {INT_MIN, -2, 0, 2, 6, INT_MAX}) {
        EXPECT_EQ(cow_String("ab")[position], position == 0 ? 'a' : '\0');
        for (int count : {INT_MIN, 0, 3, INT_MAX})
            EXPECT_EQ(cow_String("abcdef").Delete(position, count), withoutBytes("abcdef", position, count).c_str());
    }
    char const unterminated[] = {'H', 'e', 'x'}, *const null = nullptr;
    EXPECT_EQ(cow_String(unterminated, 3), "Hex");
    EXPECT_EQ(cow_String("short", 1000).append("er", 1000, 0, 0).append("-cut", -1, 0, 0), "shorter-cut");
    EXPECT_EQ(cow_String(null).Append(null).append(null, 4, 0, 0), "");
    EXPECT_TRUE(cow_String("x").Compare(null) == 1 && cow_String("x").Find(null) == 0);
}

TEST(Strings, NumbersAndConstantTextsBecomeText) {
    for (int number : {0, -1, 862, INT_MAX, INT_MIN})
        EXPECT_EQ(cow_String(number), std::to_string(number).c_str());
    EXPECT_EQ(atr_String(UINT_MAX), std::to_string(UINT_MAX).c_str());
    EXPECT_EQ(cow_String(omn_FixedString("C3D20R")), "C3D20R");
    EXPECT_EQ(cow_String("`az{\xe1").ToUpper(), "`AZ{\xe1");
}

TEST(Strings, CopiesTakeNoMemoryAndWritesWithoutMemoryChangeNothing) {
    cow_String const original("integration point");
    cow_String grown, upper, cut;
    auto const write = [&] {
        grown = upper = cut = original;
        for (int i = 0; i < 40; ++i) // grows several times, from a shared text at first
            grown.Append("0123456789");
        upper.ToUpper();
        cut.Erase(0, 12);
    };
    int const numRefusals = refuseEachAllocation(write, [&] {
        EXPECT_TRUE((grown.Length() - original.Length()) % 10 == 0 && grown.Find("integration point") == 0);
        EXPECT_TRUE((upper == original || upper == "INTEGRATION POINT") && cut == original);
    });
    EXPECT_EQ(original, "integration point");
    EXPECT_TRUE(5 <= numRefusals && numRefusals < 15) << "growing 40 times must not allocate 40 times";

    MemoryRefusal const noMemory;
    cow_String copy = original;
    cow_String const translated{atr_String(copy)}, moved = std::move(copy);
    EXPECT_TRUE(copy.Empty()); // NOLINT(bugprone-use-after-move): that is the question
    EXPECT_TRUE(translated.CStr() == original.CStr() && moved.CStr() == original.CStr());
    EXPECT_TRUE(startsWithoutInitialiser.ToUpper().Erase().Append("").Empty());
}

TEST(Strings, EncodingIsTheLocalesUnlessThatIsPlainOrUtf8) {
    for (char const * locale : {"C.UTF-8", "C"})
        if (std::setlocale(LC_CTYPE, locale) != nullptr) {
            EXPECT_EQ(cow_String("K\xc3\xa4se \xff").UTF8ToLocale(), "K\xc3\xa4se \xff");
            EXPECT_EQ(cow_String("K\xc3\xa4se \xff").LocaleToUTF8(), "K\xc3\xa4se \xff");
        }
    if (std::setlocale(LC_CTYPE, "en_US.ISO-8859-1") == nullptr)
        GTEST_SKIP() << "no Latin-1 locale is installed";
    std::string latin = "\x01~\x7f", utf8 = latin;
    for (int code = 0x80; code < 0x100; ++code) {
        latin += static_cast<char>(code);
        utf8.append({static_cast<char>(0xc0 | code >> 6), static_cast<char>(0x80 | (code & 0x3f))});
    }
    EXPECT_EQ(cow_String(utf8.c_str()).UTF8ToLocale(), latin.c_str());
    EXPECT_EQ(cow_String(latin.c_str()).LocaleToUTF8(), utf8.c_str());
    // Not in Latin-1; overlong; a surrogate; a lone continuation; beyond the last character; cut short.
    EXPECT_EQ(cow_String("\xe2\x82\xac|\xf0\x9f\x98\x80|").UTF8ToLocale(), "?|?|");
    EXPECT_EQ(cow_String("\xc0\xaf|\xed\xa0\x80|\x80|\xf4\x90\x80\x80|\xe2\x82").UTF8ToLocale(),
              "\?\?|\?\?\?|?|\?\?\?\?|\?\?");
    // The euro sign has three bytes in UTF-8; the other byte stands for nothing.
    if (std::setlocale(LC_CTYPE, "el_GR.ISO-8859-7") != nullptr) {
        EXPECT_EQ(cow_String("\xa4|\xae|\xe1").LocaleToUTF8(), "\xe2\x82\xac|?|\xce\xb1");
        EXPECT_EQ(cow_String("\xe2\x82\xac|\xce\xb1").UTF8ToLocale(), "\xa4|\xe1");
    }
    std::setlocale(LC_CTYPE, "C");
}

TEST(Streams, NumbersComeOutAsFromAPlainStandardStream) {
    struct Grouping : std::numpunct<char> {
        std::string do_grouping() const override { return "\3"; }
    };
    for (int precision : {-1, 0, 1, 6, 7, 17, 900})
        for (int flag : {0, 2, 4, 6})
            for (int width : {-3, 0, 2, 18})
                for (double number : {-0.0, -0.5773502691896258, 1e5, 1e6, 123456789.0, 1e-5, 5e-324, 1e22}) {
                    std::ostringstream expected, target;
                    target.imbue(std::locale(target.getloc(), new Grouping)); // must not show
                    aio_ostream stream(target);
                    stream.setf(flag, 6);
                    stream.precision(precision);
                    stream << aio_setwidth(width) << number << "|" << 1234567;
                    expected.setf(flag == 2 ? std::ios::left : std::ios::right, std::ios::adjustfield);
                    expected.precision(precision < 0 ? 6 : precision);
                    expected << std::setw(width) << number << '|' << 1234567;
                    ASSERT_EQ(target.str(), expected.str()) << "precision " << precision << ", width " << width;
                }
}

TEST(Streams, AWidthHoldsForOneItemAndAMaskKeepsTheOtherFlags) {
    std::ostringstream target;
    aio_ostream stream(target);
    stream.setf(1 | 2, 7);
    EXPECT_EQ(stream.setf(4, 6), 3);
    aio_setwidth(stream, 6);
    stream.put(' ').print("ab").print("cd").put('|');
    EXPECT_EQ(stream.setf(2, 6), 5);
    EXPECT_EQ(stream.precision(7), 6);
    EXPECT_EQ(stream.precision(3), 7);
    stream << aio_setwidth(4) << -7 << atr_String("x") << aio_setwidth(1) << cow_String("longer");
    stream << aio_setwidth(3) << static_cast<char const *>(nullptr) << aio_endl;
    stream << reinterpret_cast<void const *>(0x1eaf) << static_cast<void const *>(nullptr);
    EXPECT_EQ(target.str(), "     abcd|-7  xlonger   \n0x1eaf0x0");
}
