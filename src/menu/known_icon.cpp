// Items with an icon of the platform's own.
#include "dial/dial_listener.h"
#include "frame/steps.h"

namespace brindle {

HRESULT DialListener::AddMenuItemFromKnownIcon(MenuEntry& entry, abi::RadialControllerMenuKnownIcon icon) {
    if (!item_statics_) {
        return E_NOINTERFACE;
    }
    const TextReference label(LabelOf(entry));
    ComPtr<abi::IRadialControllerMenuItem> item;
    RETURN_IF_STEP_FAILS(515, item_statics_->CreateFromKnownIcon(label.Get(), icon, item.Put()));
    RETURN_IF_STEP_FAILS(517, AddItemToMenu(item.Get(), entry));
    return S_OK;
}

}  // namespace brindle
