// UTF-8 and UTF-16.
#pragma once

#include <string>
#include <string_view>

#include "platform/types.h"

namespace dialsim {

using WideString = std::basic_string<WCHAR>;
using WideView = std::basic_string_view<WCHAR>;

// Each damaged sequence becomes U+FFFD, one for its longest possible beginning.
WideString Widen(std::string_view utf8);
std::string Narrow(WideView wide);

// A code as the journal shows it: "80004005".
std::string Hex(HRESULT code);

}  // namespace dialsim
