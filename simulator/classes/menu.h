// A window's dial menu.
#pragma once

#include <optional>

#include "platform/interfaces/ui_input_menu.h"
#include "simulator/classes/event.h"
#include "simulator/classes/object.h"

namespace dialsim {

// How an item's picture was given, and what it can be drawn from.
struct Picture {
    std::string source = {};                           // "known icon Volume", "glyph A of Symbols"
    Ref<abi::IRandomAccessStreamReference> icon = {};  // kept as long as the item is
    std::string png = {};                              // what that referred to
    std::optional<std::uint32_t> known_icon = {};
    WideString glyph = {};
    WideString font_family = {};
    std::string font_file = {};  // a uniform resource identifier
};

class MenuItem final : public Object<abi::IRadialControllerMenuItem> {
    using Interface = abi::IRadialControllerMenuItem;

public:
    MenuItem(WideView label, Picture picture);

    HRESULT get_DisplayText(HSTRING* result) noexcept override;
    HRESULT get_Tag(abi::IInspectable** result) noexcept override;
    HRESULT put_Tag(abi::IInspectable* value) noexcept override;
    HRESULT add_Invoked(abi::TypedEventHandler<abi::RadialControllerMenuItem, abi::IInspectable>* handler,
                        EventRegistrationToken* result) noexcept override;
    HRESULT remove_Invoked(EventRegistrationToken token) noexcept override;

    // The user chooses the item.
    Outcome Invoke();

    const Picture& picture() const { return picture_; }

private:
    Mutex mutex_;
    const WideString label_;
    const Picture picture_;
    Ref<abi::IInspectable> tag_;
    Event<abi::TypedEventHandler<abi::RadialControllerMenuItem, abi::IInspectable>> invoked_;
};

// The live list of the menu's custom items.
class MenuItems final : public Object<abi::IVector<abi::RadialControllerMenuItem>> {
    using Interface = abi::IVector<abi::RadialControllerMenuItem>;
    using Element = abi::IRadialControllerMenuItem;

public:
    MenuItems() : Object(TypeName<Interface>()) {}

    HRESULT GetAt(std::uint32_t index, Element** result) noexcept override;
    HRESULT get_Size(std::uint32_t* result) noexcept override;
    HRESULT GetView(abi::IVectorView<abi::RadialControllerMenuItem>** result) noexcept override;
    HRESULT IndexOf(Element* value, std::uint32_t* index, abi::boolean* result) noexcept override;
    HRESULT SetAt(std::uint32_t index, Element* value) noexcept override;
    HRESULT InsertAt(std::uint32_t index, Element* value) noexcept override;
    HRESULT RemoveAt(std::uint32_t index) noexcept override;
    HRESULT Append(Element* value) noexcept override;
    HRESULT RemoveAtEnd() noexcept override;
    HRESULT Clear() noexcept override;
    HRESULT GetMany(std::uint32_t start, std::uint32_t count, Element** items,
                    std::uint32_t* result) noexcept override;
    HRESULT ReplaceAll(std::uint32_t count, Element** items) noexcept override;

    std::vector<Ref<Element>> Snapshot();

    // After so many more calls of GetAt the last item goes.
    void ShrinkAfter(std::uint32_t calls);

private:
    Mutex mutex_;
    std::vector<Ref<Element>> items_;
    std::optional<std::uint32_t> calls_until_shrinking_;
};

class RadialMenu final : public Object<abi::IRadialControllerMenu> {
    using Interface = abi::IRadialControllerMenu;

public:
    RadialMenu();

    HRESULT get_Items(abi::IVector<abi::RadialControllerMenuItem>** result) noexcept override;
    HRESULT get_IsEnabled(abi::boolean* result) noexcept override;
    HRESULT put_IsEnabled(abi::boolean value) noexcept override;
    HRESULT GetSelectedMenuItem(abi::IRadialControllerMenuItem** result) noexcept override;
    HRESULT SelectMenuItem(abi::IRadialControllerMenuItem* item) noexcept override;
    HRESULT TrySelectPreviouslySelectedMenuItem(abi::boolean* result) noexcept override;

    // The user chooses the item at this place in the ring, from 0.
    Outcome Choose(std::uint32_t index);

    MenuItems& items() { return *items_.get(); }
    // As it stands, in or out of the menu; null without one.
    Ref<abi::IRadialControllerMenuItem> Selected();

private:
    // Null unless the item is still in the menu.
    Ref<abi::IRadialControllerMenuItem> IfInMenu(const Ref<abi::IRadialControllerMenuItem>& item);
    void Select(Ref<abi::IRadialControllerMenuItem> item);

    Mutex mutex_;
    const Ref<MenuItems> items_;
    Ref<abi::IRadialControllerMenuItem> selected_;
    Ref<abi::IRadialControllerMenuItem> previous_;
    bool enabled_ = true;
};

Ref<abi::IInspectable> MakeMenuItemStatics();

// An item that nobody made through the factories.
Ref<abi::IRadialControllerMenuItem> MakeItem(const std::string& label, abi::IInspectable* tag);

}  // namespace dialsim
