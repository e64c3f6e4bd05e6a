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

// Hosts translate the messages by their texts, misspelling included: none may change by a letter. Nor may a word that
// stands for a number.
TEST(DatabaseErrors, HaveTheTextsThatHostsTranslate) {
    std::uint64_t hash = 0xcbf29ce484222325; // FNV-1a over all messages, each with a new line behind it
    auto const add = [&](odiC_Exception const & error) {
        for (char const byte : std::string(error.JournalMessage(utf8).CStr()) + '\n')
            hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    };
    forEachError(add);
    EXPECT_EQ(hash, 0xf0578779f9b1d3a0);
    for (int code = -1; code < 16; ++code) {
        add(odiC_Exception(8, "", "", code));
        add(odiC_Exception(10, "", "", code));
        add(odiC_Exception(11, "", "", 0, 0, 0, 0, code));
    }
    EXPECT_EQ(hash, 0xa476e2a85c77c9ff);
    EXPECT_EQ(withArguments(11).JournalMessage(utf8),
              "Unable to locate output request:\n Frame Index: 3\n  Part index: 12\n  Class index: 13\n  Variable: "
              "K\xc3\xa4se\n  Location index: 14\n  Output position: for whole "
              "element");
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
    EXPECT_GT(refuseEachAllocation([&] { error.UserReport(utf8); }, [] {}), 5);
}

} // namespace
