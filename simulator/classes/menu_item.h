// The items of a dial menu and their pictures.
#pragma once

#include <mutex>
#include <optional>
#include <string>

#include "platform/interfaces/ui_input_menu.h"
#include "simulator/classes/event.h"
#include "simulator/classes/object.h"
#include "sync.h"

namespace dialsim {

// An item's picture: its description and the data for drawing it.
struct Picture {
    std::string source = {};                           // "known icon Volume", "glyph A of Symbols"
    Ref<abi::IRandomAccessStreamReference> icon = {};  // referenced during the lifetime of the item
    std::string png = {};                              // the contents of `icon`
    std::optional<std::uint32_t> known_icon = {};
    WideString glyph = {};
    WideString font_family = {};
    std::string font_file = {};  // a URI
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

    // Raises Invoked.
    Outcome Invoke();

    const Picture& picture() const { return picture_; }

private:
    Mutex mutex_;
    const WideString label_;
    const Picture picture_;
    Ref<abi::IInspectable> tag_;
    Event<abi::TypedEventHandler<abi::RadialControllerMenuItem, abi::IInspectable>> invoked_;
};

// Creates an item without a picture, not through the factories.
Ref<abi::IRadialControllerMenuItem> MakeItem(const std::string& label, abi::IInspectable* tag);

}  // namespace dialsim
