#include "simulator/system/text.h"

#include <cstdint>
#include <cstdio>

namespace dialsim {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

struct Lead {
    int following;
    unsigned char payload_mask;
    // The valid range of the second byte, which excludes overlong forms, surrogates and values above
    // U+10FFFF.
    unsigned char second_min;
    unsigned char second_max;
};

Lead Classify(unsigned char byte) {
    if (byte >= 0xC2 && byte <= 0xDF) {
        return {1, 0x1F, 0x80, 0xBF};
    }
    if (byte >= 0xE0 && byte <= 0xEF) {
        return {2, 0x0F, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    }
    if (byte >= 0xF0 && byte <= 0xF4) {
        return {3, 0x07, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
    }
    return {-1, 0, 0, 0};
}

// Decodes and removes the first character. Of an invalid sequence the maximal subpart is removed.
char32_t DecodeCharacter(std::string_view& utf8) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    const unsigned char first = byte(0);
    if (first < 0x80) {
        utf8.remove_prefix(1);
        return first;
    }
    const Lead lead = Classify(first);
    char32_t character = first & lead.payload_mask;
    std::size_t used = 1;
    for (int i = 0; i < lead.following; ++i, ++used) {
        const bool invalid = used >= utf8.size() || !IsContinuation(byte(used)) ||
                             (used == 1 && (byte(1) < lead.second_min || byte(1) > lead.second_max));
        if (invalid) {
            utf8.remove_prefix(used);
            return kReplacement;
        }
        character = (character << 6) | (byte(used) & 0x3FU);
    }
    utf8.remove_prefix(used);
    return lead.following < 0 ? kReplacement : character;
}

void AppendUtf8(std::string& utf8, char32_t character) {
    const auto append = [&](char32_t bits) { utf8 += static_cast<char>(bits); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | (character >> 6));
        append(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    } else {
        append(0xF0 | (character >> 18));
        append(0x80 | ((character >> 12) & 0x3F));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}

}  // namespace

WideString Widen(std::string_view utf8) {
    WideString wide;
    wide.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t character = DecodeCharacter(utf8);
        if (character < 0x10000) {
            wide += static_cast<WCHAR>(character);
        } else {
            wide += static_cast<WCHAR>(0xD800 + ((character - 0x10000) >> 10));
            wide += static_cast<WCHAR>(0xDC00 + ((character - 0x10000) & 0x3FF));
        }
    }
    return wide;
}

std::string Narrow(WideView wide) {
    std::string utf8;
    utf8.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size(); ++i) {
        const char32_t unit = wide[i];
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        const bool pair = high && i + 1 < wide.size() && wide[i + 1] >= 0xDC00 && wide[i + 1] < 0xE000;
        if (pair) {
            AppendUtf8(utf8, 0x10000 + ((unit - 0xD800) << 10) + (static_cast<char32_t>(wide[++i]) - 0xDC00));
        } else {
            AppendUtf8(utf8, unit >= 0xD800 && unit < 0xE000 ? kReplacement : unit);
        }
    }
    return utf8;
}

std::string Hex(HRESULT code) {
    char text[9];
    std::snprintf(text, sizeof text, "%x", static_cast<unsigned>(code));
    return text;
}

}  // namespace dialsim
