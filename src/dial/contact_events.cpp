// The events that never reach the host: screen contact, and control of the window.
#include "dial/contact_line.h"
#include "dial/dial_listener.h"
#include "frame/diagnostics/steps.h"

namespace brindle {

namespace {

HRESULT LogContact(abi::IRadialControllerScreenContact& contact) {
    abi::Point position{};
    abi::Rect bounds{};
    RETURN_IF_STEP_FAILS(1072, contact.get_Position(&position));
    RETURN_IF_STEP_FAILS(1073, contact.get_Bounds(&bounds));

    WCHAR line[kWideLineCharacters];
    FormatContactLine(line, kWideLineCharacters, position, bounds);
    return S_OK;
}

template <class Args>
HRESULT LogContactOf(Args* args) {
    ComPtr<abi::IRadialControllerScreenContact> contact;
    RETURN_IF_STEP_FAILS(1065, args->get_Contact(contact.Put()));
    return contact ? LogContact(*contact.Get()) : S_OK;
}

}  // namespace

// The log is a guarded step that consists of guarded steps: a contact that cannot be read is deliberately
// read nine times and prints the four lines that brindle.h names
// (ContactEvents.AContactThatAlwaysFailsIsReadNineTimes).

HRESULT DialListener::OnScreenContactContinued(abi::IRadialController* /*sender*/,
                                               abi::IRadialControllerScreenContactContinuedEventArgs* args) {
    RETURN_IF_STEP_FAILS(803, LogContactOf(args));
    return S_OK;
}

HRESULT DialListener::OnScreenContactStarted(abi::IRadialController* /*sender*/,
                                             abi::IRadialControllerScreenContactStartedEventArgs* args) {
    RETURN_IF_STEP_FAILS(810, LogContactOf(args));
    return S_OK;
}

HRESULT DialListener::OnControlAcquired(abi::IRadialController* /*sender*/,
                                        abi::IRadialControllerControlAcquiredEventArgs* args) {
    RETURN_IF_STEP_FAILS(835, LogContactOf(args));
    return S_OK;
}

HRESULT DialListener::OnIgnoredEvent(abi::IRadialController* /*sender*/, abi::IInspectable* /*args*/) {
    return S_OK;
}

}  // namespace brindle
