// Picture files and resources as item sources.
#pragma once

#include <brindle.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

#include "simulator/dialsim.h"
#include "support/constants.h"
#include "support/utf16.h"

// A picture of 2 by 3 pixels: a PNG header with its size.
inline const std::vector<std::uint8_t>& SmallPng() {
    static const std::vector<std::uint8_t> bytes = {
        0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I',  'H',  'D',  'R', 0,
        0,    0,   2,   0,   0,    0,    3,    8,    6, 0, 0, 0,  0xB9, 0xEA, 0xDE, 0x81};
    return bytes;
}

// A temporary file with a name unique to the process; the destructor deletes it.
class TemporaryFile {
public:
    // Bytes are a string or a vector.
    template <class Bytes>
    TemporaryFile(const std::string& name, const Bytes& bytes)
        : path_(Folder() + std::to_string(std::random_device()()) + name) {
        std::FILE* file = std::fopen(path_.c_str(), "wb");
        if (file == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size() ||
            std::fclose(file) != 0) {
            std::abort();  // a test of a truncated picture would pass
        }
        wide_.assign(path_.begin(), path_.end());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::remove(path_.c_str()); }

    const BrindleChar* Path() const { return wide_.c_str(); }
    const std::string& NarrowPath() const { return path_; }

private:
    static std::string Folder() {
#ifdef _WIN32
        char folder[MAX_PATH + 1];
        return {folder, GetTempPathA(sizeof folder, folder)};
#else
        return "/tmp/";
#endif
    }

    std::string path_;
    WideText wide_;
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
