// What users get to read: messages with values put in, the exceptions that carry them, and the sink that shows them.

#include "atr_translate.h"
#include "memory_refusals.h"
#include "nex_CmdException.h"
#include "nex_PrimException.h"
#include "shp_MessageTypes.h"
#include "shp_assert.h"
#include "stored_objects.h"
#include "wip_WIP.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <memory>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using PrimException = nex_PrimException<atr_String, 1>;
using CmdException = nex_CmdException<atr_String, 2>;

using Heard = std::vector<std::tuple<std::string, int, bool>>; ///< text, level, whether in the locale's encoding

constexpr QVRBasStringMode utf8(0), latin(1);

wip_WIP & sink() {
    return omi_Singleton<wip_WIP>::Instance();
}

/// Redirects the sink while it lives, and keeps what comes.
struct Listener {
    Listener() {
        auto const listen = [](atr_String const & message, wip_errorLevelEnm level, QVRBasStringMode mode, void * to) {
            static_cast<Heard *>(to)->emplace_back(message.CStr(), level, mode.IsLocale());
        };
        sink().SetHandler(listen, &heard);
    }
    ~Listener() { sink().SetHandler(nullptr); }

    Heard heard;
};

char const * translated(char const * text) {
    static constexpr char const * translations[][2] = {
        {"%s: Unsupported position %s", "nicht unterst\xc3\xbctzt, %d: %s"},
        {"The system ran out of memory", "kein Speicher"},
        {"K\xc3\xa4se: %s", "Fromage \xc3\xa0 %s"}};
    for (auto const & [from, to] : translations)
        if (std::string(text) == from)
            return to;
    return nullptr;
}

} // namespace

TEST(Messages, TakeAnyValueInTheirPlaceholdersAndNowhereElse) {
    atr_translate message("100% of %x: %s%d%s, 50%");
    for (int position : {INT_MIN, -1, 0, 4, INT_MAX})
        atr_SubstituteFormat(message, position, "nowhere");
    EXPECT_EQ(message.Result(), "100% of %x: %s%d%s, 50%");
    atr_SubstituteFormat(message, 3, cow_String("s"));
    atr_SubstituteFormat(message, 2, "%"); // makes no placeholder with what follows
    atr_SubstituteFormat(message, 1, "%s and %d");
    EXPECT_EQ(message.Result(), "100% of %x: %s and %d%s, 50%");
    atr_SubstituteFormat(message, 2, -7);
    atr_SubstituteFormat(message, 1, "");
    EXPECT_EQ(message.Result(), "100% of %x: -7s, 50%");
    EXPECT_EQ(atr_translate(nullptr).Result(), "");
}

TEST(Messages, TheTranslatedFormatIsTheOneThatIsCut) {
    atr_translate::SetTranslation(translated);
    Listener listener;
    shp_MessageTypes::ErrorUnsupportedPositionOnMethod("shp_Shape::ExtrapolateToNodes", res_OutputPosition_NODAL);
    shp_MessageTypes::ErrorAvrgVolumeAreaNegative();
    EXPECT_EQ(listener.heard, (Heard{{"nicht unterst\xc3\xbctzt, shp_Shape::ExtrapolateToNodes: 1", 2, false},
                                     {"Average volume/area negative.", 2, false}}));
    EXPECT_EQ(atr_raw("The system ran out of memory"), "The system ran out of memory");
    EXPECT_EQ(mem_OutOfMemoryException().UserReport(utf8), "kein Speicher");
    EXPECT_EQ(atr_translate::SetTranslation(nullptr), &translated);
}

TEST(Messages, EveryTextIsInTheEncodingOfItsMode) {
    if (std::setlocale(LC_CTYPE, "en_US.ISO-8859-1") == nullptr)
        GTEST_SKIP() << "no Latin-1 locale is installed";
    atr_translate::SetTranslation(translated);
    atr_translate message("K\xe4se: %s", latin);
    atr_translate::SetTranslation(nullptr);
    atr_SubstituteFormat(message, 1, "\xfc", latin);
    for (QVRBasStringMode const mode : {utf8, latin}) {
        PrimException const prim(message.Result(mode), mode);
        CmdException const command(message.Result(mode), mode);
        for (auto const & [shown, expected] :
             {std::pair(utf8, "Fromage \xc3\xa0 \xc3\xbc"), {latin, "Fromage \xe0 \xfc"}})
            EXPECT_TRUE(message.Result(shown) == expected && prim.UserReport(shown) == expected &&
                        command.UserReport(shown) == expected);
        testing::internal::CaptureStderr();
        sink().Error(message.Result(mode), wip_errorLevel_ERROR, mode);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Fromage \xe0 \xfc\n");
    }
    std::setlocale(LC_CTYPE, "C");
}

TEST(Sink, ShowsOneLineUnlessItIsRedirected) {
    testing::internal::CaptureStderr();
    sink().Error("corrupt.\n\nRerun", wip_errorLevel_WARNING, utf8);
    for (int i = 0; i < 100; ++i) { // the sink can be made anew any number of times
        Listener listener;
        sink().Error("\xfc\n", static_cast<wip_errorLevelEnm>(7), latin);
        EXPECT_EQ(listener.heard, (Heard{{"\xfc\n", 7, true}}));
        omi_SingletonBase<wip_WIP>::Finalize();
    }
    sink().SetHandler([](auto const &, auto, auto, void *) { throw std::runtime_error("from the host"); });
    EXPECT_THROW(shp_MessageTypes::ErrorAvrgVolumeAreaNegative(), std::runtime_error);
    sink().SetHandler(nullptr);
    sink().Error("", wip_errorLevel_NOTE, utf8);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "corrupt.  Rerun\n\n");
}

TEST(Assertion, RaisesWithTheTextOfItsCode) {
    for (auto const & [code, text] : {std::pair(0, "1: Surface Sketch is not valid."), {1, "1: "}, {-1, "1: "}}) {
        EXPECT_NO_THROW(shp_assert(true, static_cast<shp_ErrorEnm>(code)));
        EXPECT_EQ(raisedBy([&, number = code] { shp_assert(false, static_cast<shp_ErrorEnm>(number)); }),
                  text + std::string(" (QVRShpShape/QVRShpShp.m/src/shp_assert:28)"));
    }
}

template <class Exception> void expectToStayItself(Exception original, std::string const & text) {
    original.SetTraceback("line 1");
    auto const check = [&](QVRBasException const & arrived, char const * place, char const * traceback) {
        auto const & exception = dynamic_cast<Exception const &>(arrived);
        EXPECT_TRUE(exception.UserReport(utf8) == text.c_str() && exception.PythonType() == "");
        EXPECT_EQ(exception.GetTracebackStr(), traceback);
        EXPECT_EQ(exception.DeveloperReport(utf8), (text + place).c_str());
    };
    for (char const * file : {"omu_PrimEnum", static_cast<char const *>(nullptr)})
        try {
            original.Throw(file, 76);
        } catch (nex_CommandException const & raised) {
            check(raised, file ? " (omu_PrimEnum:76)" : "", "line 1");
        }
    std::unique_ptr<QVRBasException> const clone(original.Clone());
    std::unique_ptr<nex_Exception> const copy(original.Copy());
    original.GetTraceback().Append(", line 2");
    check(*clone, "", "line 1");
    check(*copy, "", "line 1");
    check(original, "", "line 1, line 2");
}

TEST(Exceptions, KeepTheirTypeTextAndPlaceOnEveryWay) {
    expectToStayItself(CmdException(atr_String("not allowed: 14"), utf8), "not allowed: 14");
    expectToStayItself(PrimException(atr_String("missing")), "missing");
    expectToStayItself(nex_CommandException(), "");
    EXPECT_EQ(nex_CommandException().GetCode(), 0);
}

TEST(OutOfMemory, IsReportedWithNothingLeftAndAtAnyPointOfAReport) {
    omi_SingletonBase<wip_WIP>::Finalize(); // the making of the sink shall fail, too
    testing::internal::CaptureStderr();
    auto const report = [] {
        shp_MessageTypes::ErrorUnsupportedPositionOnMethod("method", res_OutputPositionEnm(-15));
    };
    EXPECT_GT(refuseEachAllocation(report, [] {}), 7);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "method: Unsupported position -15\n");
    MemoryRefusal const noMemory;
    EXPECT_EQ(mem_OutOfMemoryException().UserReport(utf8), "The system ran out of memory");
    EXPECT_THROW(delete mem_OutOfMemoryException().Clone(), mem_OutOfMemoryException);
}
