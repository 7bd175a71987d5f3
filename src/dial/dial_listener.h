// One host window bound to one platform controller.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "brindle.h"
#include "menu/menu_entry.h"
#include "platform/com_ptr.h"
#include "platform/interfaces/storage.h"
#include "platform/interfaces/ui_input.h"
#include "presence/shared_flag.h"

namespace brindle {

// Made, registered and ended on the host's thread; its handlers run on whatever thread the platform raises
// events on. They hold a plain pointer to the listener. The controller holds the only references to the
// handlers of its events, and each menu item those of its own: when the controller goes with the listener, no
// event comes any more, and so none is ever unsubscribed, on purpose. A host that kept the controller has to
// release it before. The handler of a picture's load belongs to the platform's operation: no load may outlive
// the listener. No lock. An event may arrive inside any platform call: an operation holds its own reference
// to what it goes on with.
class DialListener {
public:
    explicit DialListener(IDialHost* host) : host_(host) {}
    DialListener(const DialListener&) = delete;
    DialListener& operator=(const DialListener&) = delete;

    // Makes the window's controller and subscribes to its seven events (registration.cpp). Every failure is a
    // code; after one the listener is to be deleted.
    HRESULT Register(std::uint64_t window);

    // custom_menu.cpp, default_menu.cpp, selection.cpp
    HRESULT AddCustomMenu(const MenuItemDescription* items, std::uint32_t count);
    HRESULT SetDefaultMenu(const std::int32_t* kinds, std::uint32_t count);
    HRESULT SetCurrentCustomMenu(std::uint32_t item_id);
    // presence.cpp: S_OK when the dial is there, E_FAIL when it is not.
    HRESULT IsDialPresent();

private:
    friend struct DialListenerTest;

    // `Event` is one of the member functions below.
    template <auto Event, class Handler>
    HRESULT Subscribe(HRESULT (abi::IRadialController::*add)(Handler*, EventRegistrationToken*) noexcept,
                      EventRegistrationToken& token) noexcept;

    // contact_events.cpp
    HRESULT OnScreenContactContinued(abi::IRadialController* sender,
                                     abi::IRadialControllerScreenContactContinuedEventArgs* args);
    HRESULT OnScreenContactStarted(abi::IRadialController* sender,
                                   abi::IRadialControllerScreenContactStartedEventArgs* args);
    HRESULT OnControlAcquired(abi::IRadialController* sender,
                              abi::IRadialControllerControlAcquiredEventArgs* args);
    HRESULT OnIgnoredEvent(abi::IRadialController* sender, abi::IInspectable* args);
    // rotation.cpp
    HRESULT OnRotationChanged(abi::IRadialController* sender,
                              abi::IRadialControllerRotationChangedEventArgs* args);
    // button_click.cpp
    HRESULT OnButtonClicked(abi::IRadialController* sender,
                            abi::IRadialControllerButtonClickedEventArgs* args);

    // The five sources of an item, each in a file of its own: known_icon, font_glyph, png_file, png_resource.
    HRESULT AddMenuItemFromKnownIcon(MenuEntry& entry, abi::RadialControllerMenuKnownIcon icon);
    HRESULT AddMenuItemFromSystemFont(MenuEntry& entry, HSTRING glyph, HSTRING font_family);
    HRESULT AddMenuItemFromCustomFont(MenuEntry& entry, HSTRING glyph, HSTRING font_family,
                                      HSTRING short_path);
    HRESULT AddMenuItemFromFilePNG(const MenuEntry& entry, HSTRING path);
    HRESULT AddMenuItemFromResourcePNG(MenuEntry& entry, HMODULE module, std::uint32_t resource);
    // The rest of AddMenuItemFromFilePNG, when the platform has opened the file.
    HRESULT OnImageFileOpened(abi::IAsyncOperation<abi::StorageFile>* operation, abi::AsyncStatus status,
                              const WCHAR* label, std::uint32_t item_id);

    // presence.cpp. Raises the platform's failures; what was found is told through both flags.
    static void StartPresenceQuery(const ComPtr<SharedFlag>& found, const ComPtr<SharedFlag>& done);

    // custom_menu.cpp
    HRESULT FetchMenu();
    // The code to end the whole menu with, or nothing.
    std::optional<HRESULT> AddDescribedItem(const MenuItemDescription& item);
    void AddCustomFontItem(MenuEntry entry, const MenuItemDescription& item);
    // menu_item.cpp: what all sources end with.
    HRESULT AddItemToMenu(abi::IRadialControllerMenuItem* item, MenuEntry& entry);
    HRESULT SubscribeInvoked(abi::IRadialControllerMenuItem& item, std::int64_t& token);
    // invocation.cpp
    HRESULT OnItemInvoked(abi::IRadialControllerMenuItem* sender, abi::IInspectable* args);

    // Released from the last to the first of these when the listener ends: the entries before the menu that
    // has their items, the menu before its controller.
    std::uint32_t state_ = 0;  // stays 0
    IDialHost* host_;
    ComPtr<abi::IRadialControllerInterop> controller_factory_;
    ComPtr<abi::IUnknown> spare_;  // stays empty
    ComPtr<abi::IRadialController> controller_;
    ComPtr<abi::IRadialControllerMenu> menu_;
    ComPtr<abi::IRadialControllerMenuItemStatics> item_statics_;
    // Kept and never used: no subscription is ever ended.
    EventRegistrationToken rotation_token_{};
    EventRegistrationToken contact_started_token_{};
    EventRegistrationToken contact_ended_token_{};
    EventRegistrationToken contact_continued_token_{};
    EventRegistrationToken control_lost_token_{};
    EventRegistrationToken control_acquired_token_{};
    EventRegistrationToken button_clicked_token_{};
    // Only ever appended to, across menus; the first match wins. No lock, also where a load completes
    // elsewhere.
    std::vector<MenuEntry> menu_entries_;
    // 1 when a query's completion has finished since the last query began. Shared with that completion, which
    // may outlive the listener. One for the window, on purpose: queries that overlap end each other's wait.
    ComPtr<SharedFlag> presence_done_ = ComPtr<SharedFlag>::Attach(new SharedFlag);
};

}  // namespace brindle
