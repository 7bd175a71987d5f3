// The informational text of a screen contact. It is formatted and written nowhere; that is intended.
#pragma once

#include "frame/diagnostics/diagnostics.h"
#include "platform/strings.h"
#include "platform/types.h"

namespace brindle {

// The misspelling belongs to the text.
inline constexpr auto kContactLine =
    Wide("\t Postion X=%lf, Y=%lf & \n \t Bounds Height=%lf, Width=%lf, X=%lf, Y=%lf\n");

// As FormatWide answers.
inline int FormatContactLine(WCHAR* buffer, std::size_t size, const abi::Point& position,
                             const abi::Rect& bounds) {
    const auto wide = [](float value) { return static_cast<double>(value); };
    return FormatWide(buffer, size, kContactLine.data(), wide(position.X), wide(position.Y),
                      wide(bounds.Height), wide(bounds.Width), wide(bounds.X), wide(bounds.Y));
}

}  // namespace brindle
