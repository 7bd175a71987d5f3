// Picture files and resources as item sources.
#pragma once

#include <brindle.h>

#include <cstdint>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

#include "simulator/dialsim.h"
#include "support/constants.h"
#include "support/temporary_folder.h"
#include "support/utf16.h"

// A picture of 2 by 3 pixels: a PNG header with its size.
inline const std::vector<std::uint8_t>& SmallPng() {
    static const std::vector<std::uint8_t> bytes = {
        0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I',  'H',  'D',  'R', 0,
        0,    0,   2,   0,   0,    0,    3,    8,    6, 0, 0, 0,  0xB9, 0xEA, 0xDE, 0x81};
    return bytes;
}

// A temporary file; the destructor deletes it.
class TemporaryFile {
public:
    // Bytes are a string or a vector.
    template <class Bytes>
    TemporaryFile(const std::string& name, const Bytes& bytes)
        : folder_(), name_(name), wide_path_(folder_.WidePathOf(name)), path_(folder_.PathOf(name)) {
        folder_.Write(name_, bytes);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { folder_.Remove(name_); }

    const BrindleChar* Path() const { return wide_path_.c_str(); }
    // In UTF-8, as the simulator's functions expect it.
    const std::string& NarrowPath() const { return path_; }
    const TemporaryFolder& folder() const { return folder_; }
    const std::string& name() const { return name_; }

private:
    const TemporaryFolder folder_;
    const std::string name_;
    const WideText wide_path_;
    const std::string path_;
};

// A module with a picture of 2 by 3 pixels under this identifier; on Windows pictures.rc defines it.
inline constexpr std::uint16_t kPngResource = 101;
inline std::uint64_t ModuleWithPng([[maybe_unused]] std::uint16_t resource = kPngResource) {
#ifdef _WIN32
    return reinterpret_cast<std::uint64_t>(GetModuleHandleA(nullptr));
#else
    dialsim_add_resource(kModule, resource, "PNG", SmallPng().data(),
                         static_cast<std::uint32_t>(SmallPng().size()));
    return kModule;
#endif
}
