// What a module holds beside its code.
#pragma once

#include <cstdint>
#include <string>

namespace dialsim {

// False on Windows, where resources are the module's own.
bool AddResource(std::uint64_t module, std::uint16_t id, const std::string& type, std::string bytes);

}  // namespace dialsim
