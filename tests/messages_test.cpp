// What users get to read: messages with values put in, the exceptions that carry them, and the sink that shows them.

#include "atr_translate.h"
#include "mem_Alloc.h"
#include "mem_OutOfMemoryException.h"
#include "nex_CmdException.h"
#include "nex_PrimException.h"
#include "shp_MessageTypes.h"
#include "shp_assert.h"
#include "wip_WIP.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <memory>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

namespace {

using PrimException = nex_PrimException<atr_String, 1>;
using CmdException = nex_CmdException<atr_String, 2>;

constexpr QVRBasStringMode utf8;

std::string textOf(atr_StringBase const & text) {
    return text.CStr();
}

/// Redirects the sink while it lives, and keeps what comes.
class Listener {
public:
    Listener() {
        omi_Singleton<wip_WIP>::Instance().SetHandler(
            [](atr_String const & message, wip_errorLevelEnm level, QVRBasStringMode mode, void * self) {
                EXPECT_FALSE(mode.IsLocale());
                EXPECT_EQ(level, 2);
                static_cast<Listener *>(self)->heard.push_back(textOf(message));
            },
            this);
    }
    ~Listener() { omi_Singleton<wip_WIP>::Instance().SetHandler(nullptr); }
    Listener(Listener const &) = delete;
    Listener & operator=(Listener const &) = delete;

    std::vector<std::string> heard;
};

/// Installs a translation while it lives.
class Translated {
public:
    explicit Translated(atr_translate::Translation translation) : before(atr_translate::SetTranslation(translation)) {}
    ~Translated() { atr_translate::SetTranslation(before); }
    Translated(Translated const &) = delete;
    Translated & operator=(Translated const &) = delete;

private:
    atr_translate::Translation before;
};

/// Refuses the allocation with the number `failing` (from 1; 0: none, -1: all) while it lives.
class FailAt {
public:
    explicit FailAt(int failing) {
        remaining = failing;
        mem_SetFailureHook([](std::size_t) { return remaining < 0 || --remaining == 0; });
    }
    ~FailAt() { mem_SetFailureHook(nullptr); }
    FailAt(FailAt const &) = delete;
    FailAt & operator=(FailAt const &) = delete;

private:
    static inline int remaining = 0;
};

} // namespace

TEST(Messages, PlaceholdersAreNumberedTogetherAndTakeAnyValue) {
    atr_translate message("subset %s, number %d of %s");
    atr_SubstituteFormat(message, 3, cow_String("nodes"));
    atr_SubstituteFormat(message, 2, "four");
    atr_SubstituteFormat(message, 1, -4);
    EXPECT_EQ(message.Result(), "subset -4, number four of nodes");
    atr_SubstituteFormat(message, 2, 5);
    EXPECT_EQ(message.Result(), "subset -4, number 5 of nodes");
}

TEST(Messages, TextThatWasPutInIsNeverSearched) {
    atr_translate message("%s%d%s");
    atr_SubstituteFormat(message, 1, "%s and %d");
    atr_SubstituteFormat(message, 2, "%");
    atr_SubstituteFormat(message, 3, "s");
    EXPECT_EQ(message.Result(), "%s and %d%s");
    atr_SubstituteFormat(message, 2, 7);
    EXPECT_EQ(message.Result(), "%s and %d7s");
}

TEST(Messages, WhatIsNoPlaceholderOrHasNoValueStaysAsWritten) {
    atr_translate message("100% of %x: %d %s, 50%");
    for (int position : {INT_MIN, -1, 0, 3, INT_MAX})
        atr_SubstituteFormat(message, position, "nowhere");
    EXPECT_EQ(message.Result(), "100% of %x: %d %s, 50%");
    atr_SubstituteFormat(message, 2, "");
    EXPECT_EQ(message.Result(), "100% of %x: %d , 50%");
    EXPECT_EQ(atr_translate(nullptr).Result(), "");
}

TEST(Messages, TheTranslatedFormatIsTheOneThatIsCut) {
    Translated const german([](char const * text) -> char const * {
        if (std::string(text) == "%s: Unsupported position %s")
            return "nicht unterst\xc3\xbctzt, %d: %s";
        if (std::string(text) == "The system ran out of memory")
            return "kein Speicher";
        return std::string(text) == "raw" ? "roh" : nullptr;
    });
    Listener listener;
    shp_MessageTypes::ErrorUnsupportedPositionOnMethod("shp_Shape::ExtrapolateToNodes", res_OutputPosition_NODAL);
    shp_MessageTypes::ErrorAvrgVolumeAreaNegative();
    EXPECT_EQ(listener.heard, (std::vector<std::string>{"nicht unterst\xc3\xbctzt, shp_Shape::ExtrapolateToNodes: 1",
                                                        "Average volume/area negative."}));
    EXPECT_EQ(atr_raw("raw"), "raw");
    EXPECT_EQ(mem_OutOfMemoryException().UserReport(utf8), "kein Speicher");
    {
        Translated const otherwise([](char const *) { return "crudo"; });
        EXPECT_EQ(atr_translate("raw").Result(), "crudo");
    }
    EXPECT_EQ(atr_translate("raw").Result(), "roh");
}

TEST(Messages, EveryTextIsInTheEncodingOfItsMode) {
    if (std::setlocale(LC_CTYPE, "en_US.ISO-8859-1") == nullptr)
        GTEST_SKIP() << "no Latin-1 locale is installed";
    QVRBasStringMode const latin(1);
    Translated const french([](char const * text) -> char const * {
        return std::string(text) == "K\xc3\xa4se: %s" ? "Fromage \xc3\xa0 %s" : nullptr;
    });
    atr_translate message("K\xe4se: %s", latin);
    atr_SubstituteFormat(message, 1, "\xfc", latin);
    EXPECT_EQ(message.Result(utf8), "Fromage \xc3\xa0 \xc3\xbc");
    EXPECT_EQ(message.Result(latin), "Fromage \xe0 \xfc");

    for (QVRBasStringMode const mode : {utf8, latin}) {
        PrimException const raised(message.Result(mode), mode);
        EXPECT_EQ(raised.UserReport(utf8), message.Result(utf8));
        EXPECT_EQ(raised.UserReport(latin), message.Result(latin));

        testing::internal::CaptureStderr();
        omi_Singleton<wip_WIP>::Instance().Error(message.Result(mode), wip_errorLevel_ERROR, mode);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Fromage \xe0 \xfc\n");
    }
    std::setlocale(LC_CTYPE, "C");
}

TEST(Sink, ShowsOneLineUnlessItIsRedirected) {
    testing::internal::CaptureStderr();
    shp_MessageTypes::ErrorUnsupportedPositionOnMethod("shp_Shape::ExtrapolateToFaces",
                                                       static_cast<res_OutputPositionEnm>(-15));
    omi_Singleton<wip_WIP>::Instance().Error("corrupt.\n\nRerun", wip_errorLevel_WARNING, utf8);
    {
        Listener listener;
        shp_MessageTypes::ErrorAvrgVolumeAreaNegative();
        EXPECT_EQ(listener.heard.size(), 1u);
    }
    omi_Singleton<wip_WIP>::Instance().Error("", wip_errorLevel_NOTE, utf8);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "shp_Shape::ExtrapolateToFaces: Unsupported position -15\n"
                                                      "corrupt.  Rerun\n\n");
}

TEST(Sink, HandlerGetsTheMessageAsItWasGiven) {
    auto & sink = omi_Singleton<wip_WIP>::Instance();
    bool isLocale = false;
    sink.SetHandler(
        [](atr_String const & message, wip_errorLevelEnm level, QVRBasStringMode mode, void * context) {
            EXPECT_EQ(message, "\xfc\n");
            EXPECT_EQ(level, 7);
            *static_cast<bool *>(context) = mode.IsLocale();
        },
        &isLocale);
    sink.Error("\xfc\n", static_cast<wip_errorLevelEnm>(7), QVRBasStringMode(1));
    EXPECT_TRUE(isLocale);
    sink.SetHandler(nullptr);
}

TEST(Sink, CanBeMadeAnewAnyNumberOfTimes) {
    for (int i = 0; i < 100; ++i) {
        Listener listener;
        shp_MessageTypes::ErrorAvrgVolumeAreaNegative();
        EXPECT_EQ(listener.heard.size(), 1u);
        omi_SingletonBase<wip_WIP>::Finalize();
    }
}

TEST(Sink, WhatTheHostRaisesReachesTheCaller) {
    auto & sink = omi_Singleton<wip_WIP>::Instance();
    sink.SetHandler([](atr_String const & message, wip_errorLevelEnm, QVRBasStringMode, void *) {
        throw std::runtime_error(message.CStr());
    });
    EXPECT_THROW(shp_MessageTypes::ErrorAvrgVolumeAreaNegative(), std::runtime_error);
    sink.SetHandler(nullptr);
}

TEST(Assertion, RaisesWithTheTextOfItsCode) {
    for (int code : {0, 1, -1}) {
        EXPECT_NO_THROW(shp_assert(true, static_cast<shp_ErrorEnm>(code)));
        std::string const expected = code == 0 ? "Surface Sketch is not valid." : "";
        try {
            shp_assert(false, static_cast<shp_ErrorEnm>(code));
            FAIL() << "nothing was raised";
        } catch (QVRBasException const & raised) {
            EXPECT_EQ(typeid(raised), typeid(PrimException));
            EXPECT_EQ(textOf(raised.UserReport(utf8)), expected);
            EXPECT_EQ(textOf(raised.DeveloperReport(utf8)), expected + " (QVRShpShape/QVRShpShp.m/src/shp_assert:28)");
        }
    }
}

TEST(Exceptions, KeepTheirTypeTextAndPlaceOnEveryWay) {
    CmdException original(atr_String("not allowed: 14"), utf8);
    EXPECT_EQ(original.DeveloperReport(utf8), "not allowed: 14");
    auto const check = [](QVRBasException const & arrived) {
        auto const * exception = dynamic_cast<CmdException const *>(&arrived);
        ASSERT_NE(exception, nullptr);
        EXPECT_EQ(exception->GetCode(), 2);
        EXPECT_EQ(textOf(exception->DeveloperReport(utf8)), "not allowed: 14 (omu_PrimEnum:76)");
    };
    try {
        static_cast<QVRBasException &>(original).Throw("omu_PrimEnum", 76);
    } catch (PrimException const &) {
        FAIL() << "a command exception is no primitive exception";
    } catch (nex_CommandException & raised) {
        EXPECT_NE(&raised, &original);
        check(raised);
    }
    try {
        static_cast<QVRBasException const &>(original).Propagate();
    } catch (nex_Exception const & raised) {
        check(raised);
    }
    original.SetTraceback("line 1");
    std::unique_ptr<QVRBasException> const clone(static_cast<QVRBasException const &>(original).Clone());
    std::unique_ptr<nex_Exception> const copy(static_cast<nex_Exception const &>(original).Copy());
    original.GetTraceback().Append(", line 2");
    check(*clone);
    check(*copy);
    EXPECT_EQ(original.GetTracebackStr(), "line 1, line 2");
    EXPECT_EQ(dynamic_cast<nex_CommandException &>(*copy).GetTracebackStr(), "line 1");
}

TEST(OutOfMemory, IsRaisedAndReportedWithNothingLeft) {
    FailAt const everything(-1);
    for (void * (*allocate)(std::size_t) :
         {mem_OperatorNewThrow, mem_OperatorNewThrowBuiltin, mem_OperatorNewTinyThrow, mem_Malloc}) {
        try {
            mem_Free(allocate(8));
            ADD_FAILURE() << "nothing was raised";
        } catch (QVRBasException const & raised) {
            EXPECT_EQ(typeid(raised), typeid(mem_OutOfMemoryException));
            EXPECT_EQ(textOf(raised.UserReport(utf8)), "The system ran out of memory");
            EXPECT_THROW(delete raised.Clone(), mem_OutOfMemoryException);
        }
    }
}

TEST(OutOfMemory, AtAnyPointOfAReportLeavesTheSinkUsable) {
    omi_SingletonBase<wip_WIP>::Finalize(); // the making of the sink shall fail, too
    int failing = 1;
    for (bool isDone = false; !isDone; ++failing) {
        testing::internal::CaptureStderr();
        try {
            FailAt const fail(failing);
            shp_MessageTypes::ErrorUnsupportedPositionOnMethod("method", res_OutputPosition_NODAL);
            isDone = true;
        } catch (mem_OutOfMemoryException const &) {
        }
        EXPECT_EQ(testing::internal::GetCapturedStderr(), isDone ? "method: Unsupported position 1\n" : "");
    }
    EXPECT_GT(failing, 8);
    Listener listener;
    shp_MessageTypes::ErrorAvrgVolumeAreaNegative();
    EXPECT_EQ(listener.heard.size(), 1u);
}
