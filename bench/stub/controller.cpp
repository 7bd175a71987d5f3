// The radial controller, its events and their arguments.
#include "bench/stub/factories.h"
#include "bench/stub/menu.h"
#include "bench/stub/platform.h"
#include "platform/interfaces/ui_input.h"

namespace stub {

namespace {

using RotationArgs = abi::IRadialControllerRotationChangedEventArgs;
using RotationArgs2 = abi::IRadialControllerRotationChangedEventArgs2;

class Feedback final : public StaticObject<abi::ISimpleHapticsControllerFeedback> {
public:
    HRESULT get_Waveform(std::uint16_t*) noexcept override { return E_NOTIMPL; }
    HRESULT get_Duration(abi::TimeSpan*) noexcept override { return E_NOTIMPL; }
};

class FeedbackList final : public StaticObject<abi::IVectorView<abi::SimpleHapticsControllerFeedback>> {
    using Element = abi::ISimpleHapticsControllerFeedback;

public:
    HRESULT GetAt(std::uint32_t, Element** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&feedback_, result);
    }
    HRESULT get_Size(std::uint32_t* result) noexcept override {
        STUB_RECORD_CALL();
        *result = 1;
        return S_OK;
    }
    HRESULT IndexOf(Element*, std::uint32_t*, abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT GetMany(std::uint32_t, std::uint32_t, Element**, std::uint32_t*) noexcept override {
        return E_NOTIMPL;
    }

private:
    Feedback feedback_;
};

class Haptics final : public StaticObject<abi::ISimpleHapticsController> {
    using Waveform = abi::ISimpleHapticsControllerFeedback;

public:
    HRESULT get_SupportedFeedback(
        abi::IVectorView<abi::SimpleHapticsControllerFeedback>** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&supported_, result);
    }
    HRESULT SendHapticFeedbackForPlayCount(Waveform*, double, std::int32_t, abi::TimeSpan) noexcept override {
        STUB_RECORD_CALL();
        return S_OK;
    }

    HRESULT get_Id(HSTRING*) noexcept override { return E_NOTIMPL; }
    HRESULT get_IsIntensitySupported(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT get_IsPlayCountSupported(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT get_IsPlayDurationSupported(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT get_IsReplayPauseIntervalSupported(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT StopFeedback() noexcept override { return E_NOTIMPL; }
    HRESULT SendHapticFeedback(Waveform*) noexcept override { return E_NOTIMPL; }
    HRESULT SendHapticFeedbackWithIntensity(Waveform*, double) noexcept override { return E_NOTIMPL; }
    HRESULT SendHapticFeedbackForDuration(Waveform*, double, abi::TimeSpan) noexcept override {
        return E_NOTIMPL;
    }

private:
    FeedbackList supported_;
};

class Contact final : public StaticObject<abi::IRadialControllerScreenContact> {
public:
    HRESULT get_Bounds(abi::Rect* result) noexcept override {
        STUB_RECORD_CALL();
        *result = {10.7F, 20.2F, 300.6F, 300.4F};
        return S_OK;
    }
    HRESULT get_Position(abi::Point* result) noexcept override {
        STUB_RECORD_CALL();
        *result = {160.5F, 170.5F};
        return S_OK;
    }
};

Contact contact;
Haptics haptics;

HRESULT ReturnContact(const Event& event, abi::IRadialControllerScreenContact** result) noexcept {
    return ReturnReference(event.contact ? &contact : nullptr, result);
}

class Rotation final : public StaticObject<RotationArgs, RotationArgs2> {
public:
    explicit Rotation(const Event& event) : event_(event) {}

    HRESULT get_RotationDeltaInDegrees(double* result) noexcept override {
        STUB_RECORD_CALL();
        *result = 7.5;
        return S_OK;
    }
    HRESULT get_Contact(abi::IRadialControllerScreenContact** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnContact(event_, result);
    }
    HRESULT get_IsButtonPressed(abi::boolean* result) noexcept override {
        STUB_RECORD_CALL();
        *result = 1;
        return S_OK;
    }
    HRESULT get_SimpleHapticsController(abi::ISimpleHapticsController** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&haptics, result);
    }

private:
    const Event& event_;
};

class Click final : public StaticObject<abi::IRadialControllerButtonClickedEventArgs> {
public:
    explicit Click(const Event& event) : event_(event) {}

    HRESULT get_Contact(abi::IRadialControllerScreenContact** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnContact(event_, result);
    }

private:
    const Event& event_;
};

// One subscriber for an event.
template <class Args>
class Subscription {
public:
    using Handler = abi::TypedEventHandler<abi::RadialController, Args>;

    Subscription() = default;
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { StoreReference(handler_, static_cast<Handler*>(nullptr)); }

    HRESULT Add(Handler* handler, EventRegistrationToken* result) noexcept {
        StoreReference(handler_, handler);
        result->value = 1;
        return S_OK;
    }
    Handler& operator*() const { return *handler_; }

private:
    Handler* handler_ = nullptr;
};

class Controller final : public Counted<abi::IRadialController> {
    template <class Args>
    using Handler = typename Subscription<Args>::Handler;

public:
    HRESULT get_Menu(abi::IRadialControllerMenu** result) noexcept override {
        STUB_RECORD_CALL();
        return ReturnReference(&menu_, result);
    }

#define STUB_EVENT(NAME, ARGS)                                                                     \
    HRESULT add_##NAME(Handler<ARGS>* handler, EventRegistrationToken* result) noexcept override { \
        STUB_RECORD_CALL();                                                                        \
        return NAME.Add(handler, result);                                                          \
    }                                                                                              \
    HRESULT remove_##NAME(EventRegistrationToken) noexcept override { return E_NOTIMPL; }          \
    Subscription<ARGS> NAME;
    STUB_EVENT(ScreenContactStarted, abi::RadialControllerScreenContactStartedEventArgs)
    STUB_EVENT(ScreenContactEnded, abi::IInspectable)
    STUB_EVENT(ScreenContactContinued, abi::RadialControllerScreenContactContinuedEventArgs)
    STUB_EVENT(ControlLost, abi::IInspectable)
    STUB_EVENT(RotationChanged, abi::RadialControllerRotationChangedEventArgs)
    STUB_EVENT(ButtonClicked, abi::RadialControllerButtonClickedEventArgs)
    STUB_EVENT(ControlAcquired, abi::RadialControllerControlAcquiredEventArgs)
#undef STUB_EVENT

    HRESULT get_RotationResolutionInDegrees(double*) noexcept override { return E_NOTIMPL; }
    HRESULT put_RotationResolutionInDegrees(double) noexcept override { return E_NOTIMPL; }
    HRESULT get_UseAutomaticHapticFeedback(abi::boolean*) noexcept override { return E_NOTIMPL; }
    HRESULT put_UseAutomaticHapticFeedback(abi::boolean) noexcept override { return E_NOTIMPL; }

private:
    ~Controller() override = default;

    Menu menu_;
};

Controller* last_made = nullptr;  // not owned

class Interop final : public StaticObject<abi::IRadialControllerInterop> {
public:
    HRESULT CreateForWindow(HWND, const GUID&, void** result) noexcept override {
        STUB_RECORD_CALL();
        last_made = new Controller;
        *result = static_cast<abi::IRadialController*>(last_made);
        return S_OK;
    }
};

}  // namespace

void RaiseRotation(const Event& event) {
    Rotation args(event);
    (*last_made->RotationChanged).Invoke(last_made, &args);
}

void RaiseClick(const Event& event) {
    Click args(event);
    (*last_made->ButtonClicked).Invoke(last_made, &args);
}

abi::IUnknown& ControllerInterop() {
    static Interop interop;
    return interop;
}

}  // namespace stub
