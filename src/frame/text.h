// Narrow UTF-8 text as a platform string.
#pragma once

#include <string_view>

#include "platform/strings.h"

namespace brindle {

// At most 2147483647 bytes. Empty or unconvertible text gives the empty string and reports nothing; a string
// that the platform cannot make is raised.
String ToPlatformString(std::string_view utf8);

}  // namespace brindle
