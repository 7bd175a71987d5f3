// Full paths of modules, of any length.
#pragma once

#include <windows.h>

#include <string>

namespace dialsim {

constexpr DWORD kLongestPath = 32768;

// Null: the program.
inline std::wstring PathOf(HMODULE module) {
    std::wstring path(kLongestPath, L'\0');
    path.resize(GetModuleFileNameW(module, path.data(), kLongestPath));
    return path;
}

}  // namespace dialsim
