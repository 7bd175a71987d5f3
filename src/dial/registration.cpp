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

template <auto Add>
struct HandlerOf;

template <class Handler, HRESULT (abi::IRadialController::*Add)(Handler*, EventRegistrationToken*) noexcept>
struct HandlerOf<Add> {
    using Type = Handler;
};

}  // namespace

// Each attempt of a guarded step creates its own handler, so a second attempt that succeeds subscribes twice
// (Listener.EachAttemptOfASubscriptionMakesAFreshHandler). The controller holds the only reference to it.
template <auto Add, auto Event>
HRESULT DialListener::Subscribe(EventRegistrationToken& token) noexcept {
    const auto handler = MakeDelegate<typename HandlerOf<Add>::Type>(
        [this](auto* sender, auto* args) { return (this->*Event)(sender, args); });
    return handler ? (controller_.Get()->*Add)(handler.Get(), &token) : E_OUTOFMEMORY;
}

HRESULT DialListener::Register(std::uint64_t window) {
    using Controller = abi::IRadialController;
    using Self = DialListener;

    RETURN_IF_STEP_FAILS(458, GetFactory<abi::RadialController>(controller_factory_));
    RETURN_IF_STEP_FAILS(460, CreateForWindow(*controller_factory_.Get(), window, controller_));
    if (!controller_) {
        return E_NOINTERFACE;
    }
    RETURN_IF_STEP_FAILS(467,
                         (Subscribe<&Controller::add_ScreenContactContinued, &Self::OnScreenContactContinued>(
                             contact_continued_token_)));
    RETURN_IF_STEP_FAILS(471,
                         (Subscribe<&Controller::add_ScreenContactStarted, &Self::OnScreenContactStarted>(
                             contact_started_token_)));
    RETURN_IF_STEP_FAILS(
        475, (Subscribe<&Controller::add_ScreenContactEnded, &Self::OnIgnoredEvent>(contact_ended_token_)));
    RETURN_IF_STEP_FAILS(
        479, (Subscribe<&Controller::add_ControlLost, &Self::OnIgnoredEvent>(control_lost_token_)));
    RETURN_IF_STEP_FAILS(
        483,
        (Subscribe<&Controller::add_ControlAcquired, &Self::OnControlAcquired>(control_acquired_token_)));
    RETURN_IF_STEP_FAILS(
        487, (Subscribe<&Controller::add_RotationChanged, &Self::OnRotationChanged>(rotation_token_)));
    RETURN_IF_STEP_FAILS(
        491, (Subscribe<&Controller::add_ButtonClicked, &Self::OnButtonClicked>(button_clicked_token_)));
    return S_OK;
}

}  // namespace brindle
