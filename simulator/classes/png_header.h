// The size of PNG pictures.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace dialsim {

struct PictureSize {
    std::uint32_t width;
    std::uint32_t height;
};

// The length of the signature and the header chunk.
inline constexpr std::size_t kPngHeaderBytes = 33;

// Empty for an invalid PNG header.
std::optional<PictureSize> SizeOfPng(std::string_view prefix);

}  // namespace dialsim
