// Records the simulator's events through the platform's interfaces, without the library.
#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <utility>

#include "platform/activation.h"
#include "platform/delegate.h"
#include "platform/interfaces/ui_input.h"
#include "support/simulator_fixture.h"

namespace brindle {

inline ComPtr<abi::IRadialController> MakeController(std::uint64_t window) {
    ComPtr<abi::IRadialControllerInterop> factory;
    EXPECT_EQ(GetFactory<abi::RadialController>(factory), S_OK);
    ComPtr<abi::IRadialController> controller;
    EXPECT_EQ(factory->CreateForWindow(reinterpret_cast<HWND>(window), abi::IRadialController::Iid,
                                       reinterpret_cast<void**>(controller.Put())),
              S_OK);
    return controller;
}

// A controller and handlers of its seven events, which record the event and return `answer`.
class EventRecorder {
public:
    explicit EventRecorder(std::uint64_t window) : controller_(MakeController(window)) {
        Subscribe(&abi::IRadialController::add_ScreenContactStarted, "touch");
        Subscribe(&abi::IRadialController::add_ScreenContactContinued, "move");
        Subscribe(&abi::IRadialController::add_ScreenContactEnded, "lift");
        Subscribe(&abi::IRadialController::add_ControlAcquired, "acquire");
        Subscribe(&abi::IRadialController::add_ControlLost, "lose");
        Subscribe(&abi::IRadialController::add_ButtonClicked, "click");
        Subscribe(&abi::IRadialController::add_RotationChanged, "turn");
        dialsim_clear_journal();
    }
    EventRecorder(const EventRecorder&) = delete;
    EventRecorder& operator=(const EventRecorder&) = delete;

    // The events since the last call: "turn 5 held; click at 1 2 3 4; lift; "
    std::string TakeEvents() { return std::exchange(events_, {}); }
    abi::IRadialController& controller() const { return *controller_.Get(); }

    HRESULT answer = S_OK;

private:
    template <class Handler>
    void Subscribe(HRESULT (abi::IRadialController::*add)(Handler*, EventRegistrationToken*) noexcept,
                   const char* event) {
        const auto handler = MakeDelegate<Handler>([this, event](auto*, auto* args) {
            events_ += event + Detail(args) + "; ";
            return answer;
        });
        EventRegistrationToken token{};
        EXPECT_EQ((controller_.Get()->*add)(handler.Get(), &token), S_OK);
    }

    // An event without arguments has null as its argument.
    static std::string Detail(abi::IInspectable* args) { return args == nullptr ? "" : " with arguments"; }
    template <class Args>
    static std::string Detail(Args* args) {
        ComPtr<abi::IRadialControllerScreenContact> contact;
        EXPECT_EQ(args->get_Contact(contact.Put()), S_OK);
        if (!contact) {
            return "";
        }
        abi::Rect bounds{};
        EXPECT_EQ(contact->get_Bounds(&bounds), S_OK);
        std::ostringstream text;
        text << " at " << bounds.X << " " << bounds.Y << " " << bounds.Width << " " << bounds.Height;
        return text.str();
    }
    static std::string Detail(abi::IRadialControllerRotationChangedEventArgs* args) {
        double degrees = 0.0;
        EXPECT_EQ(args->get_RotationDeltaInDegrees(&degrees), S_OK);
        ComPtr<abi::IRadialControllerRotationChangedEventArgs2> more;
        EXPECT_EQ(Query(args, more), S_OK);
        abi::boolean held = 0;
        EXPECT_EQ(more->get_IsButtonPressed(&held), S_OK);
        std::ostringstream text;
        text << " " << degrees << (held != 0 ? " held" : "");
        return text.str() + Detail<abi::IRadialControllerRotationChangedEventArgs>(args);
    }

    std::string events_;
    const ComPtr<abi::IRadialController> controller_;
};

}  // namespace brindle
