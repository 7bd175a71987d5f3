// What the stores hold, and how it is written down.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/stores/scalar.h"

namespace dialsim {

// Nothing: an object that is no value.
using Setting = std::optional<Scalar>;
using Settings = std::map<WideString, Setting>;

// From resource and user name to password.
using Vault = std::map<std::pair<WideString, WideString>, WideString>;

std::string ToJson(const Settings& settings);
std::string ToJson(const Vault& vault);

// Throws std::runtime_error with what is wrong, and where; passwords are not in it.
Settings SettingsFrom(const std::string& json);
Vault VaultFrom(const std::string& json);

// An entry a line, for a person to read.
std::string Listing(const Settings& settings);
std::string Listing(const Vault& vault);

// False where the stores have no such type or the type no such value.
bool ParseSetting(std::string_view type, const std::string& value, Setting& setting);

}  // namespace dialsim
