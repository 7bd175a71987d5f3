// The dial's menu in the tests: the platform's operations, and the visible items.
#pragma once

#include <string>

#include "behaviour.h"
#include "support/menu_items.h"

inline constexpr char kMenuItems[] = "Windows.UI.Input.RadialControllerMenuItem";
inline constexpr char kItemStatics[] = "RoGetActivationFactory(Windows.UI.Input.RadialControllerMenuItem)";
inline constexpr char kGetMenu[] = "IRadialController::get_Menu";
inline constexpr char kGetItems[] = "IRadialControllerMenu::get_Items";
inline constexpr char kGetSelected[] = "IRadialControllerMenu::GetSelectedMenuItem";
inline constexpr char kCreateFromKnownIcon[] = "IRadialControllerMenuItemStatics::CreateFromKnownIcon";
inline constexpr char kAddInvoked[] = "IRadialControllerMenuItem::add_Invoked";
inline constexpr char kPutTag[] = "IRadialControllerMenuItem::put_Tag";

// The tags of the menu's items, a line each.
inline std::string TagsShown() {
    std::string tags;
    for (const std::string& line : LinesOf(MenuText(kWindow))) {
        const std::size_t tag = line.find(", tag ");
        tags += tag == std::string::npos ? "" : line.substr(tag + 6) + "\n";
    }
    return tags;
}
