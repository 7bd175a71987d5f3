#include "simulator/stores/store_folder.h"

#include <map>
#include <utility>

namespace dialsim {

namespace {

// Never destroyed: a background script may use the stores after main returns.
std::map<std::string, std::string>& files_in_memory = *new std::map<std::string, std::string>;

}  // namespace

StoreFolder::StoreFolder(std::string path) : path_(std::move(path)) {
    if (path_ != kMemoryFolder) {
        lock_.emplace(path_);
    }
}

HRESULT StoreFolder::Read(const std::string& name, std::optional<std::string>& content) const {
    if (lock_) {
        return ReadStoreFile(PathOf(name), content);
    }
    const auto file = files_in_memory.find(name);
    content = file == files_in_memory.end() ? std::nullopt : std::optional(file->second);
    return S_OK;
}

HRESULT StoreFolder::Replace(const std::string& name, const std::string& content, Readers readers) const {
    if (lock_) {
        return ReplaceStoreFile(PathOf(name), content, readers);
    }
    files_in_memory[name] = content;
    return S_OK;
}

HRESULT StoreFolder::Remove(const std::string& name) const {
    if (lock_) {
        return RemoveStoreFile(PathOf(name));
    }
    files_in_memory.erase(name);
    return S_OK;
}

}  // namespace dialsim
