// A window's menu as a person would see it.
#pragma once

#include <cstdint>
#include <string>

namespace dialsim {

// Both empty when no controller exists for the window.
std::string MenuText(std::uint64_t window);
std::string MenuPicture(std::uint64_t window);

}  // namespace dialsim
