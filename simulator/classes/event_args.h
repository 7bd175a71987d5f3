// The arguments of the controller's events.
#pragma once

#include "platform/interfaces/ui_input.h"
#include "simulator/classes/dial_state.h"
#include "simulator/classes/haptics.h"
#include "simulator/classes/object.h"

namespace dialsim {

class ScreenContact final : public Object<abi::IRadialControllerScreenContact> {
    using Interface = abi::IRadialControllerScreenContact;

public:
    explicit ScreenContact(const abi::Rect& bounds)
        : Object(abi::RadialControllerScreenContact::Name), bounds_(bounds) {}

    HRESULT get_Bounds(abi::Rect* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Bounds"), "", result, [&] {
            *result = bounds_;
            return S_OK;
        });
    }
    HRESULT get_Position(abi::Point* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Position"), "", result, [&] {
            *result = {bounds_.X + bounds_.Width / 2, bounds_.Y + bounds_.Height / 2};
            return S_OK;
        });
    }

private:
    const abi::Rect bounds_;
};

// The contact of an event: its arguments return the same object each time.
inline Ref<ScreenContact> MakeContact(const DialState& dial) {
    return dial.contact ? Make<ScreenContact>(*dial.contact) : Ref<ScreenContact>();
}

// The arguments of an event that has only a contact.
template <class Args>
class ContactArgs final : public Object<typename Args::Default> {
    using Interface = typename Args::Default;

public:
    explicit ContactArgs(const DialState& dial)
        : Object<Interface>(Args::Name), contact_(MakeContact(dial)) {}

    HRESULT get_Contact(abi::IRadialControllerScreenContact** result) noexcept override {
        return PerformInto(MethodName<Interface>("get_Contact"), "", result,
                           [&] { return contact_.CopyTo(result); });
    }

private:
    const Ref<ScreenContact> contact_;
};

class RotationArgs final : public Object<abi::IRadialControllerRotationChangedEventArgs,
                                         abi::IRadialControllerRotationChangedEventArgs2> {
    using First = abi::IRadialControllerRotationChangedEventArgs;
    using Second = abi::IRadialControllerRotationChangedEventArgs2;

public:
    RotationArgs(const DialState& dial, double degrees)
        : Object(abi::RadialControllerRotationChangedEventArgs::Name),
          dial_(dial),
          contact_(MakeContact(dial)),
          degrees_(degrees) {}

    HRESULT get_RotationDeltaInDegrees(double* result) noexcept override {
        return PerformInto(MethodName<First>("get_RotationDeltaInDegrees"), "", result, [&] {
            *result = degrees_;
            return S_OK;
        });
    }
    HRESULT get_Contact(abi::IRadialControllerScreenContact** result) noexcept override {
        return PerformInto(MethodName<First>("get_Contact"), "", result,
                           [&] { return contact_.CopyTo(result); });
    }
    HRESULT get_IsButtonPressed(abi::boolean* result) noexcept override {
        return PerformInto(MethodName<Second>("get_IsButtonPressed"), "", result, [&] {
            *result = dial_.button_down;
            return S_OK;
        });
    }
    HRESULT get_SimpleHapticsController(abi::ISimpleHapticsController** result) noexcept override {
        return PerformInto(MethodName<Second>("get_SimpleHapticsController"), "", result, [&] {
            return dial_.has_haptics ? MakeHapticsController(dial_).CopyTo(result) : S_OK;
        });
    }

private:
    const DialState dial_;
    const Ref<ScreenContact> contact_;
    const double degrees_;
};

}  // namespace dialsim
