// UTF-16 literals and strings of a host.
#pragma once

#include <brindle.h>

#include <string>

#ifdef _WIN32
#define UTF16(literal) L##literal
#else
#define UTF16(literal) u##literal
#endif

using WideText = std::basic_string<BrindleChar>;
