#include "simulator/system/files.h"

#include <windows.h>

#include <cstdio>

namespace dialsim {

bool IsAbsolutePath(WideView path) {
    const bool drive = path.size() > 2 && path[1] == L':' && (path[2] == L'\\' || path[2] == L'/') &&
                       ((path[0] >= L'A' && path[0] <= L'Z') || (path[0] >= L'a' && path[0] <= L'z'));
    return drive || path.starts_with(L"\\\\");
}

bool IsFile(const WideString& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::string ReadPrefix(const WideString& path, std::size_t count) {
    std::FILE* file = _wfopen(path.c_str(), L"rb");
    if (file == nullptr) {
        return {};
    }
    std::string bytes(count, '\0');
    bytes.resize(std::fread(bytes.data(), 1, count, file));
    std::fclose(file);
    return bytes;
}

std::FILE* OpenFile(const std::string& path, const char* mode) {
    return _wfopen(Widen(path).c_str(), Widen(mode).c_str());
}

}  // namespace dialsim
