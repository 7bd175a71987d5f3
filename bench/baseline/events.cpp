// The window's controller and its event handlers.
#include <cmath>
#include <limits>
#include <new>

#include "bench/baseline/activation.h"
#include "bench/baseline/baseline.h"
#include "bench/baseline/handler.h"
#include "platform/interfaces/haptics.h"
#include "platform/interfaces/property_value.h"

namespace baseline {

namespace {

using Rotation = abi::IRadialControllerRotationChangedEventArgs;
using Rotation2 = abi::IRadialControllerRotationChangedEventArgs2;

class RotationHandler final
    : public Counted<
          abi::TypedEventHandler<abi::RadialController, abi::RadialControllerRotationChangedEventArgs>> {
public:
    explicit RotationHandler(Dial& dial) : dial_(dial) {}

    HRESULT Invoke(abi::IRadialController* sender, Rotation* args) override {
        return dial_.OnRotation(sender, args);
    }

private:
    Dial& dial_;
};

class ClickHandler final
    : public Counted<
          abi::TypedEventHandler<abi::RadialController, abi::RadialControllerButtonClickedEventArgs>> {
public:
    explicit ClickHandler(Dial& dial) : dial_(dial) {}

    HRESULT Invoke(abi::IRadialController* sender,
                   abi::IRadialControllerButtonClickedEventArgs* args) override {
        return dial_.OnClick(sender, args);
    }

private:
    Dial& dial_;
};

// For the five events that do not reach the host.
template <class Args>
class IgnoringHandler final : public Counted<abi::TypedEventHandler<abi::RadialController, Args>> {
public:
    explicit IgnoringHandler(Dial& dial) : dial_(dial) {}

    HRESULT Invoke(abi::IRadialController*, abi::Abi<Args>) override { return S_OK; }

private:
    [[maybe_unused]] Dial& dial_;
};

// The controller holds the only reference.
template <class Handler, class Add>
void Subscribe(abi::IRadialController* controller, Add add, Dial& dial) {
    auto* handler = new Handler(dial);
    EventRegistrationToken token{};
    (controller->*add)(handler, &token);
    handler->Release();
}

// 0 when the tag is missing or cannot be read.
std::uint32_t TagOf(abi::IRadialControllerMenuItem* item) {
    std::uint32_t value = 0;
    abi::IInspectable* tag = nullptr;
    const HRESULT code = item->get_Tag(&tag);
    if (tag == nullptr) {
        return value;
    }
    // A tag that comes with a failure code is not read.
    if (code >= 0) {
        abi::IPropertyValue* number = nullptr;
        if (Query(tag, number) >= 0) {
            number->GetUInt32(&value);
            number->Release();
        }
    }
    tag->Release();
    return value;
}

// A failure ends the turn (step 847).
HRESULT ReadSelectedTag(abi::IRadialControllerMenu* menu, std::uint32_t& value) {
    abi::IRadialControllerMenuItem* selected = nullptr;
    const HRESULT code = menu->GetSelectedMenuItem(&selected);
    if (selected != nullptr) {
        // An item that comes with a failure code is released only.
        if (code >= 0) {
            value = TagOf(selected);
        }
        selected->Release();
    }
    return code;
}

std::int32_t Whole(float value) {
    return value >= -2147483648.0F && value < 2147483648.0F ? static_cast<std::int32_t>(value)
                                                            : std::numeric_limits<std::int32_t>::min();
}

void ReadContact(Rotation* args, DialContactRect& rect) {
    abi::IRadialControllerScreenContact* contact = nullptr;
    const HRESULT code = args->get_Contact(&contact);
    if (contact == nullptr) {
        return;
    }
    // Without a rectangle the record keeps zeros; a contact that comes with a failure code is not read.
    if (code >= 0) {
        abi::Point position{};
        contact->get_Position(&position);
        abi::Rect bounds{};
        if (contact->get_Bounds(&bounds) >= 0) {
            rect = {Whole(bounds.X), Whole(bounds.Y), Whole(bounds.X + bounds.Width),
                    Whole(bounds.Y + bounds.Height)};
        }
    }
    contact->Release();
}

double Acceleration(double degrees) {
    static std::uint64_t last = GetTickCount64();
    static double sum = 0.0;
    static double factor = 1.0;
    const std::uint64_t now = GetTickCount64();
    const auto elapsed = static_cast<std::uint32_t>(now) - static_cast<std::uint32_t>(last);
    sum = (elapsed <= 100 ? sum : 0.0) + degrees;
    if (elapsed >= 50) {
        const double beyond = std::fabs(sum) - 10.0;
        factor = std::sqrt(beyond > 0.0 ? beyond : 0.0) / 2.07 + 1.0;
        last = now;
    }
    return factor;
}

// Every failure from here on is raised out of the handler.
HRESULT PlayFirst(abi::ISimpleHapticsController* haptics,
                  abi::IVectorView<abi::SimpleHapticsControllerFeedback>* waveforms) {
    std::uint32_t count = 0;
    HRESULT code = waveforms->get_Size(&count);
    if (code < 0 || count == 0) {
        return code;
    }
    abi::ISimpleHapticsControllerFeedback* first = nullptr;
    code = waveforms->GetAt(0, &first);
    if (code >= 0) {
        code = haptics->SendHapticFeedbackForPlayCount(first, 1.0, 3, {2'000'000});
    }
    if (first != nullptr) {
        first->Release();
    }
    return code;
}

HRESULT Play(abi::ISimpleHapticsController* haptics) {
    abi::IVectorView<abi::SimpleHapticsControllerFeedback>* waveforms = nullptr;
    HRESULT code = haptics->get_SupportedFeedback(&waveforms);
    if (waveforms != nullptr) {
        if (code >= 0) {
            code = PlayFirst(haptics, waveforms);
        }
        waveforms->Release();
    }
    return code;
}

void PlayHaptics(Rotation* args) {
    Rotation2* more = nullptr;
    if (const HRESULT code = Query(args, more); code < 0) {
        Raise(code);
    }
    abi::ISimpleHapticsController* haptics = nullptr;
    HRESULT code = more->get_SimpleHapticsController(&haptics);
    if (haptics != nullptr) {
        if (code >= 0) {
            code = Play(haptics);
        }
        haptics->Release();
    }
    more->Release();
    if (code < 0) {
        Raise(code);
    }
}

bool IsPressed(Rotation* args) {
    Rotation2* more = nullptr;
    if (const HRESULT code = Query(args, more); code < 0) {
        Raise(code);
    }
    abi::boolean pressed = 0;
    const HRESULT code = more->get_IsButtonPressed(&pressed);
    more->Release();
    if (code < 0) {
        Raise(code);
    }
    return pressed != 0;
}

}  // namespace

void Raise(HRESULT code) {
    if (code == E_OUTOFMEMORY) {
        throw std::bad_alloc();
    }
    throw Failure{code};
}

Dial::Dial(IDialHost& host) : host_(&host) {
    abi::IRadialControllerInterop* interop = nullptr;
    if (const HRESULT code = GetFactory<abi::RadialController>(interop); code < 0) {
        Raise(code);
    }
    interop->CreateForWindow(reinterpret_cast<HWND>(host.GetWindowHandle()), abi::IRadialController::Iid,
                             reinterpret_cast<void**>(&controller_));
    interop->Release();
    using Controller = abi::IRadialController;
    Subscribe<IgnoringHandler<abi::RadialControllerScreenContactContinuedEventArgs>>(
        controller_, &Controller::add_ScreenContactContinued, *this);
    Subscribe<IgnoringHandler<abi::RadialControllerScreenContactStartedEventArgs>>(
        controller_, &Controller::add_ScreenContactStarted, *this);
    Subscribe<IgnoringHandler<abi::IInspectable>>(controller_, &Controller::add_ScreenContactEnded, *this);
    Subscribe<IgnoringHandler<abi::IInspectable>>(controller_, &Controller::add_ControlLost, *this);
    Subscribe<IgnoringHandler<abi::RadialControllerControlAcquiredEventArgs>>(
        controller_, &Controller::add_ControlAcquired, *this);
    Subscribe<RotationHandler>(controller_, &Controller::add_RotationChanged, *this);
    Subscribe<ClickHandler>(controller_, &Controller::add_ButtonClicked, *this);
}

Dial::~Dial() {
    for (const Entry& entry : entries_) {
        Free(entry);
    }
    if (items_ != nullptr) {
        items_->Release();
    }
    if (menu_ != nullptr) {
        menu_->Release();
    }
    controller_->Release();
}

HRESULT Dial::OnRotation(abi::IRadialController* sender, Rotation* args) {
    DialRotationInfo info{};
    // A reference of its own: an event inside a call may replace the menu.
    if (abi::IRadialControllerMenu* const menu = menu_; menu != nullptr) {
        menu->AddRef();
        const HRESULT code = ReadSelectedTag(menu, info.selectedItemTag);
        menu->Release();
        if (code < 0) {
            return code;
        }
    }
    ReadContact(args, info.contact);
    Rotation* rotation = nullptr;
    if (const HRESULT code = Query(args, rotation); code < 0) {
        Raise(code);
    }
    try {
        rotation->get_RotationDeltaInDegrees(&info.deltaDegrees);
        info.buttonPressed = IsPressed(args);
        info.acceleration = Acceleration(info.deltaDegrees);
        if (host_ != nullptr) {
            host_->OnRotation(sender, &info);
        }
        if (info.hapticRequest != nullptr && (*info.hapticRequest == 1 || *info.hapticRequest == 2)) {
            PlayHaptics(args);
        }
    } catch (...) {
        rotation->Release();
        throw;
    }
    rotation->Release();
    return S_OK;
}

HRESULT Dial::OnClick(abi::IRadialController* sender, abi::IRadialControllerButtonClickedEventArgs* args) {
    abi::IRadialControllerScreenContact* contact = nullptr;  // never released, as in the library
    if (const HRESULT code = args->get_Contact(&contact); code < 0) {
        return code;
    }
    DialContactRect rect{};
    if (contact != nullptr) {
        abi::Rect bounds{};
        contact->get_Bounds(&bounds);
        const std::int32_t left = Whole(bounds.X);
        const std::int32_t top = Whole(bounds.Y);
        rect = {left, top, Whole(static_cast<float>(left) + bounds.Width),
                Whole(static_cast<float>(top) + bounds.Height)};
    }
    if (host_ != nullptr) {
        host_->OnButtonClicked(sender, &rect);
    }
    return S_OK;
}

}  // namespace baseline
