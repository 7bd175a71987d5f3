// From the platform's floating-point bounds to the host's whole numbers.
#pragma once

#include <cstdint>
#include <limits>

#include "brindle.h"
#include "platform/types.h"

namespace brindle {

// Toward zero. What an int32 cannot hold, NaN included, becomes INT32_MIN: the answer of the processor's own
// conversion, which C++ leaves undefined.
inline std::int32_t Truncate(float value) {
    constexpr float kLimit = 2147483648.0F;
    return value >= -kLimit && value < kLimit ? static_cast<std::int32_t>(value)
                                              : std::numeric_limits<std::int32_t>::min();
}

// For a rotation: the far edges are summed in single precision and truncated once.
inline DialContactRect RotationContactRect(const abi::Rect& bounds) {
    return {Truncate(bounds.X), Truncate(bounds.Y), Truncate(bounds.X + bounds.Width),
            Truncate(bounds.Y + bounds.Height)};
}

// For a click: the far edges start from the truncated near ones. The difference is intended: 10.7 wide 20.6
// ends at 31 for a rotation and at 30 for a click.
inline DialContactRect ClickContactRect(const abi::Rect& bounds) {
    const std::int32_t left = Truncate(bounds.X);
    const std::int32_t top = Truncate(bounds.Y);
    return {left, top, Truncate(static_cast<float>(left) + bounds.Width),
            Truncate(static_cast<float>(top) + bounds.Height)};
}

}  // namespace brindle
