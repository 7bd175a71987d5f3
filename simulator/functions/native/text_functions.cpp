// The runtime library's functions for UTF-16 strings, in the "C" locale.
#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "simulator/functions/real.h"
#include "simulator/system/text.h"

namespace dialsim::real {

namespace {

int FoldCase(WCHAR unit) { return unit >= u'A' && unit <= u'Z' ? unit - u'A' + u'a' : unit; }

}  // namespace

int _wcsnicmp(const WCHAR* a, const WCHAR* b, std::size_t count) {
    for (; count > 0; --count, ++a, ++b) {
        const int difference = FoldCase(*a) - FoldCase(*b);
        if (difference != 0 || *a == 0) {
            return difference;
        }
    }
    return 0;
}

int wcscpy_s(WCHAR* copy, std::size_t size, const WCHAR* text) {
    const WideView view(text);
    if (view.size() >= size) {
        *copy = 0;
        return ERANGE;
    }
    view.copy(copy, view.size());
    copy[view.size()] = 0;
    return 0;
}

// A number consists of ASCII characters: parsing ends at the first other one.
LONG wcstol(const WCHAR* text, WCHAR** end, int base) {
    std::string ascii;
    for (const WCHAR* unit = text; *unit != 0 && *unit < 0x80; ++unit) {
        ascii += static_cast<char>(*unit);
    }
    char* ascii_end = nullptr;
    const long number = std::strtol(ascii.c_str(), &ascii_end, base);
    if (end != nullptr) {
        *end = const_cast<WCHAR*>(text + (ascii_end - ascii.c_str()));
    }
    return static_cast<LONG>(
        std::clamp<long>(number, std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::max()));
}

}  // namespace dialsim::real
