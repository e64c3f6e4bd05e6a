// The text reports: of one label as they stand, of all labels by the digests of what was once compared with a second
// writer.

#include "aio_ostream.h"
#include "catalogued_shapes.h"
#include "table_digests.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>

namespace {

/// Counts how often it is flushed.
struct CountingBuffer : std::stringbuf {
    std::ptrdiff_t flushes = 0;
    int sync() override { return ++flushes, 0; }
};

/// What `print` writes to a stream: complete lines, each of them flushed.
template <class Print> std::string written(Print print) {
    CountingBuffer buffer;
    std::ostream target(&buffer);
    aio_ostream stream(target);
    print(stream);
    std::string const text = buffer.str();
    EXPECT_TRUE(text.empty() || text.back() == '\n');
    EXPECT_EQ(buffer.flushes, std::count(text.begin(), text.end(), '\n'));
    return text;
}

/// The same of a report of one shape.
template <class Element> std::string reported(Element const & element, void (Element::*print)(aio_ostream &) const) {
    return written([&](aio_ostream & stream) { (element.*print)(stream); });
}

int count(std::string const & text, std::string const & part) {
    int found = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

std::uint64_t digestOf(std::string const & text) {
    Digest digest;
    for (char const letter : text)
        digest.add(letter);
    return digest.value();
}

/// The text with "@" for each address.
std::string withoutAddresses(std::string text) {
    for (auto at = text.find("0x"); at != std::string::npos; at = text.find("0x", at))
        text.replace(at, text.find('\n', at) - at, "@");
    return text;
}

} // namespace

// Each report of one label, for all labels of a fresh dictionary, which numbers its shapes in that order.
// What was compared once may change by no letter.
TEST(Reports, OfEveryLabelAreAsTheyWere) {
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
    constexpr struct {
        void (shp_Shape::*print)(aio_ostream &) const;
        std::uint64_t digest;
    } known[] = {{&shp_Shape::PrintMembersInTable, 0x3ed54c030a3e72f4},
                 {&shp_Shape::PrintMembers, 0xf9b43e28d340b998},
                 {&shp_Shape::PrintConnectivityTable, 0x792eaad34fed49bb},
                 {&shp_Shape::PrintWeights, 0x498578e43eaebbe9},
                 {&shp_Shape::PrintInverseTable, 0x6a80466617055a6e}};
    for (auto const & [print, digest] : known) {
        std::string all;
        forEachShape([&, print = print](shp_Shape const & s) { all += reported(s, print); });
        EXPECT_EQ(digestOf(withoutAddresses(all)), digest);
    }
    shp_Shape const & s = shapeOf("C3D8");
    std::ostringstream address;
    address << "Nodes per edge: " << static_cast<void const *>(s.nodesPerEdgeTbl) << '\n';
    EXPECT_EQ(count(reported(s, &shp_Shape::PrintMembers), address.str()), 1);
}

TEST(Reports, OfTheCatalogueAreAsTheyWere) {
    omi_SingletonBase<shp_ShapeDictionary>::Finalize();
    std::string const list = reported(dictionary(), &shp_ShapeDictionary::PrintShape);
    std::string expected;
    forEachShape([&](shp_Shape const & s) {
        expected += "Version 5 Type: " + std::string(s.label.CStr()) + '\n' + reported(s, &shp_Shape::PrintMembers);
    });
    EXPECT_TRUE(list == expected);
    EXPECT_EQ(digestOf(reported(dictionary(), &shp_ShapeDictionary::PrintLabelToNodecountTable)), 0xc78bbc7537e07688u);
    // The stream stays as the last step set it: left behind the table, right behind a row.
    EXPECT_EQ(digestOf(written([](aio_ostream & stream) {
                  dictionary().PrintShapeTable(stream);
                  stream << aio_setwidth(3) << 7 << "|" << aio_endl;
                  shapeOf("C3D8").PrintMembersInTable(stream);
                  stream << aio_setwidth(3) << 7 << "|" << aio_endl;
              })),
              0x708b8af5efd662e1u);
}

// What no label lacks, and a count of edge uses that none has: seven masks in the last row share it with what follows.
TEST(Reports, SayOrLeaveOutWhatAnElementLacks) {
    constexpr int edgesOfFaces[] = {4, 3, 4, 4};
    shp_Topology bare(*static_cast<LongKey const *>(dictionary().Keys().ConstGet("C3D8")));
    bare.edgesPerFaceTbl = edgesOfFaces;
    for (int faces = 2; faces <= 4; ++faces) {
        bare.numFacesPerElem = faces;
        std::string const text = written([&](aio_ostream & stream) { shapeOf("C3D8").PrintInverse(bare, stream); });
        EXPECT_EQ(count(text, " ---"), faces == 3 ? 0 : 1);
    }
    bare.intPtLocationTable = bare.faceWeights = nullptr;
    float * const owned = std::exchange(bare.intPointNodeWeights, nullptr);
    std::string const text = reported(bare, &shp_Topology::PrintWeights);
    bare.intPointNodeWeights = owned;
    EXPECT_EQ(count(text, "-1 1 1\n   Face Centroid"), 1);
    EXPECT_EQ(count(text, "Weights\n No Integration Point Weights\n   Node Weights\n"), 1);
    EXPECT_EQ(count(text, "Face Weights"), 0);
    EXPECT_EQ(reported(shp_Topology(LongKey()), &shp_Topology::PrintConnectivityTable), "\n\n\n\n\n");
    bare.edgesPerFaceTbl = nullptr;
    EXPECT_EQ(count(reported(bare, &shp_Topology::PrintTopology), "\n"), 15);
}
