// The simulator's texts as strings.
#pragma once

#include <string>

#include "simulator/dialsim.h"

inline std::string TextOf(std::size_t (*copy_out)(char*, std::size_t)) {
    std::string text(copy_out(nullptr, 0), '\0');
    copy_out(text.data(), text.size());
    text.pop_back();  // the terminator
    return text;
}

inline std::string Journal() { return TextOf(dialsim_journal); }
inline std::string OpenAccounts() { return TextOf(dialsim_accounts); }
inline std::string Raised() { return TextOf(dialsim_raised); }
