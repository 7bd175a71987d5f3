// The informational text of a screen contact. Deliberately formatted and never written: hosts get lines for
// failed steps only (ContactEvents.ReadTheContactOnceAndDoNotReachTheHost).
#pragma once

#include "frame/diagnostics/diagnostics.h"
#include "platform/strings.h"
#include "platform/types.h"

namespace brindle {

// The misspelling is part of the text (ContactLine.HasThePositionFirstAndHeightBeforeWidth).
inline constexpr auto kContactLine =
    Wide("\t Postion X=%lf, Y=%lf & \n \t Bounds Height=%lf, Width=%lf, X=%lf, Y=%lf\n");

// Returns what FormatWide returns.
inline int FormatContactLine(WCHAR* buffer, std::size_t size, const abi::Point& position,
                             const abi::Rect& bounds) {
    const auto wide = [](float value) { return static_cast<double>(value); };
    return FormatWide(buffer, size, kContactLine.data(), wide(position.X), wide(position.Y),
                      wide(bounds.Height), wide(bounds.Width), wide(bounds.X), wide(bounds.Y));
}

}  // namespace brindle
