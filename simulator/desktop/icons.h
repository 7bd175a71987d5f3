// The pictures of menu items, from all sources.
#pragma once

#include <cstdint>

#include "simulator/classes/menu_item.h"
#include "simulator/desktop/surface.h"

namespace dialsim {

// Drawn in a square of this size; empty when the picture cannot be loaded.
void DrawPicture(const Surface& surface, Point middle, double size, std::uint32_t color,
                 const Picture& picture);

// A known icon, 0 scroll ... 8 pen type.
void DrawKnownIcon(const Surface& surface, Point middle, double size, Paint paint, std::uint32_t icon);

}  // namespace dialsim
