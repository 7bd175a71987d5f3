// A folder of the simulator's stores, unique to each test; the destructor deletes it.
#pragma once

#include <cstdio>
#include <optional>
#include <string>

#ifdef _WIN32
#include <direct.h>
#include <windows.h>
#else
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#endif

#include "simulator/dialsim.h"

class StoresFolder {
public:
    StoresFolder() : path_(NewFolder()) { dialsim_set_stores(path_.c_str()); }
    StoresFolder(const StoresFolder&) = delete;
    StoresFolder& operator=(const StoresFolder&) = delete;
    ~StoresFolder() {
        dialsim_set_stores(path_.c_str());
        dialsim_clear_stores();
        dialsim_set_stores(nullptr);
        std::remove(PathOf("lock").c_str());
        RemoveFolder(path_);
    }

    const std::string& path() const { return path_; }
    std::string PathOf(const std::string& name) const { return path_ + "/" + name; }

    bool Has(const std::string& name) const {
#ifdef _WIN32
        return GetFileAttributesA(PathOf(name).c_str()) != INVALID_FILE_ATTRIBUTES;
#else
        return access(PathOf(name).c_str(), F_OK) == 0;
#endif
    }
    // Empty without a file.
    std::optional<std::string> Read(const std::string& name) const {
        std::FILE* file = std::fopen(PathOf(name).c_str(), "rb");
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
    void Write(const std::string& name, const std::string& content) const {
        if (std::FILE* file = std::fopen(PathOf(name).c_str(), "wb")) {
            std::fwrite(content.data(), 1, content.size(), file);
            std::fclose(file);
        }
    }

    static void MakeFolder(const std::string& path) {
#ifdef _WIN32
        _mkdir(path.c_str());
#else
        mkdir(path.c_str(), S_IRWXU);
#endif
    }
    static void RemoveFolder(const std::string& path) {
#ifdef _WIN32
        _rmdir(path.c_str());
#else
        rmdir(path.c_str());
#endif
    }

private:
    static std::string NewFolder() {
#ifdef _WIN32
        char folder[MAX_PATH + 1];
        char name[MAX_PATH + 1];
        GetTempPathA(sizeof folder, folder);
        GetTempFileNameA(folder, "dst", 0, name);
        std::remove(name);
        _mkdir(name);
        return name;
#else
        const char* const temporary = std::getenv("TMPDIR");
        std::string name = std::string(temporary == nullptr ? "/tmp" : temporary) + "/dialsim-stores-XXXXXX";
        return mkdtemp(name.data());
#endif
    }

    const std::string path_;
};
