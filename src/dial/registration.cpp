// DialListener::Register: the window's controller and its event subscriptions.
#include "dial/dial_listener.h"
#include "frame/diagnostics/steps.h"
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

// Each attempt of a guarded step creates its own handler, so a second attempt that succeeds subscribes twice
// (Listener.EachAttemptOfASubscriptionMakesAFreshHandler). The controller holds the only reference to it.
template <auto Event, class Handler>
HRESULT DialListener::Subscribe(HRESULT (abi::IRadialController::*add)(Handler*,
                                                                       EventRegistrationToken*) noexcept,
                                EventRegistrationToken& token) noexcept {
    const auto handler =
        MakeDelegate<Handler>([this](auto* sender, auto* args) { return (this->*Event)(sender, args); });
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
    RETURN_IF_STEP_FAILS(467, Subscribe<&Self::OnScreenContactContinued>(
                                  &Controller::add_ScreenContactContinued, contact_continued_token_));
    RETURN_IF_STEP_FAILS(471, Subscribe<&Self::OnScreenContactStarted>(&Controller::add_ScreenContactStarted,
                                                                       contact_started_token_));
    RETURN_IF_STEP_FAILS(
        475, Subscribe<&Self::OnIgnoredEvent>(&Controller::add_ScreenContactEnded, contact_ended_token_));
    RETURN_IF_STEP_FAILS(479,
                         Subscribe<&Self::OnIgnoredEvent>(&Controller::add_ControlLost, control_lost_token_));
    RETURN_IF_STEP_FAILS(
        483, Subscribe<&Self::OnControlAcquired>(&Controller::add_ControlAcquired, control_acquired_token_));
    RETURN_IF_STEP_FAILS(
        487, Subscribe<&Self::OnRotationChanged>(&Controller::add_RotationChanged, rotation_token_));
    RETURN_IF_STEP_FAILS(
        491, Subscribe<&Self::OnButtonClicked>(&Controller::add_ButtonClicked, button_clicked_token_));
    return S_OK;
}

}  // namespace brindle
