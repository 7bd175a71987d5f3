#include "simulator/system/files.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <map>

#include "simulator/system/native/short_paths.h"
#include "simulator/system/reset.h"
#include "sync.h"

namespace dialsim {

namespace {

Mutex short_paths_mutex;
std::map<std::string, std::string>& long_of_short = *new std::map<std::string, std::string>;

const ResetAction clear_short_paths(ResetPhase::State, [] {
    const std::lock_guard guard(short_paths_mutex);
    long_of_short.clear();
});

bool Exists(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0;
}

bool IsShortNameCharacter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-' || c == '~';
}

// At most `length` characters, all allowed in a short name.
bool IsShortNamePart(const std::string& text, std::size_t length) {
    return text.size() <= length && std::all_of(text.begin(), text.end(), IsShortNameCharacter);
}

std::string ToShortNamePart(const std::string& text, std::size_t length) {
    std::string part;
    for (const char c : text) {
        if (part.size() < length && c != '.' && c != ' ') {
            part += c >= 'a' && c <= 'z'      ? static_cast<char>(c - 'a' + 'A')
                    : IsShortNameCharacter(c) ? c
                                              : '_';
        }
    }
    return part;
}

// A number distinguishes short names.
std::string ShortName(const std::string& name, int number) {
    const std::size_t dot = std::min(name.rfind('.'), name.size());
    const std::string stem = name.substr(0, dot);
    const std::string extension = name.substr(std::min(dot + 1, name.size()));
    if (IsShortNamePart(stem, 8) && IsShortNamePart(extension, 3)) {
        return name;
    }
    const std::string suffix = "~" + std::to_string(number);
    return ToShortNamePart(stem, 8 - suffix.size()) + suffix +
           (extension.empty() ? "" : "." + ToShortNamePart(extension, 3));
}

// Requires a short `parent`.
std::string ShortChild(const std::string& parent, const std::string& path, const std::string& name) {
    for (int number = 1;; ++number) {
        const std::string short_name = ShortName(name, number);
        std::string candidate = parent + short_name;
        const auto known = long_of_short.find(candidate);
        const bool taken = known != long_of_short.end() ? known->second != path : Exists(candidate);
        if (short_name == name) {
            return candidate;
        }
        if (!taken) {
            long_of_short.emplace(candidate, path);
            return candidate;
        }
    }
}

}  // namespace

std::string ShortPath(const std::string& path) {
    const std::lock_guard guard(short_paths_mutex);
    if (long_of_short.contains(path)) {
        return path;
    }
    std::string result;
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        if (const std::string name = path.substr(begin, end - begin);
            !name.empty() && name != "." && name != "..") {
            result = ShortChild(result, path.substr(0, end), name);
        } else {
            result += name;
        }
        if (end < path.size()) {
            result += '/';
        }
        begin = end + 1;
    }
    if (result != path) {
        long_of_short.emplace(result, path);
    }
    return result;
}

std::string LongPath(const std::string& path) {
    const std::lock_guard guard(short_paths_mutex);
    const auto found = long_of_short.find(path);
    return found == long_of_short.end() ? path : found->second;
}

bool PathExists(const std::string& path) { return Exists(LongPath(path)); }

bool IsAbsolutePath(WideView path) { return path.starts_with(u'/'); }

bool IsFile(const WideString& path) {
    struct stat status {};
    return stat(LongPath(Narrow(path)).c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string ReadPrefix(const WideString& path, std::size_t count) {
    std::FILE* file = std::fopen(LongPath(Narrow(path)).c_str(), "rb");
    if (file == nullptr) {
        return {};
    }
    std::string bytes(count, '\0');
    bytes.resize(std::fread(bytes.data(), 1, count, file));
    std::fclose(file);
    return bytes;
}

std::FILE* OpenFile(const std::string& path, const char* mode) { return std::fopen(path.c_str(), mode); }

}  // namespace dialsim
