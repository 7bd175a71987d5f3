// The radial controller, its events and its configuration.
#pragma once

#include <cstdint>

#include "platform/interfaces/collections.h"
#include "platform/interfaces/haptics.h"
#include "platform/interfaces/ui_input_menu.h"

namespace brindle::abi {

struct IRadialController;
struct IRadialControllerConfiguration;
struct IRadialControllerScreenContact;
struct IRadialControllerRotationChangedEventArgs;
struct IRadialControllerButtonClickedEventArgs;
struct IRadialControllerScreenContactStartedEventArgs;
struct IRadialControllerScreenContactContinuedEventArgs;
struct IRadialControllerControlAcquiredEventArgs;

struct RadialController {
    using Default = IRadialController;
    static constexpr char Name[] = "Windows.UI.Input.RadialController";
};

struct RadialControllerConfiguration {
    using Default = IRadialControllerConfiguration;
    static constexpr char Name[] = "Windows.UI.Input.RadialControllerConfiguration";
};

struct RadialControllerScreenContact {
    using Default = IRadialControllerScreenContact;
    static constexpr char Name[] = "Windows.UI.Input.RadialControllerScreenContact";
};

struct RadialControllerRotationChangedEventArgs {
    using Default = IRadialControllerRotationChangedEventArgs;
    static constexpr char Name[] = "Windows.UI.Input.RadialControllerRotationChangedEventArgs";
};

struct RadialControllerButtonClickedEventArgs {
    using Default = IRadialControllerButtonClickedEventArgs;
    static constexpr char Name[] = "Windows.UI.Input.RadialControllerButtonClickedEventArgs";
};

struct RadialControllerScreenContactStartedEventArgs {
    using Default = IRadialControllerScreenContactStartedEventArgs;
    static constexpr char Name[] = "Windows.UI.Input.RadialControllerScreenContactStartedEventArgs";
};

struct RadialControllerScreenContactContinuedEventArgs {
    using Default = IRadialControllerScreenContactContinuedEventArgs;
    static constexpr char Name[] = "Windows.UI.Input.RadialControllerScreenContactContinuedEventArgs";
};

struct RadialControllerControlAcquiredEventArgs {
    using Default = IRadialControllerControlAcquiredEventArgs;
    static constexpr char Name[] = "Windows.UI.Input.RadialControllerControlAcquiredEventArgs";
};

enum class RadialControllerSystemMenuItemKind : std::int32_t {
    Scroll = 0,
    Zoom = 1,
    UndoRedo = 2,
    Volume = 3,
    NextPreviousTrack = 4
};

template <>
struct Signature<RadialControllerSystemMenuItemKind> {
    static constexpr auto Text = FixedText("enum(Windows.UI.Input.RadialControllerSystemMenuItemKind;i4)");
};

struct IRadialController : IInspectable {
    static constexpr GUID Iid = Id("3055d1c8-df51-43d4-b23b-0e1037467a09");
    virtual HRESULT get_Menu(IRadialControllerMenu** result) noexcept = 0;
    virtual HRESULT get_RotationResolutionInDegrees(double* result) noexcept = 0;
    virtual HRESULT put_RotationResolutionInDegrees(double value) noexcept = 0;
    virtual HRESULT get_UseAutomaticHapticFeedback(boolean* result) noexcept = 0;
    virtual HRESULT put_UseAutomaticHapticFeedback(boolean value) noexcept = 0;
    virtual HRESULT add_ScreenContactStarted(
        TypedEventHandler<RadialController, RadialControllerScreenContactStartedEventArgs>* handler,
        EventRegistrationToken* result) noexcept = 0;
    virtual HRESULT remove_ScreenContactStarted(EventRegistrationToken cookie) noexcept = 0;
    virtual HRESULT add_ScreenContactEnded(TypedEventHandler<RadialController, IInspectable>* handler,
                                           EventRegistrationToken* result) noexcept = 0;
    virtual HRESULT remove_ScreenContactEnded(EventRegistrationToken cookie) noexcept = 0;
    virtual HRESULT add_ScreenContactContinued(
        TypedEventHandler<RadialController, RadialControllerScreenContactContinuedEventArgs>* handler,
        EventRegistrationToken* result) noexcept = 0;
    virtual HRESULT remove_ScreenContactContinued(EventRegistrationToken cookie) noexcept = 0;
    virtual HRESULT add_ControlLost(TypedEventHandler<RadialController, IInspectable>* handler,
                                    EventRegistrationToken* result) noexcept = 0;
    virtual HRESULT remove_ControlLost(EventRegistrationToken cookie) noexcept = 0;
    virtual HRESULT add_RotationChanged(
        TypedEventHandler<RadialController, RadialControllerRotationChangedEventArgs>* handler,
        EventRegistrationToken* result) noexcept = 0;
    virtual HRESULT remove_RotationChanged(EventRegistrationToken token) noexcept = 0;
    virtual HRESULT add_ButtonClicked(
        TypedEventHandler<RadialController, RadialControllerButtonClickedEventArgs>* handler,
        EventRegistrationToken* result) noexcept = 0;
    virtual HRESULT remove_ButtonClicked(EventRegistrationToken token) noexcept = 0;
    virtual HRESULT add_ControlAcquired(
        TypedEventHandler<RadialController, RadialControllerControlAcquiredEventArgs>* handler,
        EventRegistrationToken* result) noexcept = 0;
    virtual HRESULT remove_ControlAcquired(EventRegistrationToken cookie) noexcept = 0;

protected:
    ~IRadialController() = default;
};

struct IRadialControllerScreenContact : IInspectable {
    static constexpr GUID Iid = Id("206aa434-e651-11e5-bf62-2c27d7404e85");
    virtual HRESULT get_Bounds(Rect* result) noexcept = 0;
    virtual HRESULT get_Position(Point* result) noexcept = 0;

protected:
    ~IRadialControllerScreenContact() = default;
};

struct IRadialControllerScreenContactStartedEventArgs : IInspectable {
    static constexpr GUID Iid = Id("206aa436-e651-11e5-bf62-2c27d7404e85");
    virtual HRESULT get_Contact(IRadialControllerScreenContact** result) noexcept = 0;

protected:
    ~IRadialControllerScreenContactStartedEventArgs() = default;
};

struct IRadialControllerScreenContactContinuedEventArgs : IInspectable {
    static constexpr GUID Iid = Id("206aa437-e651-11e5-bf62-2c27d7404e85");
    virtual HRESULT get_Contact(IRadialControllerScreenContact** result) noexcept = 0;

protected:
    ~IRadialControllerScreenContactContinuedEventArgs() = default;
};

struct IRadialControllerControlAcquiredEventArgs : IInspectable {
    static constexpr GUID Iid = Id("206aa439-e651-11e5-bf62-2c27d7404e85");
    virtual HRESULT get_Contact(IRadialControllerScreenContact** result) noexcept = 0;

protected:
    ~IRadialControllerControlAcquiredEventArgs() = default;
};

struct IRadialControllerRotationChangedEventArgs : IInspectable {
    static constexpr GUID Iid = Id("206aa435-e651-11e5-bf62-2c27d7404e85");
    virtual HRESULT get_RotationDeltaInDegrees(double* result) noexcept = 0;
    virtual HRESULT get_Contact(IRadialControllerScreenContact** result) noexcept = 0;

protected:
    ~IRadialControllerRotationChangedEventArgs() = default;
};

struct IRadialControllerRotationChangedEventArgs2 : IInspectable {
    static constexpr GUID Iid = Id("3d577eec-4cee-11e6-b535-001bdc06ab3b");
    virtual HRESULT get_IsButtonPressed(boolean* result) noexcept = 0;
    virtual HRESULT get_SimpleHapticsController(ISimpleHapticsController** result) noexcept = 0;

protected:
    ~IRadialControllerRotationChangedEventArgs2() = default;
};

struct IRadialControllerButtonClickedEventArgs : IInspectable {
    static constexpr GUID Iid = Id("206aa438-e651-11e5-bf62-2c27d7404e85");
    virtual HRESULT get_Contact(IRadialControllerScreenContact** result) noexcept = 0;

protected:
    ~IRadialControllerButtonClickedEventArgs() = default;
};

struct IRadialControllerConfiguration : IInspectable {
    static constexpr GUID Iid = Id("a6b79ecb-6a52-4430-910c-56370a9d6b42");
    virtual HRESULT SetDefaultMenuItems(IIterable<RadialControllerSystemMenuItemKind>* buttons) noexcept = 0;
    virtual HRESULT ResetToDefaultMenuItems() noexcept = 0;
    virtual HRESULT TrySelectDefaultMenuItem(RadialControllerSystemMenuItemKind type,
                                             boolean* result) noexcept = 0;

protected:
    ~IRadialControllerConfiguration() = default;
};

// The interop interfaces by which a desktop program, which has windows and no view, gets the two classes.
struct IRadialControllerInterop : IInspectable {
    static constexpr GUID Iid = Id("1b0535c9-57ad-45c1-9d79-ad5c34360513");
    virtual HRESULT CreateForWindow(HWND window, const GUID& iid, void** result) noexcept = 0;

protected:
    ~IRadialControllerInterop() = default;
};

struct IRadialControllerConfigurationInterop : IInspectable {
    static constexpr GUID Iid = Id("787cdaac-3186-476d-87e4-b9374a7b9970");
    virtual HRESULT GetForWindow(HWND window, const GUID& iid, void** result) noexcept = 0;

protected:
    ~IRadialControllerConfigurationInterop() = default;
};

}  // namespace brindle::abi
