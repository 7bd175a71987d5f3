// The listener's record of one item handed to the dial's menu.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/strings.h"

namespace brindle {

struct MenuEntry {
    // Boxed, so that the entry moves in its array without the string being touched.
    std::unique_ptr<String> display_text;
    std::uint32_t item_id = 0;
    // Recorded only: the subscription is never ended.
    std::int64_t invoked_token = 0;
    bool haptic_feedback = false;
};

}  // namespace brindle
