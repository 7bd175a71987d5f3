// Platform strings.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "platform/functions.h"

namespace brindle {

// Converts an ASCII literal to UTF-16 at compile time: class names are narrow in identifiers and wide in
// activation.
template <std::size_t N>
consteval std::array<WCHAR, N> Wide(const char (&text)[N]) {
    std::array<WCHAR, N> wide{};
    for (std::size_t i = 0; i < N; ++i) {
        wide[i] = static_cast<WCHAR>(text[i]);
    }
    return wide;
}

// A platform string that borrows its characters, which must outlive it. Not copied or moved: the platform
// points into the header.
class StringReference {
public:
    StringReference() = default;
    StringReference(const StringReference&) = delete;
    StringReference& operator=(const StringReference&) = delete;

    HRESULT Create(std::basic_string_view<WCHAR> text) noexcept {
        return WindowsCreateStringReference(text.data(), static_cast<UINT>(text.size()), &header_, &string_);
    }
    HSTRING Get() const noexcept { return string_; }

private:
    HSTRING_HEADER header_;  // the platform initialises it
    HSTRING string_ = nullptr;
};

// An owned platform string; null is the empty string.
class String {
public:
    String() = default;
    String(String&& other) noexcept : string_(std::exchange(other.string_, nullptr)) {}
    String& operator=(String other) noexcept {
        std::swap(string_, other.string_);
        return *this;
    }
    ~String() {
        if (string_ != nullptr) {
            WindowsDeleteString(string_);
        }
    }

    HSTRING Get() const noexcept { return string_; }
    HSTRING* Put() noexcept {
        *this = String();
        return &string_;
    }

private:
    HSTRING string_ = nullptr;
};

}  // namespace brindle
