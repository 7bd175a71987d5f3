// The files of the stores on the disk and their folder. Paths are UTF-8; failures are the system's codes,
// 0x8007xxxx.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/types.h"

namespace dialsim {

// Empty when the variable is not set.
std::string Environment(const char* variable);

// The default folder of the user's stores; empty when the user has no home folder.
std::string UserDataFolder();

// Locks the folder for this process during the lifetime of the object, and creates it. The system releases
// the lock of a process that is killed.
class FolderLock {
public:
    explicit FolderLock(const std::string& folder);
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock();

    // Negative when the folder cannot be created or locked.
    HRESULT code() const { return code_; }

private:
    std::intptr_t file_;
    HRESULT code_;
};

enum class Readers { Anyone, OwnerOnly };

// The functions below require the lock: no other process of the simulator has the files open.

// Empty when there is no such file.
HRESULT ReadStoreFile(const std::string& path, std::optional<std::string>& content);

// Replaces the file atomically.
HRESULT ReplaceStoreFile(const std::string& path, const std::string& content, Readers readers);

// Also removes the temporary file of a killed process. Succeeds when there is no file.
HRESULT RemoveStoreFile(const std::string& path);

}  // namespace dialsim
