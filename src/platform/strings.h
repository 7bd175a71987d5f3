// Texts as the platform takes them.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "platform/functions.h"

namespace brindle {

// An ASCII literal as UTF-16, made at compile time: class names are needed narrow for identifiers and wide
// for activation.
template <std::size_t N>
consteval std::array<WCHAR, N> Wide(const char (&text)[N]) {
    std::array<WCHAR, N> wide{};
    for (std::size_t i = 0; i < N; ++i) {
        wide[i] = static_cast<WCHAR>(text[i]);
    }
    return wide;
}

// A platform string over characters that it does not own and that must outlive it. Stays where it was made:
// the platform points into the header.
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
    HSTRING_HEADER header_{};
    HSTRING string_ = nullptr;
};

// An owned platform string; null is the empty text.
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
