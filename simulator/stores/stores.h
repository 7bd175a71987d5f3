// The persistent stores: the application's settings and the user's credentials.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "simulator/stores/store_json.h"

namespace dialsim {

enum class SettingsStore { Local, Roaming };

inline constexpr HRESULT kNotFound = static_cast<HRESULT>(0x80070490);  // ERROR_NOT_FOUND

// Calls `use` with the contents of the store, and writes its changes unless it fails. The stores are locked
// meanwhile, for this process and others: `use` must not call code outside the stores. Fails without calling
// it when the store cannot be read.
HRESULT UseSettings(SettingsStore store, const std::function<HRESULT(Settings&)>& use);
HRESULT UseVault(const std::function<HRESULT(Vault&)>& use);

// With the platform's limits for names and values.
HRESULT PutSetting(SettingsStore store, const WideString& key, const Setting& setting, bool& replaced);

// Replaces an existing password. None of the three may be empty.
HRESULT PutCredential(const WideString& resource, const WideString& user_name, const WideString& password);

// A path, which may be kMemoryFolder; none: the folder of the environment or the user.
void SetStoresFolder(std::optional<std::string> folder);

// By the names "roaming", "local" and "vault".
std::optional<SettingsStore> SettingsNamed(const std::string& name);
std::string StoreText(const std::string& name);
std::string AllStoresText();

// Deletes the files of all stores.
bool ClearStores();

// The bytes of a store's file, valid or damaged. Empty when it is missing or cannot be read, or no store has
// the name.
std::optional<std::string> StoreContent(const std::string& name);
// False when it cannot be written, or no store has the name.
bool PutStoreContent(const std::string& name, const std::string& content);

}  // namespace dialsim
