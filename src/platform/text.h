// Texts of the host and of the library as platform strings.
#pragma once

#include <string_view>

#include "platform/strings.h"

namespace brindle {

// At most 2147483647 bytes. Empty or unconvertible text gives the empty string and reports nothing; a string
// that the platform cannot make is raised.
String ToPlatformString(std::string_view utf8);

// A platform string over a host's text, NUL-terminated and alive as long as this is. A text longer than 32
// bits can count is raised as an arithmetic overflow (0x80070216), what the platform refuses with its own
// code.
class TextReference {
public:
    explicit TextReference(const WCHAR* text);

    HSTRING Get() const noexcept { return string_.Get(); }

private:
    StringReference string_;
};

// An owned copy of a host's text; raises as TextReference does, and what the platform's copying answers.
String CopyText(const WCHAR* text);

// The characters of a string, terminated; they live as long as it does.
inline const WCHAR* TextOf(const String& string) noexcept {
    return WindowsGetStringRawBuffer(string.Get(), nullptr);
}

// How many characters they are, without the terminator.
inline UINT LengthOf(const String& string) noexcept { return WindowsGetStringLen(string.Get()); }

// Unit by unit, up to the first NUL of either.
inline bool SameText(const String& string, const WCHAR* text) noexcept {
    return std::basic_string_view<WCHAR>(TextOf(string)) == text;
}

}  // namespace brindle
