#include "simulator/classes/controller.h"

#include "simulator/classes/controllers.h"
#include "simulator/classes/event_args.h"
#include "simulator/classes/factories.h"

namespace dialsim {

namespace {

template <class Interface, class Event, class Handler>
HRESULT Add(std::string_view method, Event& event, Handler* handler, EventRegistrationToken* result) {
    return PerformInto(MethodName<Interface>(method), "", result, [&] { return event.Add(handler, result); });
}

template <class Interface, class Event>
HRESULT Remove(std::string_view method, Event& event, EventRegistrationToken token) {
    return Perform(MethodName<Interface>(method), "", [&] { return event.Remove(token); });
}

std::string WindowText(HWND window) { return std::to_string(reinterpret_cast<std::uint64_t>(window)); }

template <class Args>
Ref<typename Args::Default> MakeContactArgs(const DialState& dial) {
    return Ref<typename Args::Default>::Attach(new ContactArgs<Args>(dial));
}

}  // namespace

Controller::Controller(HWND window)
    : Object(abi::RadialController::Name),
      window_(reinterpret_cast<std::uint64_t>(window)),
      menu_(Make<RadialMenu>()) {
    AddController(this);
}

Controller::~Controller() {
    RemoveController(this);
    TheJournal().Note("end of RadialController", std::to_string(window_));
}

Outcome Controller::RaiseRotation(const DialState& dial, double degrees) {
    const auto args = Make<RotationArgs>(dial, degrees);
    return rotation_changed_.Raise(static_cast<Interface*>(this),
                                   static_cast<abi::IRadialControllerRotationChangedEventArgs*>(args.get()));
}

Outcome Controller::RaiseClick(const DialState& dial) {
    return button_clicked_.Raise(static_cast<Interface*>(this),
                                 MakeContactArgs<abi::RadialControllerButtonClickedEventArgs>(dial).get());
}

Outcome Controller::RaiseContactStarted(const DialState& dial) {
    return contact_started_.Raise(
        static_cast<Interface*>(this),
        MakeContactArgs<abi::RadialControllerScreenContactStartedEventArgs>(dial).get());
}

Outcome Controller::RaiseContactContinued(const DialState& dial) {
    return contact_continued_.Raise(
        static_cast<Interface*>(this),
        MakeContactArgs<abi::RadialControllerScreenContactContinuedEventArgs>(dial).get());
}

Outcome Controller::RaiseContactEnded() {
    return contact_ended_.Raise(static_cast<Interface*>(this), static_cast<abi::IInspectable*>(nullptr));
}

Outcome Controller::RaiseControlAcquired(const DialState& dial) {
    return control_acquired_.Raise(
        static_cast<Interface*>(this),
        MakeContactArgs<abi::RadialControllerControlAcquiredEventArgs>(dial).get());
}

Outcome Controller::RaiseControlLost() {
    return control_lost_.Raise(static_cast<Interface*>(this), static_cast<abi::IInspectable*>(nullptr));
}

HRESULT Controller::get_Menu(abi::IRadialControllerMenu** result) noexcept {
    return PerformInto(MethodName<Interface>("get_Menu"), "", result, [&] { return menu_.CopyTo(result); });
}

HRESULT Controller::get_RotationResolutionInDegrees(double* result) noexcept {
    return PerformInto(MethodName<Interface>("get_RotationResolutionInDegrees"), "", result, [&] {
        *result = resolution_;
        return S_OK;
    });
}

HRESULT Controller::put_RotationResolutionInDegrees(double value) noexcept {
    return Perform(MethodName<Interface>("put_RotationResolutionInDegrees"), std::to_string(value), [&] {
        resolution_ = value;
        return S_OK;
    });
}

HRESULT Controller::get_UseAutomaticHapticFeedback(abi::boolean* result) noexcept {
    return PerformInto(MethodName<Interface>("get_UseAutomaticHapticFeedback"), "", result, [&] {
        *result = automatic_haptics_;
        return S_OK;
    });
}

HRESULT Controller::put_UseAutomaticHapticFeedback(abi::boolean value) noexcept {
    return Perform(MethodName<Interface>("put_UseAutomaticHapticFeedback"), std::to_string(value), [&] {
        automatic_haptics_ = value != 0;
        return S_OK;
    });
}

HRESULT Controller::add_ScreenContactStarted(
    Handler<abi::RadialControllerScreenContactStartedEventArgs>* handler,
    EventRegistrationToken* result) noexcept {
    return Add<Interface>("add_ScreenContactStarted", contact_started_, handler, result);
}

HRESULT Controller::remove_ScreenContactStarted(EventRegistrationToken token) noexcept {
    return Remove<Interface>("remove_ScreenContactStarted", contact_started_, token);
}

HRESULT Controller::add_ScreenContactEnded(Handler<abi::IInspectable>* handler,
                                           EventRegistrationToken* result) noexcept {
    return Add<Interface>("add_ScreenContactEnded", contact_ended_, handler, result);
}

HRESULT Controller::remove_ScreenContactEnded(EventRegistrationToken token) noexcept {
    return Remove<Interface>("remove_ScreenContactEnded", contact_ended_, token);
}

HRESULT Controller::add_ScreenContactContinued(
    Handler<abi::RadialControllerScreenContactContinuedEventArgs>* handler,
    EventRegistrationToken* result) noexcept {
    return Add<Interface>("add_ScreenContactContinued", contact_continued_, handler, result);
}

HRESULT Controller::remove_ScreenContactContinued(EventRegistrationToken token) noexcept {
    return Remove<Interface>("remove_ScreenContactContinued", contact_continued_, token);
}

HRESULT Controller::add_ControlLost(Handler<abi::IInspectable>* handler,
                                    EventRegistrationToken* result) noexcept {
    return Add<Interface>("add_ControlLost", control_lost_, handler, result);
}

HRESULT Controller::remove_ControlLost(EventRegistrationToken token) noexcept {
    return Remove<Interface>("remove_ControlLost", control_lost_, token);
}

HRESULT Controller::add_RotationChanged(Handler<abi::RadialControllerRotationChangedEventArgs>* handler,
                                        EventRegistrationToken* result) noexcept {
    return Add<Interface>("add_RotationChanged", rotation_changed_, handler, result);
}

HRESULT Controller::remove_RotationChanged(EventRegistrationToken token) noexcept {
    return Remove<Interface>("remove_RotationChanged", rotation_changed_, token);
}

HRESULT Controller::add_ButtonClicked(Handler<abi::RadialControllerButtonClickedEventArgs>* handler,
                                      EventRegistrationToken* result) noexcept {
    return Add<Interface>("add_ButtonClicked", button_clicked_, handler, result);
}

HRESULT Controller::remove_ButtonClicked(EventRegistrationToken token) noexcept {
    return Remove<Interface>("remove_ButtonClicked", button_clicked_, token);
}

HRESULT Controller::add_ControlAcquired(Handler<abi::RadialControllerControlAcquiredEventArgs>* handler,
                                        EventRegistrationToken* result) noexcept {
    return Add<Interface>("add_ControlAcquired", control_acquired_, handler, result);
}

HRESULT Controller::remove_ControlAcquired(EventRegistrationToken token) noexcept {
    return Remove<Interface>("remove_ControlAcquired", control_acquired_, token);
}

namespace {

class ControllerFactory final : public Object<abi::IRadialControllerInterop> {
    using Interface = abi::IRadialControllerInterop;

public:
    ControllerFactory() : Object(TypeName<Interface>()) {}

    HRESULT CreateForWindow(HWND window, const GUID& iid, void** result) noexcept override {
        return PerformInto(MethodName<Interface>("CreateForWindow"), WindowText(window), result, [&] {
            const JournalPause no_journal;
            const auto controller = Make<Controller>(window);
            const HRESULT code = controller->QueryInterface(iid, result);
            FirstController().Emit(controller->window());
            return code;
        });
    }
};

}  // namespace

Ref<abi::IInspectable> MakeControllerFactory() {
    return Ref<abi::IInspectable>::Attach(new ControllerFactory);
}

}  // namespace dialsim
