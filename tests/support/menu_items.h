// Descriptions of menu items.
#pragma once

#include <brindle.h>

#include <cstdint>
#include <vector>

#include "support/utf16.h"

inline MenuItemDescription Described(MenuItemKind kind, const BrindleChar* label, std::uint32_t item_id) {
    MenuItemDescription item{};
    item.kind = kind;
    item.display_text = label;
    item.item_id = item_id;
    return item;
}

inline MenuItemDescription KnownIcon(std::uint32_t item_id, std::uint32_t icon = 3,
                                     const BrindleChar* label = UTF16("Volume")) {
    MenuItemDescription item = Described(MenuItemKind::KnownIcon, label, item_id);
    item.source.number = icon;
    return item;
}

inline MenuItemDescription SystemFont(std::uint32_t item_id) {
    MenuItemDescription item = Described(MenuItemKind::SystemFont, UTF16("Glyph"), item_id);
    item.source.text = UTF16("A");
    item.source2.text = UTF16("Symbols");
    return item;
}

inline MenuItemDescription CustomFont(std::uint32_t item_id, const BrindleChar* font_path) {
    MenuItemDescription item = Described(MenuItemKind::CustomFont, UTF16("Own glyph"), item_id);
    item.source.text = UTF16("B");
    item.source2.text = UTF16("Own Symbols");
    item.source3.text = font_path;
    return item;
}

inline MenuItemDescription FilePNG(std::uint32_t item_id, const BrindleChar* path) {
    MenuItemDescription item = Described(MenuItemKind::FilePNG, UTF16("File"), item_id);
    item.source.text = path;
    return item;
}

inline MenuItemDescription ResourcePNG(std::uint32_t item_id, std::uint64_t module, std::uint32_t resource) {
    MenuItemDescription item = Described(MenuItemKind::ResourcePNG, UTF16("Resource"), item_id);
    item.source.number = module;
    item.source2.number = resource;
    return item;
}

inline MenuItemDescription WithHaptics(MenuItemDescription item) {
    item.haptic_feedback = 1;
    return item;
}

inline bool SetMenu(std::uint64_t window, const std::vector<MenuItemDescription>& items) {
    return add_custom_menu(window, items.data(), static_cast<std::uint32_t>(items.size()));
}

inline bool SetSystemItems(std::uint64_t window, const std::vector<std::int32_t>& kinds) {
    return set_default_menu(window, kinds.data(), static_cast<std::uint32_t>(kinds.size()));
}
