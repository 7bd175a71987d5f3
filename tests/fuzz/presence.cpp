// Lists of devices of every kind: the dial is there exactly when an enabled interface of its class begins
// with its address, and the platform says so in time.
#include <new>
#include <string_view>

#include "fuzz.h"
#include "support/recording_host.h"

namespace {

constexpr std::string_view kPrefix = R"(\\?\bthle#dev_bc838528f72a#)";
constexpr char kDialClass[] = "{80795c47-03f0-446d-b1f2-e424b30db4da}";
constexpr char kOtherClass[] = "{80795c47-03f0-446d-b1f2-e424b30db4db}";

// Without any one of these the dial is not found.
constexpr const char* kNeeded[] = {
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
// Kinds from here on may cost a whole wait.
constexpr std::uint8_t kRareKind = 0xF0;

bool BeginsLikeTheDial(std::string id) {
    for (char& c : id) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c;
    }
    return id.starts_with(kPrefix);
}

// Bytes as they come, mostly behind the dial's address, with one of its characters changed.
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

// Whether it is the dial.
bool AddDevice(Input& input) {
    const std::uint8_t kind = input.Byte();
    if ((kind & 7) == 7) {
        dialsim_add_device(nullptr, nullptr, true);
        return false;
    }
    const bool enabled = (kind & 8) == 0;
    const bool of_its_class = (kind & 16) == 0;
    const std::string id = TakeId(input);
    dialsim_add_device(id.c_str(), of_its_class ? ((kind & 32) != 0 ? kDialClass : nullptr) : kOtherClass,
                       enabled);
    return enabled && of_its_class && BeginsLikeTheDial(id);
}

bool AddDevices(Input& input) {
    dialsim_remove_devices();
    bool there = false;
    for (std::size_t count = input.Below(8); count > 0; --count) {
        there = AddDevice(input) || there;
    }
    return there;
}

// Whether an answer comes, and in time.
bool SetAnswer(Input& input) {
    const std::uint8_t kind = input.Byte();
    const std::uint32_t delay = kind < kRareKind ? 0 : kLongestWait + input.Byte() % 3 - 1;
    dialsim_async(delay == 0 && (kind & 1) != 0 ? DIALSIM_AT_ONCE : DIALSIM_OWN_THREAD);
    dialsim_async_delay(delay);
    return delay <= kLongestWait;
}

// Whether everything works.
bool SetFault(Input& input) {
    const std::uint8_t kind = input.Byte();
    if (kind < kRareKind) {
        return true;
    }
    const std::int32_t code = (kind & 1) != 0 ? kOutOfMemory : kFail;
    const std::size_t failing = input.Below(std::size(kNeeded) + 1);
    if (failing == std::size(kNeeded)) {
        dialsim_fail_devices(code);
    } else if ((kind & 2) != 0) {
        dialsim_fail_late(kNeeded[failing], code, 1, 0);
    } else {
        dialsim_fail(kNeeded[failing], code, 1, 0);
    }
    return false;
}

// No memory for the question is an exception; everything else an answer.
bool Ask() {
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
    Check(init_dial_listener(&host), "the window is served");
    Input input(bytes, size);
    for (int questions = 0; questions < 3 && !input.Empty(); ++questions) {
        const bool there = AddDevices(input);
        const bool in_time = SetAnswer(input);
        const bool works = SetFault(input);
        CheckSame(Ask(), there && in_time && works, "is_dial_present");
        CheckSame(is_dial_present(kWindow + 1), false, "a window without a listener");
        dialsim_wait_for_async();  // an answer that comes late would end the wait for the next one
        if (!works) {
            break;  // faults stay
        }
    }
    return 0;
}
