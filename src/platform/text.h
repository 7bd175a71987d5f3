// Conversions between texts and platform strings.
#pragma once

#include <string_view>

#include "platform/strings.h"

namespace brindle {

// Converts at most 2147483647 bytes. Empty or unconvertible text gives the empty string without an error.
// Throws when the platform cannot create the string.
String ToPlatformString(std::string_view utf8);

// A platform string that borrows a host's NUL-terminated text, which must outlive it. Throws an arithmetic
// overflow (0x80070216) for a text longer than 4294967295 units, and the platform's failures.
class TextReference {
public:
    explicit TextReference(const WCHAR* text);

    HSTRING Get() const noexcept { return string_.Get(); }

private:
    StringReference string_;
};

// An owned copy of a host's text. Throws what TextReference throws, and the failures of
// WindowsDuplicateString.
String CopyText(const WCHAR* text);

// The NUL-terminated characters of a string, valid as long as the string.
inline const WCHAR* TextOf(const String& string) noexcept {
    return WindowsGetStringRawBuffer(string.Get(), nullptr);
}

// The number of characters without the terminator.
inline UINT LengthOf(const String& string) noexcept { return WindowsGetStringLen(string.Get()); }

// Compares unit by unit, up to the first NUL of either.
inline bool SameText(const String& string, const WCHAR* text) noexcept {
    const WCHAR* units = TextOf(string);
    while (*units == *text && *text != 0) {
        ++units;
        ++text;
    }
    return *units == *text;
}

}  // namespace brindle
