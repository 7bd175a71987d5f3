// Resources of modules.
#pragma once

#include <cstdint>
#include <string>

namespace dialsim {

// False on Windows, where modules contain their resources.
bool AddResource(std::uint64_t module, std::uint16_t id, const std::string& type, std::string bytes);

}  // namespace dialsim
