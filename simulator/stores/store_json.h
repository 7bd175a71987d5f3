// The contents of the stores and their JSON format.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/stores/scalar.h"

namespace dialsim {

// Empty: an object that is no property value.
using Setting = std::optional<Scalar>;
using Settings = std::map<WideString, Setting>;

// From resource and user name to password.
using Vault = std::map<std::pair<WideString, WideString>, WideString>;

std::string ToJson(const Settings& settings);
std::string ToJson(const Vault& vault);

// Throws std::runtime_error with the error and its position, without passwords.
Settings SettingsFrom(const std::string& json);
Vault VaultFrom(const std::string& json);

// A line for each entry, as dialsim_store copies them.
std::string Listing(const Settings& settings);
std::string Listing(const Vault& vault);

// False for an unknown type or an invalid value.
bool ParseSetting(std::string_view type, const std::string& value, Setting& setting);

}  // namespace dialsim
