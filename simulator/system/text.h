// UTF-8 and UTF-16.
#pragma once

#include <string>
#include <string_view>

#include "platform/types.h"

namespace dialsim {

using WideString = std::basic_string<WCHAR>;
using WideView = std::basic_string_view<WCHAR>;

// Replaces each maximal subpart of an invalid sequence with U+FFFD, as Unicode recommends.
WideString Widen(std::string_view utf8);
std::string Narrow(WideView wide);

// A code in the format of the journal: "80004005".
std::string Hex(HRESULT code);

}  // namespace dialsim
