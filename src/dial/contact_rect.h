// Converts the platform's floating-point bounds to the host's integers.
#pragma once

#include <cstdint>
#include <limits>

#include "brindle.h"
#include "platform/types.h"

namespace brindle {

// Toward zero. A value outside the range of int32, NaN included, becomes INT32_MIN: the result of the
// processor's conversion instruction, which C++ leaves undefined
// (Truncation.WhatDoesNotFitIsTheLowestNumber).
inline std::int32_t Truncate(float value) {
    constexpr float kLimit = 2147483648.0F;
    return value >= -kLimit && value < kLimit ? static_cast<std::int32_t>(value)
                                              : std::numeric_limits<std::int32_t>::min();
}

// For a rotation: right and bottom are summed in single precision and truncated once.
inline DialContactRect RotationContactRect(const abi::Rect& bounds) {
    return {Truncate(bounds.X), Truncate(bounds.Y), Truncate(bounds.X + bounds.Width),
            Truncate(bounds.Y + bounds.Height)};
}

// For a click: right and bottom start from the truncated left and top. The difference is deliberate and part
// of brindle.h: x 10.7 with width 20.6 ends at 31 for a rotation and at 30 for a click
// (ButtonClick.FarEdgesStartFromTheTruncatedNearOnes).
inline DialContactRect ClickContactRect(const abi::Rect& bounds) {
    const std::int32_t left = Truncate(bounds.X);
    const std::int32_t top = Truncate(bounds.Y);
    return {left, top, Truncate(static_cast<float>(left) + bounds.Width),
            Truncate(static_cast<float>(top) + bounds.Height)};
}

}  // namespace brindle
