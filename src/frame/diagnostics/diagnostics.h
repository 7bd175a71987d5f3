// What the library says: one line on standard output for a failed step. Nothing else is ever written.
#pragma once

#include <cstddef>

#include "platform/types.h"

namespace brindle {

// "failed with 80004005 at line 460"
void PrintFailure(HRESULT code, int line) noexcept;

// "register failed with 80004005 at line 110"
void PrintFailure(const char* step, HRESULT code, int line) noexcept;

// The informational wide lines are formatted into a buffer of this many characters and written nowhere;
// that is intended.
inline constexpr std::size_t kWideLineCharacters = 2000;

// Formats into `buffer` of `size` characters, %s taking UTF-16. The number of characters written before the
// terminator, or -1 on any failure: a text that does not fit leaves an empty one, a missing buffer or format
// nothing.
int FormatWide(WCHAR* buffer, std::size_t size, const WCHAR* format, ...) noexcept;

}  // namespace brindle
