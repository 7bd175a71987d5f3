// is_dial_present: starts a device enumeration on every call and waits for it.
//
//   the caller                                   the platform's thread
//   done = 0, start the enumeration
//   sleep 1 ms until done is 1,                  found = one of the devices is the dial
//     10,001 times at most                       done = 1
//   return found
#include "presence/presence_query.h"

#include <new>

#include "platform/activation.h"
#include "platform/error_to_code.h"
#include "platform/errors.h"
#include "platform/free_threaded.h"
#include "platform/interfaces/devices.h"
#include "platform/text.h"

namespace brindle {

namespace {

using DeviceList = abi::IVectorView<abi::DeviceInformation>;
using Enumeration = abi::IAsyncOperation<abi::DeviceInformationCollection>;
using EnumerationHandler = abi::AsyncOperationCompletedHandler<abi::DeviceInformationCollection>;

// The enabled interfaces of the dial's class. Passed to the platform unchanged, the three tabs included
// (Presence.TheFilterIsCreatedFirstAndPassedUnchanged).
constexpr auto kInterfaceFilter = Wide(
    "System.Devices.InterfaceClassGuid:=\"{80795c47-03f0-446d-b1f2-e424b30db4da}\" AND"
    "\t\t\tSystem.Devices.InterfaceEnabled: = System.StructuredQueryType.Boolean#True");
static_assert(kInterfaceFilter.size() - 1 == 156);

// Deliberately one dial, by its Bluetooth address: brindle.h tells hosts that any other counts as none
// (Presence.ASimilarIdIsNoDial).
constexpr auto kDialPrefix = Wide("\\\\?\\BTHLE#Dev_bc838528f72a#");
static_assert(kDialPrefix.size() - 1 == 27);

constexpr int kWaitBound = 10'000;

template <std::size_t N>
String MakeString(const std::array<WCHAR, N>& text) {
    String string;
    ThrowIfFailed(WindowsCreateString(text.data(), N - 1, string.Put()));
    return string;
}

// Stores the result before it releases the strings
// (DialListenerTest.TheResultIsStoredBeforeItsStringsAreReleased).
bool IsTheDial(abi::IDeviceInformation& device, SharedFlag& found) {
    const String prefix = MakeString(kDialPrefix);
    String id;
    ThrowIfFailed(device.get_Id(id.Put()));
    const UINT length = LengthOf(prefix);
    const bool equal = _wcsnicmp(TextOf(id), TextOf(prefix), length) == 0;
    found.value = equal ? 1 : 0;
    return equal;
}

// The first match ends the scan: later devices are not read (Presence.TheFirstMatchEndsTheScan).
void FindDial(DeviceList& devices, SharedFlag& found) {
    std::uint32_t size = 0;
    ThrowIfFailed(devices.get_Size(&size));
    for (std::uint32_t i = 0; i < size; ++i) {
        ComPtr<abi::IDeviceInformation> device;
        ThrowIfFailed(devices.GetAt(i, device.Put()));
        if (device && IsTheDial(*device.Get(), found)) {
            return;
        }
    }
}

// The status is deliberately not read: GetResults of a failed enumeration fails
// (Presence.TheStatusOfTheCompletionIsNotConsulted).
void OnPresenceQueryCompleted(Enumeration& enumeration, SharedFlag& found, SharedFlag& done) {
    ComPtr<DeviceList> devices;
    ThrowIfFailed(enumeration.GetResults(devices.Put()));
    if (devices) {
        FindDial(*devices.Get(), found);
    }
    done.value.exchange(1);
}

ComPtr<Enumeration> StartEnumeration(const String& filter) {
    ComPtr<abi::IDeviceInformationStatics> devices;
    ThrowIfFailed(GetFactory<abi::DeviceInformation>(devices));
    ComPtr<Enumeration> enumeration;
    ThrowIfFailed(devices->FindAllAsyncAqsFilter(filter.Get(), enumeration.Put()));
    return enumeration;
}

// Counts sleeps, not time: ends with the sleep above the bound, after which the flag is not read
// (Presence.TheWaitGivesUpAfterTenThousandAndOneSleeps,
// PresenceWait.ReadsTheFlagLastAfterTheTenThousandthSleep).
void WaitFor(const SharedFlag& done) {
    for (int sleeps = 0; sleeps <= kWaitBound && done.value < 1; ++sleeps) {
        Sleep(1);
    }
}

}  // namespace

// The completion handler shares both flags: it may run after the call, or after the listener's end
// (Presence.ALateCompletionAfterUninitTouchesNothing).
void PresenceQuery::Start(const ComPtr<SharedFlag>& found, const ComPtr<SharedFlag>& done) {
    const String filter = MakeString(kInterfaceFilter);
    const ComPtr<Enumeration> enumeration = StartEnumeration(filter);
    if (!enumeration) {
        // Nothing will complete. The caller deliberately waits the full time, as after a failed enumeration
        // (Presence.AnOperationThatIsYieldedAsNullTimesOut).
        return;
    }
    // A failure deliberately leaves the flag unset and the caller waiting to the bound, as brindle.h tells
    // hosts (ScanningStep.ThatFailsLeavesTheWaitToItsBoundAndItsCodeToThePlatform).
    const auto handler = MakeFreeThreadedDelegate<EnumerationHandler>(
        [found, done](Enumeration* completed, abi::AsyncStatus) noexcept {
            try {
                OnPresenceQueryCompleted(*completed, *found.Get(), *done.Get());
                return S_OK;
            } catch (...) {
                return ErrorToCode();
            }
        });
    if (!handler) {
        throw std::bad_alloc();
    }
    ThrowIfFailed(enumeration->put_Completed(handler.Get()));
}

HRESULT PresenceQuery::IsDialPresent() {
    const auto found = ComPtr<SharedFlag>::Attach(new SharedFlag);
    done_->value.exchange(0);
    try {
        Start(found, done_);
    } catch (const hresult_error& error) {
        return error.code();
    }
    WaitFor(*done_.Get());
    return found->value != 0 ? S_OK : E_FAIL;
}

}  // namespace brindle
