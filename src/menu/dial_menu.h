// The menu of one window's dial: the host's items, the system's entries, and which item is selected.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "brindle.h"
#include "menu/menu_entry.h"
#include "platform/com_ptr.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/ui_input.h"

namespace brindle {

// Part of a window's listener, which owns the controller. The host's thread calls it. The platform raises
// OnItemInvoked and completes picture files on threads of its own; both hold a plain pointer to the menu.
class DialMenu {
public:
    // Both must outlive the menu. The controller is created later.
    DialMenu(IDialHost* host, const ComPtr<abi::IRadialController>& controller)
        : host_(host), controller_(controller) {}
    DialMenu(const DialMenu&) = delete;
    DialMenu& operator=(const DialMenu&) = delete;

    // custom_menu.cpp, default_menu.cpp, selection.cpp
    HRESULT AddCustomMenu(const MenuItemDescription* items, std::uint32_t count);
    HRESULT SetDefaultMenu(const std::int32_t* kinds, std::uint32_t count);
    HRESULT SetCurrentCustomMenu(std::uint32_t item_id);

    // The menu of the last AddCustomMenu; null before one, and when it got none.
    const ComPtr<abi::IRadialControllerMenu>& Get() const { return menu_; }

private:
    friend struct DialListenerTest;

    // The sources of an item: known_icon.cpp, font_glyph.cpp (two), png_file.cpp, png_resource.cpp.
    HRESULT AddMenuItemFromKnownIcon(MenuEntry& entry, abi::RadialControllerMenuKnownIcon icon);
    HRESULT AddMenuItemFromSystemFont(MenuEntry& entry, HSTRING glyph, HSTRING font_family);
    HRESULT AddMenuItemFromCustomFont(MenuEntry& entry, HSTRING glyph, HSTRING font_family,
                                      HSTRING short_path);
    HRESULT AddMenuItemFromFilePNG(const MenuEntry& entry, HSTRING path);
    HRESULT AddMenuItemFromResourcePNG(MenuEntry& entry, HMODULE module, std::uint32_t resource);
    // The completion of AddMenuItemFromFilePNG, on the platform's thread.
    HRESULT OnImageFileOpened(abi::IAsyncOperation<abi::StorageFile>* operation, abi::AsyncStatus status,
                              const WCHAR* label, std::uint32_t item_id);

    // custom_menu.cpp
    HRESULT FetchMenu();
    // A code ends the whole call with it; nothing goes on with the next record.
    std::optional<HRESULT> AddDescribedItem(const MenuItemDescription& item);
    void AddCustomFontItem(MenuEntry entry, const MenuItemDescription& item);
    // menu_item.cpp: the last step of every source.
    HRESULT AddItemToMenu(abi::IRadialControllerMenuItem* item, MenuEntry& entry);
    HRESULT SubscribeInvoked(abi::IRadialControllerMenuItem& item, std::int64_t& token);
    // invocation.cpp
    HRESULT OnItemInvoked(abi::IRadialControllerMenuItem* sender, abi::IInspectable* args);

    IDialHost* const host_;
    const ComPtr<abi::IRadialController>& controller_;
    // Destroyed from last to first: the entries before the menu with their items.
    ClearedComPtr<abi::IRadialControllerMenu> menu_;
    ComPtr<abi::IRadialControllerMenuItemStatics> item_statics_;
    // Appended to by every menu and never cleared: hosts rely on the first entry of an item_id to decide its
    // haptic setting (Invocation.AnEntryOfAnEarlierMenuDecidesForALaterOne). No lock, although a picture file
    // appends on the thread that its load completes on.
    std::vector<MenuEntry> entries_;
};

}  // namespace brindle
