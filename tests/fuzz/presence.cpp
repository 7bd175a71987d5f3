// Arbitrary device lists: the dial is present exactly when an enabled interface of its class begins with its
// address and the enumeration completes in time.
#include <new>
#include <string_view>

#include "fuzz.h"
#include "support/recording_host.h"

namespace {

constexpr std::string_view kPrefix = R"(\\?\bthle#dev_bc838528f72a#)";
constexpr char kDialClass[] = "{80795c47-03f0-446d-b1f2-e424b30db4da}";
constexpr char kOtherClass[] = "{80795c47-03f0-446d-b1f2-e424b30db4db}";

// A failure of any one of these hides the dial.
constexpr const char* kRequired[] = {
    "RoGetActivationFactory(Windows.Devices.Enumeration.DeviceInformation)",
    "WindowsCreateString",
    "IDeviceInformationStatics::FindAllAsyncAqsFilter",
    "IAsyncOperation<DeviceInformationCollection>::put_Completed",
    "IAsyncOperation<DeviceInformationCollection>::GetResults",
    "IVectorView<DeviceInformation>::get_Size",
    "IVectorView<DeviceInformation>::GetAt",
    "IDeviceInformation::get_Id",
};

constexpr std::uint32_t kLongestWait = 10'001;
// From here on, a kind may cost a full wait.
constexpr std::uint8_t kRareKind = 0xF0;

bool HasDialPrefix(std::string id) {
    for (char& c : id) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c;
    }
    return id.starts_with(kPrefix);
}

// Arbitrary bytes, mostly after the dial's address, with one of its characters changed.
std::string TakeId(Input& input) {
    std::string id;
    if (input.Flag()) {
        id = kPrefix;
        const std::size_t place = input.Below(id.size());
        id[place] = static_cast<char>(input.Byte());
    }
    id += input.Bytes();
    return id.substr(0, id.find('\0'));
}

// Returns whether the device is the dial.
bool AddDevice(Input& input) {
    const std::uint8_t kind = input.Byte();
    if ((kind & 7) == 7) {
        dialsim_add_device(nullptr, nullptr, true);
        return false;
    }
    const bool enabled = (kind & 8) == 0;
    const bool has_dial_class = (kind & 16) == 0;
    const std::string id = TakeId(input);
    dialsim_add_device(id.c_str(), has_dial_class ? ((kind & 32) != 0 ? kDialClass : nullptr) : kOtherClass,
                       enabled);
    return enabled && has_dial_class && HasDialPrefix(id);
}

bool AddDevices(Input& input) {
    dialsim_remove_devices();
    bool has_dial = false;
    for (std::size_t count = input.Below(8); count > 0; --count) {
        has_dial = AddDevice(input) || has_dial;
    }
    return has_dial;
}

// Returns whether the enumeration completes in time.
bool SetDelay(Input& input) {
    const std::uint8_t kind = input.Byte();
    const std::uint32_t delay = kind < kRareKind ? 0 : kLongestWait + input.Byte() % 3 - 1;
    dialsim_async(delay == 0 && (kind & 1) != 0 ? DIALSIM_AT_ONCE : DIALSIM_OWN_THREAD);
    dialsim_async_delay(delay);
    return delay <= kLongestWait;
}

// Returns false where it injects a fault.
bool SetFault(Input& input) {
    const std::uint8_t kind = input.Byte();
    if (kind < kRareKind) {
        return true;
    }
    const std::int32_t code = (kind & 1) != 0 ? kOutOfMemory : kFail;
    const std::size_t failing = input.Below(std::size(kRequired) + 1);
    if (failing == std::size(kRequired)) {
        dialsim_fail_devices(code);
    } else if ((kind & 2) != 0) {
        dialsim_fail_late(kRequired[failing], code, 1, 0);
    } else {
        dialsim_fail(kRequired[failing], code, 1, 0);
    }
    return false;
}

// The only exception is std::bad_alloc.
bool QueryPresence() {
    try {
        return is_dial_present(kWindow);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Run run;
    RecordingHost host(kWindow);
    const InitializedLibrary started;
    Check(init_dial_listener(&host), "the window is registered");
    Input input(bytes, size);
    for (int queries = 0; queries < 3 && !input.Empty(); ++queries) {
        const bool has_dial = AddDevices(input);
        const bool in_time = SetDelay(input);
        const bool is_fault_free = SetFault(input);
        CheckSame(QueryPresence(), has_dial && in_time && is_fault_free, "is_dial_present");
        CheckSame(is_dial_present(kWindow + 1), false, "a window without a listener");
        dialsim_wait_for_async();  // a late completion would end the next wait
        if (!is_fault_free) {
            break;  // faults persist
        }
    }
    return 0;
}
