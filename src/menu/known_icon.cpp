// KnownIcon items: a built-in icon of the platform.
#include "dial/dial_listener.h"
#include "frame/diagnostics/steps.h"

namespace brindle {

HRESULT DialListener::AddMenuItemFromKnownIcon(MenuEntry& entry, abi::RadialControllerMenuKnownIcon icon) {
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
