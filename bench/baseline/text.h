#pragma once

#include <string>

#include "bench/baseline/activation.h"

namespace baseline {

// A reference to a text of the host; a text that is too long, or that the platform refuses, is raised.
inline HSTRING Reference(const WCHAR* text, HSTRING_HEADER& header) {
    const std::size_t length = std::char_traits<WCHAR>::length(text);
    if (length > UINT32_MAX) {
        Raise(static_cast<HRESULT>(0x80070216));
    }
    HSTRING string = nullptr;
    const HRESULT code = WindowsCreateStringReference(text, static_cast<UINT>(length), &header, &string);
    if (code < 0) {
        Raise(code);
    }
    return string;
}

}  // namespace baseline
