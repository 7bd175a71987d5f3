#pragma once

#include <string_view>

#include "platform/functions.h"

namespace stub {

std::u16string_view View(HSTRING string) noexcept;

// Owns a reference to the text.
class Text {
public:
    explicit Text(HSTRING string) noexcept { WindowsDuplicateString(string, &string_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { WindowsDeleteString(string_); }

    HRESULT ReturnReference(HSTRING* result) const noexcept {
        return WindowsDuplicateString(string_, result);
    }
    std::u16string_view View() const noexcept { return stub::View(string_); }

private:
    HSTRING string_ = nullptr;
};

}  // namespace stub
