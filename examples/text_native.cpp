#include <algorithm>
#include <clocale>
#include <cuchar>
#include <iterator>

#include "text.h"

namespace {

// Results of mbrtoc16 other than the number of converted bytes.
constexpr auto kSecondHalf = static_cast<std::size_t>(-3);  // of a surrogate pair whose bytes are converted
constexpr auto kIncomplete = static_cast<std::size_t>(-2);
constexpr auto kDamaged = static_cast<std::size_t>(-1);

// For the functions below: texts are UTF-8 in every locale.
void UseUtf8() { std::setlocale(LC_CTYPE, "C.UTF-8"); }

// Converts up to the first invalid byte.
Text FromUtf8(const char* utf8) {
    const char* const end = utf8 + std::char_traits<char>::length(utf8) + 1;
    Text text;
    std::mbstate_t state{};
    for (;;) {
        char16_t unit = 0;
        const std::size_t taken = std::mbrtoc16(&unit, utf8, static_cast<std::size_t>(end - utf8), &state);
        if (taken == 0 || taken == kIncomplete || taken == kDamaged) {
            return text;
        }
        text += unit;
        utf8 += taken == kSecondHalf ? 0 : taken;
    }
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
    std::transform(argv, argv + argc, std::back_inserter(texts), FromUtf8);
    return texts;
}

std::FILE* OpenToRead(const Text& path) { return std::fopen(ToUtf8(path).c_str(), "rb"); }
