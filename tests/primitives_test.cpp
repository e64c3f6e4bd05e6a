// Packing and unpacking: tuples with elements of every kind, bit vectors as text, and messages with values put in.

#include "atr.h"
#include "memory_refusals.h"
#include "omi_BlkBitVect.h"
#include "omu_PrimVisitor.h"
#include "packed_tuples.h"
#include "stored_objects.h"
#include "utl_BlkBitUtils.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

template <class Work> std::string messageOf(Work work) {
    try {
        work();
    } catch (PrimException const & raised) {
        return raised.AsString(0).CStr();
    }
    return "nothing raised";
}

/// A caller's own primitive that counts how many of its kind are alive.
struct Counted : omu_Primitive {
    Counted() { ++alive; }
    Counted(Counted const & other) : omu_Primitive(other) { ++alive; }
    ~Counted() override { --alive; }
    cow_String TypeString() const override { return "counted"; }
    cow_String AsString(int) const override { return "Counted"; }
    cow_String AsRepr() const override { return "Counted()"; }
    bool operator==(omu_Primitive const & other) const override { return dynamic_cast<Counted const *>(&other); }
    omu_Primitive * Copy() const override { return new Counted(*this); }
    static inline int alive = 0;
};

/// A way to put an element, and the type that messages call it.
struct Writer {
    char const * type;
    std::function<void(omu_PrimTuple &)> put;
};

std::vector<Writer> const writers = {
    {"boolean", [](auto & tuple) { tuple.Put(true); }},
    {"integer", [](auto & tuple) { tuple.Put(7); }},
    {"unsigned integer", [](auto & tuple) { tuple.Put(7u); }},
    {"real number", [](auto & tuple) { tuple.Put(0.1); }},
    {"text", [](auto & tuple) { tuple.Put("a"); }},
    {"text", [](auto & tuple) { tuple.Put(cow_String("a")); }},
    {"text", [](auto & tuple) { tuple.Put(atr_String("a")); }},
    {"tuple", [](auto & tuple) { tuple.Put(tupleOf("a", 1)); }},
    {"tuple", [](auto & tuple) { tuple.Put(new omu_PrimTuple(tupleOf("a", 1))); }},
    {"enumeration", [](auto & tuple) { tuple.Put(new omu_PrimEnum<res_PairEnm, 1>(res_Pair_NONE)); }},
    {"list of texts", [](auto & tuple) { tuple.Put(cow_List<cow_String>("a", "b")); }},
    {"list of real numbers", [](auto & tuple) { tuple.Put(cow_List<float>(1, 2)); }},
};

/// A way to get an element: what messages call the wanted type, and which types it accepts. `read` adds what it has
/// read to `again`, with the type that it was read as.
struct Reader {
    char const * type;
    std::set<std::string> accepts;
    std::function<void(omu_PrimTuple &, omu_PrimTuple & again)> read;
};

template <class T> void readInto(omu_PrimTuple & tuple, omu_PrimTuple & again) {
    T target{};
    tuple.Get(target);
    again.Put(target);
}

std::vector<Reader> const readers = {
    {"boolean", {"boolean", "integer", "unsigned integer"}, readInto<bool>},
    {"integer", {"boolean", "integer", "unsigned integer"}, readInto<int>},
    {"unsigned integer", {"boolean", "integer", "unsigned integer"}, readInto<unsigned int>},
    {"real number", {"boolean", "integer", "unsigned integer", "real number"}, readInto<double>},
    {"text", {"text"}, readInto<cow_String>},
    {"text", {"text"}, readInto<atr_String>},
    {"text", {"text"}, readInto<char const *>},
    {"primitive", {"tuple", "enumeration"}, readInto<omu_Primitive *>},
    {"tuple",
     {"tuple"},
     [](omu_PrimTuple & tuple, omu_PrimTuple & again) {
         omu_PrimTuple target('[');
         tuple.Get(target);
         again.Put(target);
     }},
    {"list of texts", {"list of texts"}, readInto<cow_List<cow_String>>},
    {"list of real numbers", {"list of real numbers"}, readInto<cow_List<float>>},
};

// Every Get on every kind of element: it is read, and survives unchanged where the types agree, or nothing happens but
// a message that names the place and both types.
TEST(Tuple, GetAcceptsItsKindsAndRefusesAllOthers) {
    for (Writer const & writer : writers)
        for (Reader const & reader : readers) {
            SCOPED_TRACE(std::string(writer.type) + " read as " + reader.type);
            omu_PrimTuple tuple('('), again('(');
            tuple.Put(-1);
            writer.put(tuple);
            int first = 0;
            tuple.Get(first);
            auto const read = [&] { reader.read(tuple, again); };
            if (reader.accepts.count(writer.type)) {
                read();
                tuple.End("");
                again.Put(0);
                omu_PrimTuple same('(');
                writer.put(same);
                same.Put(0);
                bool const sameType =
                    std::string(reader.type) == writer.type || std::string("primitive") == reader.type;
                EXPECT_EQ(again == same, sameType) << again.AsRepr().CStr() << same.AsRepr().CStr();
                continue;
            }
            std::string const expected =
                std::string("Tuple of 2 elements: element 2 is of type ") + writer.type + ", not " + reader.type;
            EXPECT_EQ(messageOf(read), expected);
            EXPECT_EQ(messageOf(read), expected) << "the element is still the next one";
            EXPECT_EQ(again.Length(), 0);
        }
}

TEST(Tuple, WholeNumbersConvertModulo32Bits) {
    for (int const number : {0, 1, 2, 256, -1, INT_MIN, INT_MAX}) {
        auto const same = static_cast<unsigned int>(number);
        omu_PrimTuple tuple = tupleOf(number, number, number, number, same, same, same, same);
        for (double const real : {double{1} * number, double{1} * same}) {
            int asInt = 3;
            unsigned int asUnsigned = 3;
            bool asBool = number == 0;
            double asReal = 3;
            tuple.Get(asInt), tuple.Get(asUnsigned), tuple.Get(asBool), tuple.Get(asReal);
            EXPECT_TRUE(asInt == number && asUnsigned == same && asBool == (number != 0) && asReal == real) << number;
        }
    }
}

TEST(Tuple, EndsAreGuarded) {
    omu_PrimTuple tuple = tupleOf("a", 1);
    int number = 5;
    cow_String text;
    EXPECT_EQ(messageOf([&] { tuple.End(""); }), "Tuple of 2 elements: element 1 (text) is left over");
    tuple.Get(text);
    EXPECT_EQ(messageOf([&] { tuple.End("Reader"); }), "Reader: Tuple of 2 elements: element 2 (integer) is left over");
    tuple.Get(number);
    tuple.End("Reader");
    EXPECT_EQ(messageOf([&] { tuple.Get(number); }), "Tuple of 2 elements: element 3 (integer) is missing");
    tuple.Put(2); // a tuple can grow while it is read
    tuple.Get(number);
    EXPECT_EQ(number, 2);
}

TEST(Tuple, CopiesAreDeepAndReadFromTheirStart) {
    omu_PrimTuple inner = tupleOf("a", 1), outer = tupleOf(inner), read('[');
    inner.Put(2);
    outer.Put(outer);
    EXPECT_STREQ(outer.AsRepr().CStr(), "(('a', 1), (('a', 1)))");
    cow_String name;
    for (int i = 0; i < 2; ++i) { // the second time into a tuple that has been read from
        outer.Begin();
        outer.Get(read);
        EXPECT_STREQ(read.AsRepr().CStr(), "('a', 1)") << "the bracket comes along";
        read.Get(name);
    }
    omu_PrimTuple halfRead(outer);
    halfRead.Get(read);
    EXPECT_TRUE(read == tupleOf("a", 1));
    outer.Begin();
    outer.Get(outer); // replaced by its own element, and read from there on
    outer.Get(name);
    EXPECT_TRUE(outer == tupleOf("a", 1));
    omu_PrimTuple withNull = tupleOf(static_cast<omu_Primitive *>(nullptr));
    withNull.Get(read);
    EXPECT_EQ(read.Length(), 0);
}

TEST(Tuple, BracketsDoNotCountInComparisons) {
    omu_PrimTuple square('[');
    square.Put("a");
    EXPECT_TRUE(square == tupleOf("a") && tupleOf(square) == tupleOf(tupleOf("a")));
    EXPECT_FALSE(tupleOf(square) == tupleOf(tupleOf("b"))) << "they differ within an element";
}

TEST(Tuple, IsWrittenAsAScriptWouldWriteIt) {
    omu_PrimTuple tuple('[');
    tuple.Put("it's\na \\");
    tuple.Put(false);
    tuple.Put(4000000000u);
    tuple.Put(2.0);
    tuple.Put(1e-7);
    tuple.Put(-std::numeric_limits<double>::infinity());
    tuple.Put(cow_List<float>(0.1f, -3));
    tuple.Put(cow_List<cow_String>("x", ""));
    tuple.Put(new omu_PrimEnum<res_ClampTypeEnm, 1>(res_ClampType_NO_CLAMPS));
    tuple.Put(omu_PrimTuple(0, '('));
    EXPECT_STREQ(tuple.AsRepr().CStr(),
                 R"(['it\'s\na \\', false, 4000000000, 2.0, 1e-07, -inf, [0.1, -3.0], ['x', ''], NO_CLAMPS, ()])");
    EXPECT_TRUE(tuple.AsString(0) == tuple.AsRepr());
}

// Whichever allocation fails on the way: what was handed over is destroyed once, and a target that could not be read
// keeps its value. The sanitizer's leak check watches the rest.
TEST(Tuple, RefusedMemoryLosesNothing) {
    omu_PrimTuple target = tupleOf("a text before");
    omu_PrimTuple const untouched(target);
    auto const work = [&] {
        omu_PrimTuple tuple('(');
        tuple.Put(new Counted);
        tuple.Put(tupleOf("name", 1));
        omu_Primitive * read = nullptr;
        tuple.Get(read);
        std::unique_ptr<omu_Primitive> const owner(read);
        omu_PrimTuple const copy(tuple);
        EXPECT_EQ(Counted::alive, 3);
        tuple.Get(target);
    };
    auto const nothingIsLost = [&] { EXPECT_TRUE(Counted::alive == 0 && target == untouched); };
    EXPECT_GT(refuseEachAllocation(work, nothingIsLost), 10);
    EXPECT_TRUE(Counted::alive == 0 && target == tupleOf("name", 1));
}

template <class Primitive> Primitive storedAndRead(omu_Primitive const & primitive) {
    cls_MemoryStore const kept = fromBytes(bytesOf(primitive));
    return Primitive(cls_ReadVisitor(kept));
}

// Every element of every kind, nested, with the limits of the numbers.
TEST(Tuple, ComesBackFromAnArchive) {
    using Limits = std::numeric_limits<double>;
    omu_PrimTuple tuple('[');
    for (Writer const & writer : writers)
        writer.put(tuple);
    for (int const number : {INT_MIN, INT_MAX})
        tuple.Put(tupleOf(number, static_cast<unsigned int>(number)));
    tuple.Put(tupleOf(-0.0, Limits::denorm_min(), Limits::infinity()));
    tuple.Put(cow_List<float>(-0.0f, std::numeric_limits<float>::denorm_min(), 0.1f));
    tuple.Put(tuple);
    bool first = false;
    tuple.Get(first);
    omu_PrimTuple read = storedAndRead<omu_PrimTuple>(tuple);
    EXPECT_TRUE(read == tuple);
    EXPECT_TRUE(read.AsRepr() == tuple.AsRepr()) << "the bracket and the sign of zero, too";
    read.Get(first);
    EXPECT_TRUE(first) << "read from its first element on";
    omu_PrimTuple own('(');
    own.Put(new Counted);
    EXPECT_EQ(messageOf([&] { stored(own); }), "Tuple of 1 elements: element 1 (counted) cannot be stored");
}

TEST(Enumeration, ComesBackFromAnArchiveByItsName) {
    using Pair = omu_PrimEnum<res_PairEnm, 1>;
    using Load = omu_PrimEnum<res_LoadDescriptorEnm, 1>;
    EXPECT_EQ(storedAndRead<Pair>(Load(res_LoadDescriptor_NONE)).value, res_Pair_NONE) << "both have this name";
    std::string const permissible = Pair(res_Pair_NONE).PermissibleValuesAsString().CStr();
    EXPECT_EQ(raisedBy([] { storedAndRead<Pair>(Load(res_LoadDescriptor_GRAVITY)); }),
              "2: omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: GRAVITY  Permissible: " + permissible +
                  " (QVRKelOvantaUtilities/ProtectedInterfaces/omu_PrimEnum:117)");
    omu_PrimTuple tuple('(');
    tuple.Put(new Load(res_LoadDescriptor_NONE));
    omu_Primitive * element = nullptr;
    storedAndRead<omu_PrimTuple>(tuple).Get(element);
    std::unique_ptr<omu_Primitive> const owner(element);
    EXPECT_EQ(Pair(dynamic_cast<omu_PrimEnumBase &>(*element)).value, res_Pair_NONE);
}

TEST(Primitive, AcceptShowsItselfToTheVisitor) {
    struct Seen : omu_PrimVisitor {
        void Visit(omu_Primitive & primitive) override { last = &primitive; }
        omu_Primitive * last = nullptr;
    } seen;
    omu_PrimTuple tuple('(');
    tuple.Accept(&seen);
    EXPECT_EQ(seen.last, &tuple);
}

TEST(BitVector, BehavesLikeASetThroughTextsToo) {
    std::mt19937 random(4);
    for (unsigned int const range : {40u, 3000u, UINT_MAX}) {
        omi_BlkBitVect bits, rebuilt, read;
        std::set<unsigned int> model;
        std::uniform_int_distribution<unsigned int> anyBit(0, range);
        for (int step = 0; step < 2000; ++step) {
            unsigned int const bit = step % 50 == 0 ? range - anyBit(random) % 2 : anyBit(random);
            EXPECT_EQ(bits.HasBit(bit), model.count(bit) == 1);
            if (random() % 2) {
                bits.SetBit(bit);
                model.insert(bit);
            } else {
                bits.ClearBit(bit);
                model.erase(bit);
            }
        }
        for (auto bit = model.rbegin(); bit != model.rend(); ++bit)
            rebuilt.SetBit(*bit);
        EXPECT_TRUE(bits == rebuilt);
        cow_List<cow_String> texts;
        utl_BlkBitUtils::GetMaskString(bits, texts);
        read.SetBit(5);
        utl_BlkBitUtils::GetMaskFromString(texts, read);
        EXPECT_TRUE(bits == read);
        for (unsigned int const bit : model) {
            EXPECT_FALSE(bits == omi_BlkBitVect());
            bits.ClearBit(bit);
        }
        EXPECT_TRUE(bits == omi_BlkBitVect());
    }
}

TEST(BitVector, TextsNameBlocksAndRefuseWhatIsMalformed) {
    omi_BlkBitVect mask, read;
    for (unsigned int const bit : {95u, 64u, 3u, UINT_MAX})
        mask.SetBit(bit);
    cow_List<cow_String> texts;
    utl_BlkBitUtils::GetMaskString(mask, texts);
    EXPECT_TRUE(texts == cow_List<cow_String>("0:8", "2:80000001", "134217727:80000000"));
    utl_BlkBitUtils::GetMaskFromString(
        cow_List<cow_String>("134217727:80000000", "2:1", "2:80000000", "00:00000008", "9:0"), read);
    EXPECT_TRUE(read == mask);
    for (char const * const text : {"", ":", "1", "1:", ":1", "a:1", "1:g", "-1:1", "1:-1", "1:0x1", " 1:1", "1:1 ",
                                    "1::1", "1:100000000", "134217728:1", "4294967296:1"}) {
        EXPECT_EQ(messageOf([&] { utl_BlkBitUtils::GetMaskFromString(cow_List<cow_String>("3:1", text), read); }),
                  "Block 2 of a bit mask is malformed: '" + std::string(text) + "'");
        EXPECT_TRUE(read == mask) << text;
    }
}

TEST(Message, ArgumentsTakeTheirPlacesInOrder) {
    QVRBasStringMode const utf8(0);
    EXPECT_STREQ(
        (atr<int, int, int, char const *, int, atr_String>("%d %d %d %s %d %s", 1, 2, 3, "%s", 5, "six", utf8)).CStr(),
        "1 2 3 %s 5 six");
    EXPECT_STREQ((atr<cow_String, cow_String>("%s-%s-%s", "a", "b", utf8)).CStr(), "a-b-%s");
    EXPECT_STREQ((atr<res_PairEnm, char const *>("%d %s", res_Pair_MAGNITUDE_AND_PHASE, "x", utf8)).CStr(), "2 x");
    EXPECT_STREQ(atr("%s", utf8).CStr(), "%s");
}

} // namespace
