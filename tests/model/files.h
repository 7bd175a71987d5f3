// The files and resources of item sources, and their printed form.
#pragma once

#include <string>

#include "sequence.h"
#include "support/temporary_folder.h"

namespace model {

class Files {
public:
    // Creates the files in a temporary folder.
    Files();
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;
    ~Files();

    WideText PathOf(File file) const;
    bool Exists(File file) const { return file <= File::Damaged; }
    // By path, as a text for the platform.
    bool IsFile(const WideText& path) const;
    bool IsRooted(const WideText& path) const;
    bool Exists(const WideText& path) const;
    WideText ShortPathOf(const WideText& path) const;
    // "PNG file 2x3"
    std::string ShownPicture(const WideText& path) const;

    // A fault's call, with "@" replaced by the path of the long font.
    std::string WithPath(std::string call) const;

    // The URI of a path.
    static std::string UriOf(const WideText& path);

private:
    std::string NameOf(File file) const;
    File Find(const WideText& path) const;

    const TemporaryFolder folder_;
};

// The resources of type PNG in the module of the items.
inline constexpr std::uint16_t kSmallResource = 101;
inline constexpr std::uint16_t kLargeResource = 65535;
inline constexpr std::uint16_t kDamagedResource = 1;
inline constexpr std::uint64_t kModule = 0x8000'0000'0001'0000;

struct Resource {
    std::uint32_t size = 0;  // 0: missing
    std::string shown = {};
};
std::uint64_t AddResources();  // to a fresh simulator; returns the module
Resource ResourceOf(std::uint64_t identifier);

std::string Utf8(const WideText& text);

}  // namespace model
