// Diagnostic lines: one line on standard output for each failed step, and nothing else.
#pragma once

#include <cstddef>

#include "platform/types.h"

namespace brindle {

// "failed with 80004005 at line 460"
void PrintFailure(HRESULT code, int line) noexcept;

// "register failed with 80004005 at line 110"
void PrintFailure(const char* step, HRESULT code, int line) noexcept;

// The size of the buffer that informational texts are formatted into. They are deliberately never written:
// hosts get lines for failed steps only (CustomMenu.OneKnownIconTakesTheseStepsInThisOrder).
inline constexpr std::size_t kWideLineCharacters = 2000;

// Formats into `buffer` of `size` characters; %s takes UTF-16. Returns the number of characters before the
// terminator, or -1 on failure: a text that does not fit leaves an empty text; without a buffer or a format
// nothing is written.
int FormatWide(WCHAR* buffer, std::size_t size, const WCHAR* format, ...) noexcept;

}  // namespace brindle
