// A built shape is read by any number of threads: run under ThreadSanitizer, and compared with a single reader.

#include "catalogued_shapes.h"
#include "operation_digests.h"

#include <thread>

TEST(ConcurrentReaders, OfAllLabelsSeeWhatASingleReaderSees) {
    std::vector<shp_Shape const *> shapes;
    forEachShape([&](shp_Shape const & shape) { shapes.push_back(&shape); });
    auto const readAll = [&] {
        Digest digest;
        for (shp_Shape const * shape : shapes)
            addOperations(digest, *shape);
        return digest.value();
    };
    std::vector<std::uint64_t> seen(8);
    std::vector<std::thread> readers;
    for (std::uint64_t & result : seen)
        readers.emplace_back([&] { result = readAll(); });
    for (std::thread & reader : readers)
        reader.join();
    EXPECT_EQ(seen, std::vector(seen.size(), readAll()));
}
