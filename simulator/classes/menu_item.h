// The items of a dial menu, and what their pictures are made of.
#pragma once

#include <mutex>
#include <optional>
#include <string>

#include "platform/interfaces/ui_input_menu.h"
#include "simulator/classes/event.h"
#include "simulator/classes/object.h"
#include "sync.h"

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

// An item that nobody made through the factories.
Ref<abi::IRadialControllerMenuItem> MakeItem(const std::string& label, abi::IInspectable* tag);

}  // namespace dialsim
