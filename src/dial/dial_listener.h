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

// Created, registered and destroyed on the host's thread; its handlers run on the thread that the platform
// raises the event on, and hold a plain pointer to the listener.
//
// The controller holds the only references to its event handlers, and each menu item to its own. Releasing
// the controller ends its events, so no event is ever unsubscribed, deliberately: teardown releases and makes
// no call that can fail (Listener.NothingIsEverUnsubscribed). A host that keeps a reference to the controller
// must release it first. The completion handler of a picture file belongs to the platform's operation: no
// load may outlive the listener.
//
// No lock. An event may arrive inside any platform call: an operation holds its own reference to each object
// that it uses after a call (MenuMadeInACall.AndLostWhileATurnReadsTheSelectionLeavesTheTurnItsMenu).
class DialListener {
public:
    explicit DialListener(IDialHost* host) : host_(host) {}
    DialListener(const DialListener&) = delete;
    DialListener& operator=(const DialListener&) = delete;

    // registration.cpp: creates the window's controller and subscribes to its seven events. Returns every
    // failure as a code; after a failure the caller deletes the listener.
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

    // presence.cpp: throws platform failures; the completion sets both flags.
    static void StartPresenceQuery(const ComPtr<SharedFlag>& found, const ComPtr<SharedFlag>& done);

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

    // Destroyed from last to first: the entries before the menu with their items, the menu before its
    // controller (DialListenerTest.TheMenuGoesAfterTheEntriesAndBeforeTheController).
    std::uint32_t state_ = 0;  // stays 0
    IDialHost* host_;
    ComPtr<abi::IRadialControllerInterop> controller_factory_;
    ComPtr<abi::IUnknown> spare_;  // stays empty
    ComPtr<abi::IRadialController> controller_;
    ComPtr<abi::IRadialControllerMenu> menu_;
    ComPtr<abi::IRadialControllerMenuItemStatics> item_statics_;
    // Stored and never read: no event is unsubscribed (DialListenerTest.TheDestructorUnsubscribesNothing).
    EventRegistrationToken rotation_token_{};
    EventRegistrationToken contact_started_token_{};
    EventRegistrationToken contact_ended_token_{};
    EventRegistrationToken contact_continued_token_{};
    EventRegistrationToken control_lost_token_{};
    EventRegistrationToken control_acquired_token_{};
    EventRegistrationToken button_clicked_token_{};
    // Appended to by every menu and never cleared: hosts rely on the first entry of an item_id to decide its
    // haptic setting (Invocation.AnEntryOfAnEarlierMenuDecidesForALaterOne). No lock, although a picture file
    // appends on the thread that its load completes on.
    std::vector<MenuEntry> menu_entries_;
    // 1 when a completion has finished since the last query began. Shared with the completion, which may
    // outlive the listener. Deliberately one per window: a late completion ends a later wait, as brindle.h
    // says (Presence.ACompletionThatComesDuringTheNextWaitEndsItWithoutAnAnswer).
    ComPtr<SharedFlag> presence_done_ = ComPtr<SharedFlag>::Attach(new SharedFlag);
};

}  // namespace brindle
