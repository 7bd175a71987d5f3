// RotationChanged: from the platform's event to the host, and the host's haptic request back.
#include "dial/acceleration.h"
#include "dial/contact_rect.h"
#include "dial/dial_listener.h"
#include "dial/haptics.h"
#include "frame/diagnostics/steps.h"
#include "menu/item_tag.h"
#include "platform/errors.h"

namespace brindle {

namespace {

void ReadContact(abi::IRadialControllerRotationChangedEventArgs* args, DialContactRect& rect) {
    ComPtr<abi::IRadialControllerScreenContact> contact;
    if (args->get_Contact(contact.Put()) < 0 || !contact) {
        return;
    }
    abi::Point position{};
    // Read and not used: the sequence of platform calls stays as published
    // (Rotation.ReadsThePlatformInItsOwnOrder).
    contact->get_Position(&position);
    abi::Rect bounds{};
    if (contact->get_Bounds(&bounds) >= 0) {
        rect = RotationContactRect(bounds);
    }
}

double ReadDelta(abi::IRadialControllerRotationChangedEventArgs* args) {
    double degrees = 0.0;
    args->get_RotationDeltaInDegrees(&degrees);
    return degrees;
}

bool ReadButton(abi::IUnknown* args) {
    ComPtr<abi::IRadialControllerRotationChangedEventArgs2> button;
    ThrowIfFailed(Query(args, button));
    abi::boolean pressed = 0;
    ThrowIfFailed(button->get_IsButtonPressed(&pressed));
    return pressed != 0;
}

}  // namespace

// A failure of the required data leaves this handler, and the delegate's Invoke, as an exception
// (Rotation.RequiredDataThatFailsIsThrownOutOfTheHandler).
HRESULT DialListener::OnRotationChanged(abi::IRadialController* sender,
                                        abi::IRadialControllerRotationChangedEventArgs* args) {
    DialRotationInfo info{};
    // A reference of its own: an event that arrives inside a call may replace the menu.
    if (const ComPtr<abi::IRadialControllerMenu> menu = menu_.Get()) {
        ComPtr<abi::IRadialControllerMenuItem> selected;
        RETURN_IF_STEP_FAILS(847, menu->GetSelectedMenuItem(selected.Put()));
        if (selected) {
            info.selectedItemTag = ReadTag(*selected.Get());
        }
    }
    ReadContact(args, info.contact);
    ComPtr<abi::IRadialControllerRotationChangedEventArgs> rotation;
    ThrowIfFailed(Query(args, rotation));
    info.deltaDegrees = ReadDelta(rotation.Get());
    info.buttonPressed = ReadButton(args);
    info.acceleration = NextAcceleration(info.deltaDegrees);
    if (host_ != nullptr) {
        host_->OnRotation(sender, &info);
    }
    PlayRequestedHaptics(info, args);
    return S_OK;
}

}  // namespace brindle
