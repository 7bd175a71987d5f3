// The files and resources that items are made from, and what the platform shows of them.
#pragma once

#include <string>

#include "sequence.h"

namespace model {

class Files {
public:
    // In a folder of their own.
    Files();
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;
    ~Files();

    WideText PathOf(File file) const;
    bool Exists(File file) const { return file <= File::Damaged; }
    // By path, for what reaches the platform as a text.
    bool IsFile(const WideText& path) const;
    bool IsRooted(const WideText& path) const;
    bool Exists(const WideText& path) const;
    WideText ShortPathOf(const WideText& path) const;
    // "PNG file 2x3"
    std::string ShownPicture(const WideText& path) const;

    // A fault's call with the path of the long font in the place of "@".
    std::string WithPath(std::string call) const;

    // The uniform resource identifier of a path.
    static std::string UriOf(const WideText& path);

private:
    std::string NameOf(File file) const;
    File Find(const WideText& path) const;

    std::string folder_;
};

// The resources with the type PNG of the module that items name.
inline constexpr std::uint16_t kSmallResource = 101;
inline constexpr std::uint16_t kLargeResource = 65535;
inline constexpr std::uint16_t kDamagedResource = 1;
inline constexpr std::uint64_t kModule = 0x8000'0000'0001'0000;

struct Resource {
    std::uint32_t size = 0;  // 0: there is none
    std::string shown = {};
};
std::uint64_t AddResources();  // to a fresh simulator; the module
Resource ResourceOf(std::uint64_t identifier);

std::string Utf8(const WideText& text);

}  // namespace model
