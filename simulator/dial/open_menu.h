// The menu while the user has it open over a window: turning moves a highlight, a click chooses what it is
// on.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/types.h"

namespace dialsim {

struct OpenMenu {
    std::uint64_t window = 0;
    std::uint32_t highlighted = 0;  // a place in the ring
};

// Nothing while it is closed.
std::optional<OpenMenu> TheOpenMenu();

// The highlight begins on the selected item. False, and the menu stays closed, where there is nothing to
// choose.
bool OpenMenuOf(std::uint64_t window);
void CloseMenu();

// By one item for every ten degrees, round the ring; false while the menu is closed.
bool MoveHighlight(double degrees);

}  // namespace dialsim
