// The errors of the output database: what users read for every number, and that an error keeps it on every way.

#include "atr_translate.h"
#include "cls_MemoryStore.h"
#include "cls_MetadataRegistrar.h"
#include "cls_ReadVisitor.h"
#include "cls_WriteVisitor.h"
#include "memory_refusals.h"
#include "nex_PrimException.h"
#include "odiC_Exception.h"
#include "typ_ArchCompTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

namespace {

constexpr QVRBasStringMode utf8(0), latin(1);

odiC_Exception withoutArguments(int number) {
    return odiC_Exception(number);
}
odiC_Exception withArguments(int number) {
    return odiC_Exception(number, "K\xc3\xa4se", "R\xc3\xb6hre", 3, 12, 13, 14, 5, 16);
}

/// What the two functions above lead to; without arguments the same, where nothing else is said.
struct Expected {
    char const * withArguments;
    char const * withoutArguments = withArguments;
};

/// Row = error number.
constexpr Expected expectedMessages[] = {
    {"K\xc3\xa4se is not a valid output database.", "The file is not a valid output database."},
    {"K\xc3\xa4se cannot be read because the output database file is corrupt.\n\nThe analysis must be rerun in order "
     "to view these results.",
     "The file cannot be read because the output database file is corrupt.\n\nThe analysis must be rerun in order to "
     "view these results."},
    {"K\xc3\xa4se contains an incomplete output database file.\n This may indicate that the analysis failed.",
     " contains an incomplete output database file.\n This may indicate that the analysis failed."},
    {"K\xc3\xa4se does not match the latest format supported by this release of Ovanta.\n\nThe analysis must be rerun "
     "in order to view these results.",
     "The output database file format does not match the latest format supported by this release of Ovanta.\n\nThe "
     "analysis must be rerun in order to view these results."},
    {"K\xc3\xa4se is not an output database file.", "The file is not an output database file."},
    {"Range Error: Number of Parts must be greater than 1"},
    {"This model contains the following element types that are not yet supported:\n K\xc3\xa4se\nThe requested process "
     "requires that all element types in the model be supported.",
     "This model contains the following element types that are not yet supported:\n \nThe requested process requires "
     "that all element types in the model be supported."},
    {"Incorrect data for rotation field. Output dabatase may be incorrect. Requested operation cancelled. Rerun the "
     "analysis or contact VMT."},
    {"Scalar extrapolation not supported.", "Unknown extrapolation not supported."},
    {"Error detected loading set K\xc3\xa4se, subset number 3", "Error detected loading set , subset number 0"},
    {"Problem detected when loading normal tables.", "Problem detected when loading non-active class table."},
    {"Unable to locate output request:\n Frame Index: 3\n  Part index: 12\n  Class index: 13\n  Variable: "
     "K\xc3\xa4se\n  Location index: 14\n  Output position: for whole element",
     "Unable to locate output request:\n Frame Index: 0\n  Part index: 0\n  Class index: 0\n  Variable: \n  Location "
     "index: 0\n  Output position: at undefined position"},
    {"Data type of requested field is not tensor."},
    {"Unable to access history data from output database file: K\xc3\xa4se\n  R\xc3\xb6hre",
     "Unable to access history data from output database file: \n  "},
    {"Subset data not loaded."},
    {"Invalid step number: 3\nAvailable steps:K\xc3\xa4se", "Invalid step number: 0\nAvailable steps:"},
    {"Invalid step index: 3\n\nAvailable step indices: 0 - 12",
     "Invalid step index: 0\n\nAvailable step indices: 0 - 0"},
    {"Invalid frame index: 3\n\nAvailable frame indices: 0 - 12",
     "Invalid frame index: 0\n\nAvailable frame indices: 0 - 0"},
    {"Stride should be set before K\xc3\xa4se is called.", "Stride should be set before  is called."},
    {"Invalid element class data."},
    {"Unable to read requested result 'K\xc3\xa4se' for part instance 'R\xc3\xb6hre'",
     "Unable to read requested result '' for part instance ''"},
    {"Associated data not found."},
    {"K\xc3\xa4se is an invalid or unsupported ODB file format", "Invalid or unsupported ODB file format"},
    {"Error: Divide by Zero"},
    {"Error: Improperly mixed operands in math operation"},
    {"Value out of bounds"},
    {"Tan of odd-multiple of PI/2 radians"},
    {"Invalid operation - Log of Zero or a negative number"},
    {"Square Root of negative number requested"},
    {"Cannot raise zero to a negative number"},
    {"Cannot raise a negative number to a float"},
    {"Expecting Ovanta Interface Object"},
    {"Expression evaluates to an overflow or underflow"},
    {"The system ran out of memory"},
};
constexpr Expected expectedOfOthers = {"Error message not implemented yet"};

std::string inLatin(std::string text) {
    for (auto const & [from, to] : {std::pair("\xc3\xa4", "\xe4"), std::pair("\xc3\xb6", "\xf6")})
        for (std::size_t at; (at = text.find(from)) != std::string::npos;)
            text.replace(at, 2, to);
    return text;
}

/// Calls `check` with every number, the exception and the message that it must have.
template <class Check> void forEachError(Check check) {
    for (int number = -1; number <= 40; ++number) {
        SCOPED_TRACE(number);
        bool const isKnown = number >= 0 && number < 34;
        Expected const & expected = isKnown ? expectedMessages[number] : expectedOfOthers;
        check(withArguments(number), expected.withArguments);
        check(withoutArguments(number), expected.withoutArguments);
    }
}

TEST(DatabaseErrors, EveryNumberHasItsMessageInBothEncodings) {
    static_assert(std::size(expectedMessages) == 34);
    bool const hasLatin = std::setlocale(LC_CTYPE, "en_US.ISO-8859-1") != nullptr;
    forEachError([&](odiC_Exception const & error, std::string const & expected) {
        EXPECT_EQ(error.JournalMessage(utf8), expected.c_str());
        EXPECT_EQ(error.UserReport(utf8), expected.c_str());
        if (hasLatin) {
            EXPECT_EQ(error.JournalMessage(latin), inLatin(expected).c_str());
        }
        EXPECT_EQ(error.PythonType(), "OdiError");
        EXPECT_EQ(error.GetCode(), 0);
    });
    std::setlocale(LC_CTYPE, "C");
    if (!hasLatin)
        GTEST_SKIP() << "no Latin-1 locale is installed";
}

TEST(DatabaseErrors, NumbersThatStandForWordsGiveThem) {
    constexpr char const * types[] = {"Unknown", "Boolean",    "Integer",    "Scalar", "Vector",
                                      "Unknown", "Quaternion", "Quaternion", "Tensor"};
    for (int type = -1; type <= 16; ++type) {
        char const * const word = type < 0 || type > 13 ? "Unknown" : types[std::min(type, 8)];
        EXPECT_EQ(odiC_Exception(8, "", "", type).JournalMessage(utf8),
                  (std::string(word) + " extrapolation not supported.").c_str());
    }
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

char const * translated(char const * text) {
    constexpr char const * translations[][2] = {{"Problem detected when loading %s", "%s: nicht geladen"},
                                                {"normal tables.", "must not be asked for"},
                                                {"Invalid step index: %d\n\nAvailable step indices: 0 - %d",
                                                 "Schritt %d, h\xc3\xb6"
                                                 "chstens %d"},
                                                {"Error message not implemented yet", "Fehler"}};
    for (auto const & [from, to] : translations)
        if (std::string(text) == from)
            return to;
    return nullptr;
}

TEST(DatabaseErrors, AreTranslatedWhenTheyAreShown) {
    odiC_Exception const loading = withArguments(10), step = withArguments(16), other = withArguments(34);
    atr_translate::SetTranslation(translated);
    EXPECT_EQ(loading.JournalMessage(utf8), "normal tables.: nicht geladen");
    EXPECT_EQ(step.JournalMessage(utf8), "Schritt 3, h\xc3\xb6"
                                         "chstens 12");
    EXPECT_EQ(other.JournalMessage(utf8), "Fehler");
    atr_translate::SetTranslation(nullptr);
    EXPECT_EQ(other.JournalMessage(utf8), expectedOfOthers.withArguments);
}

/// What comes back from an archive of bytes, by its class number alone.
std::unique_ptr<nex_Exception> readBack(cls_MemoryStore const & store, int index = 0) {
    cls_MemoryStore::ByteArray const bytes = store.Bytes();
    cls_MemoryStore const kept(bytes.data(), bytes.size());
    cls_ReadVisitor reader(kept, index);
    void * const made = omi_Singleton<cls_MetadataRegistrar>::Instance().Construct(reader);
    return std::unique_ptr<nex_Exception>(static_cast<odiC_Exception *>(made));
}

TEST(DatabaseErrors, KeepTheirMessageOnEveryWay) {
    forEachError([&](odiC_Exception error, std::string const & expected) {
        error.SetTraceback("line 1");
        auto const check = [&](QVRBasException const & arrived) {
            auto const & same = dynamic_cast<odiC_Exception const &>(arrived);
            EXPECT_EQ(same.JournalMessage(utf8), expected.c_str());
            EXPECT_EQ(same.GetTracebackStr(), "line 1");
            EXPECT_EQ(same.DynTypeId(), 0x2a40001u);
        };
        check(*std::unique_ptr<QVRBasException>(error.Clone()));
        check(*std::unique_ptr<nex_Exception>(error.Copy()));
        try {
            static_cast<nex_Exception const &>(error).Propagate();
        } catch (odiC_Exception const & raised) {
            check(raised);
        }
        cls_MemoryStore store;
        error.DBWrite(cls_WriteVisitor(store));
        std::unique_ptr<nex_Exception> const read = readBack(store);
        check(*read);
        cls_MemoryStore again;
        read->DBWrite(cls_WriteVisitor(again));
        EXPECT_EQ(store.Bytes(), again.Bytes()) << "uid and the integer that no message shows are kept, too";
    });
}

TEST(DatabaseErrors, AreStoredOnceInAPassAsTheirDescriptionSays) {
    odiC_Exception const error = withArguments(11), copy(error), equal = withArguments(11);
    cls_MemoryStore store;
    {
        cls_WriteVisitor const pass(store);
        for (odiC_Exception const * written : {&error, &copy, &error, &equal})
            written->DBWrite(pass);
    }
    cls_MemoryStore::Object const & object = store[0];
    ASSERT_EQ(store.Length(), 4);
    EXPECT_EQ(&store[1], &object) << "a copy is the same object";
    EXPECT_EQ(&store[2], &object);
    EXPECT_NE(&store[3], &object) << "an equal one is not";
    EXPECT_EQ(readBack(store, 2)->UserReport(utf8), error.UserReport(utf8));

    cls_ClassMetadata const * const described = omi_Singleton<cls_MetadataRegistrar>::Instance().Find(0x2a40001u);
    ASSERT_NE(described, nullptr);
    EXPECT_EQ(described->Version(), 800);
    EXPECT_EQ(described->Base(), 0x1f0003u);
    typ_Entry const * const row = typ_ArchCompTable::FindRow(object.classNumber);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(described->Name(), row->name);
    EXPECT_EQ(row->reference, described->Base());
    EXPECT_EQ(row->kind, 4u);
    EXPECT_EQ(typ_ArchCompTable::Find(676).NumRows(), 2u);
    EXPECT_EQ(typ_ArchCompTable::FindRow(676u << 16)->reference, 1u);
    EXPECT_EQ(typ_ArchCompTable::FindRow(0x2a40002u), nullptr);
    EXPECT_EQ(typ_ArchCompTable::Find(677).NumRows(), 0u);

    constexpr char const * names[] = {"m_ErrorNo", "m_ArgInt1", "m_ArgInt2", "m_ArgInt3", "m_ArgInt4",
                                      "m_ArgInt5", "m_ArgInt6", "m_ArgStr1", "m_ArgStr2"};
    int const number = static_cast<int>(std::size(names));
    ASSERT_EQ(described->NumAttributes(), number);
    ASSERT_EQ(object.attributes.size(), std::size(names) + 1) << "the first is the part of the base class";
    for (int i = 0; i < number; ++i) {
        cls_AttributeMetadata const & attribute = described->GetAttribute(i);
        cls_MemoryStore::Attribute const & stored = object.attributes[static_cast<std::size_t>(i) + 1];
        EXPECT_EQ(attribute.name, names[i]);
        EXPECT_EQ(attribute.number, i);
        EXPECT_EQ(attribute.typeNumber, 1u);
        EXPECT_EQ(attribute.flag, 0);
        EXPECT_EQ(stored.name, names[i]);
        EXPECT_EQ(stored.Type(), attribute.type);
    }
}

TEST(DatabaseErrors, ReadWhatARecordLacksAsNothingAndRefuseWhatIsOfAnotherKind) {
    cls_MemoryStore bare;
    cls_WriteVisitor(bare).StartWrite(odiC_Exception::TypeId(), cls_Uid());
    EXPECT_EQ(readBack(bare)->UserReport(utf8), expectedMessages[0].withoutArguments);

    cls_MemoryStore wrong;
    {
        cls_WriteVisitor const writer(wrong);
        writer.StartWrite(odiC_Exception::TypeId(), cls_Uid());
        writer.Write("m_ArgInt3", cow_String("three"));
    }
    try {
        readBack(wrong);
        ADD_FAILURE() << "a text was read as an integer";
    } catch (nex_PrimException<atr_String, 1> const & raised) {
        std::string const message = raised.AsString(utf8).CStr();
        EXPECT_NE(message.find("odiC_Exception"), std::string::npos) << message;
        EXPECT_NE(message.find("m_ArgInt3"), std::string::npos) << message;
    }
}

TEST(DatabaseErrors, RefusedMemoryLosesNothing) {
    odiC_Exception const error = withArguments(11);
    auto const work = [&] {
        cls_MemoryStore store;
        error.DBWrite(cls_WriteVisitor(store));
        EXPECT_EQ(readBack(store)->UserReport(utf8), expectedMessages[11].withArguments);
    };
    EXPECT_GT(refuseEachAllocation(work, [] {}), 20);
    EXPECT_EQ(error.UserReport(utf8), expectedMessages[11].withArguments);
}

} // namespace
