#include "simulator/stores/stores.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <mutex>
#include <set>
#include <stdexcept>
#include <utility>

#include "simulator/stores/store_folder.h"
#include "sync.h"

namespace dialsim {

namespace {

constexpr HRESULT kSettingsDamaged = static_cast<HRESULT>(0x80073DB8);  // ERROR_STATE_LOAD_STORE_FAILED
constexpr HRESULT kVaultDamaged = static_cast<HRESULT>(0x80070570);     // ERROR_FILE_CORRUPT
constexpr HRESULT kValueTooLong = static_cast<HRESULT>(0x80073DC8);  // its name ends in VALUE_SIZE_EXCEEDED
constexpr HRESULT kNameTooLong = static_cast<HRESULT>(0x80073DC9);   // and NAME_SIZE_EXCEEDED

constexpr std::size_t kNameUnits = 255;
constexpr std::size_t kValueBytes = 8192;

struct StoreFile {
    const char* name;
    Readers readers;
    HRESULT damaged;
};

constexpr StoreFile kLocal = {"local.json", Readers::Anyone, kSettingsDamaged};
constexpr StoreFile kRoaming = {"roaming.json", Readers::Anyone, kSettingsDamaged};
constexpr StoreFile kVault = {"vault.json", Readers::OwnerOnly, kVaultDamaged};
constexpr const StoreFile* kStoreFiles[] = {&kLocal, &kRoaming, &kVault};

Mutex mutex;  // held while a store is used
std::optional<std::string>& given_folder = *new std::optional<std::string>;
std::set<std::string>& reported_corrupt = *new std::set<std::string>;

std::string FolderPath() {
    if (given_folder) {
        return *given_folder;
    }
    const std::string set = Environment("DIALSIM_STORES");
    return set.empty() ? UserDataFolder() : set;
}

// Does what returns an HRESULT with the folder that nobody else has meanwhile.
template <class Action>
HRESULT InFolder(Action action) {
    const std::lock_guard guard(mutex);
    const StoreFolder folder(FolderPath());
    return folder.code() < 0 ? folder.code() : action(folder);
}

void Parse(const std::string& json, Settings& settings) { settings = SettingsFrom(json); }
void Parse(const std::string& json, Vault& vault) { vault = VaultFrom(json); }

// Says once what is wrong with a file, until it has been whole again.
template <class Content>
HRESULT Load(const StoreFolder& folder, const StoreFile& file, Content& content) {
    std::optional<std::string> json;
    if (const HRESULT code = folder.Read(file.name, json); code < 0) {
        return code;
    }
    const std::string path = folder.PathOf(file.name);
    try {
        if (json) {
            Parse(*json, content);
        }
        reported_corrupt.erase(path);
        return S_OK;
    } catch (const std::runtime_error& reason) {
        if (reported_corrupt.insert(path).second) {
            std::fprintf(stderr, "dialsim: %s is damaged and left alone: %s\n", path.c_str(), reason.what());
        }
        return file.damaged;
    }
}

template <class Content>
HRESULT WithStore(const StoreFile& file, const std::function<HRESULT(Content&)>& use) {
    return InFolder([&](const StoreFolder& folder) {
        Content content;
        if (const HRESULT code = Load(folder, file, content); code < 0) {
            return code;
        }
        const Content before = content;
        const HRESULT code = use(content);
        return code < 0 || content == before ? code
                                             : folder.Replace(file.name, ToJson(content), file.readers);
    });
}

// Texts are what can be too long.
bool IsTooLong(const Setting& setting) {
    const auto* text = setting ? std::get_if<WideString>(&*setting) : nullptr;
    return text != nullptr && text->size() * sizeof(WCHAR) > kValueBytes;
}

template <class Content>
std::string TextOf(HRESULT code, const Content& content) {
    return code < 0 ? "damaged\n" : Listing(content);
}

// Null where no store has the name.
const StoreFile* FileNamed(const std::string& name) {
    const auto* file = std::find_if(std::begin(kStoreFiles), std::end(kStoreFiles),
                                    [&](const StoreFile* store) { return store->name == name + ".json"; });
    return file == std::end(kStoreFiles) ? nullptr : *file;
}

std::string SettingsText(SettingsStore store) {
    Settings settings;
    const HRESULT code = UseSettings(store, [&](Settings& now) {
        settings = now;
        return S_OK;
    });
    return TextOf(code, settings);
}

std::string VaultText() {
    Vault vault;
    const HRESULT code = UseVault([&](Vault& now) {
        vault = now;
        return S_OK;
    });
    return TextOf(code, vault);
}

}  // namespace

HRESULT UseSettings(SettingsStore store, const std::function<HRESULT(Settings&)>& use) {
    return WithStore(store == SettingsStore::Roaming ? kRoaming : kLocal, use);
}

HRESULT UseVault(const std::function<HRESULT(Vault&)>& use) { return WithStore(kVault, use); }

HRESULT PutSetting(SettingsStore store, const WideString& key, const Setting& setting, bool& replaced) {
    if (key.size() > kNameUnits) {
        return kNameTooLong;
    }
    if (IsTooLong(setting)) {
        return kValueTooLong;
    }
    return UseSettings(store, [&](Settings& settings) {
        replaced = !settings.insert_or_assign(key, setting).second;
        return S_OK;
    });
}

HRESULT PutCredential(const WideString& resource, const WideString& user_name, const WideString& password) {
    if (resource.empty() || user_name.empty() || password.empty()) {
        return E_INVALIDARG;
    }
    return UseVault([&](Vault& vault) {
        vault[{resource, user_name}] = password;
        return S_OK;
    });
}

void SetStoresFolder(std::optional<std::string> folder) {
    const std::lock_guard guard(mutex);
    given_folder = std::move(folder);
}

std::optional<SettingsStore> SettingsNamed(const std::string& name) {
    return name == "roaming" ? std::optional(SettingsStore::Roaming)
           : name == "local" ? std::optional(SettingsStore::Local)
                             : std::nullopt;
}

std::string StoreText(const std::string& name) {
    if (const auto settings = SettingsNamed(name)) {
        return SettingsText(*settings);
    }
    return name == "vault" ? VaultText() : "";
}

std::string AllStoresText() {
    std::string text;
    for (const std::string name : {"roaming", "local", "vault"}) {
        text += name + ":\n" + StoreText(name);
    }
    return text;
}

bool ClearStores() {
    const HRESULT code = InFolder([](const StoreFolder& folder) {
        HRESULT removed = S_OK;
        for (const StoreFile* file : kStoreFiles) {
            removed = removed < 0 ? removed : folder.Remove(file->name);
        }
        return removed;
    });
    return code >= 0;
}

std::optional<std::string> StoreContent(const std::string& name) {
    const StoreFile* file = FileNamed(name);
    std::optional<std::string> content;
    const auto read = [&](const StoreFolder& folder) { return folder.Read(file->name, content); };
    return file != nullptr && InFolder(read) >= 0 ? content : std::nullopt;
}

bool PutStoreContent(const std::string& name, const std::string& content) {
    const StoreFile* file = FileNamed(name);
    const auto replace = [&](const StoreFolder& folder) {
        return folder.Replace(file->name, content, file->readers);
    };
    return file != nullptr && InFolder(replace) >= 0;
}

}  // namespace dialsim
