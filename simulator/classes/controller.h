// A window's radial controller.
#pragma once

#include "platform/interfaces/ui_input.h"
#include "simulator/classes/dial_state.h"
#include "simulator/classes/event.h"
#include "simulator/classes/menu.h"
#include "simulator/classes/object.h"

namespace dialsim {

class Controller final : public Object<abi::IRadialController> {
    using Interface = abi::IRadialController;
    template <class Args>
    using Handler = abi::TypedEventHandler<abi::RadialController, Args>;

public:
    explicit Controller(HWND window);

    std::uint64_t window() const { return window_; }
    RadialMenu& menu() { return *menu_.get(); }
    bool automatic_haptics() const { return automatic_haptics_; }

    // Each raises one event, with arguments from the dial's state.
    Outcome RaiseRotation(const DialState& dial, double degrees);
    Outcome RaiseClick(const DialState& dial);
    Outcome RaiseContactStarted(const DialState& dial);
    Outcome RaiseContactContinued(const DialState& dial);
    Outcome RaiseContactEnded();
    Outcome RaiseControlAcquired(const DialState& dial);
    Outcome RaiseControlLost();

    HRESULT get_Menu(abi::IRadialControllerMenu** result) noexcept override;
    HRESULT get_RotationResolutionInDegrees(double* result) noexcept override;
    HRESULT put_RotationResolutionInDegrees(double value) noexcept override;
    HRESULT get_UseAutomaticHapticFeedback(abi::boolean* result) noexcept override;
    HRESULT put_UseAutomaticHapticFeedback(abi::boolean value) noexcept override;

    HRESULT add_ScreenContactStarted(Handler<abi::RadialControllerScreenContactStartedEventArgs>* handler,
                                     EventRegistrationToken* result) noexcept override;
    HRESULT remove_ScreenContactStarted(EventRegistrationToken token) noexcept override;
    HRESULT add_ScreenContactEnded(Handler<abi::IInspectable>* handler,
                                   EventRegistrationToken* result) noexcept override;
    HRESULT remove_ScreenContactEnded(EventRegistrationToken token) noexcept override;
    HRESULT add_ScreenContactContinued(Handler<abi::RadialControllerScreenContactContinuedEventArgs>* handler,
                                       EventRegistrationToken* result) noexcept override;
    HRESULT remove_ScreenContactContinued(EventRegistrationToken token) noexcept override;
    HRESULT add_ControlLost(Handler<abi::IInspectable>* handler,
                            EventRegistrationToken* result) noexcept override;
    HRESULT remove_ControlLost(EventRegistrationToken token) noexcept override;
    HRESULT add_RotationChanged(Handler<abi::RadialControllerRotationChangedEventArgs>* handler,
                                EventRegistrationToken* result) noexcept override;
    HRESULT remove_RotationChanged(EventRegistrationToken token) noexcept override;
    HRESULT add_ButtonClicked(Handler<abi::RadialControllerButtonClickedEventArgs>* handler,
                              EventRegistrationToken* result) noexcept override;
    HRESULT remove_ButtonClicked(EventRegistrationToken token) noexcept override;
    HRESULT add_ControlAcquired(Handler<abi::RadialControllerControlAcquiredEventArgs>* handler,
                                EventRegistrationToken* result) noexcept override;
    HRESULT remove_ControlAcquired(EventRegistrationToken token) noexcept override;

private:
    ~Controller() override;

    const std::uint64_t window_;
    const Ref<RadialMenu> menu_;
    std::atomic<double> resolution_ = 10.0;
    std::atomic<bool> automatic_haptics_ = true;

    Event<Handler<abi::RadialControllerScreenContactStartedEventArgs>> contact_started_;
    Event<Handler<abi::IInspectable>> contact_ended_;
    Event<Handler<abi::RadialControllerScreenContactContinuedEventArgs>> contact_continued_;
    Event<Handler<abi::IInspectable>> control_lost_;
    Event<Handler<abi::RadialControllerRotationChangedEventArgs>> rotation_changed_;
    Event<Handler<abi::RadialControllerButtonClickedEventArgs>> button_clicked_;
    Event<Handler<abi::RadialControllerControlAcquiredEventArgs>> control_acquired_;
};

}  // namespace dialsim
