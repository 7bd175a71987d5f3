// The visible contents of a window's menu.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "simulator/classes/menu_item.h"

namespace dialsim {

struct MenuModelItem {
    bool present = false;
    bool selected = false;
    std::string label = {};
    Picture picture = {};
    std::string tag = {};
};

struct MenuModel {
    std::uint64_t window = 0;
    std::vector<MenuModelItem> items = {};
    std::vector<std::int32_t> system_items = {};
    bool automatic_haptics = false;
};

// Empty when the window has no controller.
std::optional<MenuModel> ReadMenu(std::uint64_t window);

// The angle of an item in the ring, in radians clockwise from the right; the first item is at the top.
double AngleInRing(std::size_t index, std::size_t count);

// Both are empty when the window has no controller.
std::string MenuText(std::uint64_t window);
std::string MenuSvg(std::uint64_t window);

}  // namespace dialsim
