// Literals as a host writes its texts.
#pragma once

#ifdef _WIN32
#define UTF16(literal) L##literal
#else
#define UTF16(literal) u##literal
#endif
