// The absolute URI of a file.
#pragma once

#include <algorithm>
#include <cstdio>
#include <string>

// From an absolute path in UTF-8.
inline std::string FileUriOf(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    std::string uri = path.starts_with('/') ? "file://" : "file:///";
    for (const char c : path) {
        const bool is_plain =
            c > 0x20 && c < 0x7F && std::string("\"<>^`{|}%?#").find(c) == std::string::npos;
        char escape[4] = {c};
        if (!is_plain) {
            std::snprintf(escape, sizeof escape, "%%%02X", static_cast<unsigned char>(c));
        }
        uri += escape;
    }
    return uri;
}
