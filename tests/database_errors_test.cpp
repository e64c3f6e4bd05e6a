// The errors of the output database: what users read for every number, and that an error keeps it on every way. That
// they are stored and read back is tested with the other classes in persistence_test.cpp.

#include "memory_refusals.h"
#include "stored_objects.h"

#include "atr_translate.h"
#include "odiC_Exception.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <memory>
#include <utility>

namespace {

constexpr QVRBasStringMode utf8(0), latin(1);

odiC_Exception withArguments(int number) {
    return odiC_Exception(number, "K\xc3\xa4se", "R\xc3\xb6hre", 3, 12, 13, 14, 5, 16);
}

std::string inLatin(std::string text) {
    for (auto const & [from, to] : {std::pair("\xc3\xa4", "\xe4"), std::pair("\xc3\xb6", "\xf6")})
        for (std::size_t at; (at = text.find(from)) != std::string::npos;)
            text.replace(at, 2, to);
    return text;
}

/// Calls `check` with every number, with all arguments and with none.
template <class Check> void forEachError(Check check) {
    for (int number = -1; number <= 40; ++number) {
        SCOPED_TRACE(number);
        check(withArguments(number));
        check(odiC_Exception(number));
    }
}

TEST(DatabaseErrors, ShowTheirArgumentsWhereTheyBelong) {
    constexpr struct {
        int number;
        char const * message;
        char const * withoutArguments;
    } expected[] = {
        {0, "K\xc3\xa4se is not a valid output database.", "The file is not a valid output database."},
        {2, "K\xc3\xa4se contains an incomplete output database file.\n This may indicate that the analysis failed.",
         " contains an incomplete output database file.\n This may indicate that the analysis failed."},
        {9, "Error detected loading set K\xc3\xa4se, subset number 3", "Error detected loading set , subset number 0"},
        {11,
         "Unable to locate output request:\n Frame Index: 3\n  Part index: 12\n  Class index: 13\n  Variable: "
         "K\xc3\xa4se\n  Location index: 14\n  Output position: for whole element",
         "Unable to locate output request:\n Frame Index: 0\n  Part index: 0\n  Class index: 0\n  Variable: \n  "
         "Location "
         "index: 0\n  Output position: at undefined position"},
        {15, "Invalid step number: 3\nAvailable steps:K\xc3\xa4se", "Invalid step number: 0\nAvailable steps:"},
        {16, "Invalid step index: 3\n\nAvailable step indices: 0 - 12",
         "Invalid step index: 0\n\nAvailable step indices: 0 - 0"},
        {20, "Unable to read requested result 'K\xc3\xa4se' for part instance 'R\xc3\xb6hre'",
         "Unable to read requested result '' for part instance ''"}};
    for (auto const & [number, message, withoutArguments] : expected) {
        EXPECT_EQ(withArguments(number).JournalMessage(utf8), message);
        EXPECT_EQ(odiC_Exception(number).JournalMessage(utf8), withoutArguments);
    }
}

// Hosts translate the messages by their texts, misspelling included: none may change by a letter.
TEST(DatabaseErrors, HaveTheTextsThatHostsTranslate) {
    std::uint64_t hash = 0xcbf29ce484222325; // FNV-1a over all messages, each with a new line behind it
    forEachError([&](odiC_Exception const & error) {
        for (char const byte : std::string(error.JournalMessage(utf8).CStr()) + '\n')
            hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    });
    EXPECT_EQ(hash, 0xf0578779f9b1d3a0);
}

TEST(DatabaseErrors, AreShownInTheEncodingOfTheMode) {
    bool const hasLatin = std::setlocale(LC_CTYPE, "en_US.ISO-8859-1") != nullptr;
    forEachError([&](odiC_Exception const & error) {
        atr_String const message = error.JournalMessage(utf8);
        EXPECT_EQ(error.UserReport(utf8), message);
        if (hasLatin) {
            EXPECT_EQ(error.JournalMessage(latin), inLatin(message.CStr()).c_str());
        }
    });
    std::setlocale(LC_CTYPE, "C");
    if (!hasLatin)
        GTEST_SKIP() << "no Latin-1 locale is installed";
}

TEST(DatabaseErrors, NumbersThatStandForWordsGiveThem) {
    constexpr char const * types[] = {"Unknown", "Unknown",    "Boolean",    "Integer", "Scalar", "Vector",
                                      "Unknown", "Quaternion", "Quaternion", "Tensor",  "Tensor", "Tensor",
                                      "Tensor",  "Tensor",     "Tensor",     "Unknown", "Unknown"};
    for (int type = -1; type < 16; ++type)
        EXPECT_EQ(odiC_Exception(8, "", "", type).JournalMessage(utf8),
                  (std::string(types[type + 1]) + " extrapolation not supported.").c_str());
    constexpr char const * tables[] = {
        "Unknown",        "non-active class table.", "output request table.",           "history tables.",
        "normal tables.", "BC output table.",        "analytical rigid surface table.", "frame table.",
        "Unknown"};
    for (int code = -1; code <= 7; ++code)
        EXPECT_EQ(odiC_Exception(10, "", "", code).JournalMessage(utf8),
                  (std::string("Problem detected when loading ") + tables[code + 1]).c_str());
    std::string const position = odiC_Exception(11, "", "", 0, 0, 0, 0, 11).JournalMessage(utf8).CStr();
    EXPECT_TRUE(position.ends_with("Output position: invalid position"));
}

TEST(DatabaseErrors, AreTranslatedWhenTheyAreShown) {
    odiC_Exception const loading = withArguments(10), other = withArguments(34);
    atr_translate::SetTranslation([](char const * text) {
        bool const isFormat = std::string(text) == "Problem detected when loading %s";
        return isFormat                                ? "%s: nicht geladen"
               : std::string(text) == "normal tables." ? "must not be asked for"
                                                       : "Fehler";
    });
    EXPECT_EQ(loading.JournalMessage(utf8), "normal tables.: nicht geladen");
    EXPECT_EQ(other.JournalMessage(utf8), "Fehler");
    atr_translate::SetTranslation(nullptr);
    EXPECT_EQ(other.JournalMessage(utf8), "Error message not implemented yet");
}

TEST(DatabaseErrors, KeepTheirMessageOnEveryWay) {
    forEachError([&](odiC_Exception error) {
        error.SetTraceback("line 1");
        cls_MemoryStore const store = stored(error);
        auto const check = [&](QVRBasException const & arrived) {
            auto const & same = dynamic_cast<odiC_Exception const &>(arrived);
            EXPECT_EQ(same.UserReport(utf8), error.UserReport(utf8));
            EXPECT_EQ(same.PythonType(), "OdiError");
            EXPECT_EQ(same.GetCode(), 0);
            EXPECT_EQ(same.GetTracebackStr(), "line 1");
            EXPECT_EQ(bytesOf(same), store.Bytes()) << "with its identity, and what no message shows";
        };
        check(*std::unique_ptr<QVRBasException>(error.Clone()));
        check(*std::unique_ptr<nex_Exception>(error.Copy()));
        check(AnyObject(cls_ReadVisitor(store)).As<odiC_Exception>());
        try {
            static_cast<nex_Exception const &>(error).Propagate();
        } catch (odiC_Exception const & raised) {
            check(raised);
        }
    });
    EXPECT_NE(bytesOf(withArguments(1)), bytesOf(withArguments(1))) << "an equal one is another";
}

TEST(DatabaseErrors, AreShownAgainWhenThereIsMemory) {
    odiC_Exception const error = withArguments(11);
    atr_String shown;
    EXPECT_GT(refuseEachAllocation([&] { shown = error.UserReport(utf8); }, [] {}), 5);
    EXPECT_EQ(shown, error.UserReport(utf8));
}

} // namespace
