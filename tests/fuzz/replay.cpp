// Replays the corpus files of folders as an ordinary test. The last name on standard error is the input of a
// crash.
#include <cstdio>
#include <filesystem>
#include <set>
#include <vector>

#include "fuzz.h"

namespace {

// Sorted by name.
std::set<std::filesystem::path> FilesIn(const char* folder) {
    const std::filesystem::directory_iterator files(folder);
    return {begin(files), end(files)};
}

std::vector<std::uint8_t> Read(const std::filesystem::path& path) {
    std::vector<std::uint8_t> bytes;
    if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
        for (int next = std::fgetc(file); next != EOF; next = std::fgetc(file)) {
            bytes.push_back(static_cast<std::uint8_t>(next));
        }
        std::fclose(file);
    }
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    // Discards the library's error lines.
    if (std::freopen("/dev/null", "w", stdout) == nullptr) {
        return 1;
    }
    std::size_t replayed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const std::filesystem::path& path : FilesIn(argv[i])) {
            std::fprintf(stderr, "%s\n", path.c_str());
            const std::vector<std::uint8_t> bytes = Read(path);
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
            ++replayed;
        }
    }
    std::fprintf(stderr, "%zu inputs replayed\n", replayed);
    return replayed > 0 ? 0 : 1;
}
