#include "simulator/system/files.h"

#include <algorithm>
#include <charconv>

namespace dialsim {

namespace {

std::string Unescaped(std::string_view text) {
    std::string unescaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned code = 0;
        const std::string_view digits = text.substr(i + 1, 2);
        const char* const end = digits.data() + digits.size();
        if (text[i] == '%' && digits.size() == 2 &&
            std::from_chars(digits.data(), end, code, 16).ptr == end) {
            unescaped += static_cast<char>(code);
            i += 2;
        } else {
            unescaped += text[i];
        }
    }
    return unescaped;
}

}  // namespace

std::string PathOfFileUri(std::string_view uri) {
    if (!uri.starts_with("file://")) {
        return {};
    }
    // file:///C:/folder/file or file://server/share/file
    uri.remove_prefix(uri.starts_with("file:///") ? 8 : 5);
    std::string path = Unescaped(uri);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

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
