#include "simulator/system/files.h"

namespace dialsim {

std::optional<std::string> ReadFile(const std::string& path) {
    std::FILE* file = OpenFile(path, "rb");
    if (file == nullptr) {
        return {};
    }
    std::string content;
    char bytes[4096];
    while (const std::size_t count = std::fread(bytes, 1, sizeof bytes, file)) {
        content.append(bytes, count);
    }
    const bool failed = std::ferror(file) != 0;
    std::fclose(file);
    return failed ? std::nullopt : std::optional(content);
}

bool WriteFile(const std::string& path, const std::string& content) {
    std::FILE* file = OpenFile(path, "wb");
    if (file == nullptr) {
        return false;
    }
    const bool written = std::fwrite(content.data(), 1, content.size(), file) == content.size();
    return std::fclose(file) == 0 && written;
}

}  // namespace dialsim
