// The dictionary: what the catalogue promises about every key, the labels that look like slips and are none, and how
// labels become shapes.

#include "catalogued_shapes.h"
#include "memory_refusals.h"
#include "shp_KeyBit.h"
#include "shp_Options.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

/// Each test begins and ends without a dictionary.
class Catalogue : public testing::Test {
protected:
    void SetUp() override { omi_SingletonBase<shp_ShapeDictionary>::Finalize(); }
    void TearDown() override { omi_SingletonBase<shp_ShapeDictionary>::Finalize(); }
};

bool isKnown(std::string const & label) {
    return dictionary().Keys().IsMember(label.c_str());
}

std::set<int> bits(shp_Options const & options, int first = 0, int last = 127) {
    std::set<int> set;
    for (int bit = first; bit <= last; ++bit)
        if (options.IsType(bit))
            set.insert(bit);
    return set;
}

std::set<int> bits(std::string const & label) {
    return bits(shapeOf(label.c_str()).options);
}

constexpr bool isUnusedBit(int bit) {
    return (bit >= 24 && bit <= 29) || (bit >= 45 && bit <= 49) || bit == 73 || (bit >= 77 && bit <= 79) ||
           (bit >= 82 && bit <= 89) || (bit >= 94 && bit <= 99) || bit >= 113;
}

TEST_F(Catalogue, EveryKeyIsComplete) {
    EXPECT_EQ(dictionary().Keys().Length(), 862);
    std::set<std::string> withBitZero;
    std::string previous;
    forEachShape([&](shp_Shape const & shape) {
        shp_Options const & key = shape.options;
        std::string const label = shape.label.CStr();
        EXPECT_LT(previous, label);
        previous = label;
        EXPECT_TRUE(std::none_of(label.begin(), label.end(), [](unsigned char c) { return std::islower(c); }));
        EXPECT_EQ(bits(key, shp_keyPoint, shp_keyPyramid).size(), 1u);
        EXPECT_EQ(bits(key, shp_keyIntPts1, shp_keyIntPts11).size(), 1u);
        EXPECT_EQ(bits(key, shp_keyNodes1, shp_keyNodes27).size(), 1u);
        EXPECT_NE(key.IsType(shp_key2D), key.IsType(shp_key3D));
        EXPECT_LE(bits(key, shp_keyClassBeam, shp_keyClassPointD).size(), 1u);
        for (int const bit : bits(key))
            EXPECT_FALSE(isUnusedBit(bit)) << bit;

        // A mode is the last digit of the label, and only of labels that are described in several directions or planes.
        bool const hasModes = key.IsType(shp_keyCaxa) || key.IsType(shp_keyLayeredSolid);
        int const mode = hasModes ? label.back() - '0' : 0;
        EXPECT_EQ(key.Mode(), mode);
        EXPECT_EQ(bits(key, shp_keyMode1, shp_keyMode4).size(), hasModes ? 1u : 0u);
        EXPECT_LE(mode, key.IsType(shp_keyCaxa) ? 4 : 3);

        if (key.IsType(shp_keyZero))
            withBitZero.insert(label);

        // The number behind 1D, 2D or 3D is that of the nodes; cohesive elements with pressure have half as many more.
        for (char const * space : {"1D", "2D", "3D"})
            if (auto const at = label.find(space); at != label.npos && std::isdigit(label.c_str()[at + 2])) {
                int const nodes = std::stoi(label.substr(at + 2));
                bool const hasMore = label.starts_with("COD") || (label.starts_with("COH") && label.ends_with("P"));
                EXPECT_EQ(key.NumNodes(), label.ends_with("G")          ? 1
                                          : label.starts_with("C3D15V") ? 18
                                          : hasMore                     ? nodes * 3 / 2
                                                                        : nodes);
            }
    });
    EXPECT_EQ(withBitZero, (std::set<std::string>{"AC3D8", "ARSC"}));
}

TEST_F(Catalogue, LabelsThatLookLikeSlips) {
    EXPECT_FALSE(isKnown("CGPE10RHT"));
    EXPECT_EQ(bits("GPE10RHT"), bits("CGPE10RH"));
    EXPECT_EQ(bits("CPEG6MT"), bits("CPEG6"));
    EXPECT_EQ(bits("CPEG6MHT"), bits("CPEG6"));
    EXPECT_TRUE(shapeOf("CPEG6M").options.IsType(shp_keyModified));
    for (char const * label : {"DCOUP2D", "IDCOUP2D", "IDCOUP2P", "WARP2D3", "WARPF2D6", "WARPF2D8"})
        EXPECT_TRUE(shapeOf(label).options.IsType(shp_key3D)) << label;
    EXPECT_EQ(bits("USI6O"), bits("GK3D6L"));
    EXPECT_EQ(bits("USI9O"), bits("S9R5"));
    EXPECT_TRUE(shapeOf("CYLSURF1").options.IsType(shp_keyCylindrical));
    EXPECT_FALSE(shapeOf("CYLSURF2").options.IsType(shp_keyCylindrical));
    EXPECT_EQ(bits(shapeOf("RNODE3D").options, 50, 76), (std::set<int>{60, 61, 62, 63, 64}));
}

TEST(Options, TakeTheLowestBitOfEachGroup) {
    shp_Options options(keyOf({shp_keyPyramid, shp_keyPrism, shp_keyIntPts11, shp_keyIntPts27, shp_keyNodes27,
                               shp_keyNodes24, shp_keyMode4, shp_keyMode2, shp_keyCaxa, shp_key3D}));
    EXPECT_EQ(options.Shape(), 7);
    EXPECT_EQ(options.NumIntPnts(), 27);
    EXPECT_EQ(options.NumNodes(), 24);
    EXPECT_EQ(options.Mode(), 2);
    EXPECT_FALSE(options.Is2D());
    EXPECT_EQ(shp_Options(keyOf({shp_keyQuad, shp_keyMode4})).Mode(), 0); // neither layers nor planes

    // The node count can be overruled; the key then says something else.
    options.SetNumNodes(20);
    EXPECT_EQ(shp_Options(options).NumNodes(), 20);
    EXPECT_TRUE(options.IsType(shp_keyNodes24));
    for (int other : {int{shp_keyNodes20}, -1, 128, 0x7fffffff})
        EXPECT_FALSE(options.IsType(other)) << other;
}

TEST_F(Catalogue, ModeKeys) {
    for (char const * label : {"C3D6C1", "C3D6C2", "C3D15VHC2", "C3D8C4", "C3D8C", "CAXA4", "CAXA45", "SAXA10"})
        EXPECT_FALSE(isKnown(label)) << label;
    for (char const * label : {"C3D6C3", "C3D15VHC3", "C3D8C1", "C3D8C3", "CAXA4RH4", "SAXA24"})
        EXPECT_TRUE(isKnown(label)) << label;

    std::string const longest(22, 'L'), tooLong(40, 'X');
    unsigned int const plain[] = {shp_keyQuad, shp_keyNodes4};
    unsigned int const prism[] = {shp_keyLayeredSolid, shp_keyPrism};
    dictionary().BuildModeKeys("NONE", 0, 2, plain);
    dictionary().BuildModeKeys("NONE", -1, 2, plain);
    dictionary().BuildModeKeys("MANY", 1000, 2, plain); // there are four modes
    dictionary().BuildModeKeys("PRISM", 0, 2, prism);   // the count does not matter here
    // 23 characters and no more: from there on the digit is lost, and all modes have the first one's label.
    dictionary().BuildModeKeys(longest.c_str(), 2, 2, plain);
    dictionary().BuildModeKeys(tooLong.c_str(), 4, 2, plain);
    EXPECT_EQ(dictionary().Keys().Length(), 862 + 4 + 1 + 2 + 1);
    EXPECT_EQ(bits("MANY4"), (std::set<int>{shp_keyQuad, shp_keyNodes4, shp_keyMode4}));
    EXPECT_EQ(bits("PRISM3").count(shp_keyMode3), 1u);
    EXPECT_EQ(bits(longest + "2").count(shp_keyMode2), 1u);
    EXPECT_EQ(bits(tooLong.substr(0, 23)).count(shp_keyMode1), 1u);
}

TEST_F(Catalogue, AnExistingLabelKeepsItsKey) {
    unsigned int const other[] = {shp_keyHex, shp_keyNodes8, 128, 4000000000u};
    dictionary().BuildKey("S4R", 4, other);
    dictionary().GenerateShapeKeys();
    EXPECT_EQ(dictionary().Keys().Length(), 862);
    EXPECT_EQ(shapeOf("S4R").options.Shape(), shp_keyQuad);

    dictionary().BuildKey("NEW", 4, other);
    EXPECT_EQ(bits("NEW"), (std::set<int>{shp_keyHex, shp_keyNodes8}));
    dictionary().BuildKey("EMPTY", 0, nullptr);
    EXPECT_TRUE(bits("EMPTY").empty());
    EXPECT_EQ(shapeOf("empty").NumNodesPerElem(), 0);
}

TEST_F(Catalogue, EveryLabelBecomesOneShapeNumberedByItsFirstUse) {
    cow_String const lastLabel("warpf2d8");
    shp_Shape const * const first = dictionary().GetShape(lastLabel);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->label.Compare("WARPF2D8"), 0);
    EXPECT_EQ(lastLabel.Compare("warpf2d8"), 0); // the caller's text stays in lower case
    std::set<shp_Shape const *> built;
    forEachShape([&](shp_Shape const & shape) {
        std::string lower = shape.label.CStr();
        std::transform(lower.begin(), lower.end(), lower.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        EXPECT_EQ(dictionary().GetShape(lower.c_str()), &shape);
        EXPECT_EQ(shape.shapeRef, &shape == first ? 0 : built.size() + 1);
        built.insert(&shape);
        for (char const * unknown : {"", "C3D8Q", "C3D6C1", "C3D8 ", " C3D8"})
            EXPECT_EQ(dictionary().GetShape(unknown), nullptr);
    });
    EXPECT_EQ(built.size(), 862u);
}

TEST_F(Catalogue, AddedLabelsOfAnyBytesAndAnyNumberAreFound) {
    // Of bytes at and beside the borders of the letters and of ASCII, more than any table has been made for.
    constexpr char bytes[] = "AaZz@`[{M1 _\x7f\x80\xc1\xe1\xff\x01";
    auto const toUpper = [](std::string text) {
        for (char & c : text)
            c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        return text;
    };
    unsigned int const key[] = {shp_keyPoint, shp_keyNodes1, shp_keyIntPts1, shp_key3D};
    std::mt19937 engine(5);
    std::set<std::string> labels;
    for (int i = 0; i < 6000; ++i) {
        std::string label(engine() % 13, ' ');
        for (char & c : label)
            c = bytes[engine() % (i % 3 == 0 ? sizeof bytes - 1 : 12)];
        labels.insert(label);
        if (i % 4 != 0)
            dictionary().BuildKey(i % 4 == 1 ? label.c_str() : toUpper(label).c_str(), 4, key);
    }
    std::map<std::string, shp_Shape const *> shapes;
    for (int round = 0; round < 2; ++round)
        for (std::string const & label : labels) {
            std::string const name = toUpper(label);
            shp_Shape const * const shape = dictionary().GetShape(label.c_str());
            EXPECT_EQ(shape != nullptr, isKnown(name)) << label;
            EXPECT_EQ(shapes.emplace(name, shape).first->second, shape) << label;
            EXPECT_TRUE(!shape || shape->label == name.c_str()) << label;
        }
    EXPECT_GT(std::count_if(shapes.begin(), shapes.end(), [](auto const & entry) { return entry.second; }), 2500);
}

TEST_F(Catalogue, AShapeThatCannotBeKeptUsesUpItsNumber) {
    dictionary();
    std::vector<unsigned int> numbers; // at the next request, after the failure of the first allocation, the second...
    refuseEachAllocation([] { shapeOf("C3D8C1"); },
                         [&] {
                             numbers.push_back(shapeOf("C3D8C1").shapeRef);
                             omi_SingletonBase<shp_ShapeDictionary>::Finalize();
                             dictionary();
                         });
    ASSERT_GT(numbers.size(), 2u);
    std::vector<unsigned int> expected(numbers.size());
    expected.back() = 1; // the insertion: the shape stood
    EXPECT_EQ(numbers, expected);
}

} // namespace
