// set_current_custom_menu: selects the first item whose tag is the identifier.
#include "menu/dial_menu.h"
#include "platform/errors.h"
#include "platform/interfaces/property_value.h"

namespace brindle {

namespace {

using ItemList = abi::IVector<abi::RadialControllerMenuItem>;

std::uint32_t SizeOf(ItemList& list) {
    std::uint32_t size = 0;
    ThrowIfFailed(list.get_Size(&size));
    return size;
}

// An item without a tag is skipped. A tag that is no UInt32 deliberately ends the search with its failure
// (Selection.ATagOfAnotherTypeEndsTheSearchBeforeAMatch).
bool HasTag(abi::IRadialControllerMenuItem& item, std::uint32_t item_id) {
    ComPtr<abi::IInspectable> tag;
    ThrowIfFailed(item.get_Tag(tag.Put()));
    if (!tag) {
        return false;
    }
    ComPtr<abi::IPropertyValue> number;
    ThrowIfFailed(Query(tag.Get(), number));
    std::uint32_t value = 0;
    ThrowIfFailed(number->GetUInt32(&value));
    return value == item_id;
}

HRESULT SelectItem(abi::IRadialController& controller, std::uint32_t item_id) {
    ComPtr<abi::IRadialControllerMenu> menu;
    ThrowIfFailed(controller.get_Menu(menu.Put()));
    if (!menu) {
        return E_NOINTERFACE;
    }
    ComPtr<ItemList> list;
    ThrowIfFailed(menu->get_Items(list.Put()));
    if (!list) {
        return E_NOINTERFACE;
    }
    // The list is live, so its size is read on every step (Selection.AListThatShrinksDuringTheSearchEndsIt).
    for (std::uint32_t i = 0; i < SizeOf(*list.Get()); ++i) {
        ComPtr<abi::IRadialControllerMenuItem> item;
        ThrowIfFailed(list->GetAt(i, item.Put()));
        if (item && HasTag(*item.Get(), item_id)) {
            ThrowIfFailed(menu->SelectMenuItem(item.Get()));
            return S_OK;
        }
    }
    return E_FAIL;
}

}  // namespace

HRESULT DialMenu::SetCurrentCustomMenu(std::uint32_t item_id) {
    if (!controller_) {
        return E_NOINTERFACE;
    }
    try {
        ComPtr<abi::IRadialController> controller;
        ThrowIfFailed(Query(controller_.Get(), controller));
        return SelectItem(*controller.Get(), item_id);
    } catch (const hresult_error& error) {
        return error.code();
    }
}

}  // namespace brindle
