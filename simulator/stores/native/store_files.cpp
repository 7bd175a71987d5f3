#include "simulator/stores/store_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace dialsim {

namespace {

// Converts an error of the system to the platform's code.
HRESULT CodeOf(int error) {
    switch (error) {
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
            return static_cast<HRESULT>(0x80070005);  // ERROR_ACCESS_DENIED
        case ENOENT:
        case ENOTDIR:
            return static_cast<HRESULT>(0x80070003);  // ERROR_PATH_NOT_FOUND
        case ENOSPC:
        case EDQUOT:
            return static_cast<HRESULT>(0x80070070);  // ERROR_DISK_FULL
        default:
            return static_cast<HRESULT>(0x8007001F);  // ERROR_GEN_FAILURE
    }
}

HRESULT LastCode() { return CodeOf(errno); }

bool MakeOneFolder(const std::string& folder) {
    return mkdir(folder.c_str(), S_IRWXU) == 0 || errno == EEXIST;
}

HRESULT MakeFolder(const std::string& folder) {
    if (MakeOneFolder(folder)) {
        return S_OK;
    }
    const std::size_t parent = folder.rfind('/');
    if (errno != ENOENT || parent == std::string::npos || parent == 0) {
        return LastCode();
    }
    if (const HRESULT code = MakeFolder(folder.substr(0, parent)); code < 0) {
        return code;
    }
    return MakeOneFolder(folder) ? S_OK : LastCode();
}

// The lock belongs to the open file description, so it also excludes other threads of the process.
bool Lock(int file) {
    struct flock whole {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    int result = 0;
    do {
        result = fcntl(file, F_OFD_SETLKW, &whole);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

std::string NewName(const std::string& path) { return path + ".new"; }

bool RemoveOne(const std::string& path) { return unlink(path.c_str()) == 0 || errno == ENOENT; }

// Creates a new file, which has this mode from the beginning.
HRESULT WriteNewFile(const std::string& path, const std::string& content, mode_t mode) {
    if (!RemoveOne(path)) {
        return LastCode();
    }
    const int opened = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    std::FILE* file = opened < 0 ? nullptr : fdopen(opened, "wb");
    if (file == nullptr) {
        return LastCode();
    }
    const bool written = std::fwrite(content.data(), 1, content.size(), file) == content.size();
    return std::fclose(file) == 0 && written ? S_OK : LastCode();
}

}  // namespace

std::string Environment(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? "" : value;
}

std::string UserDataFolder() {
    if (const std::string state = Environment("XDG_STATE_HOME"); state.starts_with('/')) {
        return state + "/dialsim";
    }
    const std::string home = Environment("HOME");
    return home.empty() ? "" : home + "/.local/state/dialsim";
}

FolderLock::FolderLock(const std::string& folder) : file_(-1), code_(MakeFolder(folder)) {
    if (code_ < 0) {
        return;
    }
    const int file = open((folder + "/lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    code_ = file >= 0 && Lock(file) ? S_OK : LastCode();
    file_ = file;
}

FolderLock::~FolderLock() {
    if (file_ >= 0) {
        close(static_cast<int>(file_));
    }
}

HRESULT ReadStoreFile(const std::string& path, std::optional<std::string>& content) {
    content.reset();
    std::FILE* file = std::fopen(path.c_str(), "rbe");
    if (file == nullptr) {
        return errno == ENOENT ? S_OK : LastCode();
    }
    content.emplace();
    char bytes[4096];
    while (const std::size_t count = std::fread(bytes, 1, sizeof bytes, file)) {
        content->append(bytes, count);
    }
    const HRESULT code = std::ferror(file) == 0 ? S_OK : LastCode();
    std::fclose(file);
    return code;
}

HRESULT ReplaceStoreFile(const std::string& path, const std::string& content, Readers readers) {
    const mode_t mode = readers == Readers::OwnerOnly ? S_IRUSR | S_IWUSR : 0666;
    if (const HRESULT code = WriteNewFile(NewName(path), content, mode); code < 0) {
        return code;
    }
    return std::rename(NewName(path).c_str(), path.c_str()) == 0 ? S_OK : LastCode();
}

HRESULT RemoveStoreFile(const std::string& path) {
    return RemoveOne(path) && RemoveOne(NewName(path)) ? S_OK : LastCode();
}

}  // namespace dialsim
