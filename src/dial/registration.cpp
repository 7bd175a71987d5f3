// A listener's beginning.
#include "dial/dial_listener.h"
#include "frame/steps.h"
#include "platform/activation.h"
#include "platform/delegate.h"

namespace brindle {

namespace {

HRESULT CreateForWindow(abi::IRadialControllerInterop& factory, std::uint64_t window,
                        ComPtr<abi::IRadialController>& controller) noexcept {
    return factory.CreateForWindow(reinterpret_cast<HWND>(window), abi::IRadialController::Iid,
                                   reinterpret_cast<void**>(controller.Put()));
}

}  // namespace

// Each call makes a handler of its own; the controller takes the only reference to it.
template <class Handler, class Event>
HRESULT DialListener::Subscribe(HRESULT (abi::IRadialController::*add)(Handler*,
                                                                       EventRegistrationToken*) noexcept,
                                Event event, EventRegistrationToken& token) noexcept {
    const auto handler = MakeDelegate<Handler>(
        [this, event](auto* sender, auto* args) { return (this->*event)(sender, args); });
    return handler ? (controller_.Get()->*add)(handler.Get(), &token) : E_OUTOFMEMORY;
}

HRESULT DialListener::Register(std::uint64_t window) {
    using Controller = abi::IRadialController;
    using Self = DialListener;

    RETURN_IF_STEP_FAILS(458, GetFactory<abi::RadialController>(controller_factory_));
    RETURN_IF_STEP_FAILS(460, CreateForWindow(*controller_factory_.Get(), window, controller_));
    if (!controller_) {
        return E_NOINTERFACE;
    }
    RETURN_IF_STEP_FAILS(467, Subscribe(&Controller::add_ScreenContactContinued,
                                        &Self::OnScreenContactContinued, contact_continued_token_));
    RETURN_IF_STEP_FAILS(471, Subscribe(&Controller::add_ScreenContactStarted, &Self::OnScreenContactStarted,
                                        contact_started_token_));
    RETURN_IF_STEP_FAILS(
        475, Subscribe(&Controller::add_ScreenContactEnded, &Self::OnIgnoredEvent, contact_ended_token_));
    RETURN_IF_STEP_FAILS(479,
                         Subscribe(&Controller::add_ControlLost, &Self::OnIgnoredEvent, control_lost_token_));
    RETURN_IF_STEP_FAILS(
        483, Subscribe(&Controller::add_ControlAcquired, &Self::OnControlAcquired, control_acquired_token_));
    RETURN_IF_STEP_FAILS(
        487, Subscribe(&Controller::add_RotationChanged, &Self::OnRotationChanged, rotation_token_));
    RETURN_IF_STEP_FAILS(
        491, Subscribe(&Controller::add_ButtonClicked, &Self::OnButtonClicked, button_clicked_token_));
    return S_OK;
}

}  // namespace brindle
