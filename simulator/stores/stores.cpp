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
// ERROR_STATE_SETTING_VALUE_SIZE_EXCEEDED, ERROR_STATE_SETTING_NAME_SIZE_EXCEEDED
constexpr HRESULT kValueTooLong = static_cast<HRESULT>(0x80073DC8);
constexpr HRESULT kNameTooLong = static_cast<HRESULT>(0x80073DC9);

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

// A file as it was last parsed. Parsing takes far longer than reading, and most operations change nothing.
template <class Content>
struct ParsedFile {
    std::optional<std::string> json;  // nothing for a missing file
    Content content;
    std::string problem;  // why the file is damaged; empty if it is not
};

Mutex mutex;  // held while a store is used
ParsedFile<Settings>& parsed_local = *new ParsedFile<Settings>;
ParsedFile<Settings>& parsed_roaming = *new ParsedFile<Settings>;
ParsedFile<Vault>& parsed_vault = *new ParsedFile<Vault>;
std::optional<std::string>& given_folder = *new std::optional<std::string>;
std::set<std::string>& reported_corrupt = *new std::set<std::string>;
std::set<std::string>& reported_folders = *new std::set<std::string>;

std::string FolderPath() {
    if (given_folder) {
        return *given_folder;
    }
    const std::string set = Environment("DIALSIM_STORES");
    return set.empty() ? UserDataFolder() : set;
}

// Returns the system's code. Prints the first failure of each folder: the library reports none to its host.
HRESULT ReportFailure(const StoreFolder& folder, HRESULT code) {
    if (code < 0 && reported_folders.insert(folder.path()).second) {
        std::fprintf(stderr, "dialsim: settings cannot be stored in '%s' (%08x)\n", folder.path().c_str(),
                     static_cast<unsigned>(code));
    }
    return code;
}

// Calls a function that returns an HRESULT with exclusive access to the folder.
template <class Action>
HRESULT InFolder(Action action) {
    const std::lock_guard guard(mutex);
    const StoreFolder folder(FolderPath());
    return folder.code() < 0 ? ReportFailure(folder, folder.code()) : action(folder);
}

void Parse(const std::string& json, Settings& settings) { settings = SettingsFrom(json); }
void Parse(const std::string& json, Vault& vault) { vault = VaultFrom(json); }

template <class Content>
void ParseIfChanged(const std::optional<std::string>& json, ParsedFile<Content>& parsed) {
    if (json == parsed.json) {
        return;
    }
    ParsedFile<Content> now{json, {}, {}};
    try {
        if (json) {
            Parse(*json, now.content);
        }
    } catch (const std::runtime_error& reason) {
        now.problem = reason.what();
    }
    parsed = std::move(now);
}

// Prints the error of a damaged file once, until the file is valid again.
template <class Content>
HRESULT Load(const StoreFolder& folder, const StoreFile& file, ParsedFile<Content>& parsed) {
    std::optional<std::string> json;
    if (const HRESULT code = folder.Read(file.name, json); code < 0) {
        return code;
    }
    ParseIfChanged(json, parsed);
    const std::string path = folder.PathOf(file.name);
    if (parsed.problem.empty()) {
        reported_corrupt.erase(path);
        return S_OK;
    }
    if (reported_corrupt.insert(path).second) {
        std::fprintf(stderr, "dialsim: %s is damaged and not changed: %s\n", path.c_str(),
                     parsed.problem.c_str());
    }
    return file.damaged;
}

template <class Content>
HRESULT WithStore(const StoreFile& file, ParsedFile<Content>& parsed,
                  const std::function<HRESULT(Content&)>& use) {
    return InFolder([&](const StoreFolder& folder) {
        if (const HRESULT code = Load(folder, file, parsed); code < 0) {
            return code;
        }
        Content content = parsed.content;
        const HRESULT code = use(content);
        return code < 0 || content == parsed.content
                   ? code
                   : ReportFailure(folder, folder.Replace(file.name, ToJson(content), file.readers));
    });
}

// Only texts can be too long.
bool IsTooLong(const Setting& setting) {
    const auto* text = setting ? std::get_if<WideString>(&*setting) : nullptr;
    return text != nullptr && text->size() * sizeof(WCHAR) > kValueBytes;
}

template <class Content>
std::string TextOf(HRESULT code, const Content& content) {
    return code < 0 ? "damaged\n" : Listing(content);
}

// Null when no store has the name.
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
    return store == SettingsStore::Roaming ? WithStore(kRoaming, parsed_roaming, use)
                                           : WithStore(kLocal, parsed_local, use);
}

HRESULT UseVault(const std::function<HRESULT(Vault&)>& use) { return WithStore(kVault, parsed_vault, use); }

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
        parsed_local = {};
        parsed_roaming = {};
        parsed_vault = {};
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
