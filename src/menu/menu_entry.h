// The listener's record of one item handed to the dial's menu.
#pragma once

#include <cstdint>

#include "frame/text.h"

namespace brindle {

struct MenuEntry {
    String display_text;
    std::uint32_t item_id = 0;
    // Recorded only: the subscription is never ended.
    std::int64_t invoked_token = 0;
    bool haptic_feedback = false;
};

// Raises what copying the label raises.
inline MenuEntry MakeEntry(const WCHAR* label, std::uint32_t item_id, bool haptic_feedback) {
    return {CopyText(label), item_id, 0, haptic_feedback};
}

inline const WCHAR* LabelOf(const MenuEntry& entry) noexcept { return TextOf(entry.display_text); }

}  // namespace brindle
