// A text that changes all over and in its length from turn to turn, and shows where it was torn.
#pragma once

#include <string>

inline std::string ChangingText(unsigned turn) {
    const unsigned letter = turn % 23;
    return std::string(1 + letter * 150, static_cast<char>('a' + letter));
}

inline bool IsWholeText(const std::string& text) {
    return !text.empty() && text == ChangingText(static_cast<unsigned>(text[0] - 'a'));
}
