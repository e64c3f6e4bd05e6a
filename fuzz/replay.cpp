// Runs one fuzz target over files, once each: the corpus as a test, or the input of a crash under a debugger.
//
//     REPLAY_PROGRAM FILE_OR_DIRECTORY...

#include "input.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

bool replay(fs::path const & file) {
    std::ifstream stream(file, std::ios::binary);
    std::vector<char> const content{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.is_open() || stream.bad()) {
        std::fprintf(stderr, "%s cannot be read\n", file.c_str());
        return false;
    }
    std::vector<std::uint8_t> const bytes(content.begin(), content.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    return true;
}

std::vector<fs::path> filesAt(fs::path const & place) {
    if (!fs::is_directory(place))
        return {place};
    std::vector<fs::path> files;
    for (fs::directory_entry const & entry : fs::directory_iterator(place))
        files.push_back(entry.path());
    return files;
}

} // namespace

int main(int argc, char ** argv) {
    int count = 0;
    for (int i = 1; i < argc; ++i)
        for (fs::path const & file : filesAt(argv[i])) {
            if (!replay(file))
                return 1;
            ++count;
        }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
