// Pictures, as far as the simulator looks at them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace dialsim {

struct PictureSize {
    std::uint32_t width;
    std::uint32_t height;
};

// As much of a PNG's prefix as has to be read to know its size.
inline constexpr std::size_t kPngHeaderBytes = 33;

// Empty for what is no PNG.
std::optional<PictureSize> SizeOfPng(std::string_view prefix);

}  // namespace dialsim
