// The listener's record of one menu item.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/text.h"

namespace brindle {

struct MenuEntry {
    // A heap allocation of its own: moving the entry within the vector leaves the platform string alone
    // (DialListenerTest.EntriesKeepTheirLabelsWhileTheListGrows).
    std::unique_ptr<String> display_text;
    std::uint32_t item_id = 0;
    // Stored and never read: Invoked is never unsubscribed.
    std::int64_t invoked_token = 0;
    bool haptic_feedback = false;
};

// Throws what CopyText throws.
inline MenuEntry MakeEntry(const WCHAR* label, std::uint32_t item_id, bool haptic_feedback) {
    return {std::make_unique<String>(CopyText(label)), item_id, 0, haptic_feedback};
}

// The empty text when the entry has no label.
inline const WCHAR* LabelOf(const MenuEntry& entry) noexcept {
    static constexpr WCHAR kEmpty[] = {0};
    return entry.display_text ? TextOf(*entry.display_text) : kEmpty;
}

}  // namespace brindle
