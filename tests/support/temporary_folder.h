// A folder for the files of a test. Its path may contain characters that the system's code page lacks, so
// files are named relative to the folder, in ASCII.
#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "support/utf16.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#endif

// The constructor creates the folder, and the destructor deletes it when it is empty.
class TemporaryFolder {
public:
#ifdef _WIN32
    static constexpr char kSeparator = '\\';
#else
    static constexpr char kSeparator = '/';
#endif

    TemporaryFolder() : wide_path_(NewFolder()), path_(Utf8Of(wide_path_)) {}
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { RemoveFolder(""); }

    // In UTF-8, as the simulator's functions expect it.
    const std::string& path() const { return path_; }
    std::string PathOf(const std::string& name) const { return path_ + kSeparator + name; }

    const WideText& wide_path() const { return wide_path_; }
    WideText WidePathOf(const std::string& name) const {
        return wide_path_ + static_cast<BrindleChar>(kSeparator) + WideText(name.begin(), name.end());
    }

    // Null when the file cannot be opened; `mode` is that of fopen.
    std::FILE* Open(const std::string& name, const std::string& mode) const {
#ifdef _WIN32
        return _wfopen(WidePathOf(name).c_str(), WideText(mode.begin(), mode.end()).c_str());
#else
        return std::fopen(PathOf(name).c_str(), mode.c_str());
#endif
    }
    // Empty without a file.
    std::optional<std::string> Read(const std::string& name) const {
        std::FILE* file = Open(name, "rb");
        if (file == nullptr) {
            return {};
        }
        std::string content;
        for (int next = std::fgetc(file); next != EOF; next = std::fgetc(file)) {
            content += static_cast<char>(next);
        }
        std::fclose(file);
        return content;
    }
    void Write(const std::string& name, std::string_view content) const {
        std::FILE* file = Open(name, "wb");
        if (file == nullptr || std::fwrite(content.data(), 1, content.size(), file) != content.size() ||
            std::fclose(file) != 0) {
            throw std::runtime_error("cannot write " + PathOf(name));
        }
    }
    void Write(const std::string& name, const std::vector<std::uint8_t>& content) const {
        Write(name, {reinterpret_cast<const char*>(content.data()), content.size()});
    }

    bool Has(const std::string& name) const {
#ifdef _WIN32
        return GetFileAttributesW(WidePathOf(name).c_str()) != INVALID_FILE_ATTRIBUTES;
#else
        return access(PathOf(name).c_str(), F_OK) == 0;
#endif
    }
    void Remove(const std::string& name) const {
#ifdef _WIN32
        DeleteFileW(WidePathOf(name).c_str());
#else
        std::remove(PathOf(name).c_str());
#endif
    }
    void MakeFolder(const std::string& name) const {
#ifdef _WIN32
        CreateDirectoryW(WidePathOf(name).c_str(), nullptr);
#else
        mkdir(PathOf(name).c_str(), S_IRWXU);
#endif
    }
    void RemoveFolder(const std::string& name) const {
#ifdef _WIN32
        RemoveDirectoryW(WidePathOf(name).c_str());
#else
        rmdir(PathOf(name).c_str());
#endif
    }

#ifdef _WIN32
    static std::string Utf8Of(const WideText& wide) {
        const int units = static_cast<int>(wide.size());
        std::string utf8(3 * wide.size(), '\0');  // at most three bytes for a unit
        const int size = static_cast<int>(utf8.size());
        utf8.resize(static_cast<std::size_t>(
            WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(), size, nullptr, nullptr)));
        return utf8;
    }
#else
    // Requires ASCII.
    static std::string Utf8Of(const WideText& ascii) { return {ascii.begin(), ascii.end()}; }
#endif

private:
    // The last component of the path is a short name.
#ifdef _WIN32
    static WideText NewFolder() {
        wchar_t parent[MAX_PATH + 2];
        const DWORD length = GetTempPathW(MAX_PATH + 2, parent);
        WideText path;
        do {
            path = WideText(parent, length) + L"ds" + std::to_wstring(std::random_device()() % 1'000'000);
            if (CreateDirectoryW(path.c_str(), nullptr) != FALSE) {
                return path;
            }
        } while (GetLastError() == ERROR_ALREADY_EXISTS);
        throw std::runtime_error("cannot create a folder in the folder for temporary files");
    }
#else
    // All components are short names. Stores flush each write: a file system in memory is quicker.
    static WideText NewFolder() {
        std::string path = access("/dev/shm", W_OK) == 0 ? "/dev/shm/dsXXXXXX" : "/tmp/dsXXXXXX";
        if (mkdtemp(path.data()) == nullptr) {
            throw std::runtime_error("cannot create " + path);
        }
        return {path.begin(), path.end()};
    }
#endif

    const WideText wide_path_;
    const std::string path_;
};
