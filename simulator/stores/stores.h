// What outlives the program: the settings of the application and the credentials of the user.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "simulator/stores/store_json.h"

namespace dialsim {

enum class SettingsStore { Local, Roaming };

inline constexpr HRESULT kNotFound = static_cast<HRESULT>(0x80070490);  // ERROR_NOT_FOUND

// Gives `use` what is in the store at this moment, and keeps what it has changed unless it fails. Nobody else
// gets to the stores meanwhile, in this process or another: `use` calls nobody. Fails without calling it
// where the store cannot be read.
HRESULT UseSettings(SettingsStore store, const std::function<HRESULT(Settings&)>& use);
HRESULT UseVault(const std::function<HRESULT(Vault&)>& use);

// With the platform's limits for names and values.
HRESULT PutSetting(SettingsStore store, const WideString& key, const Setting& setting, bool& replaced);

// In the place of the password that is there. None of the three may be empty.
HRESULT PutCredential(const WideString& resource, const WideString& user_name, const WideString& password);

// A path, which may be kMemoryFolder; none: back to the folder of the environment or the user.
void SetStoresFolder(std::optional<std::string> folder);

// By the names "roaming", "local" and "vault".
std::optional<SettingsStore> SettingsNamed(const std::string& name);
std::string StoreText(const std::string& name);
std::string AllStoresText();

// Removes all that the stores have in the folder.
bool ClearStores();

// The file of a store as it is, damaged or not. Nothing where it is missing or cannot be read, or no store
// has the name.
std::optional<std::string> StoreContent(const std::string& name);
// False where it cannot be written, or no store has the name.
bool PutStoreContent(const std::string& name, const std::string& content);

}  // namespace dialsim
