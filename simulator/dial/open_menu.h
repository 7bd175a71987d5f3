// The menu that is open over a window: turning moves the highlight, a click chooses the highlighted item.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/types.h"

namespace dialsim {

struct OpenMenu {
    std::uint64_t window = 0;
    std::uint32_t highlighted = 0;  // the index of an item
    double turned = 0;              // degrees that have not moved the highlight yet
};

// Empty while no menu is open.
std::optional<OpenMenu> TheOpenMenu();

// Highlights the selected item. False when the menu has no items: it stays closed.
bool OpenMenuOf(std::uint64_t window);
void CloseMenu();

// Moves the highlight by one item for every ten degrees, cyclically, however many turns they take; false
// while no menu is open.
bool MoveHighlight(double degrees);

}  // namespace dialsim
