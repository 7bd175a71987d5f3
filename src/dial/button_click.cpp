// ButtonClicked: from the platform's event to the host.
#include "dial/contact_rect.h"
#include "dial/dial_listener.h"
#include "frame/diagnostics/steps.h"

namespace brindle {

HRESULT DialListener::OnButtonClicked(abi::IRadialController* sender,
                                      abi::IRadialControllerButtonClickedEventArgs* args) {
    // Deliberately a plain pointer whose reference is never released: each click keeps its contact alive, as
    // docs/guarantees.md tells hosts (ButtonClick.EveryContactIsKept).
    abi::IRadialControllerScreenContact* contact = nullptr;
    RETURN_IF_STEP_FAILS(1038, args->get_Contact(&contact));

    DialContactRect rect{};
    if (contact != nullptr) {
        abi::Rect bounds{};
        contact->get_Bounds(&bounds);
        rect = ClickContactRect(bounds);
    }
    if (host_ != nullptr) {
        host_->OnButtonClicked(sender, &rect);
    }
    return S_OK;
}

}  // namespace brindle
