#include "simulator/classes/png_header.h"

namespace dialsim {

namespace {

constexpr std::string_view kSignature("\x89PNG\r\n\x1a\n", 8);
// The length and the type of the first chunk.
constexpr std::string_view kHeaderChunk("\0\0\0\x0DIHDR", 8);
constexpr std::size_t kHeaderSize = 13;

std::uint32_t Number(std::string_view bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = at; i < at + 4; ++i) {
        number = (number << 8) | static_cast<unsigned char>(bytes[i]);
    }
    return number;
}

std::uint32_t Crc(std::string_view bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
        }
    }
    return ~crc;
}

}  // namespace

std::optional<PictureSize> SizeOfPng(std::string_view prefix) {
    if (prefix.size() < kPngHeaderBytes || !prefix.starts_with(kSignature) ||
        prefix.substr(kSignature.size(), kHeaderChunk.size()) != kHeaderChunk) {
        return {};
    }
    // The checksum covers the chunk's type and data.
    const std::string_view checked = prefix.substr(12, 4 + kHeaderSize);
    const PictureSize size{Number(prefix, 16), Number(prefix, 20)};
    if (Crc(checked) != Number(prefix, 29) || size.width == 0 || size.height == 0) {
        return {};
    }
    return size;
}

}  // namespace dialsim
