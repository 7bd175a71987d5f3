// A text that changes its characters and length with each number, so that a torn write is visible.
#pragma once

#include <string>

inline std::string ChangingText(unsigned turn) {
    const unsigned letter = turn % 23;
    return std::string(1 + letter * 150, static_cast<char>('a' + letter));
}

inline bool IsWholeText(const std::string& text) {
    return !text.empty() && text == ChangingText(static_cast<unsigned>(text[0] - 'a'));
}
