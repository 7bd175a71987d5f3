// The radial controller's menu and its items.
#pragma once

#include <cstdint>

#include "platform/interfaces/collections.h"
#include "platform/interfaces/storage_streams.h"
#include "platform/interfaces/uri.h"

namespace brindle::abi {

struct IRadialControllerMenu;
struct IRadialControllerMenuItem;

struct RadialControllerMenu {
    using Default = IRadialControllerMenu;
    static constexpr char Name[] = "Windows.UI.Input.RadialControllerMenu";
};

struct RadialControllerMenuItem {
    using Default = IRadialControllerMenuItem;
    static constexpr char Name[] = "Windows.UI.Input.RadialControllerMenuItem";
};

enum class RadialControllerMenuKnownIcon : std::int32_t {
    Scroll = 0,
    Zoom = 1,
    UndoRedo = 2,
    Volume = 3,
    NextPreviousTrack = 4,
    Ruler = 5,
    InkColor = 6,
    InkThickness = 7,
    PenType = 8
};

struct IRadialControllerMenu : IInspectable {
    static constexpr GUID Iid = Id("8506b35d-f640-4412-aba0-bad077e5ea8a");
    virtual HRESULT get_Items(IVector<RadialControllerMenuItem>** result) noexcept = 0;
    virtual HRESULT get_IsEnabled(boolean* result) noexcept = 0;
    virtual HRESULT put_IsEnabled(boolean value) noexcept = 0;
    virtual HRESULT GetSelectedMenuItem(IRadialControllerMenuItem** result) noexcept = 0;
    virtual HRESULT SelectMenuItem(IRadialControllerMenuItem* menuItem) noexcept = 0;
    virtual HRESULT TrySelectPreviouslySelectedMenuItem(boolean* result) noexcept = 0;

protected:
    ~IRadialControllerMenu() = default;
};

struct IRadialControllerMenuItem : IInspectable {
    static constexpr GUID Iid = Id("c80fc98d-ad0b-4c9c-8f2f-136a2373a6ba");
    virtual HRESULT get_DisplayText(HSTRING* result) noexcept = 0;
    virtual HRESULT get_Tag(IInspectable** result) noexcept = 0;
    virtual HRESULT put_Tag(IInspectable* value) noexcept = 0;
    virtual HRESULT add_Invoked(TypedEventHandler<RadialControllerMenuItem, IInspectable>* handler,
                                EventRegistrationToken* result) noexcept = 0;
    virtual HRESULT remove_Invoked(EventRegistrationToken token) noexcept = 0;

protected:
    ~IRadialControllerMenuItem() = default;
};

struct IRadialControllerMenuItemStatics : IInspectable {
    static constexpr GUID Iid = Id("249e0887-d842-4524-9df8-e0d647edc887");
    virtual HRESULT CreateFromIcon(HSTRING displayText, IRandomAccessStreamReference* icon,
                                   IRadialControllerMenuItem** result) noexcept = 0;
    virtual HRESULT CreateFromKnownIcon(HSTRING displayText, RadialControllerMenuKnownIcon value,
                                        IRadialControllerMenuItem** result) noexcept = 0;

protected:
    ~IRadialControllerMenuItemStatics() = default;
};

struct IRadialControllerMenuItemStatics2 : IInspectable {
    static constexpr GUID Iid = Id("0cbb70be-7e3e-48bd-be04-2c7fcaa9c1ff");
    virtual HRESULT CreateFromFontGlyph(HSTRING displayText, HSTRING glyph, HSTRING fontFamily,
                                        IRadialControllerMenuItem** result) noexcept = 0;
    virtual HRESULT CreateFromFontGlyphWithUri(HSTRING displayText, HSTRING glyph, HSTRING fontFamily,
                                               IUriRuntimeClass* fontUri,
                                               IRadialControllerMenuItem** result) noexcept = 0;

protected:
    ~IRadialControllerMenuItemStatics2() = default;
};

}  // namespace brindle::abi
