// Items with an icon of the platform's own.
#include "dial/dial_listener.h"
#include "frame/diagnostics/steps.h"

namespace brindle {

HRESULT DialListener::AddMenuItemFromKnownIcon(MenuEntry& entry, abi::RadialControllerMenuKnownIcon icon) {
    // An event that the platform lets in may make the menu anew, and with it replace the factory.
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
