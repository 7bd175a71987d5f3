// One host window bound to one platform controller.
#pragma once

#include <cstdint>

#include "brindle.h"
#include "menu/dial_menu.h"
#include "platform/com_ptr.h"
#include "platform/interfaces/ui_input.h"
#include "presence/presence_query.h"

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

    DialMenu& Menu() { return menu_; }
    PresenceQuery& Presence() { return presence_; }

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

    // Destroyed from last to first: the menu before its controller
    // (DialListenerTest.TheMenuIsReleasedAfterTheEntriesAndBeforeTheController).
    std::uint32_t state_ = 0;  // stays 0
    IDialHost* host_;
    ComPtr<abi::IRadialControllerInterop> controller_factory_;
    ComPtr<abi::IUnknown> spare_;  // stays empty
    ComPtr<abi::IRadialController> controller_;
    DialMenu menu_{host_, controller_};
    // Stored and never read: no event is unsubscribed (DialListenerTest.TheDestructorUnsubscribesNothing).
    EventRegistrationToken rotation_token_{};
    EventRegistrationToken contact_started_token_{};
    EventRegistrationToken contact_ended_token_{};
    EventRegistrationToken contact_continued_token_{};
    EventRegistrationToken control_lost_token_{};
    EventRegistrationToken control_acquired_token_{};
    EventRegistrationToken button_clicked_token_{};
    PresenceQuery presence_;
};

}  // namespace brindle
