// A reference implementation of UTF-8 and UTF-16. The longest prefix of a well-formed character counts as one
// damaged character.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "fuzz.h"

inline constexpr char32_t kDamaged = 0xFFFD;

inline bool IsSurrogate(char32_t character) { return character >= 0xD800 && character <= 0xDFFF; }

// Lead bits and range of the characters with 1, 2, 3 or 4 bytes.
struct Utf8Form {
    unsigned char lead;
    char32_t first;
    char32_t last;
};

inline constexpr Utf8Form kUtf8Forms[] = {
    {0x00, 0, 0x7F}, {0xC0, 0x80, 0x7FF}, {0xE0, 0x800, 0xFFFF}, {0xF0, 0x10000, 0x10FFFF}};

inline std::size_t LengthInUtf8(char32_t character) {
    std::size_t length = 1;
    while (character > kUtf8Forms[length - 1].last) {
        ++length;
    }
    return length;
}

inline std::string EncodeUtf8(const std::u32string& characters) {
    std::string bytes;
    for (const char32_t character : characters) {
        const std::size_t length = LengthInUtf8(character);
        bytes += static_cast<char>(kUtf8Forms[length - 1].lead | (character >> (6 * (length - 1))));
        for (std::size_t i = length - 1; i-- > 0;) {
            bytes += static_cast<char>(0x80 | ((character >> (6 * i)) & 0x3F));
        }
    }
    return bytes;
}

// Decodes the bytes as a character of `length` bytes, padded with the filler.
inline char32_t DecodePadded(std::string_view bytes, std::size_t length, unsigned char filler) {
    char32_t character = static_cast<unsigned char>(bytes[0]) & (length == 1 ? 0x7FU : 0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char next = i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : filler;
        character = (character << 6) | (next & 0x3FU);
    }
    return character;
}

// The length of the character of which the bytes are a prefix; 0 if of none.
inline std::size_t PrefixedCharacterLength(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes[0]);
    std::size_t length = 1;
    while (length < 4 && lead >= kUtf8Forms[length].lead) {
        ++length;
    }
    const bool lead_fits = lead < 0x80 || (length > 1 && lead < 0xF8);
    const bool follow =
        std::all_of(bytes.begin() + 1, bytes.end(), [](char c) { return (c & 0xC0) == 0x80; });
    if (!lead_fits || !follow || bytes.size() > length) {
        return 0;
    }
    const char32_t first = std::max(DecodePadded(bytes, length, 0x80), kUtf8Forms[length - 1].first);
    const char32_t last = std::min(DecodePadded(bytes, length, 0xBF), kUtf8Forms[length - 1].last);
    return first <= last && !(IsSurrogate(first) && IsSurrogate(last)) ? length : 0;
}

inline std::u32string DecodeUtf8(std::string_view bytes) {
    std::u32string characters;
    while (!bytes.empty()) {
        std::size_t taken = 1;
        while (taken < bytes.size() && PrefixedCharacterLength(bytes.substr(0, taken + 1)) != 0) {
            ++taken;
        }
        const std::string_view prefix = bytes.substr(0, taken);
        const bool is_complete = PrefixedCharacterLength(prefix) == taken;
        characters += is_complete ? DecodePadded(prefix, taken, 0) : kDamaged;
        bytes.remove_prefix(taken);
    }
    return characters;
}

inline WideText EncodeUtf16(const std::u32string& characters) {
    WideText units;
    for (const char32_t character : characters) {
        if (character > 0xFFFF) {
            units += static_cast<BrindleChar>(0xD7C0 + (character >> 10));
            units += static_cast<BrindleChar>(0xDC00 | (character & 0x3FF));
        } else {
            units += static_cast<BrindleChar>(character);
        }
    }
    return units;
}

// An unpaired surrogate is damaged.
inline std::u32string DecodeUtf16(const WideText& units) {
    std::u32string characters;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const char32_t here = units[i];
        const char32_t next = i + 1 < units.size() ? units[i + 1] : 0;
        if (here >> 10 == 0x36 && next >> 10 == 0x37) {
            characters += 0x10000 + ((here & 0x3FF) << 10) + (next & 0x3FF);
            ++i;
        } else {
            characters += IsSurrogate(here) ? kDamaged : here;
        }
    }
    return characters;
}

inline std::string Utf8Of(const WideText& units) { return EncodeUtf8(DecodeUtf16(units)); }
inline WideText Utf16Of(std::string_view bytes) { return EncodeUtf16(DecodeUtf8(bytes)); }
