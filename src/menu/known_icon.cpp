// KnownIcon items: a built-in icon of the platform.
#include "frame/diagnostics/steps.h"
#include "menu/dial_menu.h"

namespace brindle {

HRESULT DialMenu::AddMenuItemFromKnownIcon(MenuEntry& entry, abi::RadialControllerMenuKnownIcon icon) {
    // A reference of its own: an event that arrives inside a call may replace the menu and with it the
    // factory.
    const ComPtr<abi::IRadialControllerMenuItemStatics> statics = item_statics_;
    if (!statics) {
        return E_NOINTERFACE;
    }
    const TextReference label(LabelOf(entry));
    ComPtr<abi::IRadialControllerMenuItem> item;
    RETURN_IF_STEP_FAILS(515, statics->CreateFromKnownIcon(label.Get(), icon, item.Put()));
    RETURN_IF_STEP_FAILS(517, AddItemToMenu(item.Get(), entry));
    return S_OK;
}

}  // namespace brindle
