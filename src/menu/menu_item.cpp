// Adds an item to the menu: subscribe, append, tag. The order is deliberate: an item whose tag fails stays in
// the menu and subscribed (CustomMenu.AnItemThatFailsAtItsTagIsInTheMenuAndSubscribed).
#include "frame/diagnostics/steps.h"
#include "menu/dial_menu.h"
#include "platform/activation.h"
#include "platform/delegate.h"
#include "platform/interfaces/property_value.h"

namespace brindle {

namespace {

constexpr auto kAddedLine = Wide("Added %s to menu\n");

}  // namespace

HRESULT DialMenu::SubscribeInvoked(abi::IRadialControllerMenuItem& item, std::int64_t& token) {
    using Handler = abi::TypedEventHandler<abi::RadialControllerMenuItem, abi::IInspectable>;
    const auto handler =
        MakeDelegate<Handler>([this](auto* sender, auto* args) { return OnItemInvoked(sender, args); });
    if (!handler) {
        throw std::bad_alloc();
    }
    EventRegistrationToken registration{};
    const HRESULT code = item.add_Invoked(handler.Get(), &registration);
    if (code >= 0) {
        token = registration.value;
    }
    return code;
}

HRESULT DialMenu::AddItemToMenu(abi::IRadialControllerMenuItem* item, MenuEntry& entry) {
    // Null when the last add_custom_menu got no menu and the picture file of an earlier call completes
    // (PictureFile.ThatComesWhenTheWindowHasNoMenuIsAFailure). A reference of its own: an event that arrives
    // inside a call may replace the menu.
    const ComPtr<abi::IRadialControllerMenu> menu = menu_;
    if (item == nullptr || !menu) {
        return E_NOINTERFACE;
    }
    RETURN_IF_STEP_FAILS(743, SubscribeInvoked(*item, entry.invoked_token));

    ComPtr<abi::IVector<abi::RadialControllerMenuItem>> list;
    RETURN_IF_STEP_FAILS(747, menu->get_Items(list.Put()));
    if (!list) {
        return E_NOINTERFACE;
    }
    RETURN_IF_STEP_FAILS(750, list->Append(item));

    ComPtr<abi::IPropertyValueStatics> values;
    RETURN_IF_STEP_FAILS(754, GetFactory<abi::PropertyValue>(values));
    ComPtr<abi::IInspectable> tag;
    RETURN_IF_STEP_FAILS(758, values->CreateUInt32(entry.item_id, tag.Put()));
    RETURN_IF_STEP_FAILS(760, item->put_Tag(tag.Get()));

    WCHAR line[kWideLineCharacters];
    FormatWide(line, kWideLineCharacters, kAddedLine.data(), LabelOf(entry));
    return S_OK;
}

}  // namespace brindle
