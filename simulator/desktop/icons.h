// The pictures of menu items, from whatever they were given.
#pragma once

#include <cstdint>

#include "simulator/classes/menu_item.h"
#include "simulator/desktop/surface.h"

namespace dialsim {

// In a square of the size; nothing where the picture cannot be had.
void DrawPicture(const Surface& surface, Point middle, double size, std::uint32_t color,
                 const Picture& picture);

// One of the platform's own, 0 scroll ... 8 pen type.
void DrawKnownIcon(const Surface& surface, Point middle, double size, Paint paint, std::uint32_t icon);

}  // namespace dialsim
