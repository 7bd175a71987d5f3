// The files of the stores on the disk, and the folder that they are in. Paths are UTF-8; failures of the
// system are codes of its own, 0x8007xxxx.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/types.h"

namespace dialsim {

// Empty where it is not set.
std::string Environment(const char* variable);

// Where the user's stores are unless the environment says something else; empty when the user has no home.
std::string UserDataFolder();

// The folder for this process alone as long as the object lives: the system takes the lock back from a
// process that is killed. Makes the folder.
class FolderLock {
public:
    explicit FolderLock(const std::string& folder);
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock();

    // Negative when the folder cannot be had.
    HRESULT code() const { return code_; }

private:
    std::intptr_t file_;
    HRESULT code_;
};

enum class Readers { Anyone, OwnerOnly };

// What follows is done with the folder locked: nobody else has its files open then.

// Nothing when there is no such file.
HRESULT ReadStoreFile(const std::string& path, std::optional<std::string>& content);

// The whole file at once, whatever ends the process.
HRESULT ReplaceStoreFile(const std::string& path, const std::string& content, Readers readers);

// What a killed process had not put in place yet goes too. That there is no file is no failure.
HRESULT RemoveStoreFile(const std::string& path);

}  // namespace dialsim
