// Results on file were made with these tables. Laws say what must be true of them; this finds a change of an entry that
// no law can decide, such as an odd weight, a filler or a bit of a key.

#include "catalogued_shapes.h"
#include "table_digests.h"

#include <cstdint>
#include <map>
#include <string>

TEST(StoredTables, AreThoseThatResultsOnFileWereMadeWith) {
    TableDigests digests;
    forEachShape([&](shp_Shape const & shape) { addTables(digests, shape); });
    std::map<std::string, std::uint64_t> const known = {
        {"centres", 0x43e8e2a61df811d6},
        {"centroid weights", 0x77b53b4a5c144fdd},
        {"edge connectivity", 0x7b7a1162aaacb2ab},
        {"edge map", 0x1fac3ba6aa2572b8},
        {"edges of faces", 0x30c56309aa84e73},
        {"face centres", 0x6868678a266ada89},
        {"face connectivity", 0x807bb2d84d85b7e3},
        {"face node weights", 0xd31353ae9039ac6d},
        {"face weights", 0x61a564a8e402cd2d},
        {"flags", 0xa9db30991a8028bf},
        {"integration points", 0x12f36b294f0c28c4},
        {"keys", 0x22f94196bac47924},
        {"node locations", 0xb6586891a10ead8c},
        {"node weights", 0x6e7038d812689c95},
        {"nodes of edges", 0xacc24a17f51680a9},
        {"nodes of faces", 0xac3e6d5f5c16b090},
        {"numbers", 0x912933ef945def6e},
        {"points of faces", 0x81429219e90d4d87},
        {"reversal", 0x9371122a3261302},
        {"tangents", 0x35653e634a54d197},
        {"triangles", 0xf670831d2b4964de},
    };
    for (auto const & [kind, digest] : digests) {
        auto const entry = known.find(kind);
        EXPECT_TRUE(entry != known.end() && entry->second == digest.value())
            << "a table of " << kind << " has changed: 0x" << std::hex << digest.value();
    }
    EXPECT_EQ(known.size(), digests.size());
}
