#include <atomic>

#include "bench/baseline/activation.h"
#include "bench/baseline/baseline.h"
#include "bench/baseline/handler.h"
#include "platform/interfaces/devices.h"

namespace baseline {

namespace {

using Operation = abi::IAsyncOperation<abi::DeviceInformationCollection>;
using Devices = abi::IVectorView<abi::DeviceInformation>;

constexpr auto kFilter = Wide(
    "System.Devices.InterfaceClassGuid:=\"{80795c47-03f0-446d-b1f2-e424b30db4da}\" AND"
    "\t\t\tSystem.Devices.InterfaceEnabled: = System.StructuredQueryType.Boolean#True");
constexpr auto kPrefix = Wide("\\\\?\\BTHLE#Dev_bc838528f72a#");

bool IsTheDial(abi::IDeviceInformation* device) {
    HSTRING prefix = nullptr;
    WindowsCreateString(kPrefix.data(), kPrefix.size() - 1, &prefix);
    HSTRING id = nullptr;
    device->get_Id(&id);
    const UINT length = WindowsGetStringLen(prefix);
    const bool same = _wcsnicmp(WindowsGetStringRawBuffer(id, nullptr),
                                WindowsGetStringRawBuffer(prefix, nullptr), length) == 0;
    WindowsDeleteString(id);
    WindowsDeleteString(prefix);
    return same;
}

bool Holds(Devices* devices) {
    std::uint32_t size = 0;
    devices->get_Size(&size);
    bool found = false;
    for (std::uint32_t i = 0; i < size && !found; ++i) {
        abi::IDeviceInformation* device = nullptr;
        devices->GetAt(i, &device);
        found = IsTheDial(device);
        device->Release();
    }
    return found;
}

// May outlive the call, as the completion may.
class Completion final
    : public Counted<abi::AsyncOperationCompletedHandler<abi::DeviceInformationCollection>> {
public:
    HRESULT Invoke(Operation* operation, abi::AsyncStatus) override {
        Devices* devices = nullptr;
        if (const HRESULT code = operation->GetResults(&devices); code < 0) {
            return code;
        }
        found_ = Holds(devices);
        devices->Release();
        done_ = true;
        done_.notify_one();
        return S_OK;
    }

    bool Wait() const {
        done_.wait(false);
        return found_;
    }

private:
    bool found_ = false;
    std::atomic<bool> done_ = false;
};

}  // namespace

bool IsDialPresent() {
    HSTRING filter = nullptr;
    WindowsCreateString(kFilter.data(), kFilter.size() - 1, &filter);
    abi::IDeviceInformationStatics* statics = nullptr;
    if (GetFactory<abi::DeviceInformation>(statics) < 0) {
        WindowsDeleteString(filter);
        return false;
    }
    Operation* operation = nullptr;
    statics->FindAllAsyncAqsFilter(filter, &operation);
    statics->Release();
    auto* completion = new Completion;
    operation->put_Completed(completion);
    operation->Release();
    WindowsDeleteString(filter);
    const bool found = completion->Wait();
    completion->Release();
    return found;
}

}  // namespace baseline
