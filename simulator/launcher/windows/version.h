// Versions of loaded modules, from their version resource.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <string>

namespace dialsim {

struct Version {
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t patch = 0;

    std::string Text() const {
        return std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(patch);
    }
    // Before 1.0 a minor version may change the interface.
    bool Matches(const Version& other) const { return major == other.major && minor == other.minor; }
};

// 0.0.0 without a version resource.
inline Version VersionOf(HMODULE module) {
    // VS_VERSIONINFO: three lengths, its name and padding, then VS_FIXEDFILEINFO.
    constexpr std::size_t kFixedInfo = 40;
    const HRSRC found =
        FindResourceW(module, MAKEINTRESOURCEW(VS_VERSION_INFO), MAKEINTRESOURCEW(16));  // RT_VERSION
    if (found == nullptr || SizeofResource(module, found) < kFixedInfo + sizeof(VS_FIXEDFILEINFO)) {
        return {};
    }
    VS_FIXEDFILEINFO info{};
    std::memcpy(&info, static_cast<const char*>(LockResource(LoadResource(module, found))) + kFixedInfo,
                sizeof info);
    return {HIWORD(info.dwFileVersionMS), LOWORD(info.dwFileVersionMS), HIWORD(info.dwFileVersionLS)};
}

}  // namespace dialsim
