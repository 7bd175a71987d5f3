#include "simulator/stores.h"

#include <cstdio>
#include <mutex>
#include <set>
#include <stdexcept>
#include <utility>

#include "simulator/store_files.h"
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

Mutex mutex;  // held while a store is used
std::optional<std::string>& given_folder = *new std::optional<std::string>;
std::set<std::string>& known_damaged = *new std::set<std::string>;

std::string Folder() {
    if (given_folder) {
        return *given_folder;
    }
    const std::string set = Environment("DIALSIM_STORES");
    return set.empty() ? UsersFolder() : set;
}

std::string PathOf(const std::string& folder, const StoreFile& file) { return folder + "/" + file.name; }

void Parse(const std::string& json, Settings& settings) { settings = SettingsFrom(json); }
void Parse(const std::string& json, Vault& vault) { vault = VaultFrom(json); }

// Says once what is wrong with a file, until it has been whole again.
template <class Content>
HRESULT Load(const std::string& path, const StoreFile& file, Content& content) {
    std::optional<std::string> json;
    if (const HRESULT code = ReadStoreFile(path, json); code < 0) {
        return code;
    }
    try {
        if (json) {
            Parse(*json, content);
        }
        known_damaged.erase(path);
        return S_OK;
    } catch (const std::runtime_error& reason) {
        if (known_damaged.insert(path).second) {
            std::fprintf(stderr, "dialsim: %s is damaged and left alone: %s\n", path.c_str(), reason.what());
        }
        return file.damaged;
    }
}

template <class Content>
HRESULT Use(const StoreFile& file, const std::function<HRESULT(Content&)>& use) {
    const std::lock_guard guard(mutex);
    const std::string folder = Folder();
    const FolderLock lock(folder);
    if (lock.code() < 0) {
        return lock.code();
    }
    const std::string path = PathOf(folder, file);
    Content content;
    if (const HRESULT code = Load(path, file, content); code < 0) {
        return code;
    }
    const Content before = content;
    const HRESULT code = use(content);
    return code < 0 || content == before ? code : ReplaceStoreFile(path, ToJson(content), file.readers);
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
    return Use(store == SettingsStore::Roaming ? kRoaming : kLocal, use);
}

HRESULT UseVault(const std::function<HRESULT(Vault&)>& use) { return Use(kVault, use); }

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
    const std::lock_guard guard(mutex);
    const std::string folder = Folder();
    const FolderLock lock(folder);
    bool cleared = lock.code() >= 0;
    for (const StoreFile& file : {kLocal, kRoaming, kVault}) {
        cleared = cleared && RemoveStoreFile(PathOf(folder, file)) >= 0;
    }
    return cleared;
}

}  // namespace dialsim
