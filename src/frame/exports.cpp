// Seven of the eleven exports: starting and stopping the platform, and finding the listener of a window. The
// operations of a listener are in dial/, menu/ and presence/; storage_exports.cpp has the other four exports.
#include "brindle.h"
#include "dial/dial_listener.h"
#include "frame/diagnostics/diagnostics.h"
#include "frame/listener_registry.h"
#include "platform/activation.h"
#include "platform/errors.h"
#include "platform/functions.h"
#include "platform/interfaces/metadata.h"

namespace brindle {

namespace {

constexpr int32_t kReady = 0;
constexpr int32_t kPlatformUnavailable = 1;
constexpr int32_t kPlatformTooOld = 2;

ListenerRegistry registry;

// For the two class names of initialize: without platform strings nothing else can work
// (StartStopDeathTest.AProbeNameThatCannotBeMadeIsAStructuredException).
void CreateOrDie(StringReference& string, std::basic_string_view<WCHAR> text) {
    if (const HRESULT code = string.Create(text); code < 0) {
        RaiseStructuredException(code);
    }
}

template <class Operation>
bool CallListener(uint64_t window, Operation operation) {
    DialListener* listener = registry.Find(window);
    return listener != nullptr && operation(*listener) >= 0;
}

}  // namespace

}  // namespace brindle

using namespace brindle;

int32_t initialize() {
    if (RoInitialize(RO_INIT_SINGLETHREADED) < 0) {
        return kPlatformUnavailable;
    }
    StringReference api_information;
    CreateOrDie(api_information, ClassName<abi::ApiInformation>());
    ComPtr<abi::IApiInformationStatics> types;
    if (RoGetActivationFactory(api_information.Get(), abi::IApiInformationStatics::Iid,
                               reinterpret_cast<void**>(types.Put())) < 0 ||
        !types) {
        // The Windows Runtime deliberately stays initialised: the host's thread keeps its apartment
        // (StartStop.AMissingProbeAnswersOneAndLeavesThePlatformStarted).
        return kPlatformUnavailable;
    }
    StringReference required;
    CreateOrDie(required, ClassName<abi::EdgeGesture>());
    abi::boolean present = 0;
    types->IsTypePresent(required.Get(), &present);
    return present != 0 ? kReady : kPlatformTooOld;
}

void uninit() {
    registry.EndAll();
    RoUninitialize();
}

bool init_dial_listener(IDialHost* host) {
    if (host == nullptr) {
        return false;
    }
    auto listener = std::make_unique<DialListener>(host);
    if (const HRESULT code = listener->Register(host->GetWindowHandle()); code < 0) {
        PrintFailure("register", code, 110);
        return false;
    }
    // Deliberately asked a second time, after the registration: brindle.h tells hosts that the listener is
    // registered for this answer (Listener.TheSecondAnswerIsTheKey).
    registry.Insert(host->GetWindowHandle(), std::move(listener));
    return true;
}

bool add_custom_menu(uint64_t window, const MenuItemDescription* items, uint32_t count) {
    return CallListener(window,
                        [&](DialListener& listener) { return listener.Menu().AddCustomMenu(items, count); });
}

bool set_default_menu(uint64_t window, const int32_t* kinds, uint32_t count) {
    return CallListener(window,
                        [&](DialListener& listener) { return listener.Menu().SetDefaultMenu(kinds, count); });
}

bool set_current_custom_menu(uint64_t window, uint32_t item_id) {
    return CallListener(
        window, [&](DialListener& listener) { return listener.Menu().SetCurrentCustomMenu(item_id); });
}

bool is_dial_present(uint64_t window) {
    return CallListener(window, [](DialListener& listener) { return listener.Presence().IsDialPresent(); });
}
