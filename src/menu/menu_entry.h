// The listener's record of one item handed to the dial's menu.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/text.h"

namespace brindle {

struct MenuEntry {
    // Boxed, so that the entry moves in its array without the string being touched.
    std::unique_ptr<String> display_text;
    std::uint32_t item_id = 0;
    // Recorded only: the subscription is never ended.
    std::int64_t invoked_token = 0;
    bool haptic_feedback = false;
};

// Raises what copying the label raises.
inline MenuEntry MakeEntry(const WCHAR* label, std::uint32_t item_id, bool haptic_feedback) {
    return {std::make_unique<String>(CopyText(label)), item_id, 0, haptic_feedback};
}

// The empty text without a box.
inline const WCHAR* LabelOf(const MenuEntry& entry) noexcept {
    static constexpr WCHAR kEmpty[] = {0};
    return entry.display_text ? TextOf(*entry.display_text) : kEmpty;
}

}  // namespace brindle
