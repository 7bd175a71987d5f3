#include <clocale>
#include <cuchar>
#include <string_view>

#include "text.h"

namespace {

// What mbrtoc16 answers beside the number of bytes that it took.
constexpr auto kSecondHalf = static_cast<std::size_t>(-3);  // of a pair whose bytes are taken already
constexpr auto kIncomplete = static_cast<std::size_t>(-2);
constexpr auto kDamaged = static_cast<std::size_t>(-1);

void UseUtf8() { [[maybe_unused]] static const char* const locale = std::setlocale(LC_CTYPE, "C.UTF-8"); }

// Up to what is damaged.
Text FromUtf8(std::string_view utf8) {
    Text text;
    std::mbstate_t state{};
    while (!utf8.empty()) {
        char16_t unit = 0;
        const std::size_t taken = std::mbrtoc16(&unit, utf8.data(), utf8.size(), &state);
        if (taken == kIncomplete || taken == kDamaged) {
            break;
        }
        text += unit;
        utf8.remove_prefix(taken == kSecondHalf ? 0 : taken);
    }
    return text;
}

}  // namespace

std::string ToUtf8(const Text& text) {
    UseUtf8();
    std::string utf8;
    std::mbstate_t state{};
    for (const char16_t unit : text) {
        char bytes[16];
        const std::size_t length = std::c16rtomb(bytes, unit, &state);
        if (length != kDamaged) {
            utf8.append(bytes, length);
        }
    }
    return utf8;
}

std::vector<Text> Arguments(int argc, char** argv) {
    UseUtf8();
    std::vector<Text> texts;
    for (int i = 0; i < argc; ++i) {
        texts.push_back(FromUtf8(argv[i]));
    }
    return texts;
}
