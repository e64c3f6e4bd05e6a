// The dictionary: what the catalogue promises about every key, the labels that look like slips and are none, and how
// labels become shapes.
#include "mem_Alloc.h"
#include "mem_OutOfMemoryException.h"
#include "omi_BtreeIterator.h"
#include "shp_KeyBit.h"
#include "shp_Options.h"
#include "shp_Shape.h"
#include "shp_ShapeDictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

using Dictionary = omi_Singleton<shp_ShapeDictionary>;

/// Allocations are counted from 1; the one with the number `refused` fails.
struct Allocations {
    static inline int count = 0;
    static inline int refused = 0;

    explicit Allocations(int refusedNumber = 0) {
        count = 0;
        refused = refusedNumber;
        mem_SetFailureHook([](std::size_t) { return ++count == refused; });
    }
    ~Allocations() { mem_SetFailureHook(nullptr); }
};

/// Each test begins and ends without a dictionary.
class Catalogue : public testing::Test {
protected:
    void SetUp() override { Dictionary::Finalize(); }
    void TearDown() override { Dictionary::Finalize(); }

    static std::map<std::string, LongKey> keys() {
        std::map<std::string, LongKey> all;
        std::string previous;
        omi_BtreeIterator<cow_String, void *> it(Dictionary::Instance().Keys());
        for (bool isEntry = it.First(); isEntry; isEntry = it.Next()) {
            std::string const label = it.CurrentKey().CStr();
            EXPECT_LT(previous, label);
            all.emplace(label, *static_cast<LongKey const *>(it.CurrentValue()));
            previous = label;
        }
        return all;
    }

    static LongKey key(char const * label) {
        auto const * found = static_cast<LongKey const *>(Dictionary::Instance().Keys().ConstGet(label));
        EXPECT_NE(found, nullptr) << label;
        return found ? *found : LongKey();
    }

    static std::set<unsigned int> bits(LongKey const & key, unsigned int first = 0, unsigned int last = 127) {
        std::set<unsigned int> set;
        for (unsigned int bit = first; bit <= last; ++bit)
            if (key.hasBit(bit))
                set.insert(bit);
        return set;
    }

    static bool isKnown(char const * label) { return Dictionary::Instance().Keys().IsMember(label); }
};

constexpr bool isUnusedBit(unsigned int bit) {
    return (bit >= 24 && bit <= 29) || (bit >= 45 && bit <= 49) || bit == 73 || (bit >= 77 && bit <= 79) ||
           (bit >= 82 && bit <= 89) || (bit >= 94 && bit <= 99) || bit >= 113;
}

TEST_F(Catalogue, EveryKeyIsComplete) {
    std::map<unsigned int, int> perShape;
    std::set<std::string> withBitZero;
    auto const all = keys();
    EXPECT_EQ(all.size(), 862u);
    for (auto const & [label, k] : all) {
        SCOPED_TRACE(label);
        EXPECT_TRUE(std::none_of(label.begin(), label.end(), [](unsigned char c) { return std::islower(c); }));
        EXPECT_EQ(bits(k, shp_keyPoint, shp_keyPyramid).size(), 1u);
        EXPECT_EQ(bits(k, shp_keyIntPts1, shp_keyIntPts11).size(), 1u);
        EXPECT_EQ(bits(k, shp_keyNodes1, shp_keyNodes27).size(), 1u);
        EXPECT_NE(k.hasBit(shp_key2D), k.hasBit(shp_key3D));
        EXPECT_LE(bits(k, shp_keyClassBeam, shp_keyClassPointD).size(), 1u);
        for (unsigned int const bit : bits(k))
            EXPECT_FALSE(isUnusedBit(bit)) << bit;

        // A mode is the last digit of the label, and only of labels that are described in several directions or planes.
        bool const hasModes = k.hasBit(shp_keyCaxa) || k.hasBit(shp_keyLayeredSolid);
        int const mode = hasModes ? label.back() - '0' : 0;
        EXPECT_EQ(shp_Options(k).Mode(), mode);
        EXPECT_EQ(bits(k, shp_keyMode1, shp_keyMode4).size(), hasModes ? 1u : 0u);
        EXPECT_LE(mode, k.hasBit(shp_keyCaxa) ? 4 : 3);

        ++perShape[*bits(k, shp_keyPoint, shp_keyPyramid).begin()];
        if (k.hasBit(shp_keyZero))
            withBitZero.insert(label);
    }
    std::map<unsigned int, int> const expected = {{shp_keyARS, 4},     {shp_keyPoint, 37}, {shp_keyLine, 193},
                                                  {shp_keyTri, 107},   {shp_keyQuad, 288}, {shp_keyTetra, 40},
                                                  {shp_keyPyramid, 6}, {shp_keyPrism, 52}, {shp_keyHex, 135}};
    EXPECT_EQ(perShape, expected);
    EXPECT_EQ(withBitZero, (std::set<std::string>{"AC3D8", "ARSC"}));
}

TEST_F(Catalogue, LabelsThatLookLikeSlips) {
    EXPECT_FALSE(isKnown("CGPE10RHT"));
    EXPECT_EQ(bits(key("GPE10RHT")), bits(key("CGPE10RH")));
    for (char const * label : {"CPEG6MT", "CPEG6MHT"})
        EXPECT_EQ(bits(key(label)), bits(key("CPEG6")));
    EXPECT_TRUE(key("CPEG6M").hasBit(shp_keyModified));
    for (char const * label : {"DCOUP2D", "IDCOUP2D", "IDCOUP2P", "WARP2D3", "WARPF2D6", "WARPF2D8"})
        EXPECT_TRUE(key(label).hasBit(shp_key3D)) << label;
    EXPECT_EQ(bits(key("USI6O")), bits(key("GK3D6L")));
    EXPECT_EQ(bits(key("USI9O")), bits(key("S9R5")));
    EXPECT_TRUE(key("CYLSURF1").hasBit(shp_keyCylindrical));
    EXPECT_FALSE(key("CYLSURF2").hasBit(shp_keyCylindrical));
    EXPECT_EQ(bits(key("RNODE3D"), 50, 76), (std::set<unsigned int>{60, 61, 62, 63, 64}));

    struct Counts {
        char const * label;
        int nodes;
        int points;
    };
    for (Counts const & c : {Counts{"C3D8S", 8, 27}, Counts{"C3D15V", 18, 9}, Counts{"C3D27R", 27, 14},
                             Counts{"C3D27RC1", 27, 5}, Counts{"C3D27C1", 27, 9}, Counts{"C3D10I", 10, 11},
                             Counts{"C3D10IR", 10, 4}, Counts{"FC3D5", 5, 1}, Counts{"CONN2D2G", 1, 1}}) {
        shp_Options const options(key(c.label));
        EXPECT_EQ(options.NumNodes(), c.nodes) << c.label;
        EXPECT_EQ(options.NumIntPnts(), c.points) << c.label;
    }
}

TEST(Options, TakeTheLowestBitOfEachGroup) {
    unsigned int const two[] = {shp_keyPyramid, shp_keyPrism, shp_keyIntPts11, shp_keyIntPts27, shp_keyNodes27,
                                shp_keyNodes24, shp_keyMode4, shp_keyMode2,    shp_keyCaxa,     shp_key3D};
    LongKey key;
    key.setBits(10, two);
    shp_Options options(key);
    EXPECT_EQ(options.Shape(), 7);
    EXPECT_EQ(options.NumIntPnts(), 27);
    EXPECT_EQ(options.NumNodes(), 24);
    EXPECT_EQ(options.Mode(), 2);
    EXPECT_FALSE(options.Is2D());

    // The node count can be overruled; the key then says something else.
    options.SetNumNodes(20);
    shp_Options const copy(options);
    EXPECT_EQ(copy.NumNodes(), 20);
    EXPECT_TRUE(copy.IsType(shp_keyNodes24));
    EXPECT_FALSE(copy.IsType(shp_keyNodes20));
    for (int noBit : {-1, 128, 0x7fffffff})
        EXPECT_FALSE(copy.IsType(noBit)) << noBit;
}

TEST_F(Catalogue, ModeKeys) {
    for (char const * label : {"C3D6C1", "C3D6C2", "C3D15VHC2", "C3D8C4", "C3D8C", "CAXA4", "CAXA45", "SAXA10"})
        EXPECT_FALSE(isKnown(label)) << label;
    for (char const * label : {"C3D6C3", "C3D15VHC3", "C3D8C1", "C3D8C3", "CAXA4RH4", "SAXA24"})
        EXPECT_TRUE(isKnown(label)) << label;

    shp_ShapeDictionary & dictionary = Dictionary::Instance();
    unsigned int const plain[] = {shp_keyQuad, shp_keyNodes4};
    dictionary.BuildModeKeys("NONE", 0, 2, plain);
    dictionary.BuildModeKeys("NONE", -1, 2, plain);
    EXPECT_EQ(dictionary.Keys().Length(), 862);
    dictionary.BuildModeKeys("MANY", 1000, 2, plain); // there are four modes
    EXPECT_EQ(dictionary.Keys().Length(), 866);
    EXPECT_EQ(bits(key("MANY4")), (std::set<unsigned int>{shp_keyQuad, shp_keyNodes4, shp_keyMode4}));
    EXPECT_EQ(shp_Options(key("MANY4")).Mode(), 0); // neither layers nor planes: its mode means nothing

    unsigned int const prism[] = {shp_keyLayeredSolid, shp_keyPrism};
    dictionary.BuildModeKeys("PRISM", 0, 2, prism); // the count does not matter here
    EXPECT_EQ(dictionary.Keys().Length(), 867);
    EXPECT_TRUE(key("PRISM3").hasBit(shp_keyMode3));

    // 23 characters and no more: from there on the digit is lost, and all modes have the first one's label.
    std::string const longest(22, 'L');
    dictionary.BuildModeKeys(longest.c_str(), 2, 2, plain);
    EXPECT_TRUE(isKnown((longest + "1").c_str()) && isKnown((longest + "2").c_str()));
    std::string const tooLong(40, 'X');
    dictionary.BuildModeKeys(tooLong.c_str(), 4, 2, plain);
    EXPECT_EQ(dictionary.Keys().Length(), 870);
    EXPECT_TRUE(key(tooLong.substr(0, 23).c_str()).hasBit(shp_keyMode1));
}

TEST_F(Catalogue, AnExistingLabelKeepsItsKey) {
    shp_ShapeDictionary & dictionary = Dictionary::Instance();
    auto const before = bits(key("S4R"));
    unsigned int const other[] = {shp_keyHex, shp_keyNodes8, 128, 4000000000u};
    dictionary.BuildKey("S4R", 4, other);
    dictionary.GenerateShapeKeys();
    EXPECT_EQ(dictionary.Keys().Length(), 862);
    EXPECT_EQ(bits(key("S4R")), before);

    dictionary.BuildKey("NEW", 4, other);
    EXPECT_EQ(bits(key("NEW")), (std::set<unsigned int>{shp_keyHex, shp_keyNodes8}));
    dictionary.BuildKey("EMPTY", 0, nullptr);
    EXPECT_TRUE(bits(key("EMPTY")).empty());
    ASSERT_NE(dictionary.GetShape("empty"), nullptr);
    EXPECT_EQ(dictionary.GetShape("empty")->NumNodesPerElem(), 0);
}

TEST_F(Catalogue, EveryLabelBecomesOneShape) {
    shp_ShapeDictionary const & dictionary = Dictionary::Instance();
    std::map<shp_Shape const *, std::string> built;
    unsigned int expectedRef = 0;
    auto const all = keys();
    for (auto it = all.rbegin(); it != all.rend(); ++it) {
        std::string lower = it->first;
        std::transform(lower.begin(), lower.end(), lower.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        cow_String const asked(lower.c_str());
        shp_Shape const * shape = dictionary.GetShape(asked);
        ASSERT_NE(shape, nullptr) << lower;
        EXPECT_EQ(asked.Compare(lower.c_str()), 0); // the caller's text stays in lower case
        EXPECT_EQ(shape->label.CStr(), it->first);
        EXPECT_EQ(shape->shapeRef, expectedRef++);
        EXPECT_TRUE(built.emplace(shape, it->first).second);
        for (char const * unknown : {"", "C3D8Q", "C3D6C1", "C3D8 ", " C3D8"})
            EXPECT_EQ(dictionary.GetShape(unknown), nullptr);
    }
    for (auto const & [shape, label] : built)
        EXPECT_EQ(dictionary.GetShape(label.c_str()), shape);
}

TEST_F(Catalogue, FinalizeAndStartAgain) {
    Dictionary::Instance().GetShape("C3D8");
    EXPECT_EQ(Dictionary::Instance().GetShape("S4R")->shapeRef, 1u);
    unsigned int const bits[] = {shp_keyPoint, shp_keyNodes1};
    Dictionary::Instance().BuildKey("MINE", 2, bits);
    Dictionary::Finalize();
    Dictionary::Finalize(); // nothing left to do
    EXPECT_EQ(Dictionary::Instance().Keys().Length(), 862);
    EXPECT_EQ(Dictionary::Instance().GetShape("MINE"), nullptr);
    EXPECT_EQ(Dictionary::Instance().GetShape("S4R")->shapeRef, 0u);
}

TEST_F(Catalogue, ABuiltLabelCostsNoMemoryButItsUpperCaseCopy) {
    shp_ShapeDictionary const & dictionary = Dictionary::Instance();
    cow_String const lower("c3d20r");
    shp_Shape const * shape = dictionary.GetShape(lower);
    Allocations allocations;
    EXPECT_EQ(dictionary.GetShape(lower), shape);
    EXPECT_LE(Allocations::count, 1);
}

TEST_F(Catalogue, AFailureLeavesTheDictionaryUsable) {
    int needed = 0;
    {
        cow_String const label("c3d8c1");
        Dictionary::Instance();
        Allocations allocations;
        Dictionary::Instance().GetShape(label);
        needed = Allocations::count;
    }
    ASSERT_GT(needed, 2);
    for (int refused = 1; refused <= needed; ++refused) {
        Dictionary::Finalize();
        shp_ShapeDictionary const & dictionary = Dictionary::Instance();
        cow_String const label("c3d8c1");
        {
            Allocations allocations(refused);
            EXPECT_THROW(dictionary.GetShape(label), mem_OutOfMemoryException) << refused;
        }
        // The last allocation is that of the insertion: the shape stood, and its number is used up.
        EXPECT_EQ(dictionary.GetShape(label)->shapeRef, refused == needed ? 1u : 0u) << refused;
    }
}

TEST_F(Catalogue, AFailedStartCanBeTakenBack) {
    for (int refused : {1, 2, 3, 10, 500, 1500}) {
        {
            Allocations allocations(refused);
            EXPECT_THROW(Dictionary::Instance(), mem_OutOfMemoryException) << refused;
        }
        Dictionary::Finalize();
        EXPECT_EQ(Dictionary::Instance().Keys().Length(), 862);
        Dictionary::Finalize();
    }
}

} // namespace
