// The folder of the stores' files, on the disk or in the memory of this process.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulator/stores/store_files.h"

namespace dialsim {

// The path of the folder in memory.
inline constexpr std::string_view kMemoryFolder = ":memory:";

// Use one at a time in a process: the files in memory have no lock. On the disk it locks out other processes.
class StoreFolder {
public:
    explicit StoreFolder(std::string path);

    // Negative when the folder cannot be created or locked; do not call the operations then.
    HRESULT code() const { return lock_ ? lock_->code() : S_OK; }

    const std::string& path() const { return path_; }
    std::string PathOf(const std::string& name) const { return path_ + "/" + name; }

    // Empty when there is no such file.
    HRESULT Read(const std::string& name, std::optional<std::string>& content) const;
    HRESULT Replace(const std::string& name, const std::string& content, Readers readers) const;
    // Succeeds when there is no file.
    HRESULT Remove(const std::string& name) const;

private:
    const std::string path_;
    std::optional<FolderLock> lock_;  // none in memory
};

}  // namespace dialsim
